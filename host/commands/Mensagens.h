// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <iosfwd>
#include <stdexcept>
#include <string_view>

#include "data/CodigosDeErros.h"
#include "document/Ambiente.h"

// What the command says when something is wrong, and how it ends.
namespace tarvo::host {

// Exit status of the command; stable for scripts.
enum Situacao : int {
    Feito = 0,
    Falhou = 1,          // at least one thing failed; everything that could be produced was
    Incompreendido = 2,  // wrong usage
};

// "erro NÚMERO: descrição". contexto, when not empty, comes before the description ("relatório
// 10"). Text of others in it is made harmless (see Legivel).
void DizerLinhaDeErro(std::ostream& erros, const Erro& erro, std::string_view contexto = "");
// What to do about an error where no commands are typed; empty where there is nothing to do.
std::string_view ConselhoPara(const Erro& erro);
// A second line with what to do, where there is something to do. configuracoes, when there are
// some, are those that the reports read.
void DizerConselho(std::ostream& erros, const Erro& erro,
                   const Configuracoes* configuracoes = nullptr);
// Both.
void DizerErro(std::ostream& erros, const Erro& erro, std::string_view contexto = "",
               const Configuracoes* configuracoes = nullptr);

// The command line cannot be understood; what() says why, in Portuguese.
class UsoErrado : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Runs a command and returns its exit status; the error that ends it is said, wrong usage with the
// way to the help of the command that nome names (to the program's when it is empty).
int DizendoErros(std::ostream& erros, std::string_view nome, const std::function<int()>& comando);

}  // namespace tarvo::host
