// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "databases/sqlite/Conexao.h"
#include "databases/sqlite/Esquema.h"
#include "databases/sqlite/Tradutor.h"

// Queries that need not be translated and prepared each time that they are opened.
namespace tarvo::sqlite {

// A literal of a query that stands directly after a comparison.
struct LiteralComparado {
    std::size_t posicao = 0;  // byte offset in the query
    std::string_view texto;   // as it is written there, without its quotes
    bool numero = false;
    int parametro = 0;  // from 1; equal literals of a query with groups have the same
};

// A query's text without the literals that parameters can stand for. What the translation depends
// on of these (see Letras) stays in it.
struct FormatoDeConsulta {
    std::string texto;
    std::vector<LiteralComparado> literais;
};

FormatoDeConsulta LerFormato(std::string_view consulta);

// The queries of one format, translated, with the statements that no recordset is using.
struct ConsultaPronta {
    SelecaoSql selecao;
    std::unique_ptr<Instrucao> leitura;
    std::unique_ptr<Instrucao> insercao;
    // Columns already looked up by name, as it was written.
    std::vector<std::pair<std::string, std::size_t>> procurados;
};

// The parts of a recordset that depend on its query alone, taken for its lifetime.
struct ConsultaAberta {
    std::shared_ptr<ConsultaPronta> pronta;
    std::unique_ptr<Instrucao> leitura;
};

// Of one connection; they are forgotten when the database's tables change, and when there are many.
class ConsultasProntas {
  public:
    ConsultasProntas(std::shared_ptr<Conexao> conexao, std::shared_ptr<Esquema> esquema)
        : conexao_(std::move(conexao)), esquema_(std::move(esquema)) {}

    // A query of rows with its literals in place. The errors of OpenRecordset.
    ConsultaAberta Abrir(std::string_view consulta);

  private:
    [[nodiscard]] std::shared_ptr<ConsultaPronta> Traduzida(std::string_view consulta,
                                                            const FormatoDeConsulta& formato);

    std::shared_ptr<Conexao> conexao_;
    std::shared_ptr<Esquema> esquema_;
    std::int64_t versao_ = -1;  // of the tables
    std::unordered_map<std::string, std::shared_ptr<ConsultaPronta>> prontas_;
};

}  // namespace tarvo::sqlite
