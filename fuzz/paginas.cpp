// SPDX-License-Identifier: MIT
#include <fuzzer/FuzzedDataProvider.h>

#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <string>

#include "data/CodigosDeErros.h"
#include "document/DocumentoRelatorio.h"
#include "document/Imagens.h"
#include "output/json/DocumentoJSON.h"
#include "output/pdf/RenderizadorPDF.h"

// Any drawing on a document: its PDF is made, and made again byte for byte the same; its JSON form
// is made too.
namespace tarvo::fuzz {

namespace {

constexpr const char* Fontes[] = {"Arial", "Courier New", "Times New Roman", "arial", ""};
constexpr const Imagem* Imagens[] = {&frmFiguras::imgBrasaoVDColorido,
                                     &frmFiguras::imgTesoura,
                                     &frmFiguras::imgPortariaKEX_27_95,
                                     &frmFiguras::imgIconeR,
                                     &frmFiguras::imgIconeG,
                                     &frmFiguras::imgBrasaoVDMonocromatico};
constexpr double Extremos[] = {0.0,    -0.0, 1e-9, 1e-320, 1e9,     -1e9, 1e18,    1e300,
                               -1e300, 17.0, 21.0, 29.7,   DBL_MAX, NAN,  INFINITY};

class Desenhista {
  public:
    Desenhista(FuzzedDataProvider& dados, DocumentoRelatorio& doc) : dados_(dados), doc_(doc) {}

    void Desenhar() {
        const double x = Medida();
        const double y = Medida();
        const double w = Medida();
        const double h = Medida();
        const auto operacao = dados_.ConsumeIntegralInRange(0, 7);
        switch (operacao) {
            case 0:
                return doc_.NovaPagina();
            case 1:
                return doc_.DesenharLinha(x, y, w, h, Inteiro(), Inteiro(), Inteiro(),
                                          dados_.ConsumeBool() ? 0 : 2);
            case 2:
                return doc_.DesenharRetangulo(x, y, w, h, dados_.ConsumeBool(), Inteiro(),
                                              Inteiro(), Inteiro());
            case 3:
                return doc_.DesenharRetanguloArredondado(x, y, w, h, dados_.ConsumeBool(), Medida(),
                                                         Inteiro(), Inteiro(), Inteiro());
            case 4:
                return doc_.DesenharFigura(x, y, w, h, *dados_.PickValueInArray(Imagens),
                                           dados_.ConsumeBool());
            default:
                return Escrever(x, y, w, h, operacao == 5);
        }
    }

  private:
    // Mostly the sizes of a page, now and then anything that a double holds.
    double Medida() {
        const auto modo = dados_.ConsumeIntegral<std::uint8_t>();
        if (modo < 240) {
            return dados_.ConsumeIntegral<std::int16_t>() / 1000.0;
        }
        return modo < 248 ? dados_.PickValueInArray(Extremos)
                          : dados_.ConsumeFloatingPoint<double>();
    }

    std::int32_t Inteiro() {
        return dados_.ConsumeBool() ? dados_.ConsumeIntegral<std::int8_t>()
                                    : dados_.ConsumeIntegral<std::int32_t>();
    }

    void Escrever(double x, double y, double w, double h, bool multilinha) {
        const std::string texto = dados_.ConsumeRandomLengthString(200);
        const auto escrever = multilinha ? &DocumentoRelatorio::EscreverTextoMultilinha
                                         : &DocumentoRelatorio::EscreverTexto;
        const auto horizontal = dados_.ConsumeIntegralInRange(0, 2);
        const auto vertical = dados_.ConsumeIntegralInRange(0, 2);
        const char* fonte = dados_.PickValueInArray(Fontes);
        const double tamanho = Medida();
        const bool negrito = dados_.ConsumeBool();
        const bool italico = dados_.ConsumeBool();
        (doc_.*escrever)(x, y, w, h, texto, horizontal, vertical, fonte, tamanho, negrito, italico,
                         dados_.ConsumeBool(), Inteiro());
    }

    FuzzedDataProvider& dados_;
    DocumentoRelatorio& doc_;
};

template <class Acao>
void Tentar(Acao acao) {
    try {
        acao();
    } catch (const Erro&) {
        // Refusing is allowed.
    }
}

}  // namespace

}  // namespace tarvo::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    return setenv("SOURCE_DATE_EPOCH", "1054425600", 1);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t tamanho) {
    using namespace tarvo;
    using namespace tarvo::fuzz;
    FuzzedDataProvider dados(bytes, tamanho);
    DocumentoRelatorio doc;
    doc.DefinirTitulo(dados.ConsumeRandomLengthString(40));
    if (dados.ConsumeBool()) {
        doc.DefinirOrientacao(1);
    }
    Desenhista desenhista(dados, doc);
    while (dados.remaining_bytes() > 0) {
        Tentar([&] { desenhista.Desenhar(); });
    }
    Tentar([&] {
        std::string pdf;
        std::string denovo;
        const std::size_t paginas = RenderizarPDF(doc.Registrado(), pdf).paginas;
        RenderizarPDF(doc.Registrado(), denovo);
        if (paginas != doc.Registrado().paginas.size() || !pdf.starts_with("%PDF") ||
            pdf != denovo) {
            std::abort();
        }
    });
    std::ostringstream json;
    EscreverJSON("Relatorio", doc.Registrado(), json);
    return 0;
}
