#pragma once

#include <memory>
#include <string_view>
#include <vector>

struct libdeflate_compressor;

namespace tarvo::pdf {

// One compressor for all streams of a file: making one costs more than compressing a page.
class Compressor {
  public:
    Compressor();
    // zlib stream; valid until the next call.
    std::string_view Comprimir(std::string_view dados);

  private:
    struct Liberar {
        void operator()(libdeflate_compressor* c) const noexcept;
    };
    std::unique_ptr<libdeflate_compressor, Liberar> compressor_;
    std::vector<char> saida_;
};

}  // namespace tarvo::pdf
