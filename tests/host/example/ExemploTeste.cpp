// SPDX-License-Identifier: MIT
#include "host/example/Exemplo.h"

#include <algorithm>
#include <map>

#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "dispatch/Catalogo.h"
#include "tests/support/Apoio.h"

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

// What a declaration pays for own operations or for substitution tax.
Moeda Pago(BancoDeTeste& banco, std::int32_t numero, const std::string& opProprias) {
    const auto soma = banco->OpenRecordset(
        "select Sum(Valor) as Soma from tblPagamento where NroDRQ = " + std::to_string(numero) +
            " and OpPróprias = " + opProprias,
        TipoRecordset::ForwardOnly);
    return MoedaCampo(soma->Fields("Soma"));
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
        EXPECT_EQ(Pago(banco, declaracao.numero, "True"), proprias);
        EXPECT_EQ(Pago(banco, declaracao.numero, "False"), Campo(documentos.at("14"), "065"));
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

TEST(Exemplo, TheAssessmentsShowEveryKindOfBalance) {
    BancoDeTeste banco(ScriptDeExemplo());
    std::map<std::string, std::vector<std::int32_t>> positivos;
    for (const Declaracao& declaracao : Declaracoes(banco)) {
        const Conteudo apuracao = Relatorios(banco, declaracao).at("10");
        for (const char* campo : {"065", "066", "067"}) {
            if (Campo(apuracao, campo) > Moeda()) positivos[campo].push_back(declaracao.numero);
        }
    }
    EXPECT_THAT(positivos["065"], ElementsAre(101, 103, 202, 402, 501)) << "to pay";
    EXPECT_THAT(positivos["066"], ElementsAre(102, 301)) << "to carry forward";
    EXPECT_THAT(positivos["067"], ElementsAre(201)) << "fixed in excess";
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
