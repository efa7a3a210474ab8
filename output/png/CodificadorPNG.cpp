#include "output/png/CodificadorPNG.h"

#include <libdeflate.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <new>
#include <string_view>

namespace tarvo {

namespace {

constexpr int Nivel = 6;

void Anexar32(std::string& saida, std::uint32_t valor) {
    for (const unsigned bits : {24U, 16U, 8U, 0U}) {
        saida.push_back(static_cast<char>(valor >> bits));
    }
}

void AnexarBloco(std::string& saida, std::string_view tipo, std::string_view dados) {
    Anexar32(saida, static_cast<std::uint32_t>(dados.size()));
    const std::size_t inicio = saida.size();
    saida.append(tipo).append(dados);
    Anexar32(saida, libdeflate_crc32(0, saida.data() + inicio, saida.size() - inicio));
}

// Each row as its difference to the row above: on white pages nearly all zeros.
std::string Filtrar(std::span<const unsigned char> rgb, std::size_t linha) {
    constexpr char FiltroAcima = 2;
    std::string saida;
    saida.reserve(rgb.size() + rgb.size() / linha);
    for (std::size_t i = 0; i < rgb.size(); ++i) {
        if (i % linha == 0) {
            saida.push_back(FiltroAcima);
        }
        saida.push_back(static_cast<char>(rgb[i] - (i < linha ? 0 : rgb[i - linha])));
    }
    return saida;
}

std::string Comprimir(std::string_view dados) {
    const auto liberar = [](libdeflate_compressor* c) { libdeflate_free_compressor(c); };
    const std::unique_ptr<libdeflate_compressor, decltype(liberar)> compressor(
        libdeflate_alloc_compressor(Nivel), liberar);
    if (compressor == nullptr) {
        throw std::bad_alloc();
    }
    std::string saida(libdeflate_zlib_compress_bound(compressor.get(), dados.size()), '\0');
    saida.resize(libdeflate_zlib_compress(compressor.get(), dados.data(), dados.size(),
                                          saida.data(), saida.size()));
    return saida;
}

}  // namespace

std::string CodificarPNG(std::span<const unsigned char> rgb, std::size_t largura,
                         std::size_t altura, int dpi) {
    constexpr double PolegadasPorMetro = 1 / 0.0254;
    std::string cabecalho;
    Anexar32(cabecalho, static_cast<std::uint32_t>(largura));
    Anexar32(cabecalho, static_cast<std::uint32_t>(altura));
    cabecalho += std::string_view("\x08\x02\x00\x00\x00", 5);  // eight bits, RGB
    std::string resolucao;
    for (int eixo = 0; eixo < 2; ++eixo) {
        Anexar32(resolucao, static_cast<std::uint32_t>(std::lround(dpi * PolegadasPorMetro)));
    }
    resolucao.push_back('\x01');  // per metre

    std::string png = "\x89PNG\r\n\x1A\n";
    AnexarBloco(png, "IHDR", cabecalho);
    AnexarBloco(png, "pHYs", resolucao);
    AnexarBloco(png, "IDAT", Comprimir(Filtrar(rgb, 3 * largura)));
    AnexarBloco(png, "IEND", "");
    return png;
}

}  // namespace tarvo
