// SPDX-License-Identifier: MIT
#include "desktop/printing/ImpressaoQt.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProgressDialog>
#include <QTimer>
#include <algorithm>
#include <climits>

#include "data/Procura.h"
#include "desktop/ApoioQt.h"
#include "desktop/Habitos.h"
#include "desktop/SegundoPlano.h"
#include "desktop/printing/RecorteDoPDF.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view Secao = "Impressao";
constexpr std::string_view Chave = "Impressora";

Erro ErroCancelado() {
    return {NumeroErro::Cancelado, "Impressão cancelada."};
}

}  // namespace

ImpressaoQt::ImpressaoQt(QWidget* janela, ConfiguracoesIni* preferencias)
    : QObject(janela), janela_(janela), preferencias_(preferencias) {}

ImpressaoQt::~ImpressaoQt() {
    if (cancelar_ != nullptr) {
        *cancelar_ = true;
    }
}

void ImpressaoQt::Comecar(const DocumentoImpresso& documento, const QString& situacao) {
    documento_ = documento;
    cancelar_ = std::make_shared<std::atomic<bool>>(false);
    emCurso_ = true;
    Dizer(situacao);
}

void ImpressaoQt::Imprimir(const DocumentoImpresso& documento, Pergunta pergunta) {
    Comecar(documento, u"Consultando as impressoras…"_s);
    EmSegundoPlano(
        this, [cancelar = cancelar_] { return ListarImpressoras(cancelar.get()); },
        [this, pergunta](const std::variant<std::vector<Impressora>, Erro>& resultado) {
            if (*cancelar_) {
                Terminar(ErroCancelado());
            } else if (const auto* erro = std::get_if<Erro>(&resultado)) {
                Terminar(*erro);
            } else {
                Escolher(std::get<std::vector<Impressora>>(resultado), pergunta);
            }
        });
}

void ImpressaoQt::Escolher(const std::vector<Impressora>& impressoras, Pergunta pergunta) {
    const auto* const padrao = Achar(impressoras, true, &Impressora::padrao);
    if (pergunta == Pergunta::SemImpressoraPadrao && padrao != nullptr) {
        opcoes_ = {.impressora = padrao->nome};
        EnviarPaginas({});
    } else {
        AbrirDialogo(impressoras, pergunta);
    }
}

void ImpressaoQt::AbrirDialogo(const std::vector<Impressora>& impressoras, Pergunta pergunta) {
    using Alcance = DialogoImpressao::Alcance;
    Dizer({});
    dialogo_ = new DialogoImpressao(
        janela_, impressoras, documento_.paginas,
        pergunta == Pergunta::Sempre ? Alcance::UmDocumento : Alcance::VariosDocumentos);
    dialogo_->Preferir(ParaQt(LerHabito(preferencias_, Secao, Chave)));
    Ligar(dialogo_.data(), &QDialog::rejected, this, [this] { Terminar(ErroCancelado()); });
    Ligar(dialogo_.data(), &QDialog::accepted, this, [this] {
        const auto escolha = dialogo_->Escolha();
        GravarHabito(preferencias_, Secao, Chave, escolha.opcoes.impressora);
        opcoes_ = escolha.opcoes;
        EnviarPaginas(escolha.paginas);
    });
    if (dialogoBloqueia_) {
        dialogo_->setModal(true);
        dialogo_->show();
    } else {
        dialogo_->open();
    }
}

void ImpressaoQt::Enviar(const DocumentoImpresso& documento, const OpcoesDeImpressao& opcoes) {
    Comecar(documento, {});
    opcoes_ = opcoes;
    EnviarPaginas({});
}

// None stands for all of them, and the document goes as it is.
void ImpressaoQt::EnviarPaginas(const std::vector<int>& paginas) {
    Dizer(u"Enviando à impressora…"_s);
    // The bytes stay alive as long as the thread needs them, whatever becomes of the window.
    EmSegundoPlano(
        this,
        [documento = documento_, paginas, opcoes = opcoes_, cancelar = cancelar_] {
            const bool inteiro =
                paginas.empty() || (std::ssize(paginas) == documento.paginas &&
                                    std::is_sorted(paginas.begin(), paginas.end()));
            const auto partes = inteiro ? std::string() : EscolherPaginas(*documento.pdf, paginas);
            return EnviarTrabalho({.pdf = inteiro ? *documento.pdf : partes,
                                   .titulo = documento.titulo,
                                   .opcoes = opcoes},
                                  cancelar.get());
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
    if (dialogo_ != nullptr) {
        dialogo_->reject();
    }
}

void ImpressaoQt::Dizer(const QString& situacao) const {
    if (aoMudar) {
        aoMudar(situacao);
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
                                   Pergunta pergunta, std::optional<OpcoesDeImpressao>& opcoes) {
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
    impressao.aoMudar = [&](const QString& situacao) { aviso.setLabelText(situacao); };
    Ligar(&aviso, &QProgressDialog::canceled, &impressao, [&] {
        impressao.Cancelar();
        aviso.setLabelText(u"Cancelando…"_s);
    });
    QElapsedTimer tempo;
    tempo.start();
    QTimer relogio;
    relogio.start(100);
    if (opcoes) {
        impressao.Enviar(documento, *opcoes);
    } else {
        impressao.Imprimir(documento, pergunta);
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
    opcoes = impressao.opcoes_;
}

}  // namespace tarvo
