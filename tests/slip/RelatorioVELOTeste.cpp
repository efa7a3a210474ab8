// SPDX-License-Identifier: MIT
#include "slip/RelatorioVELO.h"

#include "tests/support/Roteiro.h"

namespace tarvo::apoio {
namespace {

template <class Classe>
concept TemImprimir = requires(Classe& relatorio) {
    relatorio.Imprimir();
};
static_assert(!TemImprimir<RelatorioVELO>, "it is previewed only");

TEST(Velo, PrintsWhatItsRoteiroTells) {
    Roteiro roteiro;
    RelatorioVELO relatorio;
    roteiro.Ensinar("construir", [&](const auto&) {
        relatorio.Construir(*roteiro.Banco());
        roteiro.documento = relatorio.Documento();
        return Roteiro::Respostas{"páginas: " + std::to_string(roteiro.documento.paginas.size())};
    });
    roteiro.Conferir("slip/RelatorioVELO.txt");
}

}  // namespace
}  // namespace tarvo::apoio
