// SPDX-License-Identifier: MIT
#include "output/tables/NomesDeFolhas.h"

#include <algorithm>

#include "data/Textos.h"

namespace tarvo {

namespace {

// In the two-byte units that spreadsheets count: four bytes of UTF-8 are two of them.
constexpr std::size_t MaiorNome = 31;

std::string_view NoMaximo(std::string_view texto, std::size_t unidades) {
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        if (ContinuaCaractere(texto[i])) {
            continue;
        }
        const std::size_t daqui = static_cast<unsigned char>(texto[i]) >= 0xF0 ? 2 : 1;
        if (daqui > unidades) {
            return texto.substr(0, i);
        }
        unidades -= daqui;
        bytes = i;
    }
    return bytes < texto.size() ? texto : texto.substr(0, bytes);
}

std::string Permitido(std::string_view desejado) {
    std::string nome;
    for (const char c : desejado) {
        const bool proibida = std::string_view("[]:*?/\\").find(c) != std::string_view::npos;
        nome += c == '\n' ? ' ' : proibida ? '-' : c;
    }
    return nome;
}

// Neither blanks nor an apostrophe at either end.
std::string Aparado(std::string_view nome) {
    constexpr std::string_view Fora = " '";
    nome.remove_prefix(std::min(nome.find_first_not_of(Fora), nome.size()));
    return std::string(nome.substr(0, nome.find_last_not_of(Fora) + 1));
}

}  // namespace

std::string NomesDeFolhas::Chave(std::string_view nome) {
    std::string chave;
    for (const char c : nome) {
        if (!ContinuaCaractere(c)) {
            chave += static_cast<unsigned char>(c) >= 0x80 ? '?' : Minuscula(c);
        }
    }
    return chave;
}

std::string NomesDeFolhas::Novo(std::string_view desejado) {
    const std::string permitido = Aparado(Permitido(desejado));
    const std::string base = permitido.empty() ? "Tabela" : permitido;
    std::string nome = Aparado(NoMaximo(base, MaiorNome));
    for (int numero = 2; !usadas_.insert(Chave(nome)).second; ++numero) {
        const std::string sufixo = " (" + std::to_string(numero) + ")";
        nome = Aparado(NoMaximo(base, MaiorNome - sufixo.size())) + sufixo;
    }
    return nome;
}

}  // namespace tarvo
