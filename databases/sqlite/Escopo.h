// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "databases/sqlite/Arvore.h"
#include "databases/sqlite/Esquema.h"

// The tables of one query and what its names mean in it.
namespace tarvo::sqlite {

struct ColunaAchada {
    std::size_t tabela = 0;  // position in the FROM list
    std::size_t coluna = 0;
    friend bool operator==(const ColunaAchada&, const ColunaAchada&) = default;
};

class Escopo {
  public:
    // Error 3078 for a missing table, 3075 for one that stands twice in the list.
    Escopo(Esquema& esquema, const std::vector<TabelaCitada>& tabelas, std::string_view consulta);

    // Names the columns that join one table to another (ON a.x = b.y). See Procurar.
    void DeclararJuncoes(const std::vector<Expressao>& juncoes);

    [[nodiscard]] std::size_t Quantas() const { return tabelas_.size(); }
    [[nodiscard]] const Tabela& TabelaEm(std::size_t tabela) const { return *tabelas_[tabela]; }
    [[nodiscard]] std::shared_ptr<const Tabela> PartilharTabela(std::size_t tabela) const {
        return tabelas_[tabela];
    }
    [[nodiscard]] const Coluna& ColunaEm(ColunaAchada achada) const {
        return tabelas_[achada.tabela]->colunas[achada.coluna];
    }
    [[nodiscard]] std::string Sql(ColunaAchada achada) const {
        return NomeSql(TabelaEm(achada.tabela).nome) + "." + NomeSql(ColunaEm(achada).nome);
    }

    // The table of that name in the list; nothing when it is not there.
    [[nodiscard]] std::optional<std::size_t> ProcurarTabela(std::string_view nome) const;
    // The column; nothing when no table has it. Where an unqualified name fits several tables, a
    // column that an ON clause uses as the link to another table gives way: it is only the code
    // of the row that is joined. Error 3079 when several still fit.
    [[nodiscard]] std::optional<ColunaAchada> Procurar(const Expressao& coluna) const;
    // The same; error 3061 when there is none.
    [[nodiscard]] ColunaAchada Exigir(const Expressao& coluna) const;

  private:
    [[nodiscard]] std::vector<ColunaAchada> Candidatas(const Expressao& coluna) const;

    std::vector<std::shared_ptr<const Tabela>> tabelas_;
    std::vector<ColunaAchada> ligacoes_;
};

// Error 3078.
std::shared_ptr<const Tabela> ExigirTabela(Esquema& esquema, std::string_view nome);

}  // namespace tarvo::sqlite
