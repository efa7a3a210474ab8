#include "host/commands/ProducaoDeRelatorios.h"

#include <unistd.h>

#include "data/Formatos.h"
#include "databases/AbrirBanco.h"
#include "host/commands/Declaracoes.h"
#include "host/commands/Interrupcao.h"
#include "host/commands/Mensagens.h"
#include "host/commands/RelatoriosPorCodigo.h"
#include "reports/ConfiguracoesDaChamada.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

// Says which taxpayer or declaration does not exist, of those that the reports need: their
// documents come out empty.
void AvisarAusentes(BancoDados& banco, const Argumentos& a, Console& console) {
    if (a.IE && PedeContribuinte(a) && !ExisteContribuinte(banco, *a.IE)) {
        console.Avisar("o contribuinte " + *a.IE + " não existe neste banco");
    }
    if (a.NumeroDRQ && PedeDeclaracao(a) && !ExisteDeclaracao(banco, *a.NumeroDRQ)) {
        console.Avisar("a declaração " + std::to_string(*a.NumeroDRQ) + " não existe neste banco");
    }
}

void AvisarCortes(Console& console, const std::string& nome,
                  const std::vector<TextoCortado>& cortados) {
    for (const auto& corte : cortados) {
        console.Avisar(nome + ", página " + std::to_string(corte.pagina) + ", a " +
                       FormatarValor(Moeda::DeDouble(corte.caixa.x)) + " × " +
                       FormatarValor(Moeda::DeDouble(corte.caixa.y)) +
                       " cm: o texto não coube e foi cortado: \"" + corte.texto + "\"");
    }
}

// A database that cannot be written is read all the same, with work tables of this call alone.
std::unique_ptr<BancoDados> AbrirParaRelatorios(const std::filesystem::path& arquivo,
                                                Console& console) {
    const auto pasta = arquivo.has_parent_path() ? arquivo.parent_path() : ".";
    if (::access(arquivo.c_str(), W_OK) == 0 && ::access(pasta.c_str(), W_OK) == 0) {
        return AbrirBanco(arquivo);
    }
    auto banco = AbrirBanco(arquivo, {.modo = ModoAbertura::SomenteLeitura,
                                      .tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
    console.Avisar("o banco não pode ser alterado; as tabelas de trabalho são só desta chamada");
    return banco;
}

}  // namespace

int ParaCadaRelatorio(const Argumentos& a, Console& console, const UsoDoRelatorio& usar) {
    const CapturaDeInterrupcao captura;
    CancelaSeInterrompido andamento(&console.Erros());
    const auto banco = AbrirParaRelatorios(a.banco, console);
    const Acompanhamento acompanhamento(*banco, &andamento);
    AvisarAusentes(*banco, a, console);
    const ConfiguracoesIni doUsuario;
    const ConfiguracoesDaChamada configuracoes(doUsuario, a.refAtual);
    const Ambiente ambiente{.configuracoes = &configuracoes, .andamento = &andamento};
    const Alvo alvo{a.IE.value_or(""), a.NumeroDRQ.value_or(0)};
    int situacao = Feito;
    for (const auto& codigo : a.todos ? CodigosOferecidos(*banco, alvo.NumeroDRQ) : a.codigos) {
        try {
            const auto relatorio = ConstruirRelatorio(codigo, *banco, alvo, ambiente);
            AvisarCortes(console, NomeDoArquivo(codigo), usar(codigo, *relatorio));
        } catch (...) {
            DizerErro(console.Erros(), ErroCorrente(), "relatório " + codigo, &configuracoes);
            situacao = Falhou;
        }
        if (Interrompido()) {
            return Falhou;
        }
    }
    return situacao;
}

}  // namespace tarvo::host
