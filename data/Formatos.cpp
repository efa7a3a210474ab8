// SPDX-License-Identifier: MIT
#include "data/Formatos.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"

namespace tarvo {

namespace {

constexpr std::uint64_t DecimosMilesimosPorCentavo = 100;

struct Decimal {
    bool negativo;
    std::string inteiros;  // digits before the comma
    std::string decimais;  // digits after it
};

// The parts of a number in the Brazilian convention. Points may stand anywhere after its first
// digit, up to the comma; there is at least one digit.
std::optional<Decimal> Decompor(std::string_view texto) {
    Decimal d{texto.starts_with('-'), {}, {}};
    if (d.negativo || texto.starts_with('+')) {
        texto.remove_prefix(1);
    }
    const auto virgula = std::min(texto.find(','), texto.size());
    d.inteiros = texto.substr(0, virgula);
    d.decimais = texto.substr(std::min(virgula + 1, texto.size()));
    const bool pontoSemDigito = d.inteiros.starts_with('.');
    std::erase(d.inteiros, '.');
    const bool temDigito = !d.inteiros.empty() || !d.decimais.empty();
    if (pontoSemDigito || !temDigito || !SoDigitos(d.inteiros) || !SoDigitos(d.decimais)) {
        return std::nullopt;
    }
    return d;
}

}  // namespace

std::string FormatarValor(Moeda valor) {
    const std::int64_t unidades = valor.DecimosMilesimos();
    // Magnitude in unsigned arithmetic: the least 64-bit integer has no positive twin.
    const std::uint64_t modulo = unidades < 0 ? ~static_cast<std::uint64_t>(unidades) + 1
                                              : static_cast<std::uint64_t>(unidades);
    std::uint64_t centavos = modulo / DecimosMilesimosPorCentavo;
    if (modulo % DecimosMilesimosPorCentavo >= DecimosMilesimosPorCentavo / 2) {
        ++centavos;
    }
    const std::string inteiros = std::to_string(centavos / 100);
    std::string texto;
    if (unidades < 0 && centavos != 0) {
        texto += '-';
    }
    for (std::size_t i = 0; i < inteiros.size(); ++i) {
        if (i != 0 && (inteiros.size() - i) % 3 == 0) {
            texto += '.';
        }
        texto += inteiros[i];
    }
    texto += ',';
    texto += static_cast<char>('0' + centavos / 10 % 10);
    texto += static_cast<char>('0' + centavos % 10);
    return texto;
}

std::string FormatarData(Data data) {
    const DataCivil c = data.Civil();
    return ComZeros(c.dia, 2) + "/" + ComZeros(c.mes, 2) + "/" + ComZeros(c.ano, 4);
}

std::string FormatarMesAno(Data data) {
    const DataCivil c = data.Civil();
    return ComZeros(c.mes, 2) + "/" + ComZeros(c.ano, 4);
}

std::string FormatarHora(Data data) {
    const DataCivil c = data.Civil();
    return ComZeros(c.hora, 2) + ":" + ComZeros(c.minuto, 2) + ":" + ComZeros(c.segundo, 2);
}

std::int64_t LerDecimal(std::string_view texto, int casas, std::string_view destino) {
    auto decimal = Decompor(SemBrancos(texto));
    if (!decimal) {
        LancarTipoIncompativel(texto, destino);
    }
    const auto mantidas = std::min(decimal->decimais.size(), static_cast<std::size_t>(casas));
    std::string resto = decimal->decimais.substr(mantidas);
    resto.erase(resto.find_last_not_of('0') + 1);
    decimal->decimais.resize(mantidas);
    decimal->decimais.resize(static_cast<std::size_t>(casas), '0');

    const std::string digitos = "0" + decimal->inteiros + decimal->decimais;
    std::uint64_t modulo = 0;
    const auto lido = std::from_chars(digitos.data(), digitos.data() + digitos.size(), modulo);
    // Digits compare as the fractions that they are: what lies above "5" is more than a half.
    const bool paraCima = resto > "5" || (resto == "5" && modulo % 2 != 0);
    const std::uint64_t maior = std::numeric_limits<std::int64_t>::max();
    if (lido.ec != std::errc() ||
        modulo > maior + (decimal->negativo ? 1 : 0) - (paraCima ? 1 : 0)) {
        LancarEstouro("\"" + std::string(texto) + "\" não cabe em " + std::string(destino));
    }
    modulo += paraCima ? 1 : 0;
    return static_cast<std::int64_t>(decimal->negativo ? ~modulo + 1 : modulo);
}

}  // namespace tarvo
