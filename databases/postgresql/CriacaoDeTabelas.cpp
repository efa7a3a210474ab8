// SPDX-License-Identifier: MIT
#include "databases/postgresql/CriacaoDeTabelas.h"

#include "databases/postgresql/Esquema.h"

namespace tarvo::postgresql {

namespace {

std::string TipoNoServidor(const ColunaDoBanco& coluna) {
    switch (coluna.tipo) {
        case TipoDaColuna::Longo:
            return " integer";
        case TipoDaColuna::Moeda:
            return " numeric(19,4)";
        case TipoDaColuna::Data:
            return " timestamp";
        case TipoDaColuna::Booleano:
            return " boolean";
        default:
            return " text";
    }
}

// An index's column: texts are looked for without regard to case.
std::string Indexada(const ColunaDoBanco& coluna) {
    const std::string nome = Sessao::Nome(coluna.nome);
    return coluna.EhTexto() ? SemCaixaNoServidor(nome) : nome;
}

std::string CriacaoDe(const TabelaDoBanco& tabela) {
    const std::string nome = Sessao::Nome(tabela.nome);
    std::string colunas;
    std::string chave;
    std::string indice;
    for (const ColunaDoBanco& coluna : tabela.Colunas()) {
        colunas += Sessao::Nome(coluna.nome) + TipoNoServidor(coluna) +
                   (coluna.chave ? " NOT NULL" : "") + ", ";
        if (coluna.chave) {
            chave += (chave.empty() ? "" : ", ") + Indexada(coluna);
        }
        if (coluna.nome == tabela.Indice()) {
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
    for (const TabelaDoBanco& tabela : TabelasDoBanco()) {
        sql += CriacaoDe(tabela);
    }
    // The order in which declarations are listed.
    return sql + "CREATE INDEX ON \"tblDRQ\" (\"Ref1\", \"NroDRQ\");\n";
}

}  // namespace tarvo::postgresql
