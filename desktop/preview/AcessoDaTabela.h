// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/preview/AcessoDoNo.h"

namespace tarvo {

// The rows of a table that stand on one page, for screen readers.
class AcessoDaTabela final : public AcessoDoNo, public QAccessibleTableInterface {
  public:
    using AcessoDoNo::AcessoDoNo;

    void* interface_cast(QAccessible::InterfaceType tipo) override;
    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    // Where a cell reaches over several columns it stands for each; there is always one.
    [[nodiscard]] QAccessibleInterface* cellAt(int linha, int coluna) const override;
    [[nodiscard]] QString columnDescription(int coluna) const override;
    [[nodiscard]] QString rowDescription(int linha) const override;
    [[nodiscard]] int columnCount() const override { return Leitura().Colunas(Onde().elemento); }
    [[nodiscard]] int rowCount() const override { return childCount(); }
    [[nodiscard]] int selectedCellCount() const override { return 0; }
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override { return {}; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override { return 0; }
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override { return {}; }
    [[nodiscard]] bool isColumnSelected(int) const override { return false; }
    [[nodiscard]] bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}
};

}  // namespace tarvo
