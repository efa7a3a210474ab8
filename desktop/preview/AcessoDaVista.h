// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <map>
#include <memory>
#include <utility>

namespace tarvo {

class LeituraDoDocumento;
class VistaPaginas;

// The pages of a view for screen readers: below the view a child for each page, and below that its
// headings, fields, pictures, and tables with rows, columns and their headings, as the document's
// structure has them. Keeps the interfaces of what stands in it as long as the document is shown.
class AcessoDaVista final : public QAccessibleWidget {
  public:
    // Once per program; again does nothing.
    static void Instalar();
    // The view's reading cursor has moved.
    static void DizerCursor(VistaPaginas& vista);

    explicit AcessoDaVista(VistaPaginas& vista);
    ~AcessoDaVista() override { Esquecer(); }

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int indice) const override {
        return indice >= 0 && indice < childCount() ? Acesso(indice, 0) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* filho) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;
    // Of a page (node 0), or of an element on it: LeituraDoDocumento::Pagina.
    [[nodiscard]] QAccessibleInterface* Acesso(int pagina, int no) const;
    [[nodiscard]] VistaPaginas& Vista() const { return vista_; }

  private:
    void Esquecer() const;

    VistaPaginas& vista_;
    mutable std::shared_ptr<LeituraDoDocumento> leitura_;  // that of acessos_
    mutable std::map<std::pair<int, int>, QAccessible::Id> acessos_;
};

}  // namespace tarvo
