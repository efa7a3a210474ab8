// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <set>

#include "databases/postgresql/Esquema.h"
#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/CopiaPrivada.h"

namespace tarvo::postgresql {

// The private database in which the reports of one declaration after the other run: what all
// declarations share, and the rows of one.
class Espelho {
  public:
    // modelo: see Modelo. esquema: that it was made by; outlives this object.
    Espelho(const sqlite::CopiaPrivada& modelo, const Esquema& esquema, Acompanhante* quem);

    [[nodiscard]] BancoSQLite& Banco() { return *banco_; }
    void Acompanhar(Acompanhante* quem) { conexao_->Acompanhar(quem); }
    // True while a recordset still reads it: its rows must stay.
    [[nodiscard]] bool EmLeitura() const;

    // Everything between these two calls happens or nothing.
    void Comecar() { conexao_->Executar("SAVEPOINT carga"); }
    void Terminar() { conexao_->Executar("RELEASE carga"); }
    // Takes out all rows of these tables, and puts the server's in.
    void Esvaziar(Dono dono);
    void Encher(const TabelaDoServidor& tabela, const Resultado& linhas);
    // The entries of tblOcorrências.
    [[nodiscard]] std::set<std::int32_t> Codigos() const;

  private:
    struct Destino {
        Dono dono;
        std::unique_ptr<sqlite::Insercao> insercao;
        std::unique_ptr<sqlite::Instrucao> exclusao;
        bool temLinhas = false;
    };
    std::shared_ptr<sqlite::Conexao> conexao_;
    std::unique_ptr<BancoSQLite> banco_;
    std::map<std::string_view, Destino> destinos_;
    std::vector<Valor> valores_;
};

// A copy with all tables of the server's, of which only those that all declarations share have
// rows: comuns, one result for each in the order of the schema.
std::shared_ptr<const sqlite::CopiaPrivada> Modelo(const Esquema& esquema,
                                                   std::span<const Resultado> comuns);

}  // namespace tarvo::postgresql
