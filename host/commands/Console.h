// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>
#include <string_view>

#include "data/Legivel.h"

namespace tarvo::host {

// Where a command speaks to people: lines on the standard output, unless that is for data, and
// warnings among the errors. A silent one says neither; errors are said all the same (see
// Mensagens). What is said passes through Legivel.
class Console {
  public:
    struct Modo {
        bool silencioso = false;
        bool dados = false;  // the standard output is for data
    };

    // The streams outlive this object.
    Console(std::ostream& saida, std::ostream& erros, const Modo& modo)
        : saida_(saida), erros_(erros), modo_(modo) {}

    void Dizer(std::string_view linha) { Saida() << Legivel(linha) << "\n"; }
    // "aviso: …"
    void Avisar(std::string_view aviso) {
        if (!modo_.silencioso) {
            erros_ << "aviso: " << Legivel(aviso) << "\n";
        }
    }

    // For lines that a command writes itself; where there shall be none, it writes nothing.
    std::ostream& Saida() { return modo_.silencioso || modo_.dados ? nada_ : saida_; }
    // For data: written as it is, also by a silent one.
    std::ostream& Dados() { return saida_; }
    std::ostream& Erros() { return erros_; }

  private:
    std::ostream& saida_;
    std::ostream& erros_;
    Modo modo_;
    std::ostream nada_{nullptr};
};

}  // namespace tarvo::host
