// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>
#include <QStringList>
#include <cstdint>
#include <string>
#include <vector>

namespace tarvo::host {

// Says how much of a declaration its pages do not show as expected, and lists it when it is
// pressed; out of sight when there is nothing to say.
class AvisosDaDeclaracao final : public QPushButton {
  public:
    explicit AvisosDaDeclaracao(QWidget* janela);

    void Mostrar(std::int32_t NroDRQ, const std::vector<std::string>& avisos);
    void Esquecer();

  private:
    void Listar();

    QString declaracao_;
    QStringList avisos_;
};

}  // namespace tarvo::host
