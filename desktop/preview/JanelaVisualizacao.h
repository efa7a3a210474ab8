// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <memory>

#include "desktop/LugarDaJanela.h"
#include "desktop/preview/AcoesDaVisualizacao.h"
#include "desktop/preview/AcoesDasTabelas.h"
#include "desktop/preview/DocumentoPronto.h"
#include "desktop/printing/ImpressaoQt.h"

class QLabel;
class QToolButton;

namespace tarvo {

class BarraDeBusca;
class BarraDeFerramentas;
class GrupoDePrevias;
class PainelLateral;
class PintorPaginas;
class VistaPaginas;

// The preview window of one document, which may also stand in a tab: puts its parts together and
// ties the actions to them. Closed, it holds no document and asks nothing.
class JanelaVisualizacao final : public QMainWindow {
  public:
    // preferencias, which may be null, keeps the window's place and magnification from one preview
    // to the next. Both outlive the window.
    JanelaVisualizacao(ConfiguracoesIni* preferencias, GrupoDePrevias& grupo);
    ~JanelaVisualizacao() override;

    // Shows a document at its first page, or at the page that the group says to keep.
    void Mostrar(DocumentoPronto documento);
    [[nodiscard]] bool Aberta() const { return pintor_ != nullptr; }
    // Takes it from the screen and gives up its document.
    void Encerrar();
    // As a window of its own, where it belongs.
    void MostrarEmJanela();
    // Brings what is told of the document and what can be done up to date.
    void DizerAvisos();
    void AtualizarEstado();

    [[nodiscard]] bool Imprimindo() const { return impressao_->EmCurso(); }
    [[nodiscard]] DocumentoImpresso ParaImprimir() const;
    [[nodiscard]] const Conteudo* Registrado() const { return documento_.registrado; }
    [[nodiscard]] QString TituloResumido() const;

  protected:
    void closeEvent(QCloseEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    void CriarBarraDeEstado();
    void CriarPainel();
    void CriarImpressao();
    void LigarAcoes();
    void Imprimir();
    void Salvar();
    void LerPreferencias();
    void GravarPreferencias();
    void Esvaziar();

    ConfiguracoesIni* preferencias_;
    GrupoDePrevias& grupo_;
    LugarDaJanela lugar_;
    DocumentoPronto documento_;
    std::unique_ptr<PintorPaginas> pintor_;
    AcoesDaVisualizacao acoes_;
    VistaPaginas* vista_;
    AcoesDasTabelas acoesDasTabelas_;
    BarraDeFerramentas* barraDeFerramentas_;
    BarraDeBusca* barraDeBusca_;
    PainelLateral* painel_ = nullptr;
    ImpressaoQt* impressao_ = nullptr;
    QLabel* situacaoPagina_ = nullptr;
    QToolButton* situacaoAvisos_ = nullptr;
};

}  // namespace tarvo
