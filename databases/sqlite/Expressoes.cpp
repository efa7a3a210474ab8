// SPDX-License-Identifier: MIT
#include "databases/sqlite/Expressoes.h"

#include <algorithm>

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Letras.h"
#include "databases/sqlite/Lexico.h"

namespace tarvo::sqlite {

namespace {

ExpressaoSql Condicional(std::string sql) {
    return {"(" + std::move(sql) + ")", TipoColuna::Booleano, {}};
}

const char* SinalDe(Operacao operacao) {
    switch (operacao) {
        case Operacao::Igual:
            return " = ";
        case Operacao::MenorIgual:
            return " <= ";
        default:
            return " >= ";
    }
}

bool TemTipo(const ExpressaoSql& valor) {
    return valor.tipo != TipoColuna::Livre;
}

bool EhTexto(const ExpressaoSql& valor) {
    return valor.tipo == TipoColuna::Texto;
}

[[noreturn]] void LancarTipos(std::string_view a, std::string_view b) {
    throw Erro(NumeroErro::TipoIncompativelNaConsulta,
               "Tipos incompatíveis na consulta: " + std::string(a) + " e " + std::string(b) + ".");
}

}  // namespace

ExpressaoSql Expressoes::Traduzir(const Expressao& expressao) const {
    const auto literal = [&](std::string sql) {
        return expressao.parametro != 0 ? "?" + std::to_string(expressao.parametro)
                                        : std::move(sql);
    };
    switch (expressao.operacao) {
        case Operacao::Coluna: {
            const ColunaAchada achada = escopo_.Exigir(expressao);
            return {escopo_.Sql(achada), escopo_.ColunaEm(achada).tipo, achada};
        }
        case Operacao::Texto:
            return {literal(TextoSql(expressao.nome)), TipoColuna::Texto, {}};
        case Operacao::Numero:
            return {literal(expressao.nome), TipoColuna::Longo, {}};
        case Operacao::Verdadeiro:
            return {"-1", TipoColuna::Booleano, {}};
        case Operacao::Falso:
            return {"0", TipoColuna::Booleano, {}};
        case Operacao::E:
            return Condicional(Encadear(expressao, " AND "));
        case Operacao::Ou:
            return Condicional(Encadear(expressao, " OR "));
        case Operacao::Concatenar:
            return Concatenar(expressao);
        case Operacao::Comeco:
            return {"substr(" + ComoTexto(expressao.partes[0]) + ", 1, " + expressao.nome + ")",
                    TipoColuna::Texto,
                    {}};
        case Operacao::Soma:
            return Somar(expressao);
        default:
            return Comparar(expressao.partes[0], expressao.operacao, expressao.partes[1]);
    }
}

std::string Expressoes::Condicao(const Expressao& expressao) const {
    const ExpressaoSql valor = Traduzir(expressao);
    if (EhTexto(valor) || valor.tipo == TipoColuna::Data) {
        LancarTipos("texto ou data", "condição");
    }
    return valor.coluna ? Comparavel(valor) : valor.sql;
}

std::string Expressoes::Encadear(const Expressao& expressao, std::string_view ligacao) const {
    std::string sql;
    for (const Expressao& parte : expressao.partes) {
        sql += (sql.empty() ? std::string_view() : ligacao);
        sql += Condicao(parte);
    }
    return sql;
}

ExpressaoSql Expressoes::Comparar(const Expressao& a, Operacao operacao, const Expressao& b) const {
    const ExpressaoSql va = Traduzir(a);
    const ExpressaoSql vb = Traduzir(b);
    if (TemTipo(va) && TemTipo(vb) && EhTexto(va) != EhTexto(vb)) {
        LancarTipos(va.sql, vb.sql);
    }
    if (EhTexto(va) || EhTexto(vb)) {
        return Condicional(CompararTextos(a, operacao, b));
    }
    const bool emMoeda = va.tipo == TipoColuna::Moeda || vb.tipo == TipoColuna::Moeda;
    return Condicional(Parcela(a, emMoeda) + SinalDe(operacao) + Parcela(b, emMoeda));
}

// Equality with a literal goes, where its letters allow, through comparisons that SQLite has
// itself, so that indexes serve it. They find the same rows: see SemCaixa.
std::string Expressoes::CompararTextos(const Expressao& a, Operacao operacao,
                                       const Expressao& b) const {
    std::string ordem = " COLLATE tarvo_pt";
    const bool literalA = a.operacao == Operacao::Texto;
    if ((literalA || b.operacao == Operacao::Texto) && operacao == Operacao::Igual) {
        const Expressao& outra = literalA ? b : a;
        const Letras letras = LetrasDe(literalA ? a.nome : b.nome);
        const bool simples = outra.operacao != Operacao::Coluna ||
                             escopo_.ColunaEm(escopo_.Exigir(outra)).comparacaoSimples;
        if (letras == Letras::Nenhuma && simples) {
            ordem.clear();
        } else if (letras != Letras::Quaisquer) {
            ordem = " COLLATE NOCASE";
        }
    }
    return Traduzir(a).sql + ordem + SinalDe(operacao) + Traduzir(b).sql + ordem;
}

// One side of a comparison between numbers; emMoeda: in ten-thousandths.
std::string Expressoes::Parcela(const Expressao& expressao, bool emMoeda) const {
    const ExpressaoSql valor = Traduzir(expressao);
    if (!emMoeda || valor.tipo == TipoColuna::Moeda) {
        return Comparavel(valor);
    }
    return expressao.operacao == Operacao::Numero && expressao.parametro == 0
               ? valor.sql + "0000"
               : "(" + Comparavel(valor) + " * 10000)";
}

std::string Expressoes::Comparavel(const ExpressaoSql& valor) const {
    const bool convertido = valor.tipo == TipoColuna::Booleano || valor.tipo == TipoColuna::Data;
    if (convertido && valor.coluna) {
        return Chamada("tarvo_valor", valor);
    }
    return valor.tipo == TipoColuna::Booleano ? "(-(" + valor.sql + " <> 0))" : valor.sql;
}

std::string Expressoes::Chave(const ExpressaoSql& valor) const {
    const bool texto = EhTexto(valor) || !TemTipo(valor);
    return Comparavel(valor) + (texto ? " COLLATE tarvo_pt" : "");
}

// The function over the value, its type and where it is stored.
std::string Expressoes::Chamada(const char* funcao, const ExpressaoSql& valor) const {
    std::string sql = std::string(funcao) + "(" + valor.sql + ", " +
                      std::to_string(static_cast<int>(valor.tipo)) + ", ";
    if (valor.coluna) {
        return sql + TextoSql(escopo_.TabelaEm(valor.coluna->tabela).nome) + ", " +
               TextoSql(escopo_.ColunaEm(*valor.coluna).nome) + ")";
    }
    return sql + "'', '')";
}

std::string Expressoes::ComoTexto(const Expressao& expressao) const {
    const ExpressaoSql valor = Traduzir(expressao);
    return EhTexto(valor) ? valor.sql : Chamada("tarvo_texto", valor);
}

// Null only when every part is Null.
ExpressaoSql Expressoes::Concatenar(const Expressao& expressao) const {
    std::string todas;
    std::string juntas;
    for (const Expressao& parte : expressao.partes) {
        const std::string texto = ComoTexto(parte);
        todas += (todas.empty() ? "" : ", ") + texto;
        juntas += (juntas.empty() ? "" : " || ") + ("coalesce(" + texto + ", '')");
    }
    return {"(CASE WHEN coalesce(" + todas + ") IS NOT NULL THEN " + juntas + " END)",
            TipoColuna::Texto,
            {}};
}

ExpressaoSql Expressoes::Somar(const Expressao& expressao) const {
    const Expressao& parte = expressao.partes[0];
    if (ContemSoma(parte)) {
        LancarErroDeSintaxe(consulta_, parte.posicao, "soma dentro de outra");
    }
    const ExpressaoSql valor = Traduzir(parte);
    if (EhTexto(valor) || valor.tipo == TipoColuna::Data) {
        LancarTipos("Sum", valor.sql);
    }
    return {Chamada("tarvo_soma", valor),
            valor.tipo == TipoColuna::Moeda ? TipoColuna::Moeda : TipoColuna::Duplo,
            {}};
}

bool Expressoes::ContemSoma(const Expressao& expressao) {
    return expressao.operacao == Operacao::Soma ||
           std::ranges::any_of(expressao.partes, ContemSoma);
}

void Expressoes::MarcarTabelas(const Expressao& expressao, std::vector<bool>& tabelas) const {
    if (expressao.operacao == Operacao::Coluna) {
        tabelas[escopo_.Exigir(expressao).tabela] = true;
    }
    for (const Expressao& parte : expressao.partes) {
        MarcarTabelas(parte, tabelas);
    }
}

}  // namespace tarvo::sqlite
