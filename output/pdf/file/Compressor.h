// SPDX-License-Identifier: MIT
#pragma once

#include <libdeflate.h>

#include <string_view>
#include <vector>

#include "data/ObjetoDeC.h"

namespace tarvo::pdf {

// What counts more: level 6 or level 1, which takes half of the time and leaves a tenth more.
enum class Empenho { Tamanho, Tempo };

// Making one costs more than compressing a page.
class Compressor {
  public:
    explicit Compressor(Empenho empenho);
    // Those of the thread, for all its files.
    static Compressor& DoFio(Empenho empenho = Empenho::Tamanho);
    // zlib stream; valid until the next call.
    std::string_view Comprimir(std::string_view dados);

  private:
    ObjetoDeC<libdeflate_free_compressor> compressor_;
    std::vector<char> saida_;
};

}  // namespace tarvo::pdf
