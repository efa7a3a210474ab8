// SPDX-License-Identifier: MIT
#include "databases/sqlite/Escopo.h"

#include <algorithm>

#include "data/CodigosDeErros.h"
#include "data/Procura.h"
#include "databases/sqlite/Alfabeto.h"
#include "databases/sqlite/Lexico.h"

namespace tarvo::sqlite {

namespace {

std::string NomeEscrito(const Expressao& coluna) {
    return coluna.tabela.empty() ? coluna.nome : coluna.tabela + "." + coluna.nome;
}

}  // namespace

std::shared_ptr<const Tabela> ExigirTabela(Esquema& esquema, std::string_view nome) {
    auto tabela = esquema.Procurar(nome);
    if (tabela == nullptr) {
        throw Erro(NumeroErro::TabelaInexistente,
                   "O banco de dados não tem a tabela ou consulta \"" + std::string(nome) + "\".");
    }
    return tabela;
}

Escopo::Escopo(Esquema& esquema, const std::vector<TabelaCitada>& tabelas,
               std::string_view consulta) {
    for (const TabelaCitada& citada : tabelas) {
        if (ProcurarTabela(citada.nome)) {
            LancarErroDeSintaxe(consulta, citada.posicao, "tabela repetida");
        }
        tabelas_.push_back(ExigirTabela(esquema, citada.nome));
    }
}

void Escopo::DeclararJuncoes(const std::vector<Expressao>& juncoes) {
    for (const Expressao& juncao : juncoes) {
        if (juncao.operacao != Operacao::Igual ||
            !std::ranges::all_of(juncao.partes, [](const Expressao& parte) {
                return parte.operacao == Operacao::Coluna && !parte.tabela.empty();
            })) {
            continue;
        }
        for (const Expressao& parte : juncao.partes) {
            ligacoes_.push_back(Exigir(parte));
        }
    }
}

std::optional<std::size_t> Escopo::ProcurarTabela(std::string_view nome) const {
    const auto achada = std::ranges::find(tabelas_, SemCaixa(nome),
                                          [](const auto& tabela) { return tabela->nomeSemCaixa; });
    if (achada == tabelas_.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(achada - tabelas_.begin());
}

std::vector<ColunaAchada> Escopo::Candidatas(const Expressao& coluna) const {
    const std::string nome = SemCaixa(coluna.nome);
    const std::string tabela = SemCaixa(coluna.tabela);
    std::vector<ColunaAchada> candidatas;
    for (std::size_t t = 0; t < tabelas_.size(); ++t) {
        if (!tabela.empty() && tabelas_[t]->nomeSemCaixa != tabela) {
            continue;
        }
        const auto& colunas = tabelas_[t]->colunas;
        const auto achada = std::ranges::find(colunas, nome, &Coluna::nomeSemCaixa);
        if (achada != colunas.end()) {
            candidatas.push_back({t, static_cast<std::size_t>(achada - colunas.begin())});
        }
    }
    return candidatas;
}

std::optional<ColunaAchada> Escopo::Procurar(const Expressao& coluna) const {
    std::vector<ColunaAchada> candidatas = Candidatas(coluna);
    if (candidatas.size() > 1) {
        std::erase_if(candidatas,
                      [this](ColunaAchada candidata) { return Contem(ligacoes_, candidata); });
        if (candidatas.size() != 1) {
            throw Erro(NumeroErro::ColunaAmbigua,
                       "A coluna \"" + coluna.nome +
                           "\" existe em mais de uma tabela da consulta; escreva a tabela antes "
                           "do nome.");
        }
    }
    return candidatas.empty() ? std::nullopt : std::optional(candidatas.front());
}

ColunaAchada Escopo::Exigir(const Expressao& coluna) const {
    const auto achada = Procurar(coluna);
    if (!achada) {
        throw Erro(NumeroErro::ColunaDesconhecida,
                   "A consulta usa a coluna desconhecida \"" + NomeEscrito(coluna) + "\".");
    }
    return *achada;
}

}  // namespace tarvo::sqlite
