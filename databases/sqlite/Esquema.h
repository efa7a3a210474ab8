// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "databases/sqlite/Celula.h"
#include "databases/sqlite/Conexao.h"

// The tables and columns of the open database.
namespace tarvo::sqlite {

struct Coluna {
    std::string nome;
    std::string nomeSemCaixa;
    TipoColuna tipo = TipoColuna::Livre;
    // Compared by SQLite byte for byte or without regard to ASCII case: an index on the column
    // serves comparisons with texts in which case makes no difference.
    bool comparacaoSimples = false;
    bool gerada = false;  // computed by the database from others: read, never written
};

struct Tabela {
    std::string esquema;  // "temp" or "main"
    std::string nome;
    std::string nomeSemCaixa;
    bool temRowid = false;  // tables without it keep no order of addition
    std::vector<Coluna> colunas;

    [[nodiscard]] std::string Sql() const { return NomeSql(esquema) + "." + NomeSql(nome); }
};

class Esquema {
  public:
    explicit Esquema(std::shared_ptr<Conexao> conexao);

    // The table of that name, without regard to case, temporary ones first; nullptr when there is
    // none. What was read before is used again until the database's tables change.
    std::shared_ptr<const Tabela> Procurar(std::string_view nome);
    void Esquecer() { versao_ = -1; }
    // Changes whenever what Procurar tells may have.
    std::int64_t Versao() {
        Atualizar();
        return leituras_;
    }

  private:
    void Atualizar();
    void LerNomes(const std::string& esquema);
    [[nodiscard]] std::shared_ptr<const Tabela> LerTabela(const Tabela& nomes) const;

    std::shared_ptr<Conexao> conexao_;
    std::unique_ptr<Instrucao> lerVersao_;
    std::int64_t versao_ = -1;
    std::int64_t leituras_ = 0;
    std::map<std::string, std::shared_ptr<const Tabela>, std::less<>> tabelas_;
};

}  // namespace tarvo::sqlite
