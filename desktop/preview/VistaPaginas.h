#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/preview/DisposicaoPaginas.h"
#include "desktop/preview/PintorPaginas.h"

namespace tarvo {

class BuscaTexto;
class CelulasDeTexto;

// How the magnification follows the view's size.
enum class Ajuste { Livre, PaginaInteira, LarguraDaPagina };

// Shows the pages of a document: continuous or one at a time, at any magnification, with marked
// search hits and a selection of cells. Pages count from 0.
class VistaPaginas final : public QAbstractScrollArea {
  public:
    static constexpr double AmpliacaoMinima = 0.25;  // 1.0 is the size on paper
    static constexpr double AmpliacaoMaxima = 8.0;

    explicit VistaPaginas(QWidget* pai);

    // What is shown from now on, at its first page; all null for nothing. They outlive their
    // being shown.
    void Mostrar(PintorPaginas* pintor, BuscaTexto* busca, const CelulasDeTexto* celulas);

    [[nodiscard]] int Pagina() const { return disposicao_.atual; }
    // Puts the page's top at the view's top; the nearest page for one that does not exist.
    void IrPara(int pagina);
    // Scrolls as little as needed to see a part of a page (points).
    void Revelar(int pagina, const QRectF& area);

    [[nodiscard]] Ajuste AjusteAtual() const { return ajuste_; }
    void Ajustar(Ajuste ajuste);
    // The magnification in effect, also when it follows from the view's size.
    [[nodiscard]] double Ampliacao() const { return ampliacao_; }
    // Within the limits, with the middle of the view kept in place.
    void Ampliar(double ampliacao);
    // One step of the usual scale (25 %, 33 %, 50 % ...) up or down.
    void AmpliarUmPasso(int sentido);
    [[nodiscard]] bool Continuo() const { return disposicao_.continuo; }
    void DefinirContinuo(bool continuo);

    [[nodiscard]] bool TemSelecao() const { return selecao_.has_value(); }
    [[nodiscard]] QString TextoSelecionado() const;
    void SelecionarPagina();

    // Told when page, magnification or selection have changed.
    std::function<void()> aoMudar;

  protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;

  private:
    struct Selecao {
        int pagina;
        QRectF area;  // points
    };
    // A place on a page and the point of the view where it is to stay.
    struct Ancora {
        int pagina;
        QPointF fracao;  // of the page's size
        QPoint ponto;
    };
    [[nodiscard]] Ancora AncorarEm(const QPoint& ponto) const;
    void Dispor(const Ancora& ancora);
    void AmpliarEm(double ampliacao, const QPoint& ponto);
    void CalcularAmpliacao();
    [[nodiscard]] double PixelsPorPonto() const;
    [[nodiscard]] QPoint Topo() const;
    void Rolar(const QPoint& topo);
    bool PassarPagina(int sentido);
    [[nodiscard]] QRect RetanguloDaPagina(int pagina) const;  // in the view
    [[nodiscard]] std::pair<int, int> Visiveis() const;
    [[nodiscard]] QPointF PontoNaPagina(int pagina, const QPoint& ponto) const;
    [[nodiscard]] std::vector<Recorte> Recortes(int pagina, const QRect& visivel) const;
    void PintarPagina(QPainter& pintura, int pagina, std::vector<Recorte>& faltam);
    void PintarMarcas(QPainter& pintura, int pagina, const QRect& area);
    void Selecionar(std::optional<Selecao> selecao);
    void Avisar() const;

    PintorPaginas* pintor_ = nullptr;
    BuscaTexto* busca_ = nullptr;
    const CelulasDeTexto* celulas_ = nullptr;
    DisposicaoPaginas disposicao_;
    Ajuste ajuste_ = Ajuste::LarguraDaPagina;
    double ampliacao_ = 1.0;
    bool dispondo_ = false;  // scroll bars move because of us, not of the user
    int rodaAcumulada_ = 0;
    std::optional<Selecao> selecao_;
    QPointF inicioSelecao_;  // points on its page
};

}  // namespace tarvo
