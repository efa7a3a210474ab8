// SPDX-License-Identifier: MIT
#include "review/Achados.h"

#include <algorithm>

#include "data/Legivel.h"
#include "data/Procura.h"

namespace tarvo::revisao {

namespace {

constexpr std::size_t LetrasDosExemplos = 60;

}  // namespace

Achados::Achados(std::string IE, std::optional<std::int32_t> NroDRQ,
                 std::function<bool(std::string_view)> querido)
    : IE_(std::move(IE)), NroDRQ_(NroDRQ), querido_(std::move(querido)) {}

bool Achados::Querido(std::string_view relatorio) const {
    return relatorio.empty() || !querido_ || querido_(relatorio);
}

void Achados::Linha(std::string_view relatorio, std::string_view tabela, std::string_view motivo,
                    std::string_view exemplo, std::size_t linhas) {
    if (!Querido(relatorio)) {
        return;
    }
    auto dobrado = std::ranges::find_if(dobrados_, [&](const Dobrado& d) {
        return d.achado.motivo == motivo && d.achado.tabela == tabela &&
               d.achado.relatorio == relatorio;
    });
    if (dobrado == dobrados_.end()) {
        dobrados_.push_back(
            {{IE_, NroDRQ_, std::string(relatorio), std::string(tabela), 0, std::string(motivo)},
             {}});
        dobrado = dobrados_.end() - 1;
    }
    dobrado->achado.linhas += linhas;
    if (exemplo.empty() || dobrado->letras > LetrasDosExemplos) {
        return;
    }
    std::string trecho = Legivel(exemplo, LetrasDosExemplos);
    if (!Contem(dobrado->exemplos, trecho)) {
        dobrado->letras += trecho.size();
        dobrado->exemplos.push_back(std::move(trecho));
    }
}

void Achados::Frase(std::string_view relatorio, std::string motivo) {
    if (Querido(relatorio)) {
        dobrados_.push_back({{IE_, NroDRQ_, std::string(relatorio), "", 0, std::move(motivo)}, {}});
    }
}

std::vector<Achado> Achados::Entregar() && {
    std::vector<Achado> achados;
    for (Dobrado& d : dobrados_) {
        std::string exemplos;
        for (const std::string& exemplo : d.exemplos) {
            exemplos += (exemplos.empty() ? "" : ", ") + exemplo;
        }
        if (!exemplos.empty()) {
            d.achado.motivo += " (" + Legivel(exemplos, LetrasDosExemplos) + ")";
        }
        achados.push_back(std::move(d.achado));
    }
    return achados;
}

}  // namespace tarvo::revisao
