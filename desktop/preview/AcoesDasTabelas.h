// SPDX-License-Identifier: MIT
#pragma once

#include <span>

class QString;
class QWidget;

namespace tarvo {

class AcoesDaVisualizacao;
struct DocumentoPronto;
struct TabelaDoDocumento;
class VistaPaginas;

// The actions that hand the numbers of a document on: its tables to the clipboard or into a file.
// The view offers them under the mouse too.
class AcoesDasTabelas {
  public:
    // Ties the actions of the window; all outlive the object.
    AcoesDasTabelas(const AcoesDaVisualizacao& acoes, QWidget& janela, VistaPaginas& vista,
                    const DocumentoPronto& documento);

  private:
    void Copiar() const;
    void SalvarTabela() const;
    void SalvarTodas() const;
    void Salvar(const QString& titulo, std::span<const TabelaDoDocumento> tabelas) const;

    QWidget& janela_;
    const VistaPaginas& vista_;
    const DocumentoPronto& documento_;
};

}  // namespace tarvo
