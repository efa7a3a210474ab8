// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <atomic>
#include <memory>
#include <vector>

#include "desktop/printing/FilaImpressao.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace tarvo {

// What the user has chosen.
struct EscolhaDeImpressao {
    OpcoesDeImpressao opcoes;
    std::vector<int> paginas;  // from 1, in their order on paper
};

// The print dialog: offers what will be done and nothing else. What depends on the printer is asked
// of it on another thread and shown once it is known to be supported.
class DialogoImpressao final : public QDialog {
  public:
    enum class Alcance {
        UmDocumento,  // asks for pages and copies too
        VariosDocumentos,
    };

    // impressoras is not empty. paginas: of the document.
    DialogoImpressao(QWidget* pai, const std::vector<Impressora>& impressoras, int paginas,
                     Alcance alcance);
    ~DialogoImpressao() override;

    // Proposes this printer, if it is there, instead of the user's default.
    void Preferir(const QString& impressora);
    [[nodiscard]] EscolhaDeImpressao Escolha() const;

  private:
    void CriarCampos(QFormLayout& campos, const std::vector<Impressora>& impressoras);
    void Conferir();
    void Consultar();
    void MostrarRecursos(const RecursosDaImpressora& recursos);

    int totalDePaginas_;
    Alcance alcance_;
    std::shared_ptr<std::atomic<bool>> cancelar_;  // the question to the printer
    QComboBox* impressora_;
    QLineEdit* paginas_;
    QComboBox* folhas_;
    QCheckBox* inversa_;
    QSpinBox* copias_;
    QComboBox* lados_;
    QComboBox* escala_;
    QLabel* aviso_;
    QPushButton* imprimir_;
};

}  // namespace tarvo
