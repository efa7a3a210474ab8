// SPDX-License-Identifier: MIT
#pragma once

#include <QDockWidget>
#include <functional>

class QTabWidget;
class QTableWidget;
class QTreeWidget;

namespace tarvo {

class Miniaturas;
class PintorPaginas;
struct DocumentoPronto;

// Beside the pages: small pictures of them, the document's titles and sections, and what its pages
// do not show as they should. Choosing one leads to its place.
class PainelLateral final : public QDockWidget {
  public:
    explicit PainelLateral(QWidget* pai);

    // What is shown from now on; null for nothing. Both outlive their being shown.
    void Mostrar(PintorPaginas* pintor, const DocumentoPronto* documento);
    // Marks the page, from 0.
    void Marcar(int pagina);
    // A picture may have come.
    void Atualizar();
    // Brings the panel and in it the warnings into sight, ready for the keyboard.
    void MostrarAvisos();

    // To be set before the panel is used: a place was chosen (page from 0, points).
    std::function<void(int pagina, const QRectF& lugar)> aoEscolher;

  private:
    void CriarSumario();
    void CriarAvisos();
    void MostrarSumario(const DocumentoPronto& documento);
    void ListarAvisos(const DocumentoPronto& documento);

    QTabWidget* abas_;
    Miniaturas* miniaturas_;
    QTreeWidget* sumario_;
    QTableWidget* avisos_;
};

}  // namespace tarvo
