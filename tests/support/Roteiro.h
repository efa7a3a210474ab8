// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/Apoio.h"

namespace tarvo::apoio {

// A test written as text. Lines of "> " are commands, which lines of ">  " continue; what each of
// them answers follows it; lines of "#" and empty ones say what it is about. Answers hold "\r",
// "\n" and "\t" as such, "\s" for a blank at their end, and "\" before a first character that would
// be read as something else. An error answers "erro NUMBER: TEXT".
//
// With REGRAVAR_ROTEIROS in the environment the answers are written instead, for the difference to
// be read, and the test fails.
//
//   base SCRIPT          what databases begin with from now on, and a new one
//   banco                a new one
//   sql SCRIPT           runs it in the database
//   repetir N COMMAND    runs one that selects from n, which has the numbers i from 1 to N
//   ler [A|B] QUERY      the values of these columns in its rows, ∅ for Null, of both recordsets
// and of the document that a test's own commands build last (pages from 1):
//   identidade           its title, short title, icon, orientation and margins
//   pagina P [N]         the operations of a page (see Curtas), or its last N
//   corpo P              the same but the footer and what all page heads have in common
//   linhas P Y           its rows of cells from Y on, each as its top and its texts
//   fim Y CORPO          each page's rows, of the first one from Y and of others from CORPO on, and
//                        whether the page ends with the footer
//   esboco [FROM TO]     what is told of it, in order (see Esboco)
class Roteiro {
  public:
    using Respostas = std::vector<std::string>;

    explicit Roteiro(std::string base = "");
    // A command of that name, given what stands behind the name.
    void Ensinar(const std::string& nome, std::function<Respostas(const std::string&)> comando);
    // What the commands of that name were given until now.
    [[nodiscard]] Respostas Pedidos(const std::string& nome) const { return pedidos_.at(nome); }
    // Plays a file of the tests' folder: "reports/pagamentos.txt".
    void Conferir(const std::string& arquivo);

    // A new database.
    void Renovar() { banco_.emplace(base_); }
    BancoDeTeste& Banco() { return banco_.value(); }
    Conteudo documento;

  private:
    void EnsinarDoBanco();
    void EnsinarDoDocumento();
    [[nodiscard]] Respostas Executar(const std::string& comando);
    [[nodiscard]] Respostas Ler(const std::string& pedido);

    std::map<std::string, std::function<Respostas(const std::string&)>> comandos_;
    std::map<std::string, Respostas> pedidos_;
    std::string base_;
    std::optional<BancoDeTeste> banco_;
};

// The parts of "[A|B] QUERY".
std::pair<std::string, std::string> ColunasEConsulta(const std::string& pedido);

// The rows from the current one on, each as the values of the columns, named "A|B"; Null is ∅.
std::vector<std::string> LinhasDe(Recordset& registros, const std::string& colunas);

// The words of a command; what is not there reads as the empty value.
template <class... T>
std::tuple<T...> Palavras(const std::string& argumentos) {
    std::istringstream leitura(argumentos);
    std::tuple<T...> palavras;
    std::apply([&](auto&... palavra) { (leitura >> ... >> palavra); }, palavras);
    return palavras;
}

}  // namespace tarvo::apoio
