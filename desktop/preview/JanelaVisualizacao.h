#pragma once

#include <QMainWindow>
#include <memory>
#include <string>
#include <vector>

#include "desktop/preview/CelulasDeTexto.h"
#include "output/pdf/RenderizadorPDF.h"

class QComboBox;
class QLabel;
class QSpinBox;
class QToolButton;

namespace tarvo {

class BarraDeBusca;
class BuscaTexto;
class Comandos;
class ConfiguracoesIni;
class ImpressaoQt;
class Miniaturas;
class PintorPaginas;
class VistaPaginas;
enum class Comando;

// A document rendered for its preview.
struct DocumentoPronto {
    std::shared_ptr<const std::string> pdf;
    std::vector<TextoCortado> cortados;
    CelulasDeTexto celulas;
    QString titulo;
    std::string tituloResumido;
    const Imagem* icone = nullptr;
};
// Error 20005 when a font is missing.
DocumentoPronto Preparar(const Conteudo& conteudo);

// The preview window of one document. Hidden, it holds none.
class JanelaVisualizacao final : public QMainWindow {
  public:
    // preferencias, which may be null and outlives the window, keeps the window's place and
    // magnification from one preview to the next.
    explicit JanelaVisualizacao(ConfiguracoesIni* preferencias);
    ~JanelaVisualizacao() override;

    // Shows a document at its first page.
    void Mostrar(DocumentoPronto documento);

  protected:
    void showEvent(QShowEvent* evento) override;
    void hideEvent(QHideEvent* evento) override;

  private:
    void CriarBarraDeFerramentas();
    void CriarBarraDeEstado();
    void CriarBusca();
    void CriarMiniaturas();
    void CriarImpressao();
    void Executar(Comando comando);
    void ExecutarNaVista(Comando comando);
    void AtualizarEstado();
    void MostrarCortados();
    void Imprimir();
    void Salvar();
    void GravarEm(const QString& arquivo);
    void AbrirBusca();
    void FecharBusca();
    void LerAmpliacao();
    void Dizer(int icone, const QString& texto);  // QMessageBox::Icon
    void LerPreferencias();
    void GuardarPreferencias();
    void Afastar();  // from other previews at the same place
    void Esvaziar();

    ConfiguracoesIni* preferencias_;
    DocumentoPronto documento_;
    std::unique_ptr<PintorPaginas> pintor_;
    std::unique_ptr<BuscaTexto> busca_;
    std::unique_ptr<Comandos> comandos_;
    VistaPaginas* vista_;
    Miniaturas* miniaturas_ = nullptr;
    BarraDeBusca* barraDeBusca_ = nullptr;
    ImpressaoQt* impressao_ = nullptr;
    QSpinBox* campoPagina_ = nullptr;
    QLabel* totalPaginas_ = nullptr;
    QComboBox* campoAmpliacao_ = nullptr;
    QLabel* situacaoPagina_ = nullptr;
    QToolButton* situacaoCortes_ = nullptr;
};

}  // namespace tarvo
