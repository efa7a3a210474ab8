#include "host/Preparo.h"

#include <unistd.h>

#include <ostream>

#include "data/Formatos.h"
#include "host/Declaracoes.h"
#include "host/Mensagens.h"
#include "platform/configuracoes/ConfiguracoesDaChamada.h"
#include "platform/sqlite/BancoSQLite.h"

namespace tarvo::host {

namespace {

// Says which taxpayer or declaration does not exist: their reports come out empty.
void AvisarAusentes(BancoDados& banco, const Argumentos& a, std::ostream& erros) {
    if (a.IE && !ExisteContribuinte(banco, *a.IE)) {
        erros << "aviso: o contribuinte " << *a.IE << " não existe neste banco\n";
    }
    if (a.NumeroDRQ && !ExisteDeclaracao(banco, *a.NumeroDRQ)) {
        erros << "aviso: a declaração " << *a.NumeroDRQ << " não existe neste banco\n";
    }
}

void AvisarCortes(std::ostream& erros, const std::string& nome, const ResultadoPDF& resultado) {
    for (const auto& corte : resultado.cortados) {
        erros << "aviso: " << nome << ", página " << corte.pagina << ", a "
              << FormatarValor(Moeda::DeDouble(corte.caixa.x)) << " × "
              << FormatarValor(Moeda::DeDouble(corte.caixa.y))
              << " cm: o texto não coube e foi cortado: \"" << corte.texto << "\"\n";
    }
}

// A database that cannot be written is read all the same, with work tables of this call alone.
std::unique_ptr<BancoSQLite> AbrirBanco(const std::filesystem::path& arquivo) {
    const auto pasta = arquivo.has_parent_path() ? arquivo.parent_path() : ".";
    if (::access(arquivo.c_str(), W_OK) == 0 && ::access(pasta.c_str(), W_OK) == 0) {
        return BancoSQLite::Abrir(arquivo);
    }
    return BancoSQLite::Abrir(arquivo, {.modo = ModoAbertura::SomenteLeitura,
                                        .tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
}

}  // namespace

int ParaCadaRelatorio(const Argumentos& a, std::ostream& erros,
                      const std::function<ResultadoPDF(const std::string& codigo,
                                                       const Relatorio& relatorio)>& usar) {
    const auto banco = AbrirBanco(a.banco);
    AvisarAusentes(*banco, a, erros);
    const ConfiguracoesDaChamada configuracoes(a.refAtual);
    const Ambiente ambiente{.configuracoes = &configuracoes};
    const Alvo alvo{a.IE.value_or(""), a.NumeroDRQ.value_or(0)};
    int situacao = Feito;
    for (const auto& codigo : a.todos ? CodigosOferecidos(*banco, alvo.NumeroDRQ) : a.codigos) {
        try {
            const auto relatorio = ConstruirRelatorio(codigo, *banco, alvo, ambiente);
            AvisarCortes(erros, NomeDoArquivo(codigo), usar(codigo, *relatorio));
        } catch (const Erro& erro) {
            DizerErro(erros, erro, "relatório " + codigo);
            situacao = Falhou;
        }
    }
    return situacao;
}

}  // namespace tarvo::host
