// SPDX-License-Identifier: MIT
#include <algorithm>
#include <set>
#include <tuple>

#include "data/LeitoresDeCampo.h"
#include "dispatch/Catalogo.h"
#include "document/Imagens.h"
#include "host/example/Exemplo.h"
#include "slip/RelatorioVELO.h"
#include "tests/support/Apoio.h"
#include "tests/support/BancoSorteado.h"

// Whoever cannot see the pages is told all of them, in order, and tables with their headings.
namespace tarvo::apoio {
namespace {

bool EhCelula(TipoElemento tipo) {
    return tipo == TipoElemento::Celula || tipo == TipoElemento::CelulaDeTitulo;
}

bool PodeConter(TipoElemento pai, TipoElemento filho) {
    switch (filho) {
        case TipoElemento::LinhaDeTabela:
            return pai == TipoElemento::Tabela;
        case TipoElemento::Celula:
        case TipoElemento::CelulaDeTitulo:
            return pai == TipoElemento::LinhaDeTabela;
        case TipoElemento::Rotulo:
        case TipoElemento::ValorDeCampo:
            return pai == TipoElemento::Campo || EhCelula(pai);
        default:
            return pai == TipoElemento::Documento;
    }
}

// Where a text or picture stands, or the cell that it is drawn in: page, y, x.
using Lugar = std::tuple<std::size_t, double, double>;

Lugar LugarDe(std::size_t p, const Caixa& caixa, const Caixa& moldura) {
    const bool dentro =
        caixa.y >= moldura.y && caixa.x >= moldura.x && caixa.y < moldura.y + moldura.altura;
    return dentro ? Lugar(p, moldura.y, moldura.x) : Lugar(p, caixa.y, caixa.x);
}

class Conferencia {
  public:
    explicit Conferencia(const Conteudo& conteudo)
        : elementos_(conteudo.estrutura.elementos),
          filhos_(elementos_.size()),
          lugares_(elementos_.size(), Lugar(conteudo.paginas.size(), 0, 0)) {
        for (std::uint32_t i = 1; i < elementos_.size(); ++i) {
            const auto pai = elementos_[i].pai;
            EXPECT_TRUE(pai < i && PodeConter(elementos_[pai].tipo, elementos_[i].tipo)) << i;
            filhos_[pai].push_back(i);
        }
        Conferir(conteudo);
        for (std::uint32_t i = 0; i < elementos_.size(); ++i) {
            if (elementos_[i].tipo == TipoElemento::Tabela) {
                ConferirGrade(i);
            }
        }
        EXPECT_EQ(Contar(TipoElemento::Titulo), conteudo.paginas[0].empty() ? 0 : 1);
    }

    [[nodiscard]] std::ptrdiff_t Contar(TipoElemento tipo) const {
        return std::ranges::count(elementos_, tipo, &Elemento::tipo);
    }

    // Siblings follow each other as on the pages: along a line, down a page, and down the columns
    // of a page where a list is printed in several.
    void ConferirOrdem(bool emColunas) const {
        for (const auto& irmaos : filhos_) {
            for (std::size_t i = 1; i < irmaos.size(); ++i) {
                const Lugar& anterior = lugares_[irmaos[i - 1]];
                const Lugar& lugar = lugares_[irmaos[i]];
                EXPECT_TRUE(anterior <= lugar ||
                            (emColunas && std::get<2>(anterior) < std::get<2>(lugar)))
                    << "element " << irmaos[i];
            }
        }
    }

  private:
    // Every text and picture belongs to an element that has content, or is decoration that repeats
    // what is told elsewhere or stands outside the page's contents.
    void Conferir(const Conteudo& conteudo) {
        for (std::size_t p = 0; p < conteudo.paginas.size(); ++p) {
            ASSERT_EQ(conteudo.estrutura.donos.at(p).size(), conteudo.paginas[p].size());
            Caixa moldura;
            for (std::size_t i = 0; i < conteudo.paginas[p].size(); ++i) {
                SCOPED_TRACE(testing::Message() << "page " << p << ", primitive " << i);
                const Primitiva& primitiva = conteudo.paginas[p][i];
                const auto dono = conteudo.estrutura.donos[p][i];
                if (const auto* quadro = std::get_if<RetanguloArredondado>(&primitiva)) {
                    moldura = quadro->caixa;
                }
                if (const auto* figura = std::get_if<Figura>(&primitiva)) {
                    ConferirDono(dono, LugarDe(p, figura->caixa, {}), primitiva,
                                 figura->imagem->nome);
                } else if (const auto* texto = std::get_if<Texto>(&primitiva)) {
                    ConferirDono(dono, LugarDe(p, texto->caixa, moldura), primitiva, texto->texto);
                } else {
                    EXPECT_EQ(dono, Estrutura::Decoracao);
                }
            }
        }
    }

