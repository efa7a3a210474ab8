// SPDX-License-Identifier: MIT
#include "desktop/preview/VisualizadorQt.h"

#include <QApplication>
#include <QScopeGuard>
#include <algorithm>
#include <memory>

#include "desktop/preview/JanelaVisualizacao.h"

namespace tarvo {

namespace {

class VisualizadorQt final : public Visualizador {
  public:
    VisualizadorQt(ConfiguracoesIni* preferencias, AndamentoQt& andamento, GrupoDePrevias& grupo)
        : preferencias_(preferencias), andamento_(andamento), grupo_(grupo) {}

    void Exibir(const Conteudo& conteudo) override {
        auto documento = Renderizar(conteudo);
        if (janela_ == nullptr) {
            janela_ = std::make_unique<JanelaVisualizacao>(preferencias_, grupo_);
        }
        janela_->Mostrar(std::move(documento));
    }
    void Ocultar() override {
        if (janela_ != nullptr && !grupo_.Adiar(*janela_)) {
            janela_->Encerrar();
        }
    }
    void Imprimir(const Conteudo& conteudo, bool perguntar) override {
        const auto documento = Renderizar(conteudo);
        grupo_.impressao.Imprimir(
            QApplication::activeWindow(),
            {documento.pdf, documento.tituloResumido, static_cast<int>(conteudo.paginas.size())},
            perguntar ? Pergunta::Sempre : Pergunta::SemImpressoraPadrao);
    }

  private:
    DocumentoPronto Renderizar(const Conteudo& conteudo) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const auto fim = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
        auto documento = Preparar(conteudo, [this] { return andamento_.Preparando(); });
        andamento_.Concluir();
        return documento;
    }

    ConfiguracoesIni* preferencias_;
    AndamentoQt& andamento_;
    GrupoDePrevias& grupo_;
    std::unique_ptr<JanelaVisualizacao> janela_;
};

}  // namespace

bool FabricaVisualizadoresQt::Imprimindo() {
    const auto janelas = QApplication::allWidgets();
    return std::any_of(janelas.begin(), janelas.end(), [](const QWidget* janela) {
        const auto* previa = dynamic_cast<const JanelaVisualizacao*>(janela);
        return previa != nullptr && previa->Imprimindo();
    });
}

std::unique_ptr<Visualizador> FabricaVisualizadoresQt::Criar() {
    return std::make_unique<VisualizadorQt>(preferencias_, andamento_, grupo_);
}

}  // namespace tarvo
