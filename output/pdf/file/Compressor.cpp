// SPDX-License-Identifier: MIT
#include "output/pdf/file/Compressor.h"

#include <new>

namespace tarvo::pdf {

namespace {
// Higher levels cost several times as much for a few per cent.
int Nivel(Empenho empenho) {
    return empenho == Empenho::Tamanho ? 6 : 1;
}

}  // namespace

Compressor::Compressor(Empenho empenho) : compressor_(libdeflate_alloc_compressor(Nivel(empenho))) {
    if (compressor_ == nullptr) {
        throw std::bad_alloc();
    }
}

Compressor& Compressor::DoFio(Empenho empenho) {
    thread_local Compressor menor(Empenho::Tamanho);
    thread_local Compressor rapido(Empenho::Tempo);
    return empenho == Empenho::Tamanho ? menor : rapido;
}

std::string_view Compressor::Comprimir(std::string_view dados) {
    const auto limite = libdeflate_zlib_compress_bound(compressor_.get(), dados.size());
    if (saida_.size() < limite) {
        saida_.resize(limite);
    }
    const auto tamanho = libdeflate_zlib_compress(compressor_.get(), dados.data(), dados.size(),
                                                  saida_.data(), saida_.size());
    return {saida_.data(), tamanho};
}

}  // namespace tarvo::pdf
