#include "desktop/printing/ImpressaoQt.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QTimer>
#include <climits>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"
#include "desktop/SegundoPlano.h"
#include "desktop/printing/FilaImpressao.h"
#include "system/files/Arquivos.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

Erro ErroCancelado() {
    return {NumeroErro::Cancelado, "Impressão cancelada."};
}

Lados LadosDe(const QPrinter& impressora) {
    switch (impressora.duplex()) {
        case QPrinter::DuplexNone:
            return Lados::Frente;
        case QPrinter::DuplexLongSide:
            return Lados::FrenteEVerso;
        case QPrinter::DuplexShortSide:
            return Lados::FrenteEVersoBordaCurta;
        default:
            return Lados::ComoNaFila;
    }
}

}  // namespace

ImpressaoQt::ImpressaoQt(QWidget* janela) : QObject(janela), janela_(janela) {}

ImpressaoQt::~ImpressaoQt() {
    if (cancelar_ != nullptr) {
        *cancelar_ = true;
    }
}

void ImpressaoQt::Comecar(const DocumentoImpresso& documento, const QString& situacao) {
    documento_ = documento;
    cancelar_ = std::make_shared<std::atomic<bool>>(false);
    emCurso_ = true;
    if (aoMudar) {
        aoMudar(situacao);
    }
}

void ImpressaoQt::Perguntar(const DocumentoImpresso& documento) {
    Comecar(documento, u"Consultando as impressoras…"_s);
    // The dialog asks for the printers on this thread: it is shown only to a service that answers.
    EmSegundoPlano(
        this, [] { return ListarImpressoras(); },
        [this](const std::variant<std::vector<Impressora>, Erro>& resultado) {
            if (const auto* erro = std::get_if<Erro>(&resultado)) {
                Terminar(*erro);
            } else if (*cancelar_) {
                Terminar(ErroCancelado());
            } else {
                AbrirDialogo();
            }
        });
}

void ImpressaoQt::AbrirDialogo() {
    dialogo_ = new QPrintDialog(janela_);
    dialogo_->setAttribute(Qt::WA_DeleteOnClose);
    dialogo_->setWindowTitle(u"Imprimir"_s);
    dialogo_->printer()->setDocName(ParaQt(documento_.titulo));
    dialogo_->printer()->setPageSize(QPageSize(QPageSize::A4));
    dialogo_->setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                         QAbstractPrintDialog::PrintCollateCopies);
    dialogo_->setMinMax(1, documento_.paginas);
    dialogo_->setFromTo(1, documento_.paginas);
    Ligar(dialogo_.data(), &QDialog::accepted, this, [this] { AceitarDialogo(*dialogo_); });
    Ligar(dialogo_.data(), &QDialog::rejected, this, [this] { Terminar(ErroCancelado()); });
    if (dialogoBloqueia_) {
        dialogo_->setModal(true);
        dialogo_->show();
    } else {
        dialogo_->open();
    }
}

void ImpressaoQt::AceitarDialogo(QPrintDialog& dialogo) {
    const QPrinter& impressora = *dialogo.printer();
    if (const auto arquivo = impressora.outputFileName(); !arquivo.isEmpty()) {
        try {
            GravarArquivo(arquivo.toStdString(), *documento_.pdf);
            Terminar(std::nullopt);
        } catch (const Erro& erro) {
            Terminar(erro);
        }
        return;
    }
    TrabalhoImpressao trabalho{.pdf = *documento_.pdf,
                               .titulo = documento_.titulo,
                               .impressora = impressora.printerName().toStdString(),
                               .copias = impressora.copyCount(),
                               .lados = LadosDe(impressora)};
    if (dialogo.printRange() == QAbstractPrintDialog::PageRange) {
        trabalho.primeiraPagina = impressora.fromPage();
        trabalho.ultimaPagina = impressora.toPage();
    }
    Enviar(std::move(trabalho));
}

void ImpressaoQt::Enviar(const DocumentoImpresso& documento) {
    Comecar(documento, u"Enviando à impressora…"_s);
    Enviar(TrabalhoImpressao{.pdf = *documento_.pdf, .titulo = documento_.titulo});
}

void ImpressaoQt::Enviar(TrabalhoImpressao trabalho) {
    if (aoMudar) {
        aoMudar(u"Enviando à impressora…"_s);
    }
    // The bytes stay alive as long as the thread needs them, whatever becomes of the window.
    EmSegundoPlano(
        this,
        [trabalho = std::move(trabalho), pdf = documento_.pdf, cancelar = cancelar_] {
            return EnviarTrabalho(trabalho, cancelar.get());
        },
        [this](const std::variant<int, Erro>& resultado) {
            const auto* erro = std::get_if<Erro>(&resultado);
            Terminar(erro != nullptr ? std::optional(*erro) : std::nullopt);
        });
}

void ImpressaoQt::Cancelar() {
    if (cancelar_ != nullptr) {
        *cancelar_ = true;
    }
}

void ImpressaoQt::Terminar(const std::optional<Erro>& erro) {
    emCurso_ = false;
    if (aoTerminar) {
        aoTerminar(erro);
    }
}

// The program's windows take no input meanwhile: until it is clear that it takes long by leaving
// the user's actions waiting, then by the window that offers to cancel.
void ImpressaoQt::ImprimirEEsperar(QWidget* janela, const DocumentoImpresso& documento,
                                   bool perguntar) {
    constexpr int Paciencia = 800;  // ms
    bool terminou = false;
    std::optional<Erro> resultado;
    ImpressaoQt impressao(nullptr);
    impressao.janela_ = janela;
    impressao.dialogoBloqueia_ = true;
    impressao.aoTerminar = [&](const std::optional<Erro>& erro) {
        resultado = erro;
        terminou = true;
    };
    QProgressDialog aviso(u"Enviando à impressora…"_s, u"Cancelar"_s, 0, 0, janela);
    aviso.setObjectName(u"avisoImpressao"_s);
    aviso.setWindowModality(Qt::ApplicationModal);
    aviso.setWindowTitle(ParaQt(documento.titulo));
    aviso.setMinimumDuration(INT_MAX);
    Ligar(&aviso, &QProgressDialog::canceled, &impressao, [&] {
        impressao.Cancelar();
        aviso.setLabelText(u"Cancelando…"_s);
    });
    QElapsedTimer tempo;
    tempo.start();
    QTimer relogio;
    relogio.start(100);
    if (perguntar) {
        impressao.Perguntar(documento);
    } else {
        impressao.Enviar(documento);
    }
    while (!terminou) {
        const bool perguntando = impressao.dialogo_ != nullptr && impressao.dialogo_->isVisible();
        aviso.setVisible(!perguntando && tempo.elapsed() > Paciencia);
        if (perguntando) {
            tempo.restart();
        }
        QCoreApplication::processEvents(perguntando || aviso.isVisible()
                                            ? QEventLoop::WaitForMoreEvents
                                            : QEventLoop::WaitForMoreEvents |
                                                  QEventLoop::ExcludeUserInputEvents);
    }
    if (resultado) {
        throw Erro(*resultado);
    }
}

}  // namespace tarvo
