// SPDX-License-Identifier: MIT
#include "databases/sqlite/Tabelas.h"

#include <algorithm>

#include "databases/sqlite/Conexao.h"

namespace tarvo::sqlite {

namespace {

const char* TipoSql(const ColunaDoBanco& coluna) {
    switch (coluna.tipo) {
        case TipoDaColuna::Longo:
            return " INTEGER";
        case TipoDaColuna::Moeda:
            return " CURRENCY";
        case TipoDaColuna::Data:
            return " DATETIME";
        case TipoDaColuna::Booleano:
            return " BOOLEAN";
        // Codes compare without regard to case, so that the indexes on them serve the queries,
        // which do.
        case TipoDaColuna::Codigo:
            return " TEXT COLLATE NOCASE";
        default:
            return " TEXT";
    }
}

// This is the one form of an integer key that SQLite keeps apart from the rowid: the rowid must go
// on telling the order in which rows were added.
const char* ChaveSql(const ColunaDoBanco& coluna) {
    return coluna.EhTexto() ? " PRIMARY KEY" : " PRIMARY KEY DESC";
}

}  // namespace

TipoColuna TipoDe(const ColunaDoBanco& coluna) {
    switch (coluna.tipo) {
        case TipoDaColuna::Longo:
            return TipoColuna::Longo;
        case TipoDaColuna::Moeda:
            return TipoColuna::Moeda;
        case TipoDaColuna::Data:
            return TipoColuna::Data;
        case TipoDaColuna::Booleano:
            return TipoColuna::Booleano;
        default:
            return TipoColuna::Texto;
    }
}

std::string NomesSql(std::span<const ColunaDoBanco> colunas) {
    std::string nomes;
    for (const ColunaDoBanco& coluna : colunas) {
        nomes += (nomes.empty() ? "" : ", ") + NomeSql(coluna.nome);
    }
    return nomes;
}

std::string Definicao(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas) {
    auto chave = tabela.Colunas();
    std::erase_if(chave, [](const ColunaDoBanco& coluna) { return !coluna.chave; });
    std::string definicao;
    for (const ColunaDoBanco& coluna : colunas) {
        definicao += (definicao.empty() ? "" : ", ") + NomeSql(coluna.nome) + TipoSql(coluna);
        if (coluna.chave) {
            definicao.append(chave.size() == 1 ? ChaveSql(coluna) : "").append(" NOT NULL");
        }
    }
    const auto daChave = std::ranges::count(colunas, true, &ColunaDoBanco::chave);
    return chave.size() > 1 && daChave == std::ssize(chave)
               ? definicao + ", PRIMARY KEY (" + NomesSql(chave) + ")"
               : definicao;
}

std::string CriacaoSql(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas) {
    return "CREATE TABLE " + NomeSql(tabela.nome) + " (" + Definicao(tabela, colunas) + ")";
}

std::string InsercaoSql(const TabelaDoBanco& tabela, std::span<const ColunaDoBanco> colunas) {
    std::string parametros;
    for (std::size_t i = 0; i < colunas.size(); ++i) {
        parametros += i == 0 ? "?" : ", ?";
    }
    return "INSERT INTO " + NomeSql(tabela.nome) + " (" + NomesSql(colunas) + ") VALUES (" +
           parametros + ")";
}

}  // namespace tarvo::sqlite
