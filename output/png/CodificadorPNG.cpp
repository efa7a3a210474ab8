// SPDX-License-Identifier: MIT
#include "output/png/CodificadorPNG.h"

#include <png.h>

#include <cmath>
#include <csetjmp>
#include <exception>
#include <new>

#include "data/CodigosDeErros.h"

namespace tarvo {

namespace {

// What libpng keeps of a picture that is being written.
struct Escrita {
    png_structp png = nullptr;
    png_infop info = nullptr;

    Escrita() = default;
    Escrita(const Escrita&) = delete;
    Escrita& operator=(const Escrita&) = delete;
    ~Escrita() { png_destroy_write_struct(&png, &info); }
};

[[noreturn]] void Desistir(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}

void Calar(png_structp, png_const_charp) {}

void Receber(png_structp png, png_bytep bytes, png_size_t quantos) {
    auto& saida = *static_cast<std::string*>(png_get_io_ptr(png));
    bool coube = true;
    try {
        saida.append(reinterpret_cast<const char*>(bytes), quantos);
    } catch (const std::exception&) {
        coube = false;
    }
    if (!coube) {
        png_error(png, "");
    }
}

// False after an error: libpng then jumps back to where this began, over nothing that needs a
// destructor.
bool Escrever(png_structp png, png_infop info, std::span<const unsigned char> rgb,
              std::size_t largura, std::size_t altura, int dpi) {
    constexpr double PolegadasPorMetro = 1 / 0.0254;
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_set_IHDR(png, info, static_cast<png_uint_32>(largura), static_cast<png_uint_32>(altura), 8,
                 PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    const auto porMetro = static_cast<png_uint_32>(std::lround(dpi * PolegadasPorMetro));
    png_set_pHYs(png, info, porMetro, porMetro, PNG_RESOLUTION_METER);
    // Pages are white and their lines straight: without a filter the files are a tenth smaller.
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_write_info(png, info);
    for (std::size_t linha = 0; linha < altura; ++linha) {
        png_write_row(png, rgb.data() + linha * 3 * largura);
    }
    png_write_end(png, nullptr);
    return true;
}

}  // namespace

std::string CodificarPNG(std::span<const unsigned char> rgb, std::size_t largura,
                         std::size_t altura, int dpi) {
    std::string saida;
    Escrita escrita;
    escrita.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, Desistir, Calar);
    escrita.info = escrita.png == nullptr ? nullptr : png_create_info_struct(escrita.png);
    if (escrita.info == nullptr) {
        throw std::bad_alloc();
    }
    png_set_write_fn(escrita.png, &saida, Receber, nullptr);
    if (!Escrever(escrita.png, escrita.info, rgb, largura, altura, dpi)) {
        throw Erro(NumeroErro::ErroDispositivo, "A página não pôde ser gravada como PNG.");
    }
    return saida;
}

}  // namespace tarvo
