// SPDX-License-Identifier: MIT
#include "databases/postgresql/Valores.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>

#include "data/CodigosDeErros.h"
#include "data/Procura.h"
#include "data/Textos.h"

namespace tarvo::postgresql {

namespace {

constexpr Tipo Booleano = 16;
constexpr Tipo Inteiro64 = 20;
constexpr Tipo Inteiro16 = 21;
constexpr Tipo Inteiro32 = 23;
constexpr Tipo Texto = 25;
constexpr Tipo Real32 = 700;
constexpr Tipo Real64 = 701;
constexpr Tipo Dinheiro = 790;
constexpr Tipo TextoVariavel = 1043;
constexpr Tipo Dia = 1082;
constexpr Tipo Momento = 1114;
constexpr Tipo MomentoComFuso = 1184;
constexpr Tipo Numerico = 1700;

[[noreturn]] void LancarForma() {
    throw Erro(NumeroErro::FalhaDoServidor, "O servidor enviou um valor de forma desconhecida.");
}

// The first bytes as a number, most significant first; they are taken.
template <class T>
T Tomar(std::string_view& bytes) {
    if (bytes.size() < sizeof(T)) {
        LancarForma();
    }
    std::make_unsigned_t<T> numero = 0;
    for (const char c : bytes.substr(0, sizeof(T))) {
        numero = static_cast<std::make_unsigned_t<T>>((static_cast<std::uint64_t>(numero) << 8U) |
                                                      static_cast<unsigned char>(c));
    }
    bytes.remove_prefix(sizeof(T));
    return static_cast<T>(numero);
}

Valor Inteiro(std::int64_t numero) {
    if (numero >= std::numeric_limits<std::int32_t>::min() &&
        numero <= std::numeric_limits<std::int32_t>::max()) {
        return static_cast<std::int32_t>(numero);
    }
    return std::to_string(numero);
}

// Numbers come in digits of base 10,000: so many, the first of that weight.
struct Algarismos {
    std::int16_t quantos;
    std::int16_t peso;
    std::uint16_t sinal;
    std::uint16_t casas;
    std::string_view bytes;

