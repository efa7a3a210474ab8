// SPDX-License-Identifier: MIT
#include "databases/postgresql/Alcance.h"

#include <algorithm>
#include <map>

#include "data/Textos.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Gramatica.h"

namespace tarvo::postgresql {

namespace {

using namespace sqlite;

// "column = literal" of that column.
const Expressao* Igualado(const Expressao& termo, std::string_view coluna, Operacao literal) {
    const bool igual = termo.operacao == Operacao::Igual && termo.partes.size() == 2 &&
                       termo.partes[0].operacao == Operacao::Coluna &&
                       termo.partes[1].operacao == literal &&
                       SemCaixa(termo.partes[0].nome) == coluna;
    return igual ? &termo.partes[1] : nullptr;
}

// The codes of "Código = 1 Or Código = 2"; none where it says anything else.
std::vector<std::int32_t> Codigos(const Expressao& termo) {
    std::vector<std::int32_t> codigos;
    const auto tomar = [&](const Expressao& um) {
        const Expressao* const literal = Igualado(um, "código", Operacao::Numero);
        const auto numero =
            literal == nullptr ? std::nullopt : LerInteiro<std::int32_t>(literal->nome);
        if (numero) {
            codigos.push_back(*numero);
        }
        return numero.has_value();
    };
    const bool todos =
        termo.operacao == Operacao::Ou ? std::ranges::all_of(termo.partes, tomar) : tomar(termo);
    return todos ? codigos : std::vector<std::int32_t>();
}

const TabelaDoBanco* Definicao(const std::string& nome) {
    static const auto Definicoes = [] {
        std::map<std::string, const TabelaDoBanco*> definicoes;
        for (const TabelaDoBanco& definicao : TabelasDoBanco()) {
            definicoes.emplace(SemCaixa(definicao.nome), &definicao);
        }
        return definicoes;
    }();
    const auto achada = Definicoes.find(SemCaixa(nome));
    return achada == Definicoes.end() ? nullptr : achada->second;
}

void Restringir(Alcance& alcance, const std::vector<Expressao>& termos) {
    for (const Expressao& termo : termos) {
        if (const auto* literal = Igualado(termo, "nrodrq", Operacao::Numero)) {
            const auto numero = LerInteiro<std::int32_t>(literal->nome);
            alcance.varias =
                alcance.varias || !numero || (alcance.NroDRQ && *alcance.NroDRQ != *numero);
            alcance.NroDRQ = numero;
        } else if (const auto* texto = Igualado(termo, "ie", Operacao::Texto)) {
            alcance.IE = texto->nome;
        } else if (auto codigos = Codigos(termo); !codigos.empty()) {
            alcance.codigos = std::move(codigos);
        }
    }
}

void AnotarColunas(const Expressao& expressao, std::set<std::string>& colunas) {
    if (expressao.operacao == Operacao::Coluna) {
        colunas.insert(SemCaixa(expressao.nome));
    }
    for (const Expressao& parte : expressao.partes) {
        AnotarColunas(parte, colunas);
    }
}

// Nothing where all of a table's are asked for.
std::optional<std::set<std::string>> ColunasDe(const Selecao& selecao) {
    std::set<std::string> colunas;
    for (const ItemSelecao& item : selecao.itens) {
        if (!item.expressao) {
            return std::nullopt;
        }
        AnotarColunas(*item.expressao, colunas);
    }
    for (const auto* lista : {&selecao.juncoes, &selecao.condicoes, &selecao.grupos,
                              &selecao.condicoesDosGrupos, &selecao.ordem}) {
        for (const Expressao& expressao : *lista) {
            AnotarColunas(expressao, colunas);
        }
    }
    return colunas;
}

}  // namespace

bool Alcance::Tem(Dono dono) const {
    return std::ranges::any_of(tabelas, [&](const auto* t) { return t->dono == dono; });
}

Alcance AlcanceDe(std::string_view consulta) {
    const Consulta lida = Analisar(consulta);
    Alcance alcance;
    const auto* const selecao = std::get_if<Selecao>(&lida);
    if (selecao == nullptr) {
        return alcance;
    }
    for (const TabelaCitada& citada : selecao->tabelas) {
        if (const TabelaDoBanco* const definicao = Definicao(citada.nome)) {
            alcance.tabelas.push_back(definicao);
        }
    }
    alcance.colunas = ColunasDe(*selecao);
    Restringir(alcance, selecao->condicoes);
    Restringir(alcance, selecao->condicoesDosGrupos);
    if (alcance.varias) {
        alcance.NroDRQ.reset();
    }
    return alcance;
}

}  // namespace tarvo::postgresql
