// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <thread>

#include "document/QuadroPagina.h"
#include "tests/output/pdf/ApoioPDF.h"

// The file as other programs see it.
namespace tarvo {
namespace {

using testing::AllOf;
using testing::HasSubstr;

// Pages of framed rows with pictures, several fonts and a script beyond Latin.
Conteudo Variado(int paginas) {
    return Paginas(paginas, [](DocumentoRelatorio& doc, int pagina) {
        ImprimirTopo(doc, {.titulo = "Título"}, 0, 0, nullptr);
        for (int linha = 0; linha < 30; ++linha) {
            const double y = 5 + linha * 0.6;
            const std::string valor = std::to_string(pagina * 1000 + linha);
            CelulaRotulada(doc, Campo, 0, y, 8, 0.6, "Razão", "São João " + valor);
            CelulaRotulada(doc, CampoTotal, 8, y, 9, 0.6, "Total", valor);
        }
        Escrever(doc, {{0, 24, 17, 0.5}, "Москва", {.fonte = "Times New Roman"}});
        ImprimirRodape(doc, 0, YRodape);
    });
}

// The pages below a node of the page tree, in their order; each node knows its parent and how many
// pages it has.
std::vector<std::string> PaginasSob(const ArquivoPDF& arquivo, const std::string& no,
                                    const std::string& pai) {
    const auto& valor = arquivo.Objeto(no)["value"];
    EXPECT_EQ(valor.value("/Parent", ""), pai);
    if (valor["/Type"] == "/Page") {
        return {no};
    }
    std::vector<std::string> paginas;
    for (const std::string filha : valor["/Kids"]) {
        std::ranges::move(PaginasSob(arquivo, filha, no), std::back_inserter(paginas));
    }
    EXPECT_EQ(valor["/Count"], paginas.size()) << no;
    return paginas;
}

TEST(Estrutura, IndependentProgramsFindNothingWrong) {
    const ArquivoPDF arquivo(Variado(150));
    arquivo.EsperarSemFaltas();
    const auto catalogo = arquivo.Objeto(arquivo.Objetos()["trailer"]["value"]["/Root"])["value"];
    EXPECT_THAT(PaginasSob(arquivo, catalogo["/Pages"], ""), testing::SizeIs(150));
    EXPECT_EQ(arquivo.Resultado().paginas, 150U);
    EXPECT_THAT(arquivo.Dito("pdfinfo"), HasSubstr("Pages:           150"));
    EXPECT_THAT(arquivo.Texto(65), HasSubstr("São João 64029"));
    EXPECT_THAT(arquivo.Texto(150), HasSubstr("Página 150 de 150"));
}

TEST(Estrutura, EveryFontIsAnEmbeddedSubsetThatGivesItsTextBack) {
    std::istringstream linhas(ArquivoPDF(Variado(1)).Dito("pdffonts", "| tail -n +3"));
    std::string nomes;
    for (std::string linha; std::getline(linhas, linha);) {
        EXPECT_THAT(linha, HasSubstr(" yes yes yes "));
        nomes += linha.substr(7, linha.find(' ') - 6);
    }
    EXPECT_EQ(nomes, "LiberationSans LiberationSans-Bold LiberationSerif ");
}

TEST(Estrutura, TheFileSaysWhatItIs) {
    const Ambiental momento("SOURCE_DATE_EPOCH", "1057000009");
    Conteudo conteudo = Variado(1);
    conteudo.titulo = "Relatório de <Apuração> & Cia";
    const ArquivoPDF arquivo(conteudo);
    const auto trailer = arquivo.Objetos()["trailer"]["value"];
    ASSERT_EQ(trailer["/ID"].size(), 2U);
    EXPECT_EQ(trailer["/ID"][0].get<std::string>().size(), 2U + 32U);
    EXPECT_NE(trailer["/ID"], ArquivoPDF(Variado(2)).Objetos()["trailer"]["value"]["/ID"]);
    const auto catalogo = arquivo.Objeto(trailer["/Root"])["value"];
    EXPECT_EQ(catalogo["/Lang"], "u:pt-BR");
    EXPECT_EQ(catalogo["/ViewerPreferences"]["/PrintScaling"], "/None");
    EXPECT_EQ(catalogo["/ViewerPreferences"]["/DisplayDocTitle"], true);
    EXPECT_FALSE(catalogo.contains("/Outlines"));
    const auto info = arquivo.Objeto(trailer["/Info"])["value"];
    EXPECT_EQ(info["/Title"], "u:Relatório de <Apuração> & Cia");
    EXPECT_EQ(info["/CreationDate"], "u:D:20030630190649+00'00'");
    EXPECT_EQ(info["/ModDate"], info["/CreationDate"]);
    EXPECT_THAT(arquivo.Dito("pdfinfo -meta"),
                AllOf(HasSubstr("<pdfaid:part>2</pdfaid:part>"),
                      HasSubstr("<pdfaid:conformance>A</pdfaid:conformance>"),
                      HasSubstr("Relatório de &lt;Apuração&gt; &amp; Cia"),
                      HasSubstr("<xmp:CreateDate>2003-06-30T19:06:49+00:00<"),
                      HasSubstr("<xmp:ModifyDate>2003-06-30T19:06:49+00:00<")));
}

TEST(Estrutura, TheMomentIsLocalTimeWithItsOffsetOrUTCWhereADateCannotStateIt) {
    const auto datas = [](const char* zona) {
        const Ambiental fuso("TZ", zona);
        ::tzset();
        const ArquivoPDF arquivo(Variado(1));
        const auto info = arquivo.Objeto(arquivo.Objetos()["trailer"]["value"]["/Info"])["value"];
        return info["/CreationDate"].get<std::string>() + arquivo.Dito("pdfinfo -meta");
    };
    EXPECT_THAT(datas("<-0330>3:30"),
                AllOf(HasSubstr("-03'30'"), HasSubstr("-03:30</xmp:CreateDate>")));
    for (const char* zona : {"CCC-24:59", "CCC15", "CCC-1:00:30"}) {
        EXPECT_THAT(datas(zona), AllOf(HasSubstr("+00'00'"), HasSubstr("+00:00</xmp:CreateDate>")));
    }
    EXPECT_THAT(datas("CCC-14"), HasSubstr("+14:00</xmp:CreateDate>"));
}

TEST(Estrutura, ColoursAreThoseOfTheEmbeddedProfile) {
    const ArquivoPDF arquivo(Variado(1));
    const auto catalogo = arquivo.Objeto(arquivo.Objetos()["trailer"]["value"]["/Root"])["value"];
    const auto intencao = arquivo.Objeto(catalogo["/OutputIntents"][0])["value"];
    EXPECT_EQ(intencao["/S"], "/GTS_PDFA1");
    const std::string perfil = intencao["/DestOutputProfile"];
    EXPECT_EQ(arquivo.Objeto(perfil)["stream"]["dict"]["/N"], 3);
    const std::string numero = perfil.substr(0, perfil.find(' '));
    const std::string icc =
        arquivo.Dito("qpdf --show-object=" + numero + " --filtered-stream-data");
    EXPECT_EQ(icc.substr(12, 12), "mntrRGB XYZ ");
    EXPECT_EQ(icc.substr(36, 4), "acsp");
    EXPECT_EQ(static_cast<unsigned char>(icc[2]) * 256U + static_cast<unsigned char>(icc[3]),
              icc.size());
}

TEST(Estrutura, NothingStandsInTheFileThatAnArchiveForbids) {
    const ArquivoPDF arquivo(Variado(3));
    EXPECT_THAT(Renderizar(Variado(3)), testing::StartsWith("%PDF-1.7\n%\xE2\xE3\xCF\xD3\n"));
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
    const SecaoPDF secoes[] = {{&a, "Primeiro – Órgão"}, {&b, "Segundo"}, {&b, "Terceiro"}};
    const ArquivoPDF arquivo(secoes);
    EXPECT_EQ(arquivo.Resultado().paginas, 5U);
    const auto itens =
        nlohmann::json::parse(arquivo.Dito("qpdf --json=2 --json-key=outlines"))["outlines"];
    ASSERT_EQ(itens.size(), 3U);
    EXPECT_EQ(itens[0]["title"], "Primeiro – Órgão");
    EXPECT_EQ(itens[0]["destpageposfrom1"], 1);
    EXPECT_EQ(itens[1]["title"], "Segundo");
    EXPECT_EQ(itens[1]["destpageposfrom1"], 4);
    EXPECT_EQ(itens[2]["title"], "Terceiro");
    EXPECT_THAT(arquivo.Dito("pdfinfo -f 3 -l 4"),
                AllOf(HasSubstr("Page    3 size:  595.28 x 841.89"),
                      HasSubstr("Page    4 size:  841.89 x 595.28")));
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

TEST(Estrutura, RepeatedFramesCostNextToNothingAndTagsLittle) {
    const auto porPagina = [](const OpcoesPDF& opcoes) {
        const std::size_t muitas = Renderizar(Variado(220), opcoes).size();
        return (muitas - Renderizar(Variado(20), opcoes).size()) / 200;
    };
    EXPECT_LT(porPagina({.semEstrutura = true}), 1500U);
    EXPECT_LT(porPagina({}), 3500U) << "180 elements";
}

}  // namespace
}  // namespace tarvo
