// SPDX-License-Identifier: MIT
#include "desktop/AreaDeTrabalho.h"

#include <QApplication>
#include <QThread>
#include <QTimer>
#include <clocale>

#include "data/CodigosDeErros.h"
#include "desktop/ApoioQt.h"
#include "desktop/EstiloVisivel.h"
#include "desktop/Ligacao.h"
#include "desktop/dialog/JanelaSelecaoQt.h"
#include "desktop/preview/VisualizadorQt.h"
#include "desktop/printing/FilaImpressao.h"
#include "output/pdf/RenderizadorPDF.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo {

namespace {

// A Qt application for a host without one; it stays until the process ends. Without a screen Qt
// would end the process: the last platform of the list needs none.
void CriarAplicacao() {
    static char nome[] = "relatoriostarvo";
    static char opcao[] = "-platform";
    static char plataformas[] = "xcb;wayland;offscreen";
    static char* argumentos[] = {nome, opcao, plataformas, nullptr};
    static int quantos = qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ? 1 : 3;
    // Qt sets the process's locale; the host's numbers stay as they are.
    const std::string numeros = std::setlocale(LC_NUMERIC, nullptr);
    new QApplication(quantos, argumentos);
    std::setlocale(LC_NUMERIC, numeros.c_str());
    QApplication::setQuitOnLastWindowClosed(false);
    InstalarTraducao();
    InstalarEstiloVisivel();
}

class AreaDeTrabalhoQt final : public AreaDeTrabalho {
  public:
    AreaDeTrabalhoQt() {
        if (QCoreApplication::instance() == nullptr) {
            CriarAplicacao();
            temTela_ = qEnvironmentVariableIsSet("QT_QPA_PLATFORM") ||
                       QGuiApplication::platformName() != QLatin1String("offscreen");
        } else if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
            throw Erro(NumeroErro::AcaoNaoSuportada,
                       "A aplicação Qt deste programa não permite janelas (QApplication).");
        }
        // The reports that the dialog leads to are one run.
        selecao_.aoExibir = [this](const frmImpressaoRelatorios& dialogo) {
            visualizadores_.Previas().Comecar();
            visualizadores_.Previas().nomeDeArquivo = dialogo.nomeDeArquivo;
        };
        selecao_.aoDescarregar = [this] {
            // Without an event loop of the host's nobody would serve a message.
            visualizadores_.Previas().Concluir(nullptr, QThread::currentThread()->loopLevel() > 0);
        };
    }

    [[nodiscard]] bool NestaThread() const override {
        return QThread::currentThread() == QCoreApplication::instance()->thread();
    }
    [[nodiscard]] bool TemTela() const override { return temTela_; }
    FabricaVisualizadores& Visualizadores() override { return visualizadores_; }
    JanelaSelecao& Selecao() override { return selecao_; }

    void AoPedir(std::function<void(Pedido)> acao) override {
        if (acao == nullptr) {
            return visualizadores_.Previas().AoPedir(nullptr);
        }
        // What the host shows again in answer keeps its window.
        visualizadores_.Previas().AoPedir([this, acao = std::move(acao)](Pedido pedido) {
            visualizadores_.Previas().Comecar(pedido == Pedido::Atualizar ? Permanece::Paginas
                                                                          : Permanece::Janelas);
            try {
                acao(pedido);
            } catch (...) {
                visualizadores_.Previas().Concluir(nullptr);
                throw;
            }
            visualizadores_.Previas().Concluir(nullptr);
        });
    }

    std::size_t AguardarJanelas(std::chrono::milliseconds tempo) override {
        Atender(QEventLoop::AllEvents);
        bool venceu = tempo.count() == 0;
        QTimer prazo;
        Ligar(&prazo, &QTimer::timeout, &prazo, [&venceu] { venceu = true; });
        if (tempo.count() > 0) {
            prazo.start(tempo);
        }
        while (!venceu && visualizadores_.Previas().Abertas() > 0) {
            Atender(QEventLoop::WaitForMoreEvents);
        }
        return visualizadores_.Previas().Abertas();
    }

    void ImprimirEm(const Conteudo& conteudo, const std::string& impressora) override {
        std::string pdf;
        RenderizarPDF(conteudo, pdf);
        EnviarTrabalho(
            {.pdf = pdf, .titulo = conteudo.tituloResumido, .opcoes = {.impressora = impressora}});
    }

  private:
    // What was to be deleted later is deleted by an event loop alone, and the host may have none.
    static void Atender(QEventLoop::ProcessEventsFlags quais) {
        QCoreApplication::processEvents(quais);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    bool temTela_ = true;
    ConfiguracoesIni preferencias_;
    FabricaVisualizadoresQt visualizadores_{&preferencias_};
    JanelaSelecaoQt selecao_;
};

}  // namespace

AreaDeTrabalho& AbrirAreaDeTrabalho() {
    static auto& area = *new AreaDeTrabalhoQt;  // NOLINT: its windows may outlive static objects
    return area;
}

}  // namespace tarvo