    void ConferirDono(std::uint32_t dono, const Lugar& lugar, const Primitiva& primitiva,
                      std::string_view dito) {
        if (dono == Estrutura::Decoracao) {
            EXPECT_TRUE(repetiveis_.contains(dito) ||
                        (std::get<0>(lugar) > 0 &&
                         std::ranges::find(doCabecalho_, primitiva) != doCabecalho_.end()))
                << dito;
            return;
        }
        ASSERT_LT(dono, elementos_.size());
        const Elemento& e = elementos_[dono];
        EXPECT_TRUE(TemConteudo(e.tipo));
        if (e.tipo == TipoElemento::CelulaDeTitulo && e.escopo == Escopo::Coluna) {
            repetiveis_.insert(dito);
        } else if (!EhCelula(e.tipo) && !EhCelula(elementos_[e.pai].tipo)) {
            doCabecalho_.push_back(primitiva);
        }
        for (auto i = dono; i != Estrutura::Raiz; i = elementos_[i].pai) {
            lugares_[i] = std::min(lugares_[i], lugar);
        }
    }

    // Every row covers the same number of columns, headings of columns stand in the heading rows
    // alone, and no cell reaches out of them.
    void ConferirGrade(std::uint32_t tabela) const {
        std::vector<int> deCima;  // for each column how many more rows are covered
        for (const auto linha : filhos_[tabela]) {
            SCOPED_TRACE(testing::Message() << "row " << linha);
            const bool titulos = elementos_[linha].funcao == FuncaoDaLinha::Titulos;
            EXPECT_TRUE(titulos || std::ranges::count(deCima, 0) == std::ssize(deCima));
            std::vector<int> cobertas;
            const auto descer = [&] {
                while (cobertas.size() < deCima.size() && deCima[cobertas.size()] > 0) {
                    cobertas.push_back(deCima[cobertas.size()] - 1);
                }
            };
            for (const auto celula : filhos_[linha]) {
                const Elemento& e = elementos_[celula];
                EXPECT_EQ(e.tipo == TipoElemento::CelulaDeTitulo && e.escopo == Escopo::Coluna,
                          titulos);
                descer();
                cobertas.insert(cobertas.end(), e.colunas, e.linhas - 1);
            }
            descer();
            EXPECT_TRUE(deCima.empty() || deCima.size() == cobertas.size());
            deCima = cobertas;
        }
    }

    const std::vector<Elemento>& elementos_;
    std::vector<std::vector<std::uint32_t>> filhos_;
    std::vector<Lugar> lugares_;          // where the first thing of each element stands
    std::vector<Primitiva> doCabecalho_;  // what is told outside of tables
    std::set<std::string_view> repetiveis_{"DRQ",        "%%D", "%%H", "Página %%p de %%P",
                                           "imgTesoura", ""};
};

void ConferirRelatorios(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ,
                        const Ambiente& ambiente) {
    for (const auto& entrada : Catalogo()) {
        const auto relatorio = entrada.criar(ambiente);
        try {
            relatorio->Construir(banco, IE, NumeroDRQ);
        } catch (const Erro&) {
            continue;  // of a random declaration with a Null where none may be
        }
        SCOPED_TRACE(std::string(entrada.codigo) + " of " + std::to_string(NumeroDRQ));
        const Conferencia conferencia(relatorio->Documento());
        EXPECT_EQ(conferencia.Contar(TipoElemento::Tabela), entrada.codigo == "01" ? 0 : 1);
        conferencia.ConferirOrdem(entrada.codigo == "16");
    }
}

TEST(EstruturaDosRelatorios, TellsEverythingOnceInOrderWithEveryCellInItsColumn) {
    BancoDeTeste banco(ScriptDeExemplo());
    const auto declaracoes =
        banco->OpenRecordset("select * from tblDRQ", TipoRecordset::ForwardOnly);
    for (; !declaracoes->EOF_(); declaracoes->MoveNext()) {
        for (const char* mes : {"12/2002", "01/2003"}) {
            const ConfiguracaoFixa configuracoes(mes);
            ConferirRelatorios(*banco, TextoCampo(declaracoes->Fields("IE")),
                               LongCampo(declaracoes->Fields("NroDRQ")),
                               {.configuracoes = &configuracoes});
        }
    }
    RelatorioVELO guia;
    guia.Construir(*banco);
    const Conferencia conferencia(guia.Documento());
}

TEST(EstruturaDosRelatorios, HoldsForRandomDeclarationsToo) {
    BancoDeTeste banco(TabelasSemChaves);
    for (unsigned semente = 1; semente <= 15 && !testing::Test::HasFailure(); ++semente) {
        SCOPED_TRACE("seed " + std::to_string(semente));
        const BancoSorteado b(semente);
        banco.Executar(EsvaziarTabelas + b.sql);
        const ConfiguracaoFixa configuracoes(b.novos ? "07/2003" : "05/2001");
        ConferirRelatorios(*banco, "1", 1, {.configuracoes = &configuracoes});
    }
}

}  // namespace
}  // namespace tarvo::apoio
