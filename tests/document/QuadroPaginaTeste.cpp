#include "document/QuadroPagina.h"

#include <gmock/gmock.h>

#include <map>

#include "platform/json/DocumentoJSON.h"

namespace tarvo {
namespace {

// One row of an identification query, by column name.
class LinhaFixa : public Recordset {
  public:
    explicit LinhaFixa(std::map<std::string, Valor> campos) : campos_(std::move(campos)) {}
    [[nodiscard]] bool BOF() const override { return false; }
    [[nodiscard]] bool EOF_() const override { return false; }
    void MoveNext() override {}
    void AddNew() override {}
    void Update() override {}
    void Close() override {}
    void Definir(const std::string& campo, Valor valor) { campos_[campo] = std::move(valor); }

  private:
    [[nodiscard]] std::size_t Coluna(std::string_view nome) const override {
        return static_cast<std::size_t>(
            std::distance(campos_.begin(), campos_.find(std::string(nome))));
    }
    [[nodiscard]] std::size_t Coluna(int posicao) const override {
        return static_cast<std::size_t>(posicao);
    }
    [[nodiscard]] Valor Ler(std::size_t coluna) const override {
        return std::next(campos_.begin(), static_cast<std::ptrdiff_t>(coluna))->second;
    }
    void Escrever(std::size_t /*coluna*/, const Valor& /*valor*/) override {}

