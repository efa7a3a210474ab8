// SPDX-License-Identifier: MIT
#include "slip/RelatorioVELO.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "document/Imagens.h"
#include "tests/support/Apoio.h"
#include "tests/support/Esboco.h"

namespace tarvo::apoio {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr const char* Guias = R"sql(
insert into tblVELO values ('Padaria São João', 'Rua A, 10', 'Água Clara', 'VD', '5555-0000',
    'linha um' || char(13, 10) || 'linha dois', '15/08/2003', '046-2', '110', '00.1', 'DA7',
    '07/2003', 'AI9', '1.000,00', '10,00', '20,00', '30,00', '40,00', '1.100,00');
insert into tblVELO (Contribuinte, IE) values ('Outra', '999');
)sql";

constexpr double TopoContribuinte = 3.0;  // cm, of each copy's main frame
constexpr double TopoBanco = 16.25;

template <class Classe>
concept TemImprimir = requires(Classe& relatorio) {
    relatorio.Imprimir();
};

bool Perto(double a, double b) {
    return std::fabs(a - b) < 0.001;
}

bool Dentro(const Caixa& a, const Caixa& b) {
    return a.x > b.x - 0.001 && a.y > b.y - 0.001 && a.x + a.largura < b.x + b.largura + 0.001 &&
           a.y + a.altura < b.y + b.altura + 0.001;
}

template <class P>
std::vector<P> Todas(const Conteudo& conteudo) {
    std::vector<P> todas;
    for (const Primitiva& primitiva : conteudo.paginas.at(0)) {
        if (const auto* p = std::get_if<P>(&primitiva)) {
            todas.push_back(*p);
        }
    }
    return todas;
}

// The framed box of the taxpayer's copy in which a legend stands.
std::optional<Caixa> CampoDa(const Conteudo& c, std::string_view legenda) {
    for (const auto& texto : Todas<Texto>(c)) {
        for (const auto& moldura : Todas<Retangulo>(c)) {
            if (texto.texto == legenda && texto.caixa.y < TopoBanco && !moldura.preenchido &&
                Dentro(texto.caixa, moldura.caixa)) {
                return moldura.caixa;
            }
        }
    }
    return std::nullopt;
}

std::vector<std::string> TextosDentro(const Conteudo& c, const Caixa& caixa) {
    std::vector<std::string> textos;
    for (const auto& texto : Todas<Texto>(c)) {
        if (Dentro(texto.caixa, caixa)) {
            textos.push_back(texto.texto);
        }
    }
    return textos;
}

struct Velo : testing::Test {
    const Conteudo& Construir() {
        relatorio.Construir(*banco);
        return relatorio.Documento();
    }
    BancoDeTeste banco{Guias};
    RelatorioVELO relatorio;
};

TEST_F(Velo, EveryNumberedBoxHoldsItsLegendAndItsValueOfTheFirstRow) {
    const Conteudo& c = Construir();
    const struct {
        const char* numero;  // on the tab left of the box
        const char* legenda;
        const char* valor;
    } campos[] = {{"03", "CÓDIGO DE RECEITA", "046-2"},
                  {"04", "INSCRIÇÃO ESTADUAL", "110"},
                  {"05", "CNPJ ou CPF", "00.1"},
                  {"06", "INSCRIÇÃO NA DÍVIDA ATIVA ou Nº DA ETIQUETA", "DA7"},
                  {"07", "REFERÊNCIA (mês / ano)", "07/2003"},
                  {"08", "Nº AIIM ou Nº DI ou Nº PARCELAMENTO", "AI9"},
                  {"09", "VALOR DA RECEITA (Nominal ou Corrigida)", "1.000,00"},
                  {"10", "JUROS DE MORA", "10,00"},
                  {"11", "MULTA DE MORA ou POR INFRAÇÃO (Nominal ou Corrigida)", "20,00"},
                  {"12", "ACRÉSCIMO FINANCEIRO", "30,00"},
                  {"13", "HONORÁRIOS ADVOCATÍCIOS", "40,00"},
                  {"14", "VALOR TOTAL", "1.100,00"},
                  {"15", "CONTRIBUINTE", "Padaria São João"},
                  {"16", "ENDEREÇO", "Rua A, 10"},
                  {nullptr, "MUNICÍPIO", "Água Clara"},
                  {nullptr, "UF", "VD"},
                  {"17", "TELEFONE", "5555-0000"},
                  {"18", "CNAE", " "}};
    for (const auto& [numero, legenda, valor] : campos) {
        SCOPED_TRACE(legenda);
        const auto campo = CampoDa(c, legenda);
        ASSERT_TRUE(campo);
        EXPECT_THAT(TextosDentro(c, *campo), ElementsAre(legenda, valor));
        if (numero != nullptr) {
            const Caixa aba{campo->x - 0.55, campo->y, 0.55, 0.65};
            EXPECT_THAT(TextosDentro(c, aba), ElementsAre(numero));
        }
    }
    const auto vencimento = CampoDa(c, "VENCIMENTO");
    ASSERT_TRUE(vencimento);
    EXPECT_THAT(TextosDentro(c, *vencimento),
                ElementsAre("DATA DE", "", "VENCIMENTO", "15/08/2003"));
    EXPECT_THAT(Textos(c, 0), Contains("linha um\r\nlinha dois").Times(2));
}

