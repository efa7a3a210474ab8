#include "interface/ErroDaChamada.h"

#include <array>
#include <cstring>

namespace tarvo::c {

namespace {

struct ErroGuardado {
    std::int32_t numero;
    std::array<char, 2048> texto;  // of a fixed size: there is room for it when memory is out
};

thread_local constinit ErroGuardado Ultimo{};

constexpr std::string_view Cortado = "…";

// How many bytes of the text fit, whole characters only.
std::size_t QueCabem(std::string_view texto, std::size_t lugar) {
    if (texto.size() <= lugar) {
        return texto.size();
    }
    std::size_t bytes = lugar;
    while (bytes > 0 && (static_cast<unsigned char>(texto[bytes]) & 0xC0U) == 0x80U) {
        --bytes;
    }
    return bytes;
}

}  // namespace

void GuardarErro(NumeroErro numero, std::string_view descricao) noexcept {
    Ultimo.numero = static_cast<std::int32_t>(numero);
    const std::size_t lugar = Ultimo.texto.size() - Cortado.size() - 1;
    const std::size_t bytes = QueCabem(descricao, lugar);
    std::memcpy(Ultimo.texto.data(), descricao.data(), bytes);
    char* fim = Ultimo.texto.data() + bytes;
    if (bytes < descricao.size()) {
        std::memcpy(fim, Cortado.data(), Cortado.size());
        fim += Cortado.size();
    }
    *fim = '\0';
}

std::int32_t NumeroDoErro() noexcept {
    return Ultimo.numero;
}

const char* TextoDoErro() noexcept {
    return Ultimo.texto.data();
}

}  // namespace tarvo::c
