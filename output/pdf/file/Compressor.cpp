#include "output/pdf/file/Compressor.h"

#include <new>

namespace tarvo::pdf {

namespace {
// Higher levels cost several times as much for a few per cent.
constexpr int Nivel = 6;
}  // namespace

Compressor::Compressor() : compressor_(libdeflate_alloc_compressor(Nivel)) {
    if (compressor_ == nullptr) {
        throw std::bad_alloc();
    }
}

Compressor& Compressor::DoFio() {
    thread_local Compressor compressor;
    return compressor;
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
