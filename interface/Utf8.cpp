#include "interface/Utf8.h"

#include <cstdint>

namespace tarvo::c {

namespace {

// By the first byte: how many bytes follow, and the smallest code point that needs them.
struct Sequencia {
    unsigned char mascara;
    unsigned char marca;
    int seguintes;
    std::uint32_t minimo;
};

constexpr Sequencia Sequencias[] = {
    {0x80, 0x00, 0, 0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};

const Sequencia* SequenciaDe(unsigned char primeiro) {
    for (const auto& sequencia : Sequencias) {
        if ((primeiro & sequencia.mascara) == sequencia.marca) {
            return &sequencia;
        }
    }
    return nullptr;
}

}  // namespace

bool EhUtf8(std::string_view texto) {
    while (!texto.empty()) {
        const auto primeiro = static_cast<unsigned char>(texto.front());
        const Sequencia* sequencia = SequenciaDe(primeiro);
        if (sequencia == nullptr ||
            texto.size() <= static_cast<std::size_t>(sequencia->seguintes)) {
            return false;
        }
        std::uint32_t codigo = primeiro & static_cast<unsigned char>(~sequencia->mascara);
        for (int i = 1; i <= sequencia->seguintes; ++i) {
            const auto byte = static_cast<unsigned char>(texto[static_cast<std::size_t>(i)]);
            if ((byte & 0xC0U) != 0x80U) {
                return false;
            }
            codigo = codigo << 6U | (byte & 0x3FU);
        }
        const bool substituto = codigo >= 0xD800 && codigo <= 0xDFFF;
        if (codigo < sequencia->minimo || codigo > 0x10FFFF || substituto) {
            return false;
        }
        texto.remove_prefix(static_cast<std::size_t>(sequencia->seguintes) + 1);
    }
    return true;
}

}  // namespace tarvo::c