TEST_F(Velo, EachCopyIsReadUnderItsNameByTheNumbersOfItsFields) {
    const auto esboco = Esboco(Construir());
    EXPECT_THAT(esboco, Contains("02 DATA DE VENCIMENTO: 15/08/2003").Times(2));
    std::string inicios;
    for (const auto& linha : esboco) {
        inicios += linha.starts_with('#') ? linha + " " : linha.substr(0, 2) + " ";
    }
    const std::string copia =
        "[B GO VE 01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16 MU UF 17 18 19 20 [P ";
    EXPECT_EQ(inicios, "# GUIA DE ARRECADAÇÃO ESTADUAL ## VIA CONTRIBUINTE " + copia +
                           "## GUIA DE ARRECADAÇÃO ESTADUAL VIA BANCO " + copia);
}

TEST_F(Velo, TheBanksCopyIsTheTaxpayersFurtherDownAndBothStandOnThePaper) {
    const Conteudo& c = Construir();
    const Pagina& pagina = c.paginas.at(0);
    ASSERT_EQ(pagina.size() % 2, 0U);
    const auto caixaDe = [](const Primitiva& p) {
        return std::visit([](const auto& primitiva) { return primitiva.caixa; }, p);
    };
    for (std::size_t i = 0; i < pagina.size() / 2; ++i) {
        Primitiva doBanco = pagina[i + pagina.size() / 2];
        const double deslocamento = caixaDe(doBanco).y - caixaDe(pagina[i]).y;
        EXPECT_TRUE(Perto(deslocamento, TopoBanco - TopoContribuinte)) << i;
        std::visit([&](auto& primitiva) { primitiva.caixa = caixaDe(pagina[i]); }, doBanco);
        if (auto* via = std::get_if<Texto>(&doBanco); via != nullptr && via->texto == "VIA BANCO") {
            via->texto = "VIA CONTRIBUINTE";
        }
        EXPECT_EQ(doBanco, pagina[i]) << i;
        const Caixa papel{-c.margens.esquerda, 0, LarguraA4, AlturaA4};
        EXPECT_TRUE(Dentro(caixaDe(pagina[i + pagina.size() / 2]), papel)) << i;
    }
    EXPECT_EQ(Todas<Figura>(c).size(), 6U) << "arms, citation and scissors of each copy";
}

TEST_F(Velo, NoBoxStandsOverAnother) {
    std::vector<Caixa> caixas;
    for (const auto& moldura : Todas<Retangulo>(Construir())) {
        if (!moldura.preenchido) {
            caixas.push_back(moldura.caixa);
        }
    }
    EXPECT_GT(caixas.size(), 60U);
    for (std::size_t i = 0; i < caixas.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const Caixa& a = caixas[i];
            const Caixa& b = caixas[j];
            const double lado = std::min(a.x + a.largura, b.x + b.largura) - std::max(a.x, b.x);
            const double alto = std::min(a.y + a.altura, b.y + b.altura) - std::max(a.y, b.y);
            EXPECT_TRUE(lado < 0.001 || alto < 0.001)
                << a.x << " " << a.y << " over " << b.x << " " << b.y;
        }
    }
}

TEST_F(Velo, IsPreviewedOnlyAndSaysWhatItIs) {
    static_assert(!TemImprimir<RelatorioVELO>);
    const Conteudo& c = Construir();
    EXPECT_EQ(c.titulo, "VELO");
    EXPECT_EQ(c.tituloResumido, "VELO");
    EXPECT_EQ(c.icone, &frmFiguras::imgIconeG);
    EXPECT_EQ(c.margens, (Margens{1.325, 1.325, 0, 0}));
    EXPECT_EQ(c.paginas.size(), 1U);
}

TEST_F(Velo, NullFieldsPrintAsNothingAndAnEmptyTableAsAnEmptyPage) {
    banco.Executar("delete from tblVELO; insert into tblVELO (UF) values (null);");
    const auto textos = Textos(Construir(), 0);
    EXPECT_EQ(std::count(textos.begin(), textos.end(), ""), 2 * (19 + 1));
    banco.Executar("delete from tblVELO;");
    EXPECT_EQ(Construir().paginas, std::vector<Pagina>(1));
    banco.Executar("drop table tblVELO;");
    EXPECT_EQ(ErroDe([&] { Construir(); }).Numero(), NumeroErro::TabelaInexistente);
}

}  // namespace
}  // namespace tarvo::apoio
