// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <memory>

#include "desktop/preview/AcessoDaVista.h"
#include "desktop/preview/LeituraDoDocumento.h"

namespace tarvo {

// A page, or an element on it, for screen readers.
class AcessoDoNo : public QAccessibleInterface {
  public:
    AcessoDoNo(const AcessoDaVista& dona, std::shared_ptr<LeituraDoDocumento> leitura, int pagina,
               int no)
        : dona_(dona), leitura_(std::move(leitura)), pagina_(pagina), no_(no) {}

    [[nodiscard]] int Pagina() const { return pagina_; }
    [[nodiscard]] int Indice() const { return no_; }
    [[nodiscard]] const LeituraDoDocumento::No& Onde() const { return Em(no_); }

    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] int childCount() const override { return static_cast<int>(Onde().filhos.size()); }
    [[nodiscard]] QAccessibleInterface* child(int indice) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* filho) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QString text(QAccessible::Text qual) const override;
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;

  protected:
    [[nodiscard]] const LeituraDoDocumento::No& Em(int no) const {
        return leitura_->Pagina(pagina_).at(static_cast<std::size_t>(no));
    }
    [[nodiscard]] QAccessibleInterface* Outro(int no) const { return dona_.Acesso(pagina_, no); }
    [[nodiscard]] QAccessibleInterface* AcessoDoElemento(std::uint32_t elemento) const;
    [[nodiscard]] LeituraDoDocumento& Leitura() const { return *leitura_; }

  private:
    const AcessoDaVista& dona_;
    std::shared_ptr<LeituraDoDocumento> leitura_;
    int pagina_;
    int no_;
};

}  // namespace tarvo
