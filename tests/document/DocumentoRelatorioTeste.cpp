#include "document/DocumentoRelatorio.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <sstream>

#include "data/CodigosDeErros.h"
#include "document/Imagens.h"
#include "platform/json/DocumentoJSON.h"

namespace tarvo {
namespace {

Erro ErroDe(const std::function<void()>& acao) {
    try {
        acao();
    } catch (const Erro& erro) {
        return erro;
    }
    return {NumeroErro{}, "no error"};
}

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
    EXPECT_NE(json.str().find("\"icone\": null"), std::string::npos);
    EXPECT_NE(json.str().find("\"paginas\": [\n    []] }"), std::string::npos);
}

TEST(DocumentoRelatorio, PageSetupIsRefusedWithItsOwnErrors) {
    DocumentoRelatorio doc;
    const auto recusa = [&](NumeroErro numero, std::string_view texto,
                            const std::function<void()>& acao) {
        const Conteudo antes = doc.Registrado();
        const Erro erro = ErroDe(acao);
        EXPECT_EQ(erro.Numero(), numero) << texto;
        EXPECT_EQ(erro.Descricao(), texto);
        EXPECT_EQ(doc.Registrado(), antes) << "a refused setting changes nothing";
    };
    const auto margens = [&](double e, double d, double s, double i) {
        return [&doc, e, d, s, i] { doc.DefinirMargens(e, d, s, i); };
    };
    recusa(NumeroErro::MargensInvalidas, CodigosDeErros::MargensInvalidas, margens(-1, 0, 0, 0));
    recusa(NumeroErro::MargensInvalidas, CodigosDeErros::MargensInvalidas,
           margens(10.5, 10.5, 0, 0));
    recusa(NumeroErro::MargensInvalidas, CodigosDeErros::MargensInvalidas,
           margens(std::nan(""), 0, 0, 0));
    recusa(NumeroErro::PadraoDePaginaInvalido, CodigosDeErros::PadraoDePaginaInvalido,
           [&] { doc.DefinirOrientacao(2); });
    doc.DefinirMargens(0, 0, 12, 12);
    recusa(NumeroErro::PaginaInsuficiente, CodigosDeErros::PaginaInsuficiente,
           [&] { doc.DefinirOrientacao(1); });
    DesenharAlgo(doc);
    doc.NovaPagina();
    recusa(NumeroErro::DocumentoContemObjetos, CodigosDeErros::DocumentoContemObjetos,
           margens(2, 2, 2, 2));
    recusa(NumeroErro::DocumentoContemObjetos, CodigosDeErros::DocumentoContemObjetos,
           [&] { doc.DefinirOrientacao(0); });
}

TEST(DocumentoRelatorio, DrawingRefusesWhatNoPageCanShow) {
    DocumentoRelatorio doc;
    const double inf = INFINITY;
    for (const auto& acao : std::initializer_list<std::function<void()>>{
             [&] { doc.DesenharRetangulo(inf, 0, 1, 1, false, 0, 0, 1); },
             [&] { doc.DesenharLinha(0, 0, 1, 0, 0, 0, 1, 1); },
             [&] { doc.DesenharRetanguloArredondado(0, 0, 1, 1, false, -0.1, 0, 0, 1); },
             [&] { doc.EscreverTexto(0, 0, 1, 1, "x", 3, 0, "Arial", 8, false, false, false, 0); },
             [&] { doc.EscreverTexto(0, 0, 1, 1, "x", 0, -1, "Arial", 8, false, false, false, 0); },
             [&] { doc.EscreverTexto(0, 0, 1, 1, "x", 0, 0, "Arial", 0, false, false, false, 0); },
         }) {
        EXPECT_EQ(ErroDe(acao).Numero(), NumeroErro::ChamadaInvalida);
    }
    EXPECT_TRUE(doc.Registrado().paginas.front().empty());
}

// What the document asks of its preview, in order.
struct VisualizadorFalso : Visualizador {
    explicit VisualizadorFalso(std::vector<std::string>& lista) : chamadas(lista) {}
    ~VisualizadorFalso() override { chamadas.emplace_back("fechado"); }
    void Exibir(const Conteudo& c) override { chamadas.push_back("Exibir " + c.titulo); }
    void Ocultar() override { chamadas.emplace_back("Ocultar"); }
    void Imprimir(const Conteudo& c, bool perguntar) override {
        chamadas.push_back("Imprimir " + c.titulo + (perguntar ? " perguntando" : ""));
    }
    std::vector<std::string>& chamadas;
};

struct FabricaFalsa : FabricaVisualizadores {
    std::unique_ptr<Visualizador> Criar() override {
        return std::make_unique<VisualizadorFalso>(chamadas);
    }
    std::vector<std::string> chamadas;
};

TEST(DocumentoRelatorio, PreviewAndPrinterBelongToTheDocument) {
    FabricaFalsa fabrica;
    {
        DocumentoRelatorio doc({.visualizadores = &fabrica});
        doc.Ocultar();
        EXPECT_TRUE(fabrica.chamadas.empty()) << "nothing is opened in order to hide it";
        doc.DefinirTitulo("T");
        doc.Exibir();
        doc.Ocultar();
        bool perguntar = false;
        doc.Imprimir(perguntar);
        perguntar = true;
        doc.Imprimir(perguntar);
    }
    EXPECT_EQ(fabrica.chamadas, (std::vector<std::string>{"Exibir T", "Ocultar", "Imprimir T",
                                                          "Imprimir T perguntando", "fechado"}));
    DocumentoRelatorio semHospedeiro;
    EXPECT_EQ(ErroDe([&] { semHospedeiro.Exibir(); }).Numero(), NumeroErro::AcaoNaoSuportada);
}

struct CancelaNaSegunda : Andamento {
    bool PaginaConcluida(std::size_t paginas) override { return paginas < 2; }
};

TEST(DocumentoRelatorio, TheHostCanCancelALongBuildBetweenPages) {
    CancelaNaSegunda andamento;
    DocumentoRelatorio doc({.andamento = &andamento});
    doc.NovaPagina();
    EXPECT_EQ(ErroDe([&] { doc.NovaPagina(); }).Numero(), NumeroErro::Cancelado);
    EXPECT_EQ(doc.Registrado().paginas.size(), 2U);
}

}  // namespace
}  // namespace tarvo
