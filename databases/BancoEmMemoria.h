// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "data/BancoDados.h"
#include "data/Publico.h"

namespace tarvo {

// A declaration database that a host with a store of its own fills, table by table and row by row,
// and then gives to the reports. It lives in this process's memory alone.
//
//     tarvo::BancoEmMemoria banco;
//     banco.Tabela("tblContribuinte", {"IE", "RazãoSocial"});
//     banco.Linha({"250114377019", "Metalúrgica Serra Dourada S.A."});
//     banco.Tabela("tblDRQ", {"NroDRQ", "IE", "Ref1"});
//     banco.Linha({101, "250114377019", referencia});
//
// and so on with every table and column that the report reads; then it is built from banco.
//
// Only what is given is there: a table or column that a report asks for and that was not given is
// error 3078 or 3061, never an empty value. The work tables are always there. Rows keep their
// order. Values become the column's type by the rules of the field readers (a text "1.234,56" is an
// amount; a number of an amount is rounded to four decimals); one that does not convert is kept and
// is error 3421, naming table, column and value, when a report reads it.
//
// One thread at a time, as every BancoDados.
class TARVO_PUBLICO BancoEmMemoria : public BancoDados {
  public:
    BancoEmMemoria();
    ~BancoEmMemoria() override;
    BancoEmMemoria(const BancoEmMemoria&) = delete;
    BancoEmMemoria& operator=(const BancoEmMemoria&) = delete;

    // Begins a table with these of its columns; the rows that follow are its. Names are those of
    // the declaration's schema, found without regard to case. Errors: 3078 no such table, 3061 no
    // such column, 3219 for a table that was begun before or has no columns.
    void Tabela(std::string_view nome, std::span<const std::string> colunas);
    void Tabela(std::string_view nome, std::initializer_list<std::string> colunas) {
        Tabela(nome, std::span(colunas.begin(), colunas.size()));
    }
    // The next row of the table that was begun last: a value for each of its columns. Error 3219
    // for another number of values, or before any table.
    void Linha(std::span<const Valor> valores);
    void Linha(std::initializer_list<Valor> valores) {
        Linha(std::span(valores.begin(), valores.size()));
    }

    std::unique_ptr<Recordset> OpenRecordset(std::string_view consulta,
                                             TipoRecordset tipo) override;
    std::unique_ptr<QueryDef> CreateQueryDef(std::string_view nome,
                                             std::string_view consulta) override;
    void RefazerTabela(std::string_view tabela, const std::function<void()>& refazer) override;
    Acompanhante* Acompanhar(Acompanhante* quem) override;

  private:
    struct Partes;
    std::unique_ptr<Partes> partes_;
};

}  // namespace tarvo
