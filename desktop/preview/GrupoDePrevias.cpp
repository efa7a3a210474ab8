// SPDX-License-Identifier: MIT
#include "desktop/preview/GrupoDePrevias.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <utility>

#include "data/Procura.h"
#include "desktop/ApoioQt.h"
#include "desktop/DialogoDeSalvar.h"
#include "desktop/Ligacao.h"
#include "desktop/preview/JanelaDeAbas.h"
#include "desktop/preview/JanelaVisualizacao.h"
#include "desktop/preview/PreferenciasDaVista.h"
#include "output/pdf/RenderizadorPDF.h"
#include "system/files/Arquivos.h"

namespace tarvo {

using namespace Qt::StringLiterals;

GrupoDePrevias::GrupoDePrevias(ConfiguracoesIni* preferencias)
    : preferencias_(preferencias), emAbas_(PreferenciasDaVista::Ler(preferencias).emAbas) {}

GrupoDePrevias::~GrupoDePrevias() = default;

// --- a run

void GrupoDePrevias::Comecar(Permanece permanece) {
    EncerrarAdiadas();
    permanece_ = permanece;
    nomeDeArquivo.clear();
    impressao.Comecar();
}

void GrupoDePrevias::Concluir(QWidget* janela, bool dizer) {
    permanece_ = Permanece::Nada;
    EncerrarAdiadas();
    impressao.Concluir(janela, dizer);
}

void GrupoDePrevias::EncerrarAdiadas() {
    for (auto* previa : std::exchange(adiadas_, {})) {
        previa->Encerrar();
    }
}

bool GrupoDePrevias::Adiar(JanelaVisualizacao& previa) {
    if (permanece_ != Permanece::Nada && previa.Aberta()) {
        adiadas_.push_back(&previa);
        return true;
    }
    return false;
}

void GrupoDePrevias::AoPedir(std::function<void(Pedido)> acao) {
    aoPedir_ = std::move(acao);
    for (auto* previa : abertas_) {
        previa->AtualizarEstado();
    }
}

void GrupoDePrevias::Pedir(Pedido pedido) const {
    if (const auto acao = aoPedir_) {  // which may give itself another meanwhile
        acao(pedido);
    }
}

// --- where they stand

void GrupoDePrevias::Mostrar(JanelaVisualizacao& previa) {
    std::erase(adiadas_, &previa);
    const bool fica = permanece_ != Permanece::Nada && Contem(abertas_, &previa);
    if (!Contem(abertas_, &previa)) {
        abertas_.push_back(&previa);
    }
    if (!emAbas_) {
        if (!fica) {
            previa.MostrarEmJanela();
        }
        return;
    }
    if (abas_ == nullptr) {
        abas_ = std::make_unique<JanelaDeAbas>(preferencias_);
    }
    abas_->Mostrar(previa, !fica);
}

void GrupoDePrevias::Retirar(JanelaVisualizacao& previa) {
    std::erase(abertas_, &previa);
    std::erase(adiadas_, &previa);
    if (abas_ != nullptr) {
        abas_->Retirar(previa);
    }
}

void GrupoDePrevias::DefinirEmAbas(bool emAbas, JanelaVisualizacao& naFrente) {
    if (emAbas == emAbas_) {
        return;
    }
    emAbas_ = emAbas;
    auto preferidas = PreferenciasDaVista::Ler(preferencias_);
    preferidas.emAbas = emAbas;
    preferidas.Gravar(preferencias_);
    for (auto* previa : abertas_) {
        if (!emAbas) {
            abas_->Retirar(*previa);
        }
        Mostrar(*previa);
        previa->AtualizarEstado();
    }
    Mostrar(naFrente);
}

// --- all at once

void GrupoDePrevias::ImprimirTodos(QWidget* janela) {
    std::vector<DocumentoImpresso> documentos;
    for (const auto* previa : abertas_) {
        documentos.push_back(previa->ParaImprimir());
    }
    const QPointer<QWidget> onde(janela);  // which may go while the queue is waited for
    RodadaDeImpressao todos;
    todos.Comecar();
    Proteger(janela, [&] {
        for (const auto& documento : documentos) {
            todos.Imprimir(onde, documento, Pergunta::UmaVez);
        }
    });
    todos.Concluir(onde);
}

QString GrupoDePrevias::NomeDeArquivo() const {
    return NomeSeguro(nomeDeArquivo.empty() ? u"Relatórios"_s : ParaQt(nomeDeArquivo));
}

void GrupoDePrevias::SalvarTodos(QWidget* janela) {
    PerguntarOndeSalvar(
        janela, u"Salvar todos em um PDF"_s, NomeDeArquivo(), {u"Documentos PDF (*.pdf)"_s},
        [this, janela](const QString& arquivo) {
            std::vector<SecaoPDF> secoes;
            for (const auto* previa : abertas_) {
                secoes.push_back({previa->Registrado(), previa->windowTitle().toStdString()});
            }
            GravarPDF(secoes, arquivo.toStdString());
            DizerDePassagem(janela,
                            u"%1 relatórios salvos em %2"_s.arg(secoes.size()).arg(arquivo));
        });
}

void GrupoDePrevias::SalvarCadaUm(QWidget* janela) {
    auto* dialogo = NovoDialogoDeArquivo(janela, u"Pasta para um PDF de cada relatório"_s);
    dialogo->setFileMode(QFileDialog::Directory);
    dialogo->setOption(QFileDialog::ShowDirsOnly);
    Ligar(dialogo, &QFileDialog::fileSelected, janela, [this, janela](const QString& pasta) {
        std::vector<std::pair<QString, std::shared_ptr<const std::string>>> arquivos;
        QStringList existentes;
        for (const auto* previa : abertas_) {
            const auto documento = previa->ParaImprimir();
            const auto nome =
                NomeDeArquivo() + u' ' + NomeSeguro(ParaQt(documento.titulo)) + u".pdf"_s;
            arquivos.emplace_back(QDir(pasta).filePath(nome), documento.pdf);
            existentes << (QFile::exists(arquivos.back().first) ? QStringList(nome)
                                                                : QStringList());
        }
        if (!existentes.isEmpty() &&
            QMessageBox::question(janela, u"Salvar cada um"_s,
                                  u"Já existem nesta pasta:\n%1\n\nSubstituir?"_s.arg(
                                      existentes.join(u'\n'))) != QMessageBox::Yes) {
            return;
        }
        for (const auto& [arquivo, pdf] : arquivos) {
            GravarArquivo(arquivo.toStdString(), *pdf);
        }
        DizerDePassagem(janela, u"%1 relatórios salvos em %2"_s.arg(arquivos.size()).arg(pasta));
    });
    dialogo->open();
}

}  // namespace tarvo
