// SPDX-License-Identifier: MIT
#include "desktop/preview/PreferenciasDaVista.h"

#include <string>

#include "data/CodigosDeErros.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo {

namespace {

constexpr std::string_view Aplicacao = "Tarvo";
constexpr std::string_view Secao = "Visualizacao";

std::string Ler(const ConfiguracoesIni& configuracoes, std::string_view chave) {
    try {
        return configuracoes.Ler(Aplicacao, Secao, chave, "");
    } catch (const Erro&) {
        return {};
    }
}

}  // namespace

PreferenciasDaVista PreferenciasDaVista::Ler(const ConfiguracoesIni& configuracoes) {
    PreferenciasDaVista lidas;
    const auto ampliacao = tarvo::Ler(configuracoes, "Ampliacao");
    if (ampliacao == "pagina") {
        lidas.ajuste = Ajuste::PaginaInteira;
    } else if (const auto livre = Ampliacao::LerPercentual(QString::fromStdString(ampliacao))) {
        lidas.ajuste = Ajuste::Livre;
        lidas.ampliacao = *livre;
    }
    lidas.continuo = tarvo::Ler(configuracoes, "Continuo") != "0";
    lidas.ladoALado = tarvo::Ler(configuracoes, "LadoALado") == "1";
    lidas.painel = tarvo::Ler(configuracoes, "Painel") == "1";
    lidas.emAbas = tarvo::Ler(configuracoes, "EmAbas") == "1";
    return lidas;
}

void PreferenciasDaVista::Gravar(ConfiguracoesIni& configuracoes) const {
    const std::string escolhida = ajuste == Ajuste::PaginaInteira ? "pagina"
                                  : ajuste == Ajuste::LarguraDaPagina
                                      ? "largura"
                                      : Ampliacao::Percentual(ampliacao).toStdString();
    try {
        const auto gravar = [&](std::string_view chave, const std::string& valor) {
            if (tarvo::Ler(configuracoes, chave) != valor) {
                configuracoes.Gravar(Aplicacao, Secao, chave, valor);
            }
        };
        gravar("Ampliacao", escolhida);
        gravar("Continuo", continuo ? "1" : "0");
        gravar("LadoALado", ladoALado ? "1" : "0");
        gravar("Painel", painel ? "1" : "0");
        gravar("EmAbas", emAbas ? "1" : "0");
    } catch (const Erro&) {
        return;
    }
}

}  // namespace tarvo
