// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <optional>

#include "desktop/preview/Ampliacao.h"
#include "desktop/preview/DisposicaoPaginas.h"
#include "desktop/preview/LeitorDaVista.h"
#include "desktop/preview/SelecaoComMouse.h"
#include "desktop/preview/SelecaoDeCelulas.h"

namespace tarvo {

class BuscaTexto;
class PintorPaginas;
struct DocumentoPronto;

// What a view shows, in its own pixels.
struct LugarNaVista {
    int pagina = 0;
    QPoint topo;
};

// Shows the pages of a document: continuous or one at a time, at any magnification, with marked
// search hits and a selection of cells. Pages count from 0.
class VistaPaginas final : public QAbstractScrollArea {
  public:
    explicit VistaPaginas(QWidget* pai);

    // What is shown from now on, at its first page; all null for nothing. They outlive their
    // being shown.
    void Mostrar(PintorPaginas* pintor, BuscaTexto* busca, const DocumentoPronto* documento);

    [[nodiscard]] int Pagina() const { return disposicao_.atual; }
    [[nodiscard]] int Paginas() const { return disposicao_.paginas; }
    // Puts the page's top at the view's top; the nearest page for one that does not exist.
    void IrPara(int pagina);
    // The same page of a document built anew, at the same place; Ir goes to the nearest page when
    // that one is gone.
    [[nodiscard]] LugarNaVista Lugar() const;
    void Ir(const LugarNaVista& lugar);
    // To the next page, or the next two where they stand side by side; back when sentido is
    // negative.
    void IrAVizinha(int sentido);
    // Scrolls by what the view shows, down when sentido is positive; where pages stand alone, from
    // the end of one to the next.
    void RolarTela(int sentido);
    // Scrolls as little as needed to see a part of a page (points).
    void Revelar(int pagina, const QRectF& area);

    [[nodiscard]] Ajuste AjusteAtual() const { return ajuste_; }
    void Ajustar(Ajuste ajuste);
    // The magnification in effect, also when it follows from the view's size.
    [[nodiscard]] double AmpliacaoAtual() const { return ampliacao_; }
    // Within the limits, with the middle of the view kept in place.
    void Ampliar(double ampliacao);
    [[nodiscard]] bool Continuo() const { return disposicao_.continuo; }
    void DefinirContinuo(bool continuo);
    [[nodiscard]] bool LadoALado() const { return ladoALado_; }
    void DefinirLadoALado(bool ladoALado);

    [[nodiscard]] const SelecaoDeCelulas& Selecao() const { return selecao_; }
    void SelecionarPaginas(int primeira, int ultima);

    // What lies within that part of a page (points), which comes in sight.
    void SelecionarArea(int pagina, const QRectF& area);

    [[nodiscard]] LeitorDaVista& Leitor() { return leitor_; }
    [[nodiscard]] const LeitorDaVista& Leitor() const { return leitor_; }
    // A part of a page (points), or the whole page, on the screen.
    [[nodiscard]] QRect NaTela(int pagina, const std::optional<QRectF>& area) const;
    [[nodiscard]] int PaginaNaTela(const QPoint& ponto) const;

    // Told when page, magnification or selection have changed.
    std::function<void()> aoMudar;

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    void Dispor(const DisposicaoPaginas::Ancora& ancora);
    void Redispor();
    void AmpliarEm(double ampliacao, const QPoint& ponto);
    void Rolar(const QPoint& topo);
    bool PassarPagina(int sentido);
    [[nodiscard]] bool NoFim(int sentido) const;
    void Mudou();

    PintorPaginas* pintor_ = nullptr;
    BuscaTexto* busca_ = nullptr;
    DisposicaoPaginas disposicao_;
    SelecaoDeCelulas selecao_;
    SelecaoComMouse mouse_{*this, disposicao_, selecao_};
    LeitorDaVista leitor_{*this};
    Ajuste ajuste_ = Ajuste::LarguraDaPagina;
    double ampliacao_ = 1.0;
    bool ladoALado_ = false;  // as long as there are two pages
    bool dispondo_ = false;   // scroll bars move because of us, not of the user
    int rodaAcumulada_ = 0;
};

}  // namespace tarvo
