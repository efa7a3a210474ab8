// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "tests/support/Apoio.h"
#include "tests/support/OperacoesCurtas.h"

// What the tests of the list reports share: two declarations, and the operations of the page frame
// around the body.
namespace tarvo::apoio {

// Taxpayer '1' with declaration 1, July 2003, and declaration 2, December 2001.
constexpr const char* DuasDeclaracoes = R"sql(
insert into tblContribuinte (IE, RazãoSocial, CNPJ) values ('1', 'Padaria São João', '00.1');
insert into tblDRQ (NroDRQ, Ref1, Ref2, Tipo, RegTrib, Consistente, Autenticação)
values (1, '2003-07-01', '2003-07-01', 1, '01', -1, 'A1B2'),
       (2, '2001-12-01', '2001-01-01', 2, '02', 0, null);
)sql";

// The statement, which selects from n, with i from 1 to vezes in n.
inline std::string Repetir(int vezes, const std::string& comando) {
    return "with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
           std::to_string(vezes) + ") " + comando + ";";
}

// A report of a declaration of taxpayer '1'.
template <class R>
Conteudo Construir(BancoDeTeste& banco, std::int32_t NumeroDRQ = 1, const Ambiente& ambiente = {}) {
    R relatorio(ambiente);
    relatorio.Construir(*banco, "1", NumeroDRQ);
    return relatorio.Documento();
}

// A page draws these operations and no others.
inline void ConferirPagina(const Conteudo& conteudo, const Lista& operacoes,
                           std::size_t pagina = 0) {
    EXPECT_THAT(Curtas(conteudo, pagina), testing::ElementsAreArray(operacoes));
}

inline const EstiloEsperado TituloDeQuadro{"M CM Arial 14b #808000", 0.1};
inline const EstiloEsperado TituloDeColuna{"M CT Arial 6b", 0.1, 0.05, 0.05};
inline const EstiloEsperado Rotulo{"T ET Arial 6b", 0.1, 0.05, 0.05};

struct TituloEsperado {
    double x;
    double y;
    double largura;
    double altura;
    std::string texto;
};

// Column headings.
inline Lista Titulos(const std::vector<TituloEsperado>& titulos) {
    Lista operacoes;
    for (const auto& [x, y, largura, altura, texto] : titulos) {
        operacoes = operacoes + Celula({x, y, largura, altura}, TituloDeColuna, texto);
    }
    return operacoes;
}

// Tag to lower bar, on every page of declaration 1.
inline Lista TopoEsperado() {
    return {"T 0 0 17 0.3 ET Arial 8 |DRQ",
            "T 0 0 17 0.3 DT Arial 8 |A1B2",
            "R 0 0.5 17 0.1 #808000 #808000",
            "F 0.1 0.65 1.74 1.89 imgBrasaoVDColorido",
            "T 2 0.85 13 0.7 CM Arial 14b #0000ff |Governo do Estado de Valdora",
            "T 2 1.65 13 0.7 CM Arial 14b #0000ff |Secretaria da Fazenda",
            "R 0 2.6 17 0.1 #808000 #808000"};
}

// The identification block of declaration 1 at y.
inline Lista IdentificacaoEsperada(double y, bool barra = true) {
    const EstiloEsperado pequeno{"T EB Arial 6", 0.2, 0.05, 0.05};
    Lista bloco = Celula({0, y, 17, 0.6}, {"T EM Arial 12b #808000", 0.1}, "Contribuinte") +
                  Celula({0, y + 0.6, 17, 0.6}, Rotulo, "Razão Social", {"T EB Arial 8", 0.2},
                         "Padaria São João") +
                  Celula({0, y + 1.2, 3.4, 0.6}, Rotulo, "Inscrição Estadual", pequeno, "1") +
                  Celula({3.4, y + 1.2, 3.4, 0.6}, Rotulo, "CNPJ", pequeno, "00.1") +
                  Celula({6.8, y + 1.2, 3.4, 0.6}, Rotulo, "Tipo da DRQ", pequeno, "Normal") +
                  Celula({10.2, y + 1.2, 3.4, 0.6}, Rotulo, "Regime Tributário", pequeno, "RPA") +
                  Celula({13.6, y + 1.2, 3.4, 0.6}, Rotulo, "Referência", pequeno, "07/2003");
    if (barra) {
        bloco.push_back(Curta("R", {0, y + 2, 17, 0.1}, "#808000 #808000"));
    }
    return bloco;
}

// The header with a title of one line.
inline Lista CabecalhoEsperado(const std::string& titulo, bool barra = true) {
    return TopoEsperado() + Celula({0, 2.9, 17, 0.7}, TituloDeQuadro, titulo) +
           IdentificacaoEsperada(3.6, barra);
}

inline Lista RodapeEsperado() {
    return {"R 0 25.2 17 0.1 #808000 #808000", "T 0 25.4 5.6667 0.3 EM Arial 6 |%%D",
            "T 5.6667 25.4 5.6667 0.3 CM Arial 6 |%%H",
            "T 11.3333 25.4 5.6667 0.3 DM Arial 6 |Página %%p de %%P"};
}

// The page's rows of cells from y on, each as its top and its texts: "7.60: Total 0,00".
inline Lista LinhasDesde(double y, const Conteudo& conteudo, std::size_t pagina) {
    Lista linhas;
    double topo = -1;
    for (const Primitiva& primitiva : conteudo.paginas.at(pagina)) {
        if (const auto* moldura = std::get_if<RetanguloArredondado>(&primitiva)) {
            if (moldura->caixa.y > y - 0.001 && std::fabs(moldura->caixa.y - topo) > 0.001) {
                topo = moldura->caixa.y;
                char inicio[16];
                std::snprintf(inicio, sizeof inicio, "%.2f:", topo);
                linhas.emplace_back(inicio);
            }
        } else if (const auto* texto = std::get_if<Texto>(&primitiva);
                   texto != nullptr && !linhas.empty() && texto->caixa.y < 25) {
            linhas.back() += " " + texto->texto;
        }
    }
    return linhas;
}

// How a document must run over its page end: what stands on the first page from y on and on the
// second from corpo on, where no second page stands for a document of one. Every page ends with
// the footer.
struct FimDePagina {
    double y;
    double corpo;
    void Conferir(const Conteudo& c, const Lista& primeira, const Lista& segunda) const {
        ASSERT_EQ(c.paginas.size(), segunda.empty() ? 1U : 2U);
        EXPECT_EQ(LinhasDesde(y, c, 0), primeira);
        EXPECT_EQ(segunda.empty() ? segunda : LinhasDesde(corpo, c, 1), segunda);
        for (std::size_t pagina = 0; pagina < c.paginas.size(); ++pagina) {
            const auto operacoes = Curtas(c, pagina);
            EXPECT_EQ(Lista(operacoes.end() - 4, operacoes.end()), RodapeEsperado());
        }
    }
};

}  // namespace tarvo::apoio
