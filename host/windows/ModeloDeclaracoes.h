// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QCollator>
#include <QSortFilterProxyModel>
#include <optional>
#include <string>
#include <vector>

#include "data/BancoDados.h"

namespace tarvo::host {

// The declarations of a database with their taxpayers, a row each; a taxpayer without declaration
// has a row too.
class ModeloDeclaracoes final : public QAbstractTableModel {
  public:
    enum Coluna { RazaoSocial, IE, CNPJ, Numero, Referencia, Regime, Tipo, Consistente, Colunas };

    struct Linha {
        std::array<QString, Colunas> textos;
        std::string IE;                      // empty when the database does not tell whose it is
        std::optional<std::int32_t> NroDRQ;  // absent for a taxpayer without declaration
        double referencia = 0;               // date serial
        QString busca;                       // all texts, folded
    };

    using QAbstractTableModel::QAbstractTableModel;

    // Reads the whole list anew. Errors of the database leave the old one.
    void Ler(BancoDados& banco);
    [[nodiscard]] const Linha& Em(int linha) const {
        return linhas_.at(static_cast<std::size_t>(linha));
    }

    [[nodiscard]] int rowCount(const QModelIndex& pai = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& pai = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& indice, int papel) const override;
    [[nodiscard]] QVariant headerData(int secao, Qt::Orientation orientacao,
                                      int papel) const override;

  private:
    std::vector<Linha> linhas_;
};

// The rows that have every word of the search, in any column and without regard to case and
// accents; sorted by numbers, dates and the Portuguese alphabet.
class DeclaracoesFiltradas final : public QSortFilterProxyModel {
  public:
    explicit DeclaracoesFiltradas(ModeloDeclaracoes& modelo);
    void Procurar(const QString& texto);
    [[nodiscard]] const ModeloDeclaracoes::Linha& Em(const QModelIndex& indice) const {
        return modelo_.Em(mapToSource(indice).row());
    }

  protected:
    [[nodiscard]] bool filterAcceptsRow(int linha, const QModelIndex& pai) const override;
    [[nodiscard]] bool lessThan(const QModelIndex& a, const QModelIndex& b) const override;

  private:
    ModeloDeclaracoes& modelo_;
    QCollator alfabeto_;
    QStringList palavras_;
};

}  // namespace tarvo::host
