#pragma once

#include <libdeflate.h>

#include <string_view>
#include <vector>

#include "data/ObjetoDeC.h"

namespace tarvo::pdf {

// One compressor for all streams of a file: making one costs more than compressing a page.
class Compressor {
  public:
    Compressor();
    // zlib stream; valid until the next call.
    std::string_view Comprimir(std::string_view dados);

  private:
    ObjetoDeC<libdeflate_free_compressor> compressor_;
    std::vector<char> saida_;
};

}  // namespace tarvo::pdf
