// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

namespace tarvo {

// A file descriptor, closed at the end of its scope; negative when opening it failed.
class Descritor {
  public:
    explicit Descritor(int valor) : valor_(valor) {}
    ~Descritor() {
        if (valor_ >= 0) {
            ::close(valor_);
        }
    }
    Descritor(const Descritor&) = delete;
    Descritor& operator=(const Descritor&) = delete;
    [[nodiscard]] int Valor() const { return valor_; }

  private:
    int valor_;
};

}  // namespace tarvo
