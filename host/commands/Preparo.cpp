#include "host/commands/Preparo.h"

#include <unistd.h>

#include <algorithm>
#include <ostream>

#include "data/Formatos.h"
#include "databases/AbrirBanco.h"
#include "host/commands/Declaracoes.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/Mensagens.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

// Says which taxpayer or declaration does not exist, of those that the reports need: their
// documents come out empty.
void AvisarAusentes(BancoDados& banco, const Argumentos& a, std::ostream& erros) {
    const auto precisa = [&](bool (*de)(std::string_view)) {
        return a.todos || std::any_of(a.codigos.begin(), a.codigos.end(), de);
    };
    if (a.IE && precisa(PrecisaDeContribuinte) && !ExisteContribuinte(banco, *a.IE)) {
        erros << "aviso: o contribuinte " << *a.IE << " não existe neste banco\n";
    }
    if (a.NumeroDRQ && precisa(PrecisaDeDeclaracao) && !ExisteDeclaracao(banco, *a.NumeroDRQ)) {
        erros << "aviso: a declaração " << *a.NumeroDRQ << " não existe neste banco\n";
    }
}

// On one line, as a message shows it.
std::string EmUmaLinha(std::string texto) {
    std::replace_if(
        texto.begin(), texto.end(), [](unsigned char c) { return c < ' '; }, ' ');
    return texto;
}

void AvisarCortes(std::ostream& erros, const std::string& nome,
                  const std::vector<TextoCortado>& cortados) {
    for (const auto& corte : cortados) {
        erros << "aviso: " << nome << ", página " << corte.pagina << ", a "
              << FormatarValor(Moeda::DeDouble(corte.caixa.x)) << " × "
              << FormatarValor(Moeda::DeDouble(corte.caixa.y))
              << " cm: o texto não coube e foi cortado: \"" << EmUmaLinha(corte.texto) << "\"\n";
    }
}

// A database that cannot be written is read all the same, with work tables of this call alone.
std::unique_ptr<BancoDados> AbrirParaRelatorios(const std::filesystem::path& arquivo,
                                                std::ostream& erros) {
    const auto pasta = arquivo.has_parent_path() ? arquivo.parent_path() : ".";
    if (::access(arquivo.c_str(), W_OK) == 0 && ::access(pasta.c_str(), W_OK) == 0) {
        return AbrirBanco(arquivo);
    }
    auto banco = AbrirBanco(arquivo, {.modo = ModoAbertura::SomenteLeitura,
                                      .tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
    erros << "aviso: o banco não pode ser alterado; as tabelas de trabalho são só desta chamada\n";
    return banco;
}

}  // namespace

int ParaCadaRelatorio(const Argumentos& a, std::ostream& erros,
                      const std::function<std::vector<TextoCortado>(
                          const std::string& codigo, const Relatorio& relatorio)>& usar) {
    const CapturaDeInterrupcao captura;
    CancelaSeInterrompido andamento(&erros);
    const auto banco = AbrirParaRelatorios(a.banco, erros);
    const Acompanhamento acompanhamento(*banco, &andamento);
    AvisarAusentes(*banco, a, erros);
    const ConfiguracoesIni doUsuario;
    const ConfiguracoesDaChamada configuracoes(doUsuario, a.refAtual);
    const Ambiente ambiente{.configuracoes = &configuracoes, .andamento = &andamento};
    const Alvo alvo{a.IE.value_or(""), a.NumeroDRQ.value_or(0)};
    int situacao = Feito;
    for (const auto& codigo : a.todos ? CodigosOferecidos(*banco, alvo.NumeroDRQ) : a.codigos) {
        try {
            const auto relatorio = ConstruirRelatorio(codigo, *banco, alvo, ambiente);
            AvisarCortes(erros, NomeDoArquivo(codigo), usar(codigo, *relatorio));
        } catch (...) {
            DizerErro(erros, ErroCorrente(), "relatório " + codigo, &configuracoes);
            situacao = Falhou;
        }
        if (Interrompido()) {
            return Falhou;
        }
    }
    return situacao;
}

}  // namespace tarvo::host
