// SPDX-License-Identifier: MIT
#include "desktop/preview/PreferenciasDaVista.h"

#include <string>

#include "desktop/Habitos.h"

namespace tarvo {

namespace {

constexpr std::string_view Secao = "Visualizacao";

}  // namespace

PreferenciasDaVista PreferenciasDaVista::Ler(const ConfiguracoesIni* configuracoes) {
    const auto ler = [&](std::string_view chave) { return LerHabito(configuracoes, Secao, chave); };
    PreferenciasDaVista lidas;
    const auto ampliacao = ler("Ampliacao");
    if (ampliacao == "pagina") {
        lidas.ajuste = Ajuste::PaginaInteira;
    } else if (const auto livre = Ampliacao::LerPercentual(QString::fromStdString(ampliacao))) {
        lidas.ajuste = Ajuste::Livre;
        lidas.ampliacao = *livre;
    }
    lidas.continuo = ler("Continuo") != "0";
    lidas.ladoALado = ler("LadoALado") == "1";
    const auto painel = ler("Painel");
    lidas.painel = (painel.empty() ? ler("Miniaturas") : painel) == "1";  // its name in 1.0
    lidas.emAbas = ler("EmAbas") == "1";
    return lidas;
}

void PreferenciasDaVista::Gravar(ConfiguracoesIni* configuracoes) const {
    const std::string escolhida = ajuste == Ajuste::PaginaInteira ? "pagina"
                                  : ajuste == Ajuste::LarguraDaPagina
                                      ? "largura"
                                      : Ampliacao::Percentual(ampliacao).toStdString();
    GravarHabito(configuracoes, Secao, "Ampliacao", escolhida);
    GravarHabito(configuracoes, Secao, "Continuo", continuo ? "1" : "0");
    GravarHabito(configuracoes, Secao, "LadoALado", ladoALado ? "1" : "0");
    GravarHabito(configuracoes, Secao, "Painel", painel ? "1" : "0");
    GravarHabito(configuracoes, Secao, "EmAbas", emAbas ? "1" : "0");
}

}  // namespace tarvo
