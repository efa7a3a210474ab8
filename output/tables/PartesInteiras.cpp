// SPDX-License-Identifier: MIT
#include "output/tables/PartesInteiras.h"

#include <libdeflate.h>

#include <cstdint>
#include <string>

#include "data/ObjetoDeC.h"

namespace tarvo {

namespace {

// The header of a part: its fields are little-endian, the name and an extra field follow it.
constexpr std::uint32_t MarcaDaParte = 0x04034B50;
constexpr std::size_t PosicaoDoComprimido = 18;
constexpr std::size_t PosicaoDoTamanho = 22;
constexpr std::size_t PosicaoDoNome = 26;
constexpr std::size_t PosicaoDoExtra = 28;
constexpr std::size_t TamanhoDoCabecalho = 30;

std::size_t Numero(std::string_view bytes, std::size_t posicao, std::size_t tamanho) {
    std::size_t numero = 0;
    for (std::size_t i = tamanho; i-- > 0;) {
        numero = numero << 8U | static_cast<unsigned char>(bytes[posicao + i]);
    }
    return numero;
}

// Ends with the end tag of its first element.
bool EhXmlInteiro(std::string_view xml) {
    const auto declaracao = xml.find("?>");
    const auto raiz = xml.find('<', declaracao == std::string_view::npos ? 0 : declaracao);
    if (raiz == std::string_view::npos) {
        return false;
    }
    const auto nome = xml.substr(raiz + 1, xml.find_first_of(" >", raiz) - raiz - 1);
    const auto fim = xml.substr(0, xml.find_last_not_of('\n') + 1);
    return fim.ends_with(std::string("</").append(nome).append(">"));
}

}  // namespace

bool PartesInteiras(std::string_view zip) {
    const ObjetoDeC<libdeflate_free_decompressor> descompressor(libdeflate_alloc_decompressor());
    std::string xml;
    bool alguma = false;
    while (zip.size() > TamanhoDoCabecalho && Numero(zip, 0, 4) == MarcaDaParte) {
        const std::size_t comprimido = Numero(zip, PosicaoDoComprimido, 4);
        const std::size_t inicio =
            TamanhoDoCabecalho + Numero(zip, PosicaoDoNome, 2) + Numero(zip, PosicaoDoExtra, 2);
        xml.resize(Numero(zip, PosicaoDoTamanho, 4));
        if (descompressor == nullptr || inicio + comprimido > zip.size() ||
            libdeflate_deflate_decompress(descompressor.get(), zip.data() + inicio, comprimido,
                                          xml.data(), xml.size(), nullptr) != LIBDEFLATE_SUCCESS ||
            !EhXmlInteiro(xml)) {
            return false;
        }
        zip.remove_prefix(inicio + comprimido);
        alguma = true;
    }
    return alguma;
}

}  // namespace tarvo
