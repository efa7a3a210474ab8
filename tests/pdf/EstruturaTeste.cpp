#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "data/CodigosDeErros.h"
#include "document/QuadroPagina.h"
#include "tests/pdf/ApoioPDF.h"

// The file as other programs see it.
namespace tarvo {
namespace {

using testing::HasSubstr;
using testing::Not;

// Pages of framed rows with pictures, several fonts and a script beyond Latin.
Conteudo Variado(int paginas) {
    return Documento([paginas](DocumentoRelatorio& doc) {
        for (int pagina = 0; pagina < paginas; ++pagina) {
            if (pagina > 0) {
                doc.NovaPagina();
            }
            ImprimirTopo(doc, {.titulo = "Título"}, 0, 0, nullptr);
            for (int linha = 0; linha < 30; ++linha) {
                const double y = 5 + linha * 0.6;
                const std::string valor = std::to_string(pagina * 1000 + linha);
                CelulaRotulada(doc, Campo, 0, y, 8, 0.6, "Razão", "São João " + valor);
                CelulaRotulada(doc, CampoTotal, 8, y, 9, 0.6, "Total", valor);
            }
            Escrever(doc, {0, 24, 17, 0.5}, "Москва", {.fonte = "Times New Roman"});
            ImprimirRodape(doc, 0, YRodape);
        }
    });
}

std::string Renderizar(const Conteudo& conteudo) {
    std::string bytes;
    RenderizarPDF(conteudo, bytes);
    return bytes;
}

TEST(Estrutura, IndependentProgramsFindNothingWrong) {
    const ArquivoPDF arquivo(Variado(150));
    EXPECT_EQ(arquivo.Resultado().paginas, 150U);
    const Saida verificacao = Executar("qpdf --check " + arquivo.Nome() + " 2>&1");
    EXPECT_EQ(verificacao.estado, 0);
    EXPECT_THAT(verificacao.texto, HasSubstr("No syntax or stream encoding errors found"));
    EXPECT_EQ(Executar("pdftoppm -r 10 " + arquivo.Nome() + " 2>&1 >/dev/null").texto, "");
    EXPECT_THAT(Executar("pdfinfo " + arquivo.Nome()).texto, HasSubstr("Pages:           150"));
    EXPECT_THAT(arquivo.Texto(65), HasSubstr("São João 64029"));
    EXPECT_THAT(arquivo.Texto(150), HasSubstr("Página 150 de 150"));
}

TEST(Estrutura, EveryFontIsAnEmbeddedSubsetThatGivesItsTextBack) {
    const ArquivoPDF arquivo(Variado(1));
    std::istringstream linhas(Executar("pdffonts " + arquivo.Nome()).texto);
    std::string linha;
    std::getline(linhas, linha);
    std::getline(linhas, linha);
    int fontes = 0;
    while (std::getline(linhas, linha)) {
        EXPECT_THAT(linha, HasSubstr("+Liberation"));
        EXPECT_THAT(linha, HasSubstr(" yes yes yes "));
        ++fontes;
    }
    EXPECT_EQ(fontes, 3);  // Sans, Sans Bold, Serif by glyph number
}

TEST(Estrutura, TheFileSaysWhatItIs) {
    const Ambiental momento("SOURCE_DATE_EPOCH", "1057000009");
    Conteudo conteudo = Variado(1);
    conteudo.titulo = "Relatório de <Apuração> & Cia";
    const ArquivoPDF arquivo(conteudo);
    const auto catalogo = arquivo.Catalogo();
    EXPECT_EQ(catalogo["/Lang"], "u:pt-BR");
    EXPECT_EQ(catalogo["/ViewerPreferences"]["/PrintScaling"], "/None");
    EXPECT_EQ(catalogo["/ViewerPreferences"]["/DisplayDocTitle"], true);
    EXPECT_FALSE(catalogo.contains("/Outlines"));
    const auto trailer = arquivo.Objetos()["trailer"]["value"];
    ASSERT_EQ(trailer["/ID"].size(), 2U);
    EXPECT_EQ(trailer["/ID"][0].get<std::string>().size(), 2U + 32U);

    const std::string intencao = catalogo["/OutputIntents"][0];
    const auto saida = arquivo.Objetos()["obj:" + intencao]["value"];
    EXPECT_EQ(saida["/S"], "/GTS_PDFA1");
    const std::string perfil = saida["/DestOutputProfile"];
    EXPECT_EQ(arquivo.Objetos()["obj:" + perfil]["stream"]["dict"]["/N"], 3);
    const std::string numero = perfil.substr(0, perfil.find(' '));
    const std::string icc =
        Executar("qpdf --show-object=" + numero + " --filtered-stream-data " + arquivo.Nome())
            .texto;
    EXPECT_EQ(icc.substr(12, 12), "mntrRGB XYZ ");
    EXPECT_EQ(icc.substr(36, 4), "acsp");
    EXPECT_EQ(static_cast<std::size_t>(static_cast<unsigned char>(icc[2])) * 256 +
                  static_cast<unsigned char>(icc[3]),
              icc.size());

    const std::string xmp = Executar("pdfinfo -meta " + arquivo.Nome()).texto;
    EXPECT_THAT(xmp, HasSubstr("<pdfaid:part>2</pdfaid:part>"));
    EXPECT_THAT(xmp, HasSubstr("<pdfaid:conformance>B</pdfaid:conformance>"));
    EXPECT_THAT(xmp, HasSubstr("Relatório de &lt;Apuração&gt; &amp; Cia"));
    EXPECT_THAT(xmp, HasSubstr("<xmp:CreateDate>2003-06-30T19:06:49+00:00<"));
    EXPECT_THAT(xmp, HasSubstr("<xmp:ModifyDate>2003-06-30T19:06:49+00:00<"));
    const std::string informacao = trailer["/Info"];
    const auto info = arquivo.Objetos()["obj:" + informacao]["value"];
    EXPECT_EQ(info["/Title"], "u:Relatório de <Apuração> & Cia");
    EXPECT_EQ(info["/CreationDate"], "u:D:20030630190649+00'00'");
    EXPECT_EQ(info["/ModDate"], info["/CreationDate"]);
}

TEST(Estrutura, NothingStandsInTheFileThatAnArchiveForbids) {
    const ArquivoPDF arquivo(Variado(3));
    const std::string cabeca = Executar("head -c 15 " + arquivo.Nome()).texto;
    EXPECT_EQ(cabeca, "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n");
    for (const auto& [nome, objeto] : arquivo.Objetos().items()) {
        const std::string texto = objeto.dump();
        for (const char* proibido :
             {"/Encrypt", "/JavaScript", "/JS", "/LZWDecode", "/SMask", "/Launch", "/EmbeddedFile",
              "/Interpolate", "/OPI", "/TR", "/AA", "/Movie", "/CIDSet"}) {
            EXPECT_EQ(texto.find(std::string("\"") + proibido + "\""), std::string::npos)
                << nome << proibido;
        }
        if (objeto.contains("value") && objeto["value"].is_object() &&
            objeto["value"].value("/Type", "") == "/Page") {
            // Resources of the page itself: inherited ones are not enough.
            EXPECT_TRUE(objeto["value"].contains("/Resources"));
        }
    }
}

TEST(Estrutura, ComposedDocumentsGetAnOutlineOfTheirTitles) {
    const Conteudo a = Variado(3);
    Conteudo b = Variado(1);
    b.orientacao = 1;
    const SecaoPDF secoes[] = {{&a, "Primeiro – Órgão"}, {&b, "Segundo"}};
    const ArquivoPDF arquivo(secoes);
    EXPECT_EQ(arquivo.Resultado().paginas, 4U);
    const auto json = nlohmann::json::parse(
        Executar("qpdf --json=2 --json-key=outlines " + arquivo.Nome()).texto);
    const auto& itens = json["outlines"];
    ASSERT_EQ(itens.size(), 2U);
    EXPECT_EQ(itens[0]["title"], "Primeiro – Órgão");
    EXPECT_EQ(itens[0]["destpageposfrom1"], 1);
    EXPECT_EQ(itens[1]["title"], "Segundo");
    EXPECT_EQ(itens[1]["destpageposfrom1"], 4);
    const std::string info = Executar("pdfinfo -f 3 -l 4 " + arquivo.Nome()).texto;
    EXPECT_THAT(info, HasSubstr("Page    3 size:  595.28 x 841.89"));
    EXPECT_THAT(info, HasSubstr("Page    4 size:  841.89 x 595.28"));
}

TEST(Estrutura, TheSameInputGivesTheSameBytesInAnyThread) {
    const Ambiental momento("SOURCE_DATE_EPOCH", "1057000009");
    const Conteudo um = Variado(5);
    const Conteudo outro = Variado(6);
    const std::string esperado = Renderizar(um);
    const std::string esperadoOutro = Renderizar(outro);
    EXPECT_NE(esperado, esperadoOutro);
    std::string noFio;
    std::thread fio([&] { noFio = Renderizar(um); });
    EXPECT_EQ(Renderizar(outro), esperadoOutro);
    fio.join();
    EXPECT_EQ(noFio, esperado);
}

TEST(Estrutura, AMomentThatIsNoneIsRefused) {
    for (const char* valor : {"ontem", "12x", "-1", "99999999999999"}) {
        const Ambiental momento("SOURCE_DATE_EPOCH", valor);
        EXPECT_EQ(apoio::ErroDe([] { Renderizar(Variado(1)); }).Numero(),
                  NumeroErro::ChamadaInvalida)
            << valor;
    }
}

TEST(Estrutura, RepeatedFramesCostNextToNothing) {
    const auto porPagina = (Renderizar(Variado(220)).size() - Renderizar(Variado(20)).size()) / 200;
    EXPECT_LT(porPagina, 1500U);
}

}  // namespace
}  // namespace tarvo
