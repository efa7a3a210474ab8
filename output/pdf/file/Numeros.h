#pragma once

#include <cstdint>
#include <string>

// Numbers of a PDF: lengths are integers of hundredths of a point and are written without printf.
namespace tarvo::pdf {

using Centesimos = std::int32_t;  // hundredths of a typographic point

constexpr Centesimos Arredondar(double valor) {
    // The largest page of a PDF, 14,400 points: nothing drawn farther outside can be seen.
    constexpr double Maximo = 1'440'000.0;
    if (!(valor > -Maximo)) {
        return static_cast<Centesimos>(-Maximo);
    }
    if (valor > Maximo) {
        return static_cast<Centesimos>(Maximo);
    }
    return static_cast<Centesimos>(valor < 0 ? valor - 0.5 : valor + 0.5);
}

constexpr Centesimos DeCm(double cm) {
    return Arredondar(cm * (7200.0 / 2.54));
}

constexpr Centesimos DePontos(double pontos) {
    return Arredondar(pontos * 100.0);
}

inline void AnexarInteiro(std::string& saida, std::int64_t n) {
    char texto[20];
    char* p = texto + sizeof texto;
    auto resto = n < 0 ? 0 - static_cast<std::uint64_t>(n) : static_cast<std::uint64_t>(n);
    do {
        *--p = static_cast<char>('0' + resto % 10);
        resto /= 10;
    } while (resto != 0);
    if (n < 0) {
        *--p = '-';
    }
    saida.append(p, static_cast<std::size_t>(texto + sizeof texto - p));
}

// n hundredths as the shortest decimal: 1250 is "12.5", 50 is ".5".
inline void AnexarCentesimos(std::string& saida, Centesimos n) {
    char texto[16];
    char* const fim = texto + sizeof texto;
    char* p = fim;
    auto resto = n < 0 ? 0U - static_cast<std::uint32_t>(n) : static_cast<std::uint32_t>(n);
    const std::uint32_t fracao = resto % 100;
    resto /= 100;
    if (fracao != 0) {
        if (fracao % 10 != 0) {
            *--p = static_cast<char>('0' + fracao % 10);
        }
        *--p = static_cast<char>('0' + fracao / 10);
        *--p = '.';
    }
    while (resto != 0) {
        *--p = static_cast<char>('0' + resto % 10);
        resto /= 10;
    }
    if (p == fim) {
        *--p = '0';
    } else if (n < 0) {
        *--p = '-';
    }
    saida.append(p, static_cast<std::size_t>(fim - p));
}

// Operands, each followed by a blank.
template <class... N>
void AnexarOperandos(std::string& saida, N... n) {
    ((AnexarCentesimos(saida, n), saida.push_back(' ')), ...);
}

// The last digits of a number in hexadecimal.
inline void AnexarHex(std::string& saida, std::uint64_t valor, int digitos) {
    constexpr char Digitos[] = "0123456789ABCDEF";
    for (int i = digitos - 1; i >= 0; --i) {
        saida.push_back(Digitos[(valor >> static_cast<unsigned>(4 * i)) & 15U]);
    }
}

// "12 0 R"
inline std::string Referencia(int objeto) {
    return std::to_string(objeto) + " 0 R";
}

// A colour 0x00BBGGRR with the operator for its colour space: grey when it is one ("g" or "G"),
// otherwise "rg" or "RG".
void AnexarCor(std::string& saida, std::int32_t cor, bool traco);

}  // namespace tarvo::pdf
