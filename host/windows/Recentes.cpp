// SPDX-License-Identifier: MIT
#include "host/windows/Recentes.h"

#include <string>

#include "data/Textos.h"
#include "desktop/ApoioQt.h"
#include "desktop/Habitos.h"

namespace tarvo::host {

namespace {

constexpr int Quantos = 8;

std::string Chave(int numero) {
    return "Banco" + std::to_string(numero);
}

}  // namespace

QStringList LerRecentes(const ConfiguracoesIni& preferencias) {
    QStringList recentes;
    for (int i = 1; i <= Quantos; ++i) {
        recentes << ParaQt(LerHabito(&preferencias, "Recentes", Chave(i)));
    }
    recentes.removeAll(QString());
    return recentes;
}

void AcrescentarRecente(ConfiguracoesIni& preferencias, const QString& arquivo) {
    auto recentes = LerRecentes(preferencias);
    recentes.removeAll(arquivo);
    recentes.prepend(arquivo);
    for (int i = 0; i < std::min<qsizetype>(recentes.size(), Quantos); ++i) {
        GravarHabito(&preferencias, "Recentes", Chave(i + 1), recentes[i].toStdString());
    }
}

LugarNaLista LerLugar(const ConfiguracoesIni& preferencias) {
    const auto ler = [&](std::string_view chave) {
        return LerHabito(&preferencias, "JanelaPrincipal", chave);
    };
    return {.filtro = ParaQt(ler("Filtro")),
            .IE = ler("IE"),
            .NroDRQ = LerInteiro<std::int32_t>(ler("NroDRQ"))};
}

void GravarLugar(ConfiguracoesIni& preferencias, const LugarNaLista& lugar) {
    const auto gravar = [&](std::string_view chave, const std::string& valor) {
        GravarHabito(&preferencias, "JanelaPrincipal", chave, valor);
    };
    gravar("Filtro", lugar.filtro.toStdString());
    gravar("IE", lugar.IE);
    gravar("NroDRQ", lugar.NroDRQ ? std::to_string(*lugar.NroDRQ) : "");
}

}  // namespace tarvo::host
