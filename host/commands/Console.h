#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace tarvo::host {

// Text of others (names, values, paths) as a terminal can show it: characters that would control
// it, begin a line or turn the direction of writing become blanks, what is no UTF-8 "?".
std::string Legivel(std::string_view texto);

// Where a command speaks to people: lines on the standard output, warnings among the errors. A
// silent one says neither; errors are said all the same (see Mensagens). What is said passes
// through Legivel.
class Console {
  public:
    // The streams outlive this object.
    Console(std::ostream& saida, std::ostream& erros, bool silencioso)
        : saida_(saida), erros_(erros), silencioso_(silencioso) {}

    void Dizer(std::string_view linha);
    // "aviso: …"
    void Avisar(std::string_view aviso);

    // For lines that a command writes itself; a silent one takes them and writes nothing.
    std::ostream& Saida() { return silencioso_ ? nada_ : saida_; }
    // For what was asked for as data: written as it is, also by a silent one.
    std::ostream& Dados() { return saida_; }
    std::ostream& Erros() { return erros_; }

  private:
    std::ostream& saida_;
    std::ostream& erros_;
    bool silencioso_;
    std::ostream nada_{nullptr};
};

}  // namespace tarvo::host
