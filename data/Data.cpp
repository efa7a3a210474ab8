#include "data/Data.h"

#include <array>
#include <chrono>
#include <cmath>
#include <string>

#include "data/CodigosDeErros.h"

namespace tarvo {

namespace {

using std::chrono::sys_days;

constexpr int SegundosPorDia = 86'400;
constexpr sys_days DiaZero = std::chrono::year{1899} / std::chrono::December / std::chrono::day{30};
constexpr double PrimeiroDia = -657'434;  // 01/01/100
constexpr double UltimoDia = 2'958'465;   // 31/12/9999

bool EhDigito(char c) {
    return c >= '0' && c <= '9';
}

// Takes digits from the front of the text; -1 when there are fewer than minimo.
int TomarNumero(std::string_view& texto, std::size_t minimo, std::size_t maximo,
                std::size_t* digitos = nullptr) {
    std::size_t n = 0;
    int valor = 0;
    while (n < texto.size() && n < maximo && EhDigito(texto[n])) {
        valor = valor * 10 + (texto[n] - '0');
        ++n;
    }
    if (n < minimo) {
        return -1;
    }
    texto.remove_prefix(n);
    if (digitos != nullptr) {
        *digitos = n;
    }
    return valor;
}

bool Tomar(std::string_view& texto, char c) {
    if (texto.empty() || texto.front() != c) {
        return false;
    }
    texto.remove_prefix(1);
    return true;
}

std::string_view SemBrancos(std::string_view texto) {
    const auto inicio = texto.find_first_not_of(' ');
    if (inicio == std::string_view::npos) {
        return {};
    }
    return texto.substr(inicio, texto.find_last_not_of(' ') - inicio + 1);
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
    if (!Tomar(texto, ' ')) {
        return false;
    }
    civil.hora = TomarNumero(texto, 1, 2);
    if (!Tomar(texto, ':')) {
        return false;
    }
    civil.minuto = TomarNumero(texto, 2, 2);
    if (Tomar(texto, ':')) {
        civil.segundo = TomarNumero(texto, 2, 2);
    } else if (comSegundos) {
        return false;
    }
    return texto.empty();
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
    std::size_t digitosAno = 0;
    civil.dia = TomarNumero(resto, 1, 2);
    const bool temDia = Tomar(resto, '/');
    civil.mes = TomarNumero(resto, 1, 2);
    const bool temMes = Tomar(resto, '/');
    civil.ano = TomarNumero(resto, 2, 4, &digitosAno);
    if (!temDia || !temMes || (digitosAno != 2 && digitosAno != 4) ||
        !LerHora(resto, false, civil)) {
        LancarTipoIncompativel(texto, "data");
    }
    if (digitosAno == 2) {
        civil.ano += civil.ano < 30 ? 2000 : 1900;
    }
    if (!Existe(civil)) {
        LancarTipoIncompativel(texto, "data");
    }
    return DeCivil(civil);
}

std::optional<Data> Data::DeIso(std::string_view texto) {
    DataCivil civil;
    civil.ano = TomarNumero(texto, 4, 4);
    const bool temAno = Tomar(texto, '-');
    civil.mes = TomarNumero(texto, 2, 2);
    const bool temMes = Tomar(texto, '-');
    civil.dia = TomarNumero(texto, 2, 2);
    if (!temAno || !temMes || (!texto.empty() && texto.size() != 9) ||
        !LerHora(texto, true, civil) || !Existe(civil) || civil.ano < 100) {
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
