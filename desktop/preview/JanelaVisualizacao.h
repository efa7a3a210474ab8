#pragma once

#include <QMainWindow>
#include <memory>

#include "desktop/LugarDaJanela.h"
#include "desktop/preview/AcoesDaVista.h"
#include "desktop/preview/AcoesDaVisualizacao.h"
#include "desktop/preview/DocumentoPronto.h"
#include "desktop/printing/ImpressaoQt.h"

class QLabel;
class QToolButton;

namespace tarvo {

class BarraDeBusca;
class BarraDeFerramentas;
class Miniaturas;
class PintorPaginas;
class VistaPaginas;

// The preview window of one document: puts its parts together and ties the actions to them. Hidden,
// it holds no document and asks nothing.
class JanelaVisualizacao final : public QMainWindow {
  public:
    // preferencias, which may be null and outlives the window, keeps the window's place and
    // magnification from one preview to the next.
    explicit JanelaVisualizacao(ConfiguracoesIni* preferencias);
    ~JanelaVisualizacao() override;

    // Shows a document at its first page.
    void Mostrar(DocumentoPronto documento);

    [[nodiscard]] bool Imprimindo() const { return impressao_->EmCurso(); }

  protected:
    void hideEvent(QHideEvent* evento) override;

  private:
    void CriarBarraDeEstado();
    void CriarMiniaturas();
    void CriarImpressao();
    void LigarAcoes();
    void AtualizarEstado();
    void Imprimir();
    void Salvar();
    void LerPreferencias();
    void GravarPreferencias();
    void Esvaziar();

    ConfiguracoesIni* preferencias_;
    LugarDaJanela lugar_;
    DocumentoPronto documento_;
    std::unique_ptr<PintorPaginas> pintor_;
    AcoesDaVisualizacao acoes_;
    VistaPaginas* vista_;
    AcoesDaVista acoesDaVista_;
    BarraDeFerramentas* barraDeFerramentas_;
    BarraDeBusca* barraDeBusca_;
    Miniaturas* miniaturas_ = nullptr;
    ImpressaoQt* impressao_ = nullptr;
    QLabel* situacaoPagina_ = nullptr;
    QToolButton* situacaoCortes_ = nullptr;
};

}  // namespace tarvo
