// SPDX-License-Identifier: MIT
#include "document/Momento.h"

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string_view>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"

namespace tarvo {

namespace {

std::optional<std::time_t> MomentoFixado() {
    const char* const texto = std::getenv("SOURCE_DATE_EPOCH");
    if (texto == nullptr || *texto == '\0') {
        return std::nullopt;
    }
    const std::string_view valor(texto);
    constexpr std::time_t FimDoCalendario = 253402300799;  // 31/12/9999 23:59:59
    const auto segundos = LerInteiro<std::time_t>(valor);
    if (!segundos || *segundos < 0 || *segundos > FimDoCalendario) {
        throw Erro(NumeroErro::ChamadaInvalida,
                   "SOURCE_DATE_EPOCH=\"" + std::string(valor) + "\" não é um número de segundos.");
    }
    return segundos;
}

std::string Deslocamento(int minutos, const char* separador) {
    const int absoluto = std::abs(minutos);
    return (minutos < 0 ? "-" : "+") + ComZeros(absoluto / 60, 2) + separador +
           ComZeros(absoluto % 60, 2);
}

DataCivil Civil(const std::tm& campos) {
    return {campos.tm_year + 1900, campos.tm_mon + 1, campos.tm_mday,
            campos.tm_hour,        campos.tm_min,     campos.tm_sec};
}

// Whole minutes, up to 14 hours: the widest offset that both forms of date allow (XML Schema's),
// and that of the easternmost time zone there is.
bool EhDeclaravel(long segundos) {
    constexpr long Maior = 14L * 3600;
    return segundos % 60 == 0 && segundos >= -Maior && segundos <= Maior;
}

}  // namespace

Momento Momento::Agora() {
    const auto fixado = MomentoFixado();
    const std::time_t agora = fixado ? *fixado : std::time(nullptr);
    std::tm campos{};
    fixado ? gmtime_r(&agora, &campos) : localtime_r(&agora, &campos);
    const DataCivil civil = Civil(campos);
    if (!EhDeclaravel(campos.tm_gmtoff)) {
        gmtime_r(&agora, &campos);
    }
    return {.civil = civil,
            .declarado = Civil(campos),
            .deslocamento = static_cast<int>(campos.tm_gmtoff / 60)};
}

std::string Momento::FormatoPDF() const {
    const auto& d = declarado;
    return "D:" + ComZeros(d.ano, 4) + ComZeros(d.mes, 2) + ComZeros(d.dia, 2) +
           ComZeros(d.hora, 2) + ComZeros(d.minuto, 2) + ComZeros(d.segundo, 2) +
           Deslocamento(deslocamento, "'") + "'";
}

std::string Momento::FormatoXMP() const {
    const auto& d = declarado;
    return ComZeros(d.ano, 4) + "-" + ComZeros(d.mes, 2) + "-" + ComZeros(d.dia, 2) + "T" +
           ComZeros(d.hora, 2) + ":" + ComZeros(d.minuto, 2) + ":" + ComZeros(d.segundo, 2) +
           Deslocamento(deslocamento, ":");
}

}  // namespace tarvo
