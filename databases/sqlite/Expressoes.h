// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "databases/sqlite/Arvore.h"
#include "databases/sqlite/Celula.h"
#include "databases/sqlite/Escopo.h"

// Values and conditions of the dialect in SQLite's.
namespace tarvo::sqlite {

// A value in SQLite's dialect and its type. Columns stand as they are stored; computed dates are
// serials, computed Booleans any non-zero number or 0.
struct ExpressaoSql {
    std::string sql;
    TipoColuna tipo = TipoColuna::Livre;
    std::optional<ColunaAchada> coluna;  // of a column and nothing else
};

class Expressoes {
  public:
    Expressoes(const Escopo& escopo, std::string_view consulta)
        : escopo_(escopo), consulta_(consulta) {}

    // Errors: 3061 and 3079 for names, 3464 for types that do not go together, 3075 for what the
    // dialect does not have.
    [[nodiscard]] ExpressaoSql Traduzir(const Expressao& expressao) const;
    // A condition: True where its value is neither zero nor Null.
    [[nodiscard]] std::string Condicao(const Expressao& expressao) const;
    // The value in the form in which it is sorted and grouped.
    [[nodiscard]] std::string Chave(const ExpressaoSql& valor) const;

    static bool ContemSoma(const Expressao& expressao);
    // Marks the tables (by position in the FROM list) that the expression reads.
    void MarcarTabelas(const Expressao& expressao, std::vector<bool>& tabelas) const;

  private:
    [[nodiscard]] ExpressaoSql Comparar(const Expressao& a, Operacao operacao,
                                        const Expressao& b) const;
    [[nodiscard]] std::string CompararTextos(const Expressao& a, Operacao operacao,
                                             const Expressao& b) const;
    [[nodiscard]] std::string Parcela(const Expressao& expressao, bool emMoeda) const;
    [[nodiscard]] std::string Comparavel(const ExpressaoSql& valor) const;
    [[nodiscard]] std::string ComoTexto(const Expressao& expressao) const;
    [[nodiscard]] std::string Chamada(const char* funcao, const ExpressaoSql& valor) const;
    [[nodiscard]] std::string Encadear(const Expressao& expressao, std::string_view ligacao) const;
    [[nodiscard]] ExpressaoSql Concatenar(const Expressao& expressao) const;
    [[nodiscard]] ExpressaoSql Somar(const Expressao& expressao) const;

    const Escopo& escopo_;
    std::string_view consulta_;
};

}  // namespace tarvo::sqlite
