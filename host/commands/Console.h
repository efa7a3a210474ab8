#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace tarvo::host {

// Text of others (names, values, paths) as a terminal can show it: characters that would control
// it, begin a line or turn the direction of writing become blanks, what is no UTF-8 "?".
std::string Legivel(std::string_view texto);

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

    void Dizer(std::string_view linha);
    // "aviso: …"
    void Avisar(std::string_view aviso);

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
