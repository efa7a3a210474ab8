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

}  // namespace tarvo::host
