// SPDX-License-Identifier: MIT
#include "databases/postgresql/Esquema.h"

#include <algorithm>
#include <map>

#include "data/CodigosDeErros.h"
#include "data/Procura.h"

namespace tarvo::postgresql {

namespace {

constexpr std::string_view Ordem = "ordem";

// All columns of the tables of these names, the types of domains as what they are made of.
constexpr const char* ConsultaDasColunas =
    "SELECT c.relname, a.attname, coalesce(nullif(t.typbasetype, 0), t.oid)::bigint,"
    " has_column_privilege(c.oid, a.attnum, 'SELECT')"
    " FROM pg_catalog.pg_class c"
    " JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped"
    " JOIN pg_catalog.pg_type t ON t.oid = a.atttypid"
    " WHERE pg_catalog.pg_table_is_visible(c.oid) AND c.relkind IN ('r', 'p', 'v', 'm', 'f')"
    " AND c.relname LIKE 'tbl%'";

struct ColunaQueHa {
    Tipo tipo;
    bool legivel;
};
using ColunasQueHa = std::map<std::string, ColunaQueHa, std::less<>>;
using TabelasQueHa = std::map<std::string, ColunasQueHa, std::less<>>;

TabelasQueHa LerTabelas(Sessao& sessao) {
    constexpr Tipo Inteiro64 = 20;
    const Resultado linhas = sessao.Consultar({ConsultaDasColunas});
    TabelasQueHa tabelas;
    for (int i = 0; i < PQntuples(linhas.get()); ++i) {
        const Valor tipo = LerValor(BytesEm(linhas, i, 2), Inteiro64);
        const auto* const numero = std::get_if<std::int32_t>(&tipo);
        tabelas[std::string(BytesEm(linhas, i, 0))].emplace(
            BytesEm(linhas, i, 1), ColunaQueHa{numero == nullptr ? 0 : static_cast<Tipo>(*numero),
                                               *PQgetvalue(linhas.get(), i, 3) != 0});
    }
    return tabelas;
}

void Listar(std::string& lista, std::string_view nome) {
    lista.append(lista.empty() ? "\"" : ", \"").append(nome).append("\"");
}

void Recusar(const std::string& semOrdem, const std::string& semPermissao) {
    if (!semPermissao.empty()) {
        throw Erro(NumeroErro::SemPermissaoDeLeitura,
                   "Este usuário não pode ler " + semPermissao +
                       "; quem as criou lhe dá a permissão: GRANT SELECT ON ALL TABLES IN SCHEMA "
                       "… TO ….");
    }
    if (!semOrdem.empty()) {
        throw Erro(NumeroErro::ColunaDesconhecida,
                   "Falta a coluna \"ordem\", que diz em que ordem as linhas foram acrescentadas, "
                   "a " +
                       semOrdem +
                       "; cria-se com ALTER TABLE … ADD COLUMN ordem bigint GENERATED ALWAYS AS "
                       "IDENTITY.");
    }
}

}  // namespace

const ColunaDoServidor* TabelaDoServidor::Coluna(std::string_view nome) const {
    return Achar(colunas, nome, &ColunaDoServidor::nome);
}

std::vector<std::string> TabelaDoServidor::NomesDasColunas() const {
    std::vector<std::string> nomes;
    for (const auto& coluna : colunas) {
        nomes.emplace_back(coluna.nome);
    }
    return nomes;
}

std::vector<ColunaDoBanco> TabelaDoServidor::Definicoes() const {
    auto definicoes = definicao->Colunas();
    std::erase_if(definicoes, [&](const auto& uma) { return Coluna(uma.nome) == nullptr; });
    return definicoes;
}

std::vector<Tipo> TabelaDoServidor::Tipos() const {
    std::vector<Tipo> tipos;
    for (const auto& coluna : colunas) {
        tipos.push_back(coluna.pedida.tipo);
    }
    return tipos;
}

std::string TabelaDoServidor::Selecao(const std::string& condicao) const {
    std::string sql;
    for (const auto& coluna : colunas) {
        sql += (sql.empty() ? "SELECT " : ", ") + Sessao::Nome(coluna.nome);
        sql += coluna.pedida.conversao;
    }
    sql += " FROM " + Sessao::Nome(definicao->nome);
    return sql + (condicao.empty() ? "" : " WHERE " + condicao) + " ORDER BY " +
           Sessao::Nome(Ordem);
}

std::string TabelaDoServidor::Da(std::string_view colunaDeNumero, const std::string& valor) const {
    const ColunaDoServidor* const coluna = Coluna(colunaDeNumero);
    if (coluna == nullptr) {
        return "FALSE";
    }
    return Sessao::Nome(coluna->nome) + (coluna->numero ? "" : "::text") + " = " + valor +
           "::bigint" + (coluna->numero ? "" : "::text");
}

std::string TabelaDoServidor::DeIE(const std::string& valor) const {
    return Coluna("IE") == nullptr
               ? "FALSE"
               : SemCaixaNoServidor(Sessao::Nome("IE")) + " = " + SemCaixaNoServidor(valor);
}

Esquema::Esquema(Sessao& sessao) {
    const TabelasQueHa tabelas = LerTabelas(sessao);
    std::string semOrdem;
    std::string semPermissao;
    for (const TabelaDoBanco& definicao : TabelasDoBanco()) {
        const auto ha = tabelas.find(definicao.nome);
        if (ha == tabelas.end()) {
            continue;
        }
        TabelaDoServidor tabela{&definicao, {}};
        bool legivel = true;
        for (const auto& coluna : definicao.Colunas()) {
            if (const auto achada = ha->second.find(coluna.nome); achada != ha->second.end()) {
                tabela.colunas.push_back(
                    {coluna.nome, PedidaDe(achada->second.tipo), EhNumero(achada->second.tipo)});
                legivel = legivel && achada->second.legivel;
            }
        }
        const auto ordem = ha->second.find(Ordem);
        if (!legivel || (ordem != ha->second.end() && !ordem->second.legivel)) {
            Listar(semPermissao, definicao.nome);
        } else if (ordem == ha->second.end()) {
            Listar(semOrdem, definicao.nome);
        }
        if (!tabela.colunas.empty()) {
            tabelas_.push_back(std::move(tabela));
        }
    }
    Recusar(semOrdem, semPermissao);
    if (tabelas_.empty()) {
        throw Erro(
            NumeroErro::TabelaInexistente,
            "No servidor não se vê tabela alguma de um banco de declarações; relatorios-tarvo "
            "criar as faz. Se elas existem: confira o banco do endereço, o search_path e "
            "GRANT USAGE ON SCHEMA.");
    }
}

const TabelaDoServidor* Esquema::Procurar(std::string_view nome) const {
    return Achar(tabelas_, nome, [](const auto& t) { return t.definicao->nome; });
}

std::string Esquema::ResumoDosComuns() const {
    std::string sql;
    for (const TabelaDoServidor& tabela : tabelas_) {
        if (tabela.definicao->dono == Dono::Todos) {
            std::string linha = "ROW(" + Sessao::Nome(Ordem);
            for (const auto& coluna : tabela.colunas) {
                linha += ", " + Sessao::Nome(coluna.nome);
            }
            sql += (sql.empty() ? "" : " || ") + ("(SELECT coalesce(md5(string_agg(" + linha +
                                                  ")::text, E'\\n' ORDER BY ordem)), '') FROM " +
                                                  Sessao::Nome(tabela.definicao->nome) + ")");
        }
    }
    return "SELECT " + (sql.empty() ? "''" : sql) + "::text";
}

std::string SemCaixaNoServidor(const std::string& texto) {
    return "lower(" + texto + "::text COLLATE \"C\")";
}

}  // namespace tarvo::postgresql