    std::map<std::string, Valor> campos_;
};

Data Mes(int ano, int mes) {
    return Data::DeCivil({.ano = ano, .mes = mes, .dia = 1});
}

LinhaFixa Identificacao() {
    return LinhaFixa({{"Consistente", true},
                      {"Autenticação", std::string("A1B2")},
                      {"RazãoSocial", std::string("Café & Cia")},
                      {"tblContribuinte.IE", std::string("110042490114")},
                      {"CNPJ", Valor()},
                      {"Tipo", std::int32_t{2}},
                      {"RegTrib", std::string("01")},
                      {"Ref1", Mes(2003, 7)},
                      {"Ref2", Mes(2001, 1)}});
}

std::vector<std::string> Operacoes(const DocumentoRelatorio& doc) {
    std::vector<std::string> lista;
    for (const auto& primitiva : doc.Registrado().paginas.back()) {
        lista.push_back(OperacaoJSON(doc.Registrado(), primitiva));
    }
    return lista;
}

TEST(QuadroPagina, HeaderDrawsTagMarkBarsArmsTitleAndIdentification) {
    DocumentoRelatorio doc;
    LinhaFixa linha = Identificacao();
    ImprimirCabecalho(doc, {.titulo = "Título"}, 0, 0, linha);
    const char* const moldura = R"(,false,0.1,0,16777215,1])";
    const auto quadro = [&](const char* caixa) {
        return std::string(R"(["DesenharRetanguloArredondado",)") + caixa + moldura;
    };
    const auto texto = [](const char* resto) {
        return std::string(R"(["EscreverTexto",)") + resto;
    };
    const char* const fonte8 = R"("Arial",8.0,false,false,false,0])";
    const char* const fonte6 = R"("Arial",6.0,false,false,false,0])";
    const char* const rotulo = R"(0,0,"Arial",6.0,true,false,false,0])";
    EXPECT_THAT(
        Operacoes(doc),
        testing::ElementsAre(
            texto(R"(0.0,0.0,17.0,0.3,"DRQ",0,0,)") + fonte8,
            texto(R"(0.0,0.0,17.0,0.3,"A1B2",2,0,)") + fonte8,
            R"(["DesenharRetangulo",0.0,0.5,17.0,0.1,true,8421376,8421376,1])",
            R"(["DesenharFigura",0.1,0.65,1.74,1.89,"imgBrasaoVDColorido",false])",
            texto(
                R"(2.0,0.85,13.0,0.7,"Governo do Estado de Valdora",1,1,"Arial",14.0,true,false,false,255])"),
            texto(
                R"(2.0,1.65,13.0,0.7,"Secretaria da Fazenda",1,1,"Arial",14.0,true,false,false,255])"),
            R"(["DesenharRetangulo",0.0,2.6,17.0,0.1,true,8421376,8421376,1])",
            quadro("0.0,2.9,17.0,0.7"),
            R"(["EscreverTextoMultilinha",0.1,2.9,16.8,0.7,"Título",1,1,"Arial",14.0,true,false,false,8421376])",
            quadro("0.0,3.6,17.0,0.6"),
            texto(R"(0.1,3.6,16.8,0.6,"Contribuinte",0,1,"Arial",12.0,true,false,false,8421376])"),
            quadro("0.0,4.2,17.0,0.6"), texto(R"(0.1,4.25,16.8,0.5,"Razão Social",)") + rotulo,
            texto(R"(0.2,4.2,16.6,0.6,"Café & Cia",0,2,)") + fonte8, quadro("0.0,4.8,3.4,0.6"),
            texto(R"(0.1,4.85,3.1999999999999997,0.5,"Inscrição Estadual",)") + rotulo,
            texto(R"(0.2,4.85,3.0,0.5,"110042490114",0,2,)") + fonte6, quadro("3.4,4.8,3.4,0.6"),
            testing::HasSubstr("\"CNPJ\""), testing::HasSubstr(",0.5,\"\",0,2"),
            quadro("6.8,4.8,3.4,0.6"), testing::HasSubstr("\"Tipo da DRQ\""),
            testing::HasSubstr("\"Substitutiva\""), quadro("10.2,4.8,3.4,0.6"),
            testing::HasSubstr("\"Regime Tributário\""), testing::HasSubstr("\"RPA\""),
            quadro("13.6,4.8,3.4,0.6"), testing::HasSubstr("\"Referência\""),
            testing::HasSubstr("\"07/2003\""),
            R"(["DesenharRetangulo",0.0,5.6,17.0,0.1,true,8421376,8421376,1])"));
}

// The texts of the page, without the operations.
std::vector<std::string> Textos(LinhaFixa& linha, const EstiloCabecalho& estilo = {.titulo = "T"}) {
    DocumentoRelatorio doc;
    ImprimirCabecalho(doc, estilo, 0, 0, linha);
    std::vector<std::string> textos;
    for (const auto& primitiva : doc.Registrado().paginas.back()) {
        if (const auto* texto = std::get_if<Texto>(&primitiva)) {
            textos.push_back(texto->texto);
        }
    }
    return textos;
}

TEST(QuadroPagina, IdentificationReadsTypeRegimeAndReferenceByTheirCodes) {
    LinhaFixa linha = Identificacao();
    const auto espera = [&](std::string tipo, std::string regime, std::string referencia) {
        const auto t = Textos(linha);
        ASSERT_EQ(t.size(), 18U);
        EXPECT_EQ(t[13], tipo);
        EXPECT_EQ(t[15], regime);
        EXPECT_EQ(t[17], referencia);
    };
    linha.Definir("RegTrib", std::string("02"));
    linha.Definir("Tipo", std::int32_t{3});
    espera("Coligida", "RES", "01 a 07/2003");
    linha.Definir("RegTrib", std::string("04"));
    linha.Definir("Tipo", std::int32_t{4});
    espera("", "Simples-ST", "07/2003");
    linha.Definir("RegTrib", std::string("05"));
    linha.Definir("Tipo", std::int32_t{1});
    espera("Normal", "", "");
    linha.Definir("RegTrib", Valor());
    linha.Definir("Tipo", Valor());
    espera("", "", "");
    linha.Definir("RegTrib", std::string("03"));
    linha.Definir("Ref1", Valor());
    espera("", "Dispensado", "12/1899");
}

TEST(QuadroPagina, AnInconsistentDeclarationSaysSoOnEveryPage) {
    LinhaFixa linha = Identificacao();
    linha.Definir("Consistente", false);
    EXPECT_EQ(Textos(linha)[1], "DRQ Não Consistida");
    linha.Definir("Consistente", Valor());
    EXPECT_EQ(Textos(linha)[1], "DRQ Não Consistida");
}

TEST(QuadroPagina, LandscapeKeepsTheGovernmentLinesCentredAndTheFooterInThirds) {
    DocumentoRelatorio doc;
    LinhaFixa linha = Identificacao();
    ImprimirCabecalho(doc, {.titulo = "T", .largura = LarguraPaisagem, .barraFinal = false}, 0, 0,
                      linha);
    ImprimirRodape(doc, 0, 16.3, LarguraPaisagem);
    const auto operacoes = Operacoes(doc);
    EXPECT_THAT(operacoes[4], testing::HasSubstr("[\"EscreverTexto\",6.0,0.85,13.7,0.7,"));
    const std::vector<std::string> rodape(operacoes.end() - 4, operacoes.end());
    EXPECT_THAT(
        rodape,
        testing::ElementsAre(
            R"(["DesenharRetangulo",0.0,16.5,25.7,0.1,true,8421376,8421376,1])",
            R"(["EscreverTexto",0.0,16.7,8.566666666666666,0.3,"%%D",0,1,"Arial",6.0,false,false,false,0])",
            R"(["EscreverTexto",8.566666666666666,16.7,8.566666666666666,0.3,"%%H",1,1,"Arial",6.0,false,false,false,0])",
            R"(["EscreverTexto",17.133333333333333,16.7,8.566666666666666,0.3,"Página %%p de %%P",2,1,"Arial",6.0,false,false,false,0])"));
    EXPECT_EQ(operacoes[operacoes.size() - 5].find("DesenharRetangulo\""), std::string::npos)
        << "no closing bar was asked for";
}

TEST(QuadroPagina, CellsPlaceLabelAndValueByTheirStyle) {
    DocumentoRelatorio doc;
    CelulaRotulada(doc, CampoMultilinha, 1, 2, 4, 16.4, "R", "V");
    CelulaRotulada(doc, CampoValor, 1, 2, 4, 0.6, "R", "V");
    CelulaRotulada(doc, CampoTotalNegrito, 1, 2, 4, 0.7, "R", "V");
    Celula(doc, CelulaTitulo, 1, 2, 4, 1, "T");
    EXPECT_THAT(
        Operacoes(doc),
        testing::ElementsAre(
            testing::_,
            R"(["EscreverTexto",1.1,2.05,3.8,16.299999999999997,"R",0,0,"Arial",6.0,true,false,false,0])",
            R"(["EscreverTextoMultilinha",1.2,2.3,3.6,16.099999999999998,"V",0,0,"Arial",8.0,false,false,false,0])",
            testing::_,
            R"(["EscreverTexto",1.1,2.05,3.8,0.5,"R",0,0,"Arial",6.0,false,false,false,0])",
            R"(["EscreverTexto",1.2,2.0,3.6,0.6,"V",2,2,"Arial",8.0,false,false,false,0])",
            testing::_,
            R"(["EscreverTexto",1.1,2.05,3.8,0.6,"R",0,0,"Arial",9.0,true,false,false,8421376])",
            R"(["EscreverTexto",1.2,2.05,3.6,0.6,"V",2,1,"Arial",9.0,true,false,false,0])",
            R"(["DesenharRetanguloArredondado",1.0,2.0,4.0,1.0,false,0.1,0,16777215,1])",
            R"(["EscreverTextoMultilinha",1.1,2.05,3.8,0.9,"T",1,0,"Arial",6.0,true,false,false,0])"));
}

}  // namespace
}  // namespace tarvo
