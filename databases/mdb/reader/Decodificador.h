// SPDX-License-Identifier: MIT
#pragma once

#include <iconv.h>

#include <span>
#include <string>

namespace tarvo::mdb {

// A file's texts as UTF-8. What cannot be read becomes U+FFFD.
class Decodificador {
  public:
    // For texts of a code page, as the oldest files hold them ("CP1252"). Loads what converting
    // needs, which is not possible later. Valido is false for an unknown name.
    explicit Decodificador(const std::string& codificacao);
    ~Decodificador();
    Decodificador(const Decodificador&) = delete;
    Decodificador& operator=(const Decodificador&) = delete;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): so iconv says that it has failed.
    [[nodiscard]] bool Valido() const { return conversor_ != iconv_t(-1); }

    // Both append to utf8; False when something could not be read.
    bool DaCodificacao(std::span<const unsigned char> bytes, std::string& utf8) const;
    // UTF-16, or its compressed form: after a mark, one byte for each character below 256.
    static bool DeUnicode(std::span<const unsigned char> bytes, std::string& utf8);

  private:
    iconv_t conversor_;
};

}  // namespace tarvo::mdb
