// SPDX-License-Identifier: MIT
#include "host/windows/ModeloDeclaracoes.h"

#include <algorithm>
#include <map>

#include "desktop/ApoioQt.h"
#include "desktop/preview/BuscaTexto.h"
#include "dispatch/Declaracoes.h"
#include "document/QuadroPagina.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

namespace {

using Linha = ModeloDeclaracoes::Linha;

constexpr const char* Titulos[] = {"Razão social", "Inscrição estadual", "CNPJ",
                                   "DRQ",          "Referência",         "Regime",
                                   "Tipo",         "Consistência"};

void PorContribuinte(Linha& linha, const Contribuinte& contribuinte) {
    linha.IE = contribuinte.IE;
    linha.textos[ModeloDeclaracoes::RazaoSocial] = ParaQt(contribuinte.razaoSocial);
    linha.textos[ModeloDeclaracoes::IE] = ParaQt(contribuinte.IE);
    linha.textos[ModeloDeclaracoes::CNPJ] = ParaQt(contribuinte.CNPJ);
}

Linha LinhaDe(const Declaracao& declaracao) {
    Linha linha;
    linha.NroDRQ = declaracao.NroDRQ;
    linha.referencia = declaracao.ref1.Serial();
    linha.IE = declaracao.IE.value_or("");
    linha.textos[ModeloDeclaracoes::IE] = ParaQt(linha.IE);
    linha.textos[ModeloDeclaracoes::Numero] = QString::number(declaracao.NroDRQ);
    linha.textos[ModeloDeclaracoes::Referencia] = ParaQt(declaracao.referencia);
    const auto regime = RegimeTributario(declaracao.regime);
    linha.textos[ModeloDeclaracoes::Regime] =
        ParaQt(regime.empty() ? std::string_view(declaracao.regime) : regime);
    linha.textos[ModeloDeclaracoes::Tipo] = ParaQt(declaracao.tipo);
    linha.textos[ModeloDeclaracoes::Consistente] =
        declaracao.consistente ? u"Consistida"_s : u"Não consistida"_s;
    return linha;
}

std::vector<Linha> LerLinhas(BancoDados& banco) {
    std::map<std::string, Contribuinte> contribuintes;
    for (auto& contribuinte : LerContribuintes(banco)) {
        contribuintes.emplace(contribuinte.IE, contribuinte);
    }
    std::map<std::string, Contribuinte> semDeclaracao = contribuintes;
    std::vector<Linha> linhas;
    for (const auto& declaracao : LerDeclaracoes(banco)) {
        linhas.push_back(LinhaDe(declaracao));
        const auto achado = contribuintes.find(linhas.back().IE);
        if (achado != contribuintes.end()) {
            PorContribuinte(linhas.back(), achado->second);
            semDeclaracao.erase(achado->first);
        }
    }
    for (const auto& [IE, contribuinte] : semDeclaracao) {
        PorContribuinte(linhas.emplace_back(), contribuinte);
    }
    for (auto& linha : linhas) {
        for (const auto& texto : linha.textos) {
            linha.busca += BuscaTexto::Dobrar(texto) + u' ';
        }
    }
    return linhas;
}

}  // namespace

void ModeloDeclaracoes::Ler(BancoDados& banco) {
    auto linhas = LerLinhas(banco);
    beginResetModel();
    linhas_ = std::move(linhas);
    endResetModel();
}

int ModeloDeclaracoes::rowCount(const QModelIndex& pai) const {
    return pai.isValid() ? 0 : static_cast<int>(linhas_.size());
}

int ModeloDeclaracoes::columnCount(const QModelIndex& pai) const {
    return pai.isValid() ? 0 : Colunas;
}

QVariant ModeloDeclaracoes::data(const QModelIndex& indice, int papel) const {
    if (papel == Qt::DisplayRole || papel == Qt::ToolTipRole) {
        return Em(indice.row()).textos.at(static_cast<std::size_t>(indice.column()));
    }
    if (papel == Qt::TextAlignmentRole && indice.column() == Numero) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    return {};
}

QVariant ModeloDeclaracoes::headerData(int secao, Qt::Orientation orientacao, int papel) const {
    if (papel == Qt::DisplayRole && orientacao == Qt::Horizontal) {
        return ParaQt(Titulos[secao]);
    }
    return {};
}

DeclaracoesFiltradas::DeclaracoesFiltradas(ModeloDeclaracoes& modelo)
    : modelo_(modelo), alfabeto_(QLocale(QLocale::Portuguese, QLocale::Brazil)) {
    alfabeto_.setCaseSensitivity(Qt::CaseInsensitive);
    setSourceModel(&modelo);
}

void DeclaracoesFiltradas::Procurar(const QString& texto) {
    palavras_ = BuscaTexto::Dobrar(texto).split(u' ', Qt::SkipEmptyParts);
    invalidateFilter();
}

bool DeclaracoesFiltradas::filterAcceptsRow(int linha, const QModelIndex&) const {
    const auto& busca = modelo_.Em(linha).busca;
    return std::all_of(palavras_.begin(), palavras_.end(),
                       [&](const QString& palavra) { return busca.contains(palavra); });
}

bool DeclaracoesFiltradas::lessThan(const QModelIndex& a, const QModelIndex& b) const {
    const auto& linhaA = modelo_.Em(a.row());
    const auto& linhaB = modelo_.Em(b.row());
    switch (a.column()) {
        case ModeloDeclaracoes::Numero:
            return linhaA.NroDRQ < linhaB.NroDRQ;
        case ModeloDeclaracoes::Referencia:
            return linhaA.referencia < linhaB.referencia;
        default: {
            const auto coluna = static_cast<std::size_t>(a.column());
            const int ordem = alfabeto_.compare(linhaA.textos[coluna], linhaB.textos[coluna]);
            return ordem != 0 ? ordem < 0 : linhaA.referencia < linhaB.referencia;
        }
    }
}

}  // namespace tarvo::host
