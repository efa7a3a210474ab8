// SPDX-License-Identifier: MIT
#include "document/DocumentoRelatorio.h"

#include <functional>
#include <sstream>

#include "data/CodigosDeErros.h"
#include "document/Imagens.h"
#include "output/json/DocumentoJSON.h"
#include "tests/support/Apoio.h"

namespace tarvo {
namespace {

using apoio::ErroDe;
using apoio::NumeroDe;
using testing::ElementsAre;
using testing::HasSubstr;

void DesenharAlgo(DocumentoRelatorio& doc) {
    doc.DesenharRetangulo(0, 0, 1, 1, false, 0, 0, 1);
}

TEST(DocumentoRelatorio, TheJsonFormHoldsEveryOperationWithAllItsArguments) {
    DocumentoRelatorio doc;
    doc.Iniciar();
    doc.DefinirTitulo("Relatório \"A\"");
    doc.DefinirTituloResumido("A");
    doc.DefinirIcone(frmFiguras::imgIconeR);
    doc.DefinirOrientacao(1);
    doc.DefinirMargens(2, 2, 1.325, 0);
    doc.DesenharLinha(-0.25, 10.25, 18.85, 0, 0, 0, 1, 2);
    doc.DesenharRetangulo(0, 0.5, 17, 0.1, true, 0x808000, 0x808000, 1);
    doc.NovaPagina();
    doc.DesenharRetanguloArredondado(0, 2.9, 17, 0.7, false, 0.1, 0, 0xFFFFFF, 1);
    doc.EscreverTexto(0, 0, 17.0 / 3, 0.3, "%%D", 2, 1, "Arial", 8, true, false, false, 255);
    doc.EscreverTextoMultilinha(1, 2, 3, 4, "a\r\nb", 0, 2, "Courier New", 6, false, true, true, 0);
    doc.DesenharFigura(0.1, 0.65, 1.74, 1.89, frmFiguras::imgBrasaoVDColorido, false);

    std::ostringstream json;
    EscreverJSON("RelatorioA", doc.Registrado(), json);
    EXPECT_EQ(json.str(), R"({ "classe": "RelatorioA",
  "titulo": "Relatório \"A\"",
  "tituloResumido": "A",
  "icone": "imgIconeR",
  "orientacao": 1,
  "margens": [2.0,2.0,1.325,0.0],
  "paginas": [
    [
      ["DesenharLinha",-0.25,10.25,18.85,0.0,0,0,1,2],
      ["DesenharRetangulo",0.0,0.5,17.0,0.1,true,8421376,8421376,1]],
    [
      ["DesenharRetanguloArredondado",0.0,2.9,17.0,0.7,false,0.1,0,16777215,1],
      ["EscreverTexto",0.0,0.0,5.666666666666667,0.3,"%%D",2,1,"Arial",8.0,true,false,false,255],
      ["EscreverTextoMultilinha",1.0,2.0,3.0,4.0,"a\r\nb",0,2,"Courier New",6.0,false,true,true,0],
      ["DesenharFigura",0.1,0.65,1.74,1.89,"imgBrasaoVDColorido",false]]] }
)");
}

TEST(DocumentoRelatorio, AnEmptyDocumentIsOneEmptyPage) {
    DocumentoRelatorio doc;
    DesenharAlgo(doc);
    doc.NovaPagina();
    doc.DefinirTitulo("antigo");
    doc.Iniciar();
    EXPECT_EQ(doc.Registrado(), Conteudo());
    std::ostringstream json;
    EscreverJSON("X", doc.Registrado(), json);
    EXPECT_THAT(json.str(), HasSubstr("\"icone\": null"));
    EXPECT_THAT(json.str(), HasSubstr("\"paginas\": [\n    []] }"));
}

TEST(DocumentoRelatorio, PageSetupIsRefusedWithItsOwnErrors) {
    DocumentoRelatorio doc;
    const auto recusa = [&](NumeroErro numero, std::string_view texto,
                            const std::function<void()>& acao) {
        Conteudo antes;
        antes = doc.Registrado();
        const Erro erro = ErroDe(acao);
        EXPECT_EQ(erro.Numero(), numero) << texto;
        EXPECT_EQ(erro.Descricao(), texto);
        EXPECT_EQ(doc.Registrado(), antes) << "a refused setting changes nothing";
    };
    for (const auto& m :
         {Margens{-1, 0, 0, 0}, Margens{10.5, 10.5, 0, 0}, Margens{std::nan(""), 0, 0, 0}}) {
        recusa(NumeroErro::MargensInvalidas, CodigosDeErros::MargensInvalidas,
               [&] { doc.DefinirMargens(m.esquerda, m.direita, m.superior, m.inferior); });
    }
    recusa(NumeroErro::PadraoDePaginaInvalido, CodigosDeErros::PadraoDePaginaInvalido,
           [&] { doc.DefinirOrientacao(2); });
    doc.DefinirMargens(0, 0, 12, 12);
    recusa(NumeroErro::PaginaInsuficiente, CodigosDeErros::PaginaInsuficiente,
           [&] { doc.DefinirOrientacao(1); });
    DesenharAlgo(doc);
    doc.NovaPagina();
    recusa(NumeroErro::DocumentoContemObjetos, CodigosDeErros::DocumentoContemObjetos,
           [&] { doc.DefinirMargens(2, 2, 2, 2); });
    recusa(NumeroErro::DocumentoContemObjetos, CodigosDeErros::DocumentoContemObjetos,
           [&] { doc.DefinirOrientacao(0); });
}

TEST(DocumentoRelatorio, DrawingRefusesWhatNoPageCanShow) {
    DocumentoRelatorio doc;
    for (const auto& acao : std::initializer_list<std::function<void()>>{
             [&] { doc.DesenharRetangulo(INFINITY, 0, 1, 1, false, 0, 0, 1); },
             [&] { doc.DesenharLinha(0, 0, 1, 0, 0, 0, 1, 1); },
             [&] { doc.DesenharRetanguloArredondado(0, 0, 1, 1, false, -0.1, 0, 0, 1); },
             [&] { doc.DesenharRetanguloArredondado(0, 0, 1, 1, false, 0.1, 0, 0, -1); },
             [&] { doc.DesenharRetangulo(0, 0, 1, 1, true, 0, 0, 0); },
             [&] { doc.DesenharLinha(0, 0, 1, 0, 0, 0, 0, 0); },
             [&] { doc.EscreverTexto(0, 0, 1, 1, "x", 3, 0, "Arial", 8, false, false, false, 0); },
             [&] { doc.EscreverTexto(0, 0, 1, 1, "x", 0, -1, "Arial", 8, false, false, false, 0); },
             [&] { doc.EscreverTexto(0, 0, 1, 1, "x", 0, 0, "Arial", 0, false, false, false, 0); },
         }) {
        EXPECT_EQ(NumeroDe(acao), NumeroErro::ChamadaInvalida);
    }
    EXPECT_TRUE(doc.Registrado().paginas.front().empty());
}

TEST(DocumentoRelatorio, APictureThatIsNoWholeGIFIsRefusedByItsName) {
    DocumentoRelatorio doc;
    const auto desenhar = [&](const Imagem& imagem) {
        return apoio::ErroDe([&] { doc.DesenharFigura(0, 0, 1, 1, imagem, false); });
    };
    const Erro erro = desenhar(frmFiguras::imgIconeR);
    EXPECT_EQ(erro.Numero(), NumeroErro::ChamadaInvalida);
    EXPECT_THAT(erro.Descricao(), testing::HasSubstr("imgIconeR"));
    const Imagem& tesoura = frmFiguras::imgTesoura;
    Imagem imagem = tesoura;
    for (std::size_t n = 0; n < tesoura.bytes.size(); ++n) {
        imagem.bytes = tesoura.bytes.first(n);
        EXPECT_EQ(desenhar(imagem).Numero(), NumeroErro::ChamadaInvalida) << n;
    }
    EXPECT_TRUE(doc.Registrado().paginas.front().empty());
}

TEST(DocumentoRelatorio, PreviewAndPrinterBelongToTheDocument) {
    std::vector<std::string> diario;
    apoio::VisualizadoresAnotados visualizadores(diario);
    {
        DocumentoRelatorio doc({.visualizadores = &visualizadores});
        doc.Ocultar();
        EXPECT_TRUE(diario.empty()) << "nothing is opened in order to hide it";
        doc.DefinirTitulo("T");
        doc.Exibir();
        doc.Ocultar();
        for (bool perguntar : {false, true}) {
            doc.Imprimir(perguntar);
        }
    }
    EXPECT_THAT(diario, ElementsAre("Exibir T", "Ocultar T", "Imprimir T", "Imprimir T perguntando",
                                    "Fechar T"));
    DocumentoRelatorio semHospedeiro;
    EXPECT_EQ(NumeroDe([&] { semHospedeiro.Exibir(); }), NumeroErro::AcaoNaoSuportada);
}

struct CancelaNaSegunda : Andamento {
    bool PaginaConcluida(std::size_t paginas) override { return paginas < 2; }
};

TEST(DocumentoRelatorio, TheHostCanCancelALongBuildBetweenPages) {
    CancelaNaSegunda andamento;
    DocumentoRelatorio doc({.andamento = &andamento});
    doc.NovaPagina();
    EXPECT_EQ(NumeroDe([&] { doc.NovaPagina(); }), NumeroErro::Cancelado);
    EXPECT_EQ(doc.Registrado().paginas.size(), 2U);
}

}  // namespace
}  // namespace tarvo
