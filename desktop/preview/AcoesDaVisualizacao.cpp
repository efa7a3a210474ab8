// SPDX-License-Identifier: MIT
#include "desktop/preview/AcoesDaVisualizacao.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "desktop/ApoioQt.h"
#include "desktop/Icones.h"
#include "desktop/Ligacao.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

struct Descricao {
    Acao acao;
    const char* menu;
    const char* texto;    // in the menu
    const char* atalhos;  // separated by blanks, the first one is shown
    bool marcavel = false;
    bool separada = false;  // from the action above it in the menu
    const char* icone = nullptr;
};

constexpr const char* Arquivo = "&Arquivo";
constexpr const char* Editar = "&Editar";
constexpr const char* Exibir = "E&xibir";
constexpr const char* Ir = "&Ir";
constexpr const char* Ajuda = "Aj&uda";

constexpr Descricao Tabela[] = {
    {Acao::Imprimir, Arquivo, "&Imprimir…", "Ctrl+P", false, false, "imprimir"},
    {Acao::ImprimirTodos, Arquivo, "Imprimir &todos…", "Ctrl+Shift+P"},
    {Acao::Salvar, Arquivo, "&Salvar como PDF…", "Ctrl+S", false, true, "salvar"},
    {Acao::SalvarTodos, Arquivo, "Salvar todos em &um PDF…", "Ctrl+Shift+S"},
    {Acao::SalvarCadaUm, Arquivo, "Salvar &cada um em uma pasta…", "Ctrl+Alt+S"},
    {Acao::SalvarPlanilha, Arquivo, "Salvar como pla&nilha…", "Ctrl+E", false, true},
    {Acao::SalvarTabela, Arquivo, "Salvar ta&bela como planilha…", "Ctrl+Shift+E"},
    {Acao::Atualizar, Arquivo, "&Atualizar", "F5", false, true},
    {Acao::Fechar, Arquivo, "&Fechar", "Ctrl+W", false, true},
    {Acao::Copiar, Editar, "&Copiar", "Ctrl+C"},
    {Acao::CopiarTabela, Editar, "Copiar ta&bela", "Ctrl+Shift+C"},
    {Acao::SelecionarPagina, Editar, "Selecionar a &página", "Ctrl+A"},
    {Acao::SelecionarTudo, Editar, "Selecionar &tudo", "Ctrl+Shift+A"},
    {Acao::Localizar, Editar, "&Localizar…", "Ctrl+F", false, true, "localizar"},
    {Acao::LocalizarProximo, Editar, "Localizar p&róximo", "F3", false, false, "abaixo"},
    {Acao::LocalizarAnterior, Editar, "Localizar &anterior", "Shift+F3", false, false, "acima"},
    {Acao::Ampliar, Exibir, "&Ampliar", "Ctrl++ Ctrl+=", false, false, "ampliar"},
    {Acao::Reduzir, Exibir, "&Reduzir", "Ctrl+-", false, false, "reduzir"},
    {Acao::TamanhoReal, Exibir, "&Tamanho real", "Ctrl+0"},
    {Acao::PaginaInteira, Exibir, "&Página inteira", "Ctrl+1", true, true, "pagina-inteira"},
    {Acao::LarguraDaPagina, Exibir, "Lar&gura da página", "Ctrl+2", true, false, "largura"},
    {Acao::Continuo, Exibir, "Páginas &contínuas", "Ctrl+3", true, true, "continuo"},
    {Acao::LadoALado, Exibir, "&Duas páginas lado a lado", "Ctrl+4", true},
    {Acao::CursorDeLeitura, Exibir, "C&ursor de leitura", "F7", true},
    {Acao::Painel, Exibir, "Painel &lateral", "F9", true, true, "miniaturas"},
    {Acao::EmAbas, Exibir, "Relatórios em a&bas", "Ctrl+T", true},
    {Acao::TelaCheia, Exibir, "T&ela cheia", "F11", true},
    {Acao::TelaSeguinte, Ir, "Tela &seguinte", "PgDown"},
    {Acao::TelaAnterior, Ir, "T&ela anterior", "PgUp"},
    {Acao::Primeira, Ir, "&Primeira página", "Home Ctrl+Home", false, true, "primeira"},
    {Acao::Anterior, Ir, "Página &anterior", "Ctrl+PgUp", false, false, "anterior"},
    {Acao::Proxima, Ir, "Pró&xima página", "Ctrl+PgDown", false, false, "proxima"},
    {Acao::Ultima, Ir, "&Última página", "End Ctrl+End", false, false, "ultima"},
    {Acao::IrParaPagina, Ir, "Ir para a pá&gina…", "Ctrl+G Ctrl+L", false, true},
    {Acao::DeclaracaoAnterior, Ir, "&Declaração anterior", "Alt+PgUp", false, true},
    {Acao::ProximaDeclaracao, Ir, "Pr&óxima declaração", "Alt+PgDown"},
    {Acao::Atalhos, Ajuda, "Atalhos do &teclado", "F1"},
};

