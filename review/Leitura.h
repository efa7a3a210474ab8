// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/BancoDados.h"
#include "data/Procura.h"

// How a review reads: plain queries on one table, joined and grouped here, so that any engine that
// serves the reports serves it.
namespace tarvo::revisao {

// Names of columns, constant data.
using Colunas = std::span<const std::string_view>;

// Some columns of the rows of a table. Keys tell Null, which joins with nothing, from the empty
// text.
class Leitura {
  public:
    // condicao: what follows "where"; empty for all rows. Only columns named here can be read.
    Leitura(BancoDados& banco, std::string_view tabela, Colunas colunas,
            std::string_view condicao = {});

    [[nodiscard]] bool Fim() const { return linhas_->EOF_(); }
    void Proxima() { linhas_->MoveNext(); }

    [[nodiscard]] bool Tem(std::string_view coluna) const { return Contem(colunas_, coluna); }
    [[nodiscard]] bool Nulo(std::string_view coluna) const;
    [[nodiscard]] std::string Texto(std::string_view coluna) const;
    [[nodiscard]] std::optional<std::string> Chave(std::string_view coluna) const;
    [[nodiscard]] std::int32_t Longo(std::string_view coluna) const;
    [[nodiscard]] Moeda Quantia(std::string_view coluna) const;  // Null is zero
    [[nodiscard]] Valor Ler(std::string_view coluna) const;

  private:
    Colunas colunas_;
    std::unique_ptr<Recordset> linhas_;
};

// The condition for the rows of one declaration.
std::string DaDeclaracao(std::int32_t NroDRQ);

// The rows of a table whose first column here has one of those values, which stand as a query says
// them.
void LerLinhasCom(BancoDados& banco, std::string_view tabela, Colunas colunas,
                  const std::set<std::string>& valores,
                  const std::function<void(const Leitura& linha)>& receber);
// The same for numbers. Those that lie close, as the ones that a declaration's entries got together
// do, are read as one range: a search for all instead of one for each.
void LerLinhasCom(BancoDados& banco, std::string_view tabela, Colunas colunas,
                  const std::set<std::int32_t>& numeros,
                  const std::function<void(const Leitura& linha)>& receber);

// The rows of a catalogue that have one of those codes, which stand as a query says them.
class Catalogo {
  public:
    struct Item {
        std::size_t linhas = 0;  // that have the code
        std::string nome;
    };

    // colunas: its key and the name.
    Catalogo(BancoDados& banco, std::string_view tabela, Colunas colunas,
             const std::set<std::string>& codigos);
    // nullptr for a code that is Null or not there.
    [[nodiscard]] const Item* Procurar(const std::optional<std::string>& codigo) const;

  private:
    std::unordered_map<std::string, Item> itens_;  // by code, without case
};

// The codes of a declaration's rows, each once, in the order in which they came.
class CodigosLidos {
  public:
    struct Codigo {
        std::optional<std::string> texto;
        std::size_t linhas = 0;  // that have it
    };
    void Acrescentar(std::optional<std::string> codigo);
    [[nodiscard]] const std::vector<Codigo>& EmOrdem() const { return codigos_; }

  private:
    std::vector<Codigo> codigos_;
    std::unordered_map<std::optional<std::string>, std::size_t> lugares_;
};

// Texts that the database's comparisons take for the same have the same key.
std::string SemCaixa(std::string_view texto);

}  // namespace tarvo::revisao
