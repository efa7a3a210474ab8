// SPDX-License-Identifier: MIT
#include "host/windows/Recentes.h"

#include <string>

#include "data/CodigosDeErros.h"
#include "desktop/ApoioQt.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

namespace {

constexpr int Quantos = 8;

std::string Chave(int numero) {
    return "Banco" + std::to_string(numero);
}

}  // namespace

QStringList LerRecentes(const ConfiguracoesIni& preferencias) {
    QStringList recentes;
    try {
        for (int i = 1; i <= Quantos; ++i) {
            const auto arquivo = preferencias.Ler("Tarvo", "Recentes", Chave(i), "");
            if (!arquivo.empty()) {
                recentes << ParaQt(arquivo);
            }
        }
    } catch (const Erro&) {
        recentes.clear();
    }
    return recentes;
}

void AcrescentarRecente(ConfiguracoesIni& preferencias, const QString& arquivo) {
    try {
        const auto antes = LerRecentes(preferencias);
        auto recentes = antes;
        recentes.removeAll(arquivo);
        recentes.prepend(arquivo);
        for (int i = 0; i < std::min<qsizetype>(recentes.size(), Quantos); ++i) {
            if (i >= antes.size() || antes[i] != recentes[i]) {
                preferencias.Gravar("Tarvo", "Recentes", Chave(i + 1), recentes[i].toStdString());
            }
        }
    } catch (const Erro&) {
        return;
    }
}

LugarNaLista LerLugar(const ConfiguracoesIni& preferencias) {
    try {
        const auto ler = [&](std::string_view chave) {
            return ParaQt(preferencias.Ler("Tarvo", "JanelaPrincipal", chave, ""));
        };
        LugarNaLista lugar{.filtro = ler("Filtro"), .IE = ler("IE").toStdString(), .NroDRQ = {}};
        bool numero = false;
        const int NroDRQ = ler("NroDRQ").toInt(&numero);
        lugar.NroDRQ = numero ? std::optional(NroDRQ) : std::nullopt;
        return lugar;
    } catch (const Erro&) {
        return {};
    }
}

void GravarLugar(ConfiguracoesIni& preferencias, const LugarNaLista& lugar) {
    try {
        const auto gravar = [&](std::string_view chave, const std::string& valor) {
            preferencias.Gravar("Tarvo", "JanelaPrincipal", chave, valor);
        };
        gravar("Filtro", lugar.filtro.toStdString());
        gravar("IE", lugar.IE);
        gravar("NroDRQ", lugar.NroDRQ ? std::to_string(*lugar.NroDRQ) : "");
    } catch (const Erro&) {
        return;
    }
}

}  // namespace tarvo::host