    // The digit that many places after the one of weight zero.
    [[nodiscard]] std::int64_t Em(int lugar) const {
        const int i = peso + lugar;
        if (i < 0 || i >= quantos) {
            return 0;
        }
        std::string_view um = bytes.substr(static_cast<std::size_t>(i) * 2);
        return Tomar<std::int16_t>(um);
    }
};

constexpr std::uint16_t Negativo = 0x4000;
constexpr std::uint16_t NaoNumero = 0xC000;
constexpr std::uint16_t MaisInfinito = 0xD000;
constexpr std::uint16_t MenosInfinito = 0xF000;

// Exact in the range of Currency, four decimals; more round halves to even.
std::optional<Moeda> ComoMoeda(const Algarismos& a) {
    constexpr int Base = 10'000;
    constexpr int MaiorPeso = 3;  // 922 trillion
    if (a.peso > MaiorPeso) {
        return std::nullopt;
    }
    __extension__ __int128 unidades = 0;
    for (int lugar = -std::max<int>(a.peso, 0); lugar <= 1; ++lugar) {
        unidades = unidades * Base + a.Em(lugar);
    }
    const std::int64_t resto = a.Em(2);
    const bool sobra = a.quantos > a.peso + 3;  // a last digit is never zero
    if (resto > Base / 2 || (resto == Base / 2 && (sobra || unidades % 2 != 0))) {
        ++unidades;
    }
    if (a.sinal == Negativo) {
        unidades = -unidades;
    }
    if (unidades < std::numeric_limits<std::int64_t>::min() ||
        unidades > std::numeric_limits<std::int64_t>::max()) {
        return std::nullopt;
    }
    return Moeda::DeDecimosMilesimos(static_cast<std::int64_t>(unidades));
}

// In the Brazilian convention, as texts are read.
std::string ComoTexto(const Algarismos& a) {
    switch (a.sinal) {
        case NaoNumero:
            return "NaN";
        case MaisInfinito:
            return "Infinity";
        case MenosInfinito:
            return "-Infinity";
        default:
            break;
    }
    std::string texto = a.sinal == Negativo ? "-" : "";
    const auto grupo = [&](int lugar) { return ComZeros(a.Em(lugar), 4); };
    for (int lugar = -std::max<int>(a.peso, 0); lugar <= 0; ++lugar) {
        texto += grupo(lugar);
    }
    std::string casas;
    for (int lugar = 1; casas.size() < a.casas; ++lugar) {
        casas += grupo(lugar);
    }
    casas.resize(a.casas);
    return texto + (casas.empty() ? "" : ",") + casas;
}

Valor LerNumerico(std::string_view bytes) {
    Algarismos a{};
    a.quantos = Tomar<std::int16_t>(bytes);
    a.peso = Tomar<std::int16_t>(bytes);
    a.sinal = Tomar<std::uint16_t>(bytes);
    a.casas = Tomar<std::uint16_t>(bytes);
    a.bytes = bytes;
    if (a.quantos < 0 || bytes.size() != static_cast<std::size_t>(a.quantos) * 2) {
        LancarForma();
    }
    if (a.sinal == 0 || a.sinal == Negativo) {
        if (const auto moeda = ComoMoeda(a)) {
            return *moeda;
        }
    }
    return ComoTexto(a);
}

// Days and microseconds since 1/1/2000.
Valor LerMomento(std::int64_t microssegundos) {
    using namespace std::chrono;
    if (microssegundos == std::numeric_limits<std::int64_t>::max() ||
        microssegundos == std::numeric_limits<std::int64_t>::min()) {
        return std::string(microssegundos > 0 ? "infinity" : "-infinity");
    }
    constexpr sys_days Inicio = year{2000} / January / 1;
    constexpr std::int64_t UltimoSegundoDoAno9999 = 252'455'615'999;
    constexpr std::int64_t PrimeiroSegundoDoAno100 = -59'958'144'000;
    const auto segundos = floor<seconds>(microseconds(microssegundos));
    if (segundos.count() < PrimeiroSegundoDoAno100 || segundos.count() > UltimoSegundoDoAno9999) {
        return "data fora dos anos 100 a 9999";
    }
    const auto dias = floor<days>(segundos);
    const year_month_day dia(Inicio + dias);
    const hh_mm_ss hora(segundos - dias);
    return Data::DeCivil(
        {static_cast<int>(dia.year()), static_cast<int>(static_cast<unsigned>(dia.month())),
         static_cast<int>(static_cast<unsigned>(dia.day())), static_cast<int>(hora.hours().count()),
         static_cast<int>(hora.minutes().count()), static_cast<int>(hora.seconds().count())});
}

Valor LerDia(std::int32_t dias) {
    constexpr std::int64_t MicrossegundosPorDia = 86'400'000'000;
    if (dias == std::numeric_limits<std::int32_t>::max() ||
        dias == std::numeric_limits<std::int32_t>::min()) {
        return std::string(dias > 0 ? "infinity" : "-infinity");
    }
    constexpr std::int32_t MaisDias = 10'000'000;
    return LerMomento(std::clamp(dias, -MaisDias, MaisDias) * MicrossegundosPorDia);
}

}  // namespace

Pedida PedidaDe(Tipo tipo) {
    switch (tipo) {
        case Booleano:
        case Inteiro64:
        case Inteiro16:
        case Inteiro32:
        case Texto:
        case Real32:
        case Real64:
        case TextoVariavel:
        case Dia:
        case Momento:
        case Numerico:
            return {"", tipo};
        case Dinheiro:
            return {"::numeric", Numerico};
        case MomentoComFuso:
            return {"::timestamp", Momento};
        default:
            return {"::text", Texto};
    }
}

bool EhNumero(Tipo tipo) {
    constexpr std::array Numeros{Inteiro64, Inteiro16, Inteiro32, Real32, Real64, Numerico};
    return Contem(Numeros, tipo);
}

Valor LerValor(std::string_view bytes, Tipo tipo) {
    switch (tipo) {
        case Booleano:
            return Tomar<std::int8_t>(bytes) != 0;
        case Inteiro16:
            return Inteiro(Tomar<std::int16_t>(bytes));
        case Inteiro32:
            return Inteiro(Tomar<std::int32_t>(bytes));
        case Inteiro64:
            return Inteiro(Tomar<std::int64_t>(bytes));
        case Real32:
            return static_cast<double>(std::bit_cast<float>(Tomar<std::int32_t>(bytes)));
        case Real64:
            return std::bit_cast<double>(Tomar<std::int64_t>(bytes));
        case Dia:
            return LerDia(Tomar<std::int32_t>(bytes));
        case Momento:
            return LerMomento(Tomar<std::int64_t>(bytes));
        case Numerico:
            return LerNumerico(bytes);
        default:
            return std::string(bytes);
    }
}

void LeitorDeCopia::PularCabecalho(std::string_view& pedaco) {
    constexpr std::string_view Marca("PGCOPY\n\377\r\n\0", 11);
    if (comecou_) {
        return;
    }
    comecou_ = true;
    if (!pedaco.starts_with(Marca)) {
        LancarForma();
    }
    pedaco.remove_prefix(Marca.size());
    static_cast<void>(Tomar<std::int32_t>(pedaco));
    const auto extensao = Tomar<std::uint32_t>(pedaco);
    pedaco.remove_prefix(std::min<std::size_t>(extensao, pedaco.size()));
}

bool LeitorDeCopia::Linha(std::string_view& pedaco) {
    if (pedaco.empty()) {
        return false;
    }
    const auto quantos = Tomar<std::int16_t>(pedaco);
    if (quantos < 0) {  // the end
        return false;
    }
    if (static_cast<std::size_t>(quantos) != tipos_.size()) {
        LancarForma();
    }
    valores_.clear();
    for (const Tipo tipo : tipos_) {
        const auto tamanho = Tomar<std::int32_t>(pedaco);
        if (tamanho < 0) {
            valores_.emplace_back(Nulo{});
            continue;
        }
        if (static_cast<std::size_t>(tamanho) > pedaco.size()) {
            LancarForma();
        }
        valores_.push_back(LerValor(pedaco.substr(0, static_cast<std::size_t>(tamanho)), tipo));
        pedaco.remove_prefix(static_cast<std::size_t>(tamanho));
    }
    return true;
}

}  // namespace tarvo::postgresql
