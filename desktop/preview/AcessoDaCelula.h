// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/preview/AcessoDoNo.h"

namespace tarvo {

// A cell of a table, of either kind, for screen readers: with the headings over it and before it.
class AcessoDaCelula final : public AcessoDoNo, public QAccessibleTableCellInterface {
  public:
    using AcessoDoNo::AcessoDoNo;

    void* interface_cast(QAccessible::InterfaceType tipo) override;
    [[nodiscard]] QString text(QAccessible::Text qual) const override;
    [[nodiscard]] bool isSelected() const override { return state().focused; }
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override;
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override;
    [[nodiscard]] int columnIndex() const override { return Leitura().Coluna(Onde().elemento); }
    [[nodiscard]] int rowIndex() const override;
    [[nodiscard]] int columnExtent() const override { return Leitura().Largura(Onde().elemento); }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return Outro(Em(Onde().pai).pai); }

  private:
    [[nodiscard]] const LeituraDoDocumento::No& Tabela() const { return Em(Em(Onde().pai).pai); }
    // The headings' texts, for readers that do not ask the table.
    [[nodiscard]] QString Descricao() const;
};

}  // namespace tarvo
