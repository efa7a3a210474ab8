// SPDX-License-Identifier: MIT
#include "databases/postgresql/ListaNoServidor.h"

#include <array>

#include "data/CodigosDeErros.h"
#include "databases/postgresql/LeituraInteira.h"
#include "databases/sqlite/Abertura.h"

namespace tarvo::postgresql {

namespace {

constexpr const char* Alfabetos =
    "SELECT 'COLLATE pg_catalog.' || quote_ident(collname) FROM pg_catalog.pg_collation"
    " WHERE collnamespace = 'pg_catalog'::regnamespace AND collprovider = 'i'"
    " AND collname IN ('pt-BR-x-icu', 'und-x-icu') ORDER BY collname LIMIT 1";

// What the texts of a row are made of, in the order of ColunaDaLista.
using Textos = std::array<std::string, 8>;

std::string Escolha(const std::string& codigo, const Sessao& sessao,
                    const std::vector<std::pair<std::string, std::string>>& textos,
                    const char* senao) {
    std::string sql = "CASE " + codigo;
    for (const auto& [um, texto] : textos) {
        sql += " WHEN " + sessao.Texto(um) + " THEN " + sessao.Texto(texto);
    }
    return sql + " ELSE " + senao + " END";
}

Textos TextosEmSql(const TextosDaLista& textos, const Sessao& sessao) {
    const std::string consistente =
        R"(CASE WHEN d."NroDRQ" IS NULL THEN '' WHEN coalesce(d."Consistente"::text, 'false') IN)"
        " ('false', '0') THEN " +
        sessao.Texto(textos.naoConsistida) + " ELSE " + sessao.Texto(textos.consistida) + " END";
    return {R"(c."RazãoSocial"::text)",
            R"(coalesce(c."IE"::text, d.de_quem))",
            R"(c."CNPJ"::text)",
            R"(d."NroDRQ"::text)",
            R"(to_char(d."Ref1"::timestamp, 'MM/YYYY'))",
            Escolha(R"(d."RegTrib"::text)", sessao, textos.regimes, R"(d."RegTrib"::text)"),
            Escolha(R"(d."Tipo"::text)", sessao, textos.tipos, "''"),
            consistente};
}

std::string EmLista(std::string lista, const std::string& um) {
    return std::move(lista += (lista.empty() ? "" : ", ") + um);
}

}  // namespace

ListaNoServidor::ListaNoServidor(std::string endereco, TextosDaLista textos)
    : endereco_(std::move(endereco)), textos_(std::move(textos)) {}

void ListaNoServidor::Com(Acompanhante* quem, const std::function<void(Sessao& sessao)>& ler) {
    quem_ = quem;
    if (!servidor_) {
        servidor_.emplace(endereco_, quem_);
    }
    servidor_->Insistir(
        [&](Sessao& sessao) {
            if (!esquema_) {
                Conhecer(sessao);
            }
            ler(sessao);
        },
        [this](Sessao& sessao) { Conhecer(sessao); });
}

void ListaNoServidor::Conhecer(Sessao& sessao) {
    esquema_.emplace(sessao);
    const Resultado alfabeto = sessao.Consultar({Alfabetos});
    alfabeto_ = PQntuples(alfabeto.get()) > 0 ? PQgetvalue(alfabeto.get(), 0, 0) : "";
}

bool ListaNoServidor::TemIE() const {
    const TabelaDoServidor* const declaracoes = esquema_->Procurar("tblDRQ");
    return declaracoes != nullptr && declaracoes->Coluna("IE") != nullptr;
}

std::string ListaNoServidor::Consulta(const PedidoDaLista& pedido, const Sessao& sessao) const {
    const Textos textos = TextosEmSql(textos_, sessao);
    std::string condicao;
    std::string todos;
    for (const std::string& texto : textos) {
        todos = EmLista(std::move(todos), texto);
    }
    for (const std::string& padrao : pedido.padroes) {
        condicao += condicao.empty() ? " WHERE " : " AND ";
        condicao +=
            "(concat_ws(' ', " + todos + ") COLLATE \"C\") ~ " + sessao.Texto(padrao) + "::text";
    }
    const char* const sentido = pedido.decrescente ? " DESC NULLS LAST" : " NULLS FIRST";
    std::string ordem;
    if (pedido.ordem == ColunaDaLista::Numero) {
        ordem = std::string("d.\"NroDRQ\"") + sentido;
    } else if (pedido.ordem != ColunaDaLista::Referencia) {
        ordem = "coalesce(" + textos.at(static_cast<std::size_t>(pedido.ordem)) + ", '') " +
                alfabeto_ + sentido;
    }
    // A declaration without its taxpayer has a row, a taxpayer without declaration too. Where
    // declarations do not say whose they are, they are the only taxpayer's.
    return "SELECT d.\"NroDRQ\"::integer, coalesce(c.\"IE\"::text, d.de_quem, '')"
           " FROM (SELECT *, " +
           std::string(TemIE() ? "\"IE\"::text"
                               : "(SELECT CASE WHEN count(*) = 1 THEN min(\"IE\"::text) END FROM "
                                 "\"tblContribuinte\")") +
           " AS de_quem FROM \"tblDRQ\") d FULL JOIN \"tblContribuinte\" c ON " +
           SemCaixaNoServidor("d.de_quem") + " = " + SemCaixaNoServidor("c.\"IE\"") + condicao +
           " ORDER BY " + EmLista(ordem, std::string("d.\"Ref1\"") + sentido) +
           ", d.\"NroDRQ\" NULLS LAST, c.\"IE\" LIMIT " + std::to_string(Maximo + 1);
}

LinhasAchadas ListaNoServidor::Procurar(const PedidoDaLista& pedido, Acompanhante* quem) {
    LinhasAchadas achadas;
    Com(quem, [&](Sessao& sessao) {
        const std::array comandos{Comando{Consulta(pedido, sessao)},
                                  Comando{"SELECT count(*) FROM \"tblDRQ\""}};
        const auto resultados = sessao.Ler(comandos, false);
        constexpr Tipo Inteiro32 = 23;
        const int quantas = PQntuples(resultados[0].get());
        achadas = {};
        achadas.haMais = static_cast<std::size_t>(quantas) > Maximo;
        achadas.chaves.resize(std::min<std::size_t>(static_cast<std::size_t>(quantas), Maximo));
        for (std::size_t i = 0; i < achadas.chaves.size(); ++i) {
            const int linha = static_cast<int>(i);
            if (PQgetisnull(resultados[0].get(), linha, 0) == 0) {
                achadas.chaves[i].NroDRQ =
                    std::get<std::int32_t>(LerValor(BytesEm(resultados[0], linha, 0), Inteiro32));
            }
            achadas.chaves[i].IE = PQgetvalue(resultados[0].get(), linha, 1);
        }
        constexpr Tipo Inteiro64 = 20;
        achadas.declaracoes =
            std::get<std::int32_t>(LerValor(BytesEm(resultados[1], 0, 0), Inteiro64));
    });
    return achadas;
}

std::unique_ptr<BancoDados> ListaNoServidor::Ler(std::span<const ChaveDaLista> chaves,
                                                 Acompanhante* quem) {
    std::shared_ptr<sqlite::Conexao> conexao;
    Com(quem, [&](Sessao& sessao) {
        const auto condicao = [&](const auto& de) {
            std::string sql;
            for (const ChaveDaLista& chave : chaves) {
                const std::string uma = de(chave);
                sql += (sql.empty() || uma.empty() ? "" : " OR ") + uma;
            }
            return sql.empty() ? std::string("FALSE") : sql;
        };
        std::vector<LinhasDaTabela> linhas;
        if (const auto* const tabela = esquema_->Procurar("tblDRQ")) {
            linhas.emplace_back(*tabela, condicao([&](const ChaveDaLista& chave) {
                return chave.NroDRQ ? tabela->Da("NroDRQ", std::to_string(*chave.NroDRQ)) : "";
            }));
        }
        if (const auto* const tabela = esquema_->Procurar("tblContribuinte")) {
            // All of them where it is their number that tells whose the declarations are.
            linhas.emplace_back(*tabela, TemIE() ? condicao([&](const ChaveDaLista& chave) {
                return tabela->DeIE(sessao.Texto(chave.IE));
            })
                                                 : "");
        }
        conexao = LerInteiras(sessao, linhas);
    });
    return sqlite::AbrirSobre(std::move(conexao), TabelasDeTrabalho::Privadas);
}

}  // namespace tarvo::postgresql
