// SPDX-License-Identifier: MIT
#include "data/Data.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <string>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"

namespace tarvo {

namespace {

using std::chrono::sys_days;

constexpr int SegundosPorDia = 86'400;
constexpr sys_days DiaZero = std::chrono::year{1899} / std::chrono::December / std::chrono::day{30};
constexpr int PrimeiroAno = 100;
constexpr double PrimeiroDia = -657'434;  // 01/01/100
constexpr double UltimoDia = 2'958'465;   // 31/12/9999

// Takes a number of that many digits from the front of the text, when one stands there.
bool TomarNumero(std::string_view& texto, std::size_t minimo, std::size_t maximo, int& valor) {
    const auto fim = std::find_if_not(texto.begin(), texto.end(), EhDigito);
    const auto digitos = std::min(static_cast<std::size_t>(fim - texto.begin()), maximo);
    if (digitos < minimo) {
        return false;
    }
    std::from_chars(texto.data(), texto.data() + digitos, valor);
    texto.remove_prefix(digitos);
    return true;
}

bool Tomar(std::string_view& texto, char c) {
    if (!texto.starts_with(c)) {
        return false;
    }
    texto.remove_prefix(1);
    return true;
}

// A month and its year as hands write them: two digits stand for a year near the present.
bool TomarMesAno(std::string_view& texto, DataCivil& civil) {
    if (!TomarNumero(texto, 1, 2, civil.mes) || !Tomar(texto, '/')) {
        return false;
    }
    if (TomarNumero(texto, 4, 4, civil.ano)) {
        return true;
    }
    const bool lido = TomarNumero(texto, 2, 2, civil.ano);
    civil.ano += civil.ano < 30 ? 2000 : 1900;
    return lido;
}

bool Existe(const DataCivil& c) {
    const std::chrono::year_month_day ymd{std::chrono::year{c.ano},
                                          std::chrono::month{static_cast<unsigned>(c.mes)},
                                          std::chrono::day{static_cast<unsigned>(c.dia)}};
    return c.mes >= 1 && c.dia >= 1 && ymd.ok() && c.hora >= 0 && c.hora < 24 && c.minuto >= 0 &&
           c.minuto < 60 && c.segundo >= 0 && c.segundo < 60;
}

// " HH:MM" or " HH:MM:SS" at the end of a date; an empty text is midnight.
bool LerHora(std::string_view texto, bool comSegundos, DataCivil& civil) {
    if (texto.empty()) {
        return true;
    }
    if (!Tomar(texto, ' ') || !TomarNumero(texto, 1, 2, civil.hora) || !Tomar(texto, ':') ||
        !TomarNumero(texto, 2, 2, civil.minuto)) {
        return false;
    }
    const bool temSegundos = Tomar(texto, ':');
    return temSegundos ? TomarNumero(texto, 2, 2, civil.segundo) && texto.empty()
                       : !comSegundos && texto.empty();
}

}  // namespace

Data Data::DeSerial(double dias) {
    if (!(dias >= PrimeiroDia && dias < UltimoDia + 1)) {
        LancarEstouro("a data está fora dos anos 100 a 9999");
    }
    Data d;
    d.dias_ = dias;
    return d;
}

Data Data::DeCivil(const DataCivil& c) {
    if (!Existe(c)) {
        LancarTipoIncompativel(
            std::to_string(c.dia) + "/" + std::to_string(c.mes) + "/" + std::to_string(c.ano),
            "data");
    }
    const sys_days dia = std::chrono::year{c.ano} /
                         std::chrono::month{static_cast<unsigned>(c.mes)} /
                         std::chrono::day{static_cast<unsigned>(c.dia)};
    const auto dias = static_cast<double>((dia - DiaZero).count());
    const double fracao = (c.hora * 3600 + c.minuto * 60 + c.segundo) / double{SegundosPorDia};
    return DeSerial(dias < 0 ? dias - fracao : dias + fracao);
}

Data Data::DeTexto(std::string_view texto) {
    std::string_view resto = SemBrancos(texto);
    DataCivil civil;
    const bool lida = TomarNumero(resto, 1, 2, civil.dia) && Tomar(resto, '/') &&
                      TomarMesAno(resto, civil) && LerHora(resto, false, civil);
    if (!lida || !Existe(civil)) {
        LancarTipoIncompativel(texto, "data");
    }
    return DeCivil(civil);
}

std::optional<Data> Data::DeMesAno(std::string_view texto) {
    DataCivil civil{.dia = 1};
    const bool lido = TomarMesAno(texto, civil) && texto.empty();
    return lido && Existe(civil) && civil.ano >= PrimeiroAno ? std::optional(DeCivil(civil))
                                                             : std::nullopt;
}

std::optional<Data> Data::DeIso(std::string_view texto) {
    DataCivil civil;
    const bool lida = TomarNumero(texto, 4, 4, civil.ano) && Tomar(texto, '-') &&
                      TomarNumero(texto, 2, 2, civil.mes) && Tomar(texto, '-') &&
                      TomarNumero(texto, 2, 2, civil.dia);
    const bool comHoraInteira =
        texto.empty() || texto.size() == std::string_view(" HH:MM:SS").size();
    if (!lida || !comHoraInteira || !LerHora(texto, true, civil) || !Existe(civil) ||
        civil.ano < PrimeiroAno) {
        return std::nullopt;
    }
    return DeCivil(civil);
}

DataCivil Data::Civil() const {
    double dia = std::trunc(dias_);
    auto segundos = static_cast<int>(std::lround(std::fabs(dias_ - dia) * SegundosPorDia));
    if (segundos == SegundosPorDia) {
        segundos = 0;
        dia += 1;
    }
    const std::chrono::year_month_day ymd{DiaZero + std::chrono::days{static_cast<int>(dia)}};
    return {.ano = static_cast<int>(ymd.year()),
            .mes = static_cast<int>(static_cast<unsigned>(ymd.month())),
            .dia = static_cast<int>(static_cast<unsigned>(ymd.day())),
            .hora = segundos / 3600,
            .minuto = segundos / 60 % 60,
            .segundo = segundos % 60};
}

}  // namespace tarvo
