#pragma once

#include <libdeflate.h>

#include <string_view>
#include <vector>

#include "data/ObjetoDeC.h"

namespace tarvo::pdf {

// Making one costs more than compressing a page.
class Compressor {
  public:
    Compressor();
    // That of the thread, for all its files.
    static Compressor& DoFio();
    // zlib stream; valid until the next call.
    std::string_view Comprimir(std::string_view dados);

  private:
    ObjetoDeC<libdeflate_free_compressor> compressor_;
    std::vector<char> saida_;
};

}  // namespace tarvo::pdf