QString SemMnemonico(const char* texto) {
    return ParaQt(texto).remove(u'&').remove(u'…');
}

QList<QKeySequence> Atalhos(const Descricao& descricao) {
    QList<QKeySequence> atalhos;
    for (const auto& atalho : ParaQt(descricao.atalhos).split(u' ')) {
        atalhos << QKeySequence(atalho, QKeySequence::PortableText);
    }
    return atalhos;
}

QString AtalhoMostrado(const Descricao& descricao) {
    return Atalhos(descricao).first().toString(QKeySequence::NativeText);
}

}  // namespace

AcoesDaVisualizacao::AcoesDaVisualizacao(QMainWindow& janela) {
    QMenu* menu = nullptr;
    const char* titulo = nullptr;
    for (const auto& descricao : Tabela) {
        if (menu == nullptr || titulo != descricao.menu) {
            titulo = descricao.menu;
            menu = janela.menuBar()->addMenu(ParaQt(titulo));
        }
        if (descricao.separada) {
            menu->addSeparator();
        }
        auto* nova = menu->addAction(ParaQt(descricao.texto));
        if (descricao.icone != nullptr) {
            nova->setIcon(IconeDeTracos(descricao.icone));
        }
        nova->setIconText(SemMnemonico(descricao.texto));
        nova->setToolTip(nova->iconText() + u" ("_s + AtalhoMostrado(descricao) + u")"_s);
        nova->setShortcuts(Atalhos(descricao));
        nova->setCheckable(descricao.marcavel);
        nova->setIconVisibleInMenu(false);
        acoes_.at(static_cast<std::size_t>(descricao.acao)) = nova;
    }
}

void AcoesDaVisualizacao::MostrarAtalhos(QWidget* janela) {
    QString linhas;
    const char* titulo = nullptr;
    for (const auto& descricao : Tabela) {
        if (titulo != descricao.menu) {
            titulo = descricao.menu;
            linhas += u"<tr><th colspan=2 align=left>%1</th></tr>"_s.arg(SemMnemonico(titulo));
        }
        linhas += u"<tr><td><b>%1</b>&nbsp;&nbsp;&nbsp;</td><td>%2</td></tr>"_s.arg(
            AtalhoMostrado(descricao).toHtmlEscaped(), SemMnemonico(descricao.texto));
    }
    auto* dialogo = new QDialog(janela);
    dialogo->setObjectName(u"atalhos"_s);
    dialogo->setAttribute(Qt::WA_DeleteOnClose);
    dialogo->setWindowTitle(u"Atalhos do teclado"_s);
    auto* lista = new QTextBrowser(dialogo);
    lista->setAccessibleName(dialogo->windowTitle());
    lista->setLineWrapMode(QTextEdit::NoWrap);
    lista->setHtml(u"<table>"_s + linhas + u"</table>"_s);
    auto* botoes = new QDialogButtonBox(QDialogButtonBox::Close, dialogo);
    Ligar(botoes, &QDialogButtonBox::rejected, dialogo, [dialogo] { dialogo->close(); });
    auto* colunas = new QVBoxLayout(dialogo);
    colunas->addWidget(lista);
    colunas->addWidget(botoes);
    // As tall as the list, as far as the screen goes.
    const QSize inteira = lista->document()->size().toSize() + QSize(80, 100);
    dialogo->resize(inteira.boundedTo(janela->screen()->availableSize() - QSize(20, 60)));
    dialogo->open();
}

}  // namespace tarvo
