#include "document/Momento.h"

#include <charconv>
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
    std::time_t segundos = 0;
    const auto [fim, erro] = std::from_chars(valor.data(), valor.data() + valor.size(), segundos);
    if (erro != std::errc() || fim != valor.data() + valor.size() || segundos < 0 ||
        segundos > FimDoCalendario) {
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

}  // namespace

Momento Momento::Agora() {
    std::tm campos{};
    if (const auto fixado = MomentoFixado()) {
        gmtime_r(&*fixado, &campos);
    } else {
        const std::time_t agora = std::time(nullptr);
        localtime_r(&agora, &campos);
    }
    return {.civil = {campos.tm_year + 1900, campos.tm_mon + 1, campos.tm_mday, campos.tm_hour,
                      campos.tm_min, campos.tm_sec},
            .deslocamento = static_cast<int>(campos.tm_gmtoff / 60)};
}

std::string Momento::FormatoPDF() const {
    return "D:" + ComZeros(civil.ano, 4) + ComZeros(civil.mes, 2) + ComZeros(civil.dia, 2) +
           ComZeros(civil.hora, 2) + ComZeros(civil.minuto, 2) + ComZeros(civil.segundo, 2) +
           Deslocamento(deslocamento, "'") + "'";
}

std::string Momento::FormatoXMP() const {
    return ComZeros(civil.ano, 4) + "-" + ComZeros(civil.mes, 2) + "-" + ComZeros(civil.dia, 2) +
           "T" + ComZeros(civil.hora, 2) + ":" + ComZeros(civil.minuto, 2) + ":" +
           ComZeros(civil.segundo, 2) + Deslocamento(deslocamento, ":");
}

}  // namespace tarvo
