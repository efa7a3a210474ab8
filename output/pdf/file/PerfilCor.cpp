// SPDX-License-Identifier: MIT
#include "output/pdf/file/PerfilCor.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvo::pdf {

namespace {

void Anexar32(std::string& saida, std::uint32_t valor) {
    for (const unsigned bits : {24U, 16U, 8U, 0U}) {
        saida.push_back(static_cast<char>(valor >> bits));
    }
}

void AnexarFixo(std::string& saida, double valor) {
    Anexar32(saida,
             static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(valor * 65536.0))));
}

std::string Elemento(std::string_view tipo, std::initializer_list<double> valores) {
    std::string e(tipo);
    Anexar32(e, 0);
    for (const double valor : valores) {
        AnexarFixo(e, valor);
    }
    return e;
}

// A text in one language (en-US), UTF-16.
std::string ElementoTexto(std::string_view ascii) {
    std::string e = "mluc";
    Anexar32(e, 0);
    Anexar32(e, 1);
    Anexar32(e, 12);
    e += "enUS";
    Anexar32(e, static_cast<std::uint32_t>(2 * ascii.size()));
    Anexar32(e, 28);
    for (const char c : ascii) {
        e.push_back('\0');
        e.push_back(c);
    }
    return e;
}

std::string ElementoCurva() {
    std::string e = "para";
    Anexar32(e, 0);
    Anexar32(e, 0x00030000);  // curve of five parameters: (ax + b)^g from d on, cx below
    for (const double p : {2.4, 1.0 / 1.055, 0.055 / 1.055, 1.0 / 12.92, 0.04045}) {
        AnexarFixo(e, p);
    }
    return e;
}

std::string Cabecalho(std::uint32_t tamanho) {
    std::string c;
    Anexar32(c, tamanho);
    Anexar32(c, 0);           // no preferred colour engine
    Anexar32(c, 0x04200000);  // version 4.2
    c += "mntrRGB XYZ ";
    Anexar32(c, 2024U << 16U | 1U);  // date of the profile: 1/1/2024, 0:00:00
    Anexar32(c, 1U << 16U);
    Anexar32(c, 0);
    c += "acsp";
    c.append(28, '\0');  // platform, flags, device, attributes; intent: perceptual
    AnexarFixo(c, 0.9642);
    AnexarFixo(c, 1.0);
    AnexarFixo(c, 0.8249);
    c.resize(128, '\0');
    return c;
}

}  // namespace

std::string PerfilSRGB() {
    const std::string curva = ElementoCurva();
    const std::vector<std::pair<const char*, std::string>> elementos = {
        {"desc", ElementoTexto("sRGB")},
        {"cprt", ElementoTexto("No copyright, use freely")},
        {"wtpt", Elemento("XYZ ", {0.9642, 1.0, 0.8249})},
        {"chad", Elemento("sf32", {1.0478112, 0.0228866, -0.0501270, 0.0295424, 0.9904844,
                                   -0.0170491, -0.0092345, 0.0150436, 0.7521316})},
        {"rXYZ", Elemento("XYZ ", {0.4360747, 0.2225045, 0.0139322})},
        {"gXYZ", Elemento("XYZ ", {0.3850649, 0.7168786, 0.0971045})},
        {"bXYZ", Elemento("XYZ ", {0.1430804, 0.0606169, 0.7141733})},
        {"rTRC", curva},
        {"gTRC", curva},
        {"bTRC", curva}};
    std::string tabela;
    std::string dados;
    const auto inicio = static_cast<std::uint32_t>(128 + 4 + 12 * elementos.size());
    Anexar32(tabela, static_cast<std::uint32_t>(elementos.size()));
    std::uint32_t ultimo = 0;
    const std::string* anterior = nullptr;
    for (const auto& [nome, elemento] : elementos) {
        // The three curves share one place.
        if (anterior == nullptr || *anterior != elemento) {
            ultimo = inicio + static_cast<std::uint32_t>(dados.size());
            dados += elemento;
            dados.resize((dados.size() + 3) / 4 * 4, '\0');
        }
        tabela += nome;
        Anexar32(tabela, ultimo);
        Anexar32(tabela, static_cast<std::uint32_t>(elemento.size()));
        anterior = &elemento;
    }
    const auto tamanho = static_cast<std::uint32_t>(128 + tabela.size() + dados.size());
    return Cabecalho(tamanho) + tabela + dados;
}

}  // namespace tarvo::pdf
