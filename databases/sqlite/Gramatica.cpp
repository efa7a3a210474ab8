// SPDX-License-Identifier: MIT
#include "databases/sqlite/Gramatica.h"

#include <utility>

#include "databases/sqlite/Cursor.h"
#include "databases/sqlite/GramaticaExpressoes.h"

namespace tarvo::sqlite {

namespace {

TabelaCitada LerTabela(Cursor& cursor) {
    const std::size_t posicao = cursor.Atual().posicao;
    return {cursor.LerNome("o nome de uma tabela"), posicao};
}

void SepararTermos(Expressao condicao, std::vector<Expressao>& termos) {
    if (condicao.operacao != Operacao::E) {
        termos.push_back(std::move(condicao));
        return;
    }
    for (Expressao& parte : condicao.partes) {
        SepararTermos(std::move(parte), termos);
    }
}

// The condition after a keyword, in terms; none without the keyword.
std::vector<Expressao> LerCondicoes(Cursor& cursor, std::string_view palavra) {
    std::vector<Expressao> termos;
    if (cursor.TomarPalavra(palavra)) {
        SepararTermos(LerExpressao(cursor), termos);
    }
    return termos;
}

ItemSelecao LerItem(Cursor& cursor) {
    ItemSelecao item;
    if (cursor.TomarSinal("*")) {
        return item;
    }
    if (cursor.EhNome() && cursor.EhSinal(".", 1) && cursor.EhSinal("*", 2)) {
        item.tabela = LerTabela(cursor);
        cursor.ExigirSinal(".");
        cursor.ExigirSinal("*");
        return item;
    }
    item.expressao = LerExpressao(cursor);
    if (cursor.TomarPalavra("AS")) {
        item.apelido = cursor.LerNome("o nome da coluna");
    }
    return item;
}

// One entry of the FROM list: a table and those joined to it.
void LerJuncao(Cursor& cursor, Selecao& selecao) {
    selecao.tabelas.push_back(LerTabela(cursor));
    while (cursor.TomarPalavra("INNER")) {
        cursor.ExigirPalavra("JOIN");
        selecao.tabelas.push_back(LerTabela(cursor));
        cursor.ExigirPalavra("ON");
        SepararTermos(LerExpressao(cursor), selecao.juncoes);
    }
}

Selecao LerSelecao(Cursor& cursor) {
    Selecao selecao;
    selecao.linhasDistintas = cursor.TomarPalavra("DISTINCTROW");
    selecao.itens = cursor.LerLista([&] { return LerItem(cursor); });
    cursor.ExigirPalavra("FROM");
    do {
        LerJuncao(cursor, selecao);
    } while (cursor.TomarSinal(","));
    selecao.condicoes = LerCondicoes(cursor, "WHERE");
    if (cursor.TomarPalavra("GROUP")) {
        cursor.ExigirPalavra("BY");
        selecao.grupos = cursor.LerLista([&] { return LerExpressao(cursor); });
    }
    selecao.condicoesDosGrupos = LerCondicoes(cursor, "HAVING");
    if (cursor.TomarPalavra("ORDER")) {
        cursor.ExigirPalavra("BY");
        selecao.ordem = cursor.LerLista([&] { return LerExpressao(cursor); });
    }
    return selecao;
}

Exclusao LerExclusao(Cursor& cursor) {
    cursor.ExigirSinal("*");
    cursor.ExigirPalavra("FROM");
    return {LerTabela(cursor)};
}

Consulta LerConsulta(Cursor& cursor) {
    if (cursor.TomarPalavra("DELETE")) {
        return LerExclusao(cursor);
    }
    if (cursor.TomarPalavra("SELECT")) {
        return LerSelecao(cursor);
    }
    cursor.Falhar("esperava SELECT ou DELETE");
}

}  // namespace

Consulta Analisar(std::string_view consulta) {
    Cursor cursor(consulta);
    Consulta lida = LerConsulta(cursor);
    cursor.TomarSinal(";");
    if (cursor.Atual().tipo != TipoSimbolo::Fim) {
        cursor.Falhar("esperava o fim da consulta");
    }
    return lida;
}

}  // namespace tarvo::sqlite
