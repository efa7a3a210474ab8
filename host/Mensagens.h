#pragma once

#include <functional>
#include <iosfwd>
#include <stdexcept>
#include <string_view>

#include "data/CodigosDeErros.h"

// What the command says when something is wrong, and how it ends.
namespace tarvo::host {

// Exit status of the command; stable for scripts.
enum Situacao : int {
    Feito = 0,
    Falhou = 1,          // at least one thing failed; everything that could be produced was
    Incompreendido = 2,  // wrong usage
};

// "erro NÚMERO: descrição", and a second line with what to do where there is something to do.
// contexto, when not empty, comes before the description ("10-RelatorioApuracaoOpProp").
void DizerErro(std::ostream& erros, const Erro& erro, std::string_view contexto = "");

// The command line cannot be understood; what() says why, in Portuguese.
class UsoErrado : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Runs a command and returns its exit status; the error that ends it is said.
int DizendoErros(std::ostream& erros, const std::function<int()>& comando);

}  // namespace tarvo::host
