// SPDX-License-Identifier: MIT
#include "output/pdf/text/TabelaOS2.h"

#include "data/ObjetoDeC.h"

namespace tarvo::pdf {

TabelaOS2::TabelaOS2(hb_face_t* face) {
    constexpr unsigned Licenca = 8;
    constexpr unsigned Classe = 30;
    constexpr unsigned Panose = 32;
    const ObjetoDeC<hb_blob_destroy> tabela(
        hb_face_reference_table(face, HB_TAG('O', 'S', '/', '2')));
    unsigned tamanho = 0;
    const auto* const dados =
        reinterpret_cast<const std::uint8_t*>(hb_blob_get_data(tabela.get(), &tamanho));
    if (tamanho < Panose + 2) {
        return;
    }
    licenca_ = dados[Licenca] * 256U + dados[Licenca + 1];
    classe_ = dados[Classe];
    familia_ = dados[Panose];
    serifa_ = dados[Panose + 1];
}

bool TabelaOS2::PermiteSubconjunto() const {
    constexpr unsigned Graus = 0x000E;
    constexpr unsigned Restrita = 0x0002;
    constexpr unsigned SoInteira = 0x0100;
    constexpr unsigned SoEmPontos = 0x0200;
    return (licenca_ & Graus) != Restrita && (licenca_ & (SoInteira | SoEmPontos)) == 0;
}

bool TabelaOS2::TemSerifas() const {
    constexpr std::uint8_t Latina = 2;
    constexpr std::uint8_t PrimeiraComSerifa = 2;  // 0 and 1: not told
    constexpr std::uint8_t PrimeiraSemSerifa = 11;
    if (familia_ == Latina && serifa_ >= PrimeiraComSerifa) {
        return serifa_ < PrimeiraSemSerifa;
    }
    return (classe_ >= 1 && classe_ <= 5) || classe_ == 7;
}

bool TabelaOS2::Manuscrita() const {
    constexpr std::uint8_t Manuscrito = 3;
    constexpr unsigned Script = 10;
    return familia_ == Manuscrito || classe_ == Script;
}

}  // namespace tarvo::pdf
