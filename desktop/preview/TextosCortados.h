#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "output/pdf/RenderizadorPDF.h"

namespace tarvo {

// The texts of a document that its pages show cut, whole; choosing one goes to its page. Goes when
// it is closed.
class TextosCortados final : public QDialog {
  public:
    TextosCortados(QWidget* pai, const std::vector<TextoCortado>& cortados);

    std::function<void(int pagina)> aoEscolher;  // from 0
};

}  // namespace tarvo
