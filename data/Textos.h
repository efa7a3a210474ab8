// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Small operations on texts that every room needs. Digits are those of ASCII, whatever the locale.
namespace tarvo {

constexpr bool EhDigito(char c) {
    return c >= '0' && c <= '9';
}

// Of ASCII.
constexpr bool EhLetraOuDigito(char c) {
    return EhDigito(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// True for the empty text too.
constexpr bool SoDigitos(std::string_view texto) {
    return std::all_of(texto.begin(), texto.end(), EhDigito);
}

// At least that many digits: ComZeros(7, 2) is "07". For numbers from 0 on.
inline std::string ComZeros(std::int64_t valor, std::size_t digitos) {
    std::string texto = std::to_string(valor);
    texto.insert(0, digitos - std::min(digitos, texto.size()), '0');
    return texto;
}

// The whole number that the text is; nothing for any other text, and for one that does not fit.
template <class Inteiro>
std::optional<Inteiro> LerInteiro(std::string_view texto) {
    Inteiro valor{};
    const auto* const fim = texto.data() + texto.size();
    const auto lido = std::from_chars(texto.data(), fim, valor);
    return lido.ec == std::errc() && lido.ptr == fim ? std::optional(valor) : std::nullopt;
}

// Whether two names are the same without regard to case; letters beyond ASCII compare as they are.
constexpr bool MesmoNome(std::string_view a, std::string_view b) {
    const auto minuscula = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    return std::ranges::equal(a, b, {}, minuscula, minuscula);
}

// "1 falha", "2 falhas"
inline std::string Contados(std::size_t quantos, const char* um, const char* varios) {
    return std::to_string(quantos).append(" ").append(quantos == 1 ? um : varios);
}

// Without the blanks at both ends.
constexpr std::string_view SemBrancos(std::string_view texto, std::string_view brancos = " ") {
    texto.remove_prefix(std::min(texto.find_first_not_of(brancos), texto.size()));
    return texto.substr(0, texto.find_last_not_of(brancos) + 1);
}

// Between two such quotes, with those inside it doubled.
inline std::string EntreAspas(std::string_view texto, char aspas) {
    std::string citado(1, aspas);
    for (const char c : texto) {
        citado.append(c == aspas ? 2 : 1, c);
    }
    return citado += aspas;
}

// Of ASCII; others as they are.
constexpr char Minuscula(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Whether the byte continues a character of UTF-8, where every other byte begins one.
constexpr bool ContinuaCaractere(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// How many characters a UTF-8 text has.
constexpr std::size_t Caracteres(std::string_view texto) {
    return static_cast<std::size_t>(
        std::count_if(texto.begin(), texto.end(), [](char c) { return !ContinuaCaractere(c); }));
}

// The longest beginning of a UTF-8 text in whole characters that has at most that many bytes.
constexpr std::string_view InicioInteiro(std::string_view texto, std::size_t bytes) {
    if (texto.size() <= bytes) {
        return texto;
    }
    while (bytes > 0 && ContinuaCaractere(texto[bytes])) {
        --bytes;
    }
    return texto.substr(0, bytes);
}

}  // namespace tarvo
