// SPDX-License-Identifier: MIT
#include "databases/postgresql/CriacaoDeTabelas.h"

#include "databases/postgresql/Esquema.h"
#include "databases/sqlite/Celula.h"

namespace tarvo::postgresql {

namespace {

using namespace sqlite;

std::string TipoNoServidor(const DefinicaoColuna& coluna) {
    switch (TipoDeclarado(coluna.tipo)) {
        case TipoColuna::Longo:
            return " integer";
        case TipoColuna::Moeda:
            return " numeric(19,4)";
        case TipoColuna::Data:
            return " timestamp";
        case TipoColuna::Booleano:
            return " boolean";
        default:
            return " text";
    }
}

bool EhTexto(const DefinicaoColuna& coluna) {
    return TipoDeclarado(coluna.tipo) == TipoColuna::Texto;
}

// An index's column: texts are looked for without regard to case.
std::string Indexada(const DefinicaoColuna& coluna) {
    const std::string nome = Sessao::Nome(coluna.nome);
    return EhTexto(coluna) ? SemCaixaNoServidor(nome) : nome;
}

std::string CriacaoDe(const DefinicaoTabela& tabela) {
    const std::string nome = Sessao::Nome(tabela.nome);
    std::string colunas;
    std::string chave;
    std::string indice;
    for (const DefinicaoColuna& coluna : ColunasDe(tabela)) {
        // The columns of a key are those that cannot be Null.
        const bool daChave = coluna.definicao.find("NOT NULL") != std::string::npos;
        colunas += Sessao::Nome(coluna.nome) + TipoNoServidor(coluna) +
                   (daChave ? " NOT NULL" : "") + ", ";
        if (daChave) {
            chave += (chave.empty() ? "" : ", ") + Indexada(coluna);
        }
        if (coluna.nome == tabela.indice) {
            indice = "CREATE INDEX ON " + nome + " (" + Indexada(coluna) + ");\n";
        }
    }
    return "CREATE TABLE " + nome + " (" + colunas +
           "ordem bigint GENERATED ALWAYS AS IDENTITY);\n" +
           (chave.empty() ? "" : "CREATE UNIQUE INDEX ON " + nome + " (" + chave + ");\n") + indice;
}

}  // namespace

std::string CriacaoDeTabelas() {
    std::string sql;
    for (const DefinicaoTabela& tabela : TabelasDoBanco()) {
        sql += CriacaoDe(tabela);
    }
    // The order in which declarations are listed.
    return sql + "CREATE INDEX ON \"tblDRQ\" (\"Ref1\", \"NroDRQ\");\n";
}

}  // namespace tarvo::postgresql
