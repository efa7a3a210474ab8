#include "host/exemplo/Exemplo.h"

#include <algorithm>
#include <map>

#include "data/Formatos.h"
#include "data/Funcoes.h"
#include "dispatch/Catalogo.h"
#include "tests/apoio/Apoio.h"

// The example is what a newcomer judges the reports by: its figures must agree with each other.
namespace tarvo {
namespace {

using apoio::BancoDeTeste;
using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::Le;

struct Declaracao {
    std::string ie;
    std::int32_t numero;
    std::string referencia;  // "07/2003"
    std::string regime;
};

std::vector<Declaracao> Declaracoes(BancoDeTeste& banco) {
    std::vector<Declaracao> declaracoes;
    const auto rs = banco->OpenRecordset("select * from tblDRQ", TipoRecordset::ForwardOnly);
    for (; !rs->EOF_(); rs->MoveNext()) {
        declaracoes.push_back({TextoCampo(rs->Fields("IE")), LongCampo(rs->Fields("NroDRQ")),
                               FormatarMesAno(DataCampo(rs->Fields("Ref1"))),
                               TextoCampo(rs->Fields("RegTrib"))});
    }
    return declaracoes;
}

std::map<std::string, Conteudo> Relatorios(BancoDeTeste& banco, const Declaracao& declaracao) {
    const apoio::ConfiguracaoFixa configuracao(declaracao.referencia);
    Ambiente ambiente;
    ambiente.configuracoes = &configuracao;
    std::map<std::string, Conteudo> documentos;
    for (const EntradaCatalogo& entrada : Catalogo()) {
        const auto relatorio = entrada.criar(ambiente);
        relatorio->Construir(*banco, declaracao.ie, declaracao.numero);
        documentos[std::string(entrada.codigo)] = relatorio->Documento();
    }
    return documentos;
}

// The printed amount after a field number of an assessment; zero when it has no such line.
Moeda Campo(const Conteudo& apuracao, const std::string& numero) {
    for (std::size_t pagina = 0; pagina < apuracao.paginas.size(); ++pagina) {
        const auto textos = apoio::Textos(apuracao, pagina);
        const auto achado = std::ranges::find(textos, numero);
        if (achado != textos.end()) return Moeda::DeTexto(*(achado + 1));
    }
    return {};
}

// The totals of the two groups of payments: own operations, substitution tax.
std::pair<Moeda, Moeda> Pagos(BancoDeTeste& banco, std::int32_t numero) {
    std::pair<Moeda, Moeda> pagos;
    const auto rs =
        banco->OpenRecordset("select * from tblPagamento where NroDRQ = " + std::to_string(numero),
                             TipoRecordset::ForwardOnly);
    for (; !rs->EOF_(); rs->MoveNext()) {
        const bool proprias = std::get<bool>(rs->Fields("OpPróprias").Value());
        (proprias ? pagos.first : pagos.second) += std::get<Moeda>(rs->Fields("Valor").Value());
    }
    return pagos;
}

// Declaration 301 is the one whose columns are Null; its only payment has no kind.
constexpr std::int32_t ComNulos = 301;

TEST(Exemplo, WhatEachDeclarationPaysIsWhatItsAssessmentsLeaveToPay) {
    BancoDeTeste banco(ScriptDeExemplo());
    for (const Declaracao& declaracao : Declaracoes(banco)) {
        SCOPED_TRACE(declaracao.numero);
        const auto documentos = Relatorios(banco, declaracao);
        if (declaracao.numero == ComNulos) continue;
        Moeda proprias = Campo(documentos.at("10"), "065");
        // Under the estimate the fixed parts are paid as well, even when they were too high.
        if (declaracao.numero / 100 == 2) proprias += Campo(documentos.at("10"), "064");
        EXPECT_EQ(Pagos(banco, declaracao.numero),
                  std::pair(proprias, Campo(documentos.at("14"), "065")));
    }
}

TEST(Exemplo, TheMainDeclarationTurnsThePageInEveryReport) {
    BancoDeTeste banco(ScriptDeExemplo());
    const Declaracao principal = Declaracoes(banco).at(0);
    ASSERT_EQ(principal.numero, 101);
    for (const auto& [codigo, documento] : Relatorios(banco, principal)) {
        SCOPED_TRACE(codigo);
        EXPECT_THAT(documento.paginas.size(), AllOf(Ge(codigo == "01" ? 1U : 2U), Le(4U)));
    }
}

TEST(Exemplo, BothAssessmentsShowEveryKindOfBalance) {
    BancoDeTeste banco(ScriptDeExemplo());
    std::vector<std::int32_t> devedores;
    std::vector<std::int32_t> credores;
    std::vector<std::int32_t> fixadosAMaior;
    for (const Declaracao& declaracao : Declaracoes(banco)) {
        const auto documentos = Relatorios(banco, declaracao);
        const Conteudo& propria = documentos.at("10");
        const auto anotar = [&](std::vector<std::int32_t>& lista, const char* campo) {
            if (Campo(propria, campo) > Moeda()) lista.push_back(declaracao.numero);
        };
        anotar(devedores, "065");
        anotar(credores, "066");
        anotar(fixadosAMaior, "067");
    }
    EXPECT_THAT(devedores, ElementsAre(101, 103, 202, 402, 501));
    EXPECT_THAT(credores, ElementsAre(102, 301));
    EXPECT_THAT(fixadosAMaior, ElementsAre(201));
}

TEST(Exemplo, AccountingValuesAreTheSumOfTheirParts) {
    BancoDeTeste banco(ScriptDeExemplo());
    const auto rs = banco->OpenRecordset("select * from tblDetalhesCFOPs", TipoRecordset::Dynaset);
    for (; !rs->EOF_(); rs->MoveNext()) {
        if (rs->Fields("NroDRQ").Value() == Valor(ComNulos)) continue;
        Moeda partes;
        for (const char* parte : {"BaseCálculo", "IsentasNãoTrib", "Outras", "ImpostoRetidoST",
                                  "ImpRetSubstitutoST", "OutrosImpostos"})
            partes += MoedaCampo(rs->Fields(parte));
        EXPECT_EQ(partes, MoedaCampo(rs->Fields("ValorContábil")))
            << TextoCampo(rs->Fields("NroDRQ")) << ' ' << TextoCampo(rs->Fields("CFOP"));
    }
}

TEST(Exemplo, IsWrittenOnceOrNotAtAll) {
    BancoDeTeste banco(ScriptDeExemplo());
    const auto antes = banco.Linhas("select NroDRQ from tblPagamento", 1);
    apoio::ErroDe([&] { banco.Executar(ScriptDeExemplo()); });
    EXPECT_EQ(banco.Linhas("select NroDRQ from tblPagamento", 1), antes);
}

}  // namespace
}  // namespace tarvo
