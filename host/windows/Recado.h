// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QPushButton;

namespace tarvo::host {

// What stands where the rows of a list would: why there are none, and a button for what to do.
class Recado final : public QWidget {
  public:
    explicit Recado(QWidget* pai);

    // Without acao there is no button.
    void Dizer(const QString& texto, const QString& acao = {}, std::function<void()> fazer = {});

  private:
    QLabel* texto_;
    QPushButton* botao_;
    std::function<void()> fazer_;
};

}  // namespace tarvo::host
