// SPDX-License-Identifier: MIT
#include "data/LeitoresDeCampo.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "data/CodigosDeErros.h"
#include "data/Formatos.h"
#include "data/Textos.h"

namespace tarvo {

namespace {

template <class... Casos>
struct Caso : Casos... {
    using Casos::operator()...;
};
template <class... Casos>
Caso(Casos...) -> Caso<Casos...>;

std::string TextoDeDouble(double valor) {
    std::array<char, 32> buffer{};
    const auto fim = std::to_chars(buffer.data(), buffer.data() + buffer.size(), valor).ptr;
    std::string texto(buffer.data(), fim);
    if (const auto ponto = texto.find('.'); ponto != std::string::npos) {
        texto[ponto] = ',';
    }
    return texto;
}

// All significant decimals and no more: 12345000 is "1234,5".
std::string TextoDeMoeda(Moeda valor) {
    const std::int64_t unidades = valor.DecimosMilesimos();
    std::string texto = std::to_string(unidades / Moeda::Escala);
    if (unidades < 0 && unidades > -Moeda::Escala) {
        texto = "-0";
    }
    std::string decimais = ComZeros(std::abs(unidades % Moeda::Escala), 4);
    decimais.erase(decimais.find_last_not_of('0') + 1);
    return decimais.empty() ? texto : texto + "," + decimais;
}

std::string TextoDeData(Data data) {
    const DataCivil c = data.Civil();
    const bool meiaNoite = c.hora == 0 && c.minuto == 0 && c.segundo == 0;
    return meiaNoite ? FormatarData(data) : FormatarData(data) + " " + FormatarHora(data);
}

std::int32_t LongDeInteiro(std::int64_t valor) {
    if (valor < std::numeric_limits<std::int32_t>::min() ||
        valor > std::numeric_limits<std::int32_t>::max()) {
        LancarEstouro(std::to_string(valor) + " não cabe em 32 bits");
    }
    return static_cast<std::int32_t>(valor);
}

std::int32_t LongDeDouble(double valor) {
    const double inteiro = std::nearbyint(valor);
    if (!(std::fabs(inteiro) < 4e9)) {
        LancarEstouro(TextoDeDouble(valor) + " não cabe em 32 bits");
    }
    return LongDeInteiro(static_cast<std::int64_t>(inteiro));
}

std::int32_t LongDeMoeda(Moeda valor) {
    const std::int64_t unidades = valor.DecimosMilesimos();
    std::int64_t inteiro = unidades / Moeda::Escala;
    const std::int64_t resto = std::abs(unidades % Moeda::Escala);
    if (resto * 2 > Moeda::Escala || (resto * 2 == Moeda::Escala && inteiro % 2 != 0)) {
        inteiro += unidades < 0 ? -1 : 1;
    }
    return LongDeInteiro(inteiro);
}

bool BooleanoDeTexto(const std::string& texto) {
    for (const auto* verdadeiro : {"True", "Verdadeiro", "true", "verdadeiro"}) {
        if (texto == verdadeiro) {
            return true;
        }
    }
    for (const auto* falso : {"False", "Falso", "false", "falso"}) {
        if (texto == falso) {
            return false;
        }
    }
    return LerDecimal(texto, 4, "Booleano") != 0;
}

}  // namespace

std::string TextoCampo(const Valor& valor) {
    return std::visit(Caso{
                          [](Nulo) { return std::string(); },
                          [](std::int32_t v) { return std::to_string(v); },
                          [](double v) { return TextoDeDouble(v); },
                          [](Moeda v) { return TextoDeMoeda(v); },
                          [](Data v) { return TextoDeData(v); },
                          [](bool v) { return std::string(v ? "Verdadeiro" : "Falso"); },
                          [](const std::string& v) { return v; },
                      },
                      valor);
}

std::int32_t LongCampo(const Valor& valor) {
    return std::visit(
        Caso{
            [](Nulo) { return 0; },
            [](std::int32_t v) { return v; },
            [](double v) { return LongDeDouble(v); },
            [](Moeda v) { return LongDeMoeda(v); },
            [](Data v) { return LongDeDouble(v.Serial()); },
            [](bool v) { return v ? -1 : 0; },
            [](const std::string& v) { return LongDeInteiro(LerDecimal(v, 0, "número inteiro")); },
        },
        valor);
}

Moeda MoedaCampo(const Valor& valor) {
    return std::visit(Caso{
                          [](Nulo) { return Moeda(); },
                          [](std::int32_t v) { return Moeda::DeInteiro(v); },
                          [](double v) { return Moeda::DeDouble(v); },
                          [](Moeda v) { return v; },
                          [](Data v) { return Moeda::DeDouble(v.Serial()); },
                          [](bool v) { return Moeda::DeInteiro(v ? -1 : 0); },
                          [](const std::string& v) { return Moeda::DeTexto(v); },
                      },
                      valor);
}

Data DataCampo(const Valor& valor) {
    return std::visit(Caso{
                          [](Nulo) { return Data(); },
                          [](std::int32_t v) { return Data::DeSerial(v); },
                          [](double v) { return Data::DeSerial(v); },
                          [](Moeda v) { return Data::DeSerial(v.ParaDouble()); },
                          [](Data v) { return v; },
                          [](bool v) { return Data::DeSerial(v ? -1 : 0); },
                          [](const std::string& v) { return Data::DeTexto(v); },
                      },
                      valor);
}

bool BooleanoCampo(const Valor& valor) {
    return std::visit(Caso{
                          [](Nulo) { return false; },
                          [](std::int32_t v) { return v != 0; },
                          [](double v) { return v != 0; },
                          [](Moeda v) { return v != Moeda(); },
                          [](Data v) { return v != Data(); },
                          [](bool v) { return v; },
                          [](const std::string& v) { return BooleanoDeTexto(v); },
                      },
                      valor);
}

bool TemColuna(Recordset& linhas, std::string_view nome) {
    try {
        (void)linhas.Fields(nome);
        return true;
    } catch (const Erro& erro) {
        if (erro.Numero() == NumeroErro::ItemNaoEncontrado) {
            return false;
        }
        throw;
    }
}

}  // namespace tarvo
