// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "document/Imagens.h"
#include "document/QuadroPagina.h"
#include "tests/output/pdf/ApoioPDF.h"
#include "tests/support/MarcasDoPDF.h"

// The tags of a file, and what readers get from them.
namespace tarvo {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// An element with one text in a box of 0.5 cm.
void Texto(DocumentoRelatorio& doc, const Elemento& elemento, double x, double y,
           const std::string& texto, double largura = 4) {
    const Trecho trecho(doc, elemento);
    Escrever(doc, {{x, y, largura, 0.5}, texto});
}

void Valores(DocumentoRelatorio& doc, double y, const char* rotulo, const char* valor) {
    const Trecho linha(doc, LinhaDe(FuncaoDaLinha::Dados));
    Texto(doc, TituloDeLinha(), 0, y, rotulo);
    Texto(doc, CelulaDe(Natureza::Quantia), 4, y, valor);
    Texto(doc, CelulaDe(Natureza::Quantia), 8, y, "");
}

// Everything that a document can hold, drawn in another order than it is read, with a table that
// goes on over the page's end.
Conteudo Completo() {
    return Documento([](DocumentoRelatorio& doc) {
        ImprimirTopo(doc, {.titulo = "Apuração"}, 0, 0, nullptr);
        std::uint32_t nota = 0;
        {
            const Trecho paragrafo(doc, {.tipo = TipoElemento::Paragrafo});
            nota = paragrafo.Indice();
        }
        Texto(doc, {.tipo = TipoElemento::Secao}, 0, 5, "Contribuinte");
        CelulaRotulada(doc, Campo, 0, 5.5, 8, 0.6, "Nome", "São João");
        CelulaRotulada(doc, Campo, 8, 5.5, 8, 0.6, "CNPJ", "41.207.336/0001-58");
        {
            const Trecho primeira(doc, nota);
            Escrever(doc, {{0, 4, 8, 0.5}, "Lida antes da seção"});
        }
        const Trecho tabela(doc, {.tipo = TipoElemento::Tabela});
        {
            const Trecho linha(doc, LinhaDe(FuncaoDaLinha::Titulos));
            Texto(doc, TituloDeColuna(1, 2), 0, 7, "Item");
            Texto(doc, TituloDeColuna(2), 4, 7, "Base");
        }
        {
            const Trecho linha(doc, LinhaDe(FuncaoDaLinha::Titulos));
            Texto(doc, TituloDeColuna(), 4, 7.5, "Entradas");
            Texto(doc, TituloDeColuna(), 8, 7.5, "Saídas");
        }
        Valores(doc, 8, "051", "1.969.415,27");
        doc.NovaPagina();
        {
            const Trecho decoracao(doc, Estrutura::Decoracao);
            ImprimirTopo(doc, {.titulo = "Apuração"}, 0, 0, nullptr);
        }
        Valores(doc, 8, "052", "0,10");
        ImprimirRodape(doc, 0, YRodape);
    });
}

TEST(Marcas, PagesAreReadInTheirOrderAndRepeatNothing) {
    const ArquivoPDF arquivo(Completo());
    arquivo.EsperarSemFaltas();
    EXPECT_THAT(arquivo.FaltasDasMarcas(), IsEmpty());
    std::string lido;
    std::istringstream linhas(arquivo.Dito("pdfinfo -struct-text"));
    for (std::string linha; std::getline(linhas, linha);) {
        const auto inicio = linha.find_first_not_of(' ');
        const auto fim = linha.find_first_of(" :", inicio);
        if (inicio != std::string::npos && linha[inicio] != '/' && linha != "    \"\"") {
            lido +=
                linha[inicio] == '"' ? linha.substr(inicio) : linha.substr(inicio, fim - inicio);
            lido += ' ';
        }
    }
    EXPECT_EQ(lido,
              "Document Figure P \"Governo do Estado de Valdora\" P \"Secretaria da Fazenda\" "
              "H1 \"Apuração\" P \"Lida antes da seção\" H2 \"Contribuinte\" "
              "L LI Lbl \"Nome\" LBody \"São João\" LI Lbl \"CNPJ\" LBody \"41.207.336/0001-58\" "
              "Table TR TH \"Item\" TH \"Base\" TR TH \"Entradas\" TH \"Saídas\" "
              "TR TH \"051\" TD \"1.969.415,27\" TD TR TH \"052\" TD \"0,10\" TD ");
    EXPECT_THAT(arquivo.Dito("pdfinfo -struct"),
                AllOf(HasSubstr("/Scope /Column\n         /RowSpan 2"), HasSubstr("/ColSpan 2"),
                      HasSubstr("/Scope /Row")));
}

// What a host draws may be nested in any way.
TEST(Marcas, WhateverIsRecordedTheTreeIsAValidOne) {
    constexpr TipoElemento Tipos[] = {
        TipoElemento::Documento,      TipoElemento::Titulo, TipoElemento::Secao,
        TipoElemento::Paragrafo,      TipoElemento::Campo,  TipoElemento::Rotulo,
        TipoElemento::ValorDeCampo,   TipoElemento::Tabela, TipoElemento::LinhaDeTabela,
        TipoElemento::CelulaDeTitulo, TipoElemento::Celula, TipoElemento::Figura};
    int escritos = 0;
    const Conteudo conteudo = Documento([&](DocumentoRelatorio& doc) {
        const auto desenhar = [&](std::size_t i) {
            Escrever(doc, {{0, static_cast<double>(escritos % 50) / 2, 5, 0.5},
                           "n" + std::to_string(escritos) + "."});
            ++escritos;
            if (i % 5 == 0) {
                doc.DesenharFigura(6, 1, 1, 1, frmFiguras::imgTesoura, true);
                doc.DesenharRetangulo(0, 0, 17, 25, true, 0, 0xEEEEEE, 1);
            }
        };
        for (std::size_t a = 0; a < std::size(Tipos); ++a) {
            for (std::size_t b = 0; b < std::size(Tipos); ++b) {
                const Trecho fora(doc, {.tipo = Tipos[a]});
                for (const auto tipo : {Tipos[b], Tipos[(a + b) % std::size(Tipos)]}) {
                    const Trecho meio(doc, {.tipo = tipo, .colunas = 2, .linhas = 3});
                    const Trecho dentro(doc, {.tipo = Tipos[(a + 2 * b) % std::size(Tipos)]});
                    desenhar(a + b);
                }
                desenhar(b);
            }
        }
        // Rows of any width, cells that reach below the last one or over each other.
        const Trecho tabela(doc, {.tipo = TipoElemento::Tabela});
        for (const int largura : {2, 5, 1, 4, 3}) {
            const Trecho linha(doc, LinhaDe(FuncaoDaLinha::Dados));
            for (int coluna = 0; coluna < largura; ++coluna) {
                const Trecho celula(doc, TituloDeColuna(1 + coluna % 2, 1 + largura % 3));
                desenhar(1);
            }
        }
    });
    const ArquivoPDF arquivo(conteudo);
    arquivo.EsperarSemFaltas();
    EXPECT_THAT(arquivo.FaltasDasMarcas(), IsEmpty());
    const std::string lido = arquivo.Dito("pdfinfo -struct-text");
    for (int n = 0; n < escritos; ++n) {
        EXPECT_THAT(lido, HasSubstr("n" + std::to_string(n) + "."));
    }
}

TEST(Marcas, TextsThatAreCutOrCondensedAreFoundWhole) {
    const std::string longo = "Começo " + std::string(200, 'w') + " fim (de tudo)";
    const std::string grego = "Ὀδυσσεύς " + std::string(200, 'w') + " τέλος";
    const ArquivoPDF arquivo(Documento([&](DocumentoRelatorio& doc) {
        Escrever(doc, {{0, 0, 4, 0.5}, longo});
        Escrever(doc, {{0, 1, 4, 0.5}, grego});
        Escrever(doc, {{0, 2, 2, 0.5}, "Metalúrgica do Planalto", {.tamanho = 7}});
        doc.EscreverTextoMultilinha(0, 3, 4, 1, longo, 0, 0, "Arial", 8, false, false, true, 0);
    }));
    arquivo.EsperarSemFaltas();
    EXPECT_EQ(arquivo.Resultado().cortados.size(), 3U);
    EXPECT_THAT(arquivo.FaltasDasMarcas(), IsEmpty());
    EXPECT_THAT(arquivo.Texto(1),
                AllOf(HasSubstr(longo), HasSubstr(grego), HasSubstr("Metalúrgica do Planalto")));
}

TEST(Marcas, WordsStayApartWhereALineEnds) {
    const ArquivoPDF arquivo(Documento([](DocumentoRelatorio& doc) {
        doc.EscreverTextoMultilinha(0, 0, 1.6, 5, "Valor contábil\r\ndo mês κύμα ζωή φως", 1, 0,
                                    "Arial", 8, false, false, false, 0);
    }));
    EXPECT_THAT(arquivo.Dito("pdfinfo -struct-text"),
                HasSubstr("Valor contábil do mês κύμα ζωή φως"));
}

TEST(Marcas, FilesWithoutAStructureDoNotClaimOne) {
    Conteudo alheio = Completo();
    alheio.estrutura = {};
    for (const auto& [conteudo, opcoes] :
         {std::pair(Completo(), OpcoesPDF{.semEstrutura = true}), {alheio, OpcoesPDF()}}) {
        const ArquivoPDF arquivo(conteudo, opcoes);
        arquivo.EsperarSemFaltas();
        EXPECT_THAT(arquivo.Dito("pdfinfo"), HasSubstr("Tagged:          no"));
        EXPECT_THAT(arquivo.Dito("pdfinfo -meta"),
                    AllOf(HasSubstr("<pdfaid:conformance>U<"), Not(HasSubstr("pdfuaid"))));
        EXPECT_THAT(arquivo.Objetos().dump(), Not(HasSubstr("/StructParents")));
    }
}

// Whatever the reader of the page's picture sees is the same.
TEST(Marcas, TagsAreNotSeen) {
    const ArquivoPDF com(Completo());
    const ArquivoPDF sem(Completo(), {.semEstrutura = true});
    for (const int pagina : {1, 2}) {
        EXPECT_EQ(com.Pixels(pagina), sem.Pixels(pagina));
    }
}

}  // namespace
}  // namespace tarvo
