#include "desktop/preview/Comandos.h"

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "desktop/ApoioQt.h"
#include "desktop/Icones.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

struct Descricao {
    Comando comando;
    const char* menu;
    const char* texto;    // in the menu
    const char* atalhos;  // separated by blanks, the first one is shown
    bool marcavel;
    bool separado;  // from the command above it in the menu
    const char* icone;
};

constexpr const char* Arquivo = "&Arquivo";
constexpr const char* Editar = "&Editar";
constexpr const char* Visao = "E&xibir";
constexpr const char* Ir = "&Ir";
constexpr const char* Ajuda = "Aj&uda";

constexpr Descricao Tabela[] = {
    {Comando::Imprimir, Arquivo, "&Imprimir…", "Ctrl+P", false, false,
     "M 6 9 L 6 3 L 18 3 L 18 9 M 6 18 L 3 18 L 3 9 L 21 9 L 21 18 L 18 18 M 6 14 L 18 14 L 18 21 "
     "L 6 21 L 6 14"},
    {Comando::Salvar, Arquivo, "&Salvar como PDF…", "Ctrl+S", false, false,
     "M 12 3 L 12 15 M 7 10 L 12 15 L 17 10 M 4 16 L 4 21 L 20 21 L 20 16"},
    {Comando::Fechar, Arquivo, "&Fechar", "Ctrl+W", false, true, ""},
    {Comando::Copiar, Editar, "&Copiar", "Ctrl+C", false, false, ""},
    {Comando::SelecionarPagina, Editar, "Selecionar a &página", "Ctrl+A", false, false, ""},
    {Comando::Localizar, Editar, "&Localizar…", "Ctrl+F", false, true,
     "C 10 10 6 M 14.5 14.5 L 21 21"},
    {Comando::LocalizarProximo, Editar, "Localizar p&róximo", "F3", false, false,
     "M 5 9 L 12 16 L 19 9"},
    {Comando::LocalizarAnterior, Editar, "Localizar &anterior", "Shift+F3", false, false,
     "M 5 15 L 12 8 L 19 15"},
    {Comando::Ampliar, Visao, "&Ampliar", "Ctrl++ Ctrl+=", false, false,
     "C 10 10 7 M 15.5 15.5 L 21 21 M 7 10 L 13 10 M 10 7 L 10 13"},
    {Comando::Reduzir, Visao, "&Reduzir", "Ctrl+-", false, false,
     "C 10 10 7 M 15.5 15.5 L 21 21 M 7 10 L 13 10"},
    {Comando::TamanhoReal, Visao, "&Tamanho real", "Ctrl+0", false, false, ""},
    {Comando::PaginaInteira, Visao, "&Página inteira", "Ctrl+1", true, true,
     "M 6 3 L 18 3 L 18 21 L 6 21 L 6 3 M 12 6 L 12 18 M 10 8 L 12 6 L 14 8 M 10 16 L 12 18 "
     "L 14 16"},
    {Comando::LarguraDaPagina, Visao, "&Largura da página", "Ctrl+2", true, false,
     "M 4 4 L 20 4 L 20 20 L 4 20 L 4 4 M 7 12 L 17 12 M 9 10 L 7 12 L 9 14 M 15 10 L 17 12 "
     "L 15 14"},
    {Comando::Continuo, Visao, "Páginas &contínuas", "Ctrl+3", true, true,
     "M 6 2 L 6 9 L 18 9 L 18 2 M 6 22 L 6 14 L 18 14 L 18 22"},
    {Comando::Miniaturas, Visao, "&Miniaturas", "F9", true, false,
     "M 3 4 L 21 4 L 21 20 L 3 20 L 3 4 M 9 4 L 9 20 M 5 8 L 7 8 M 5 12 L 7 12 M 5 16 L 7 16"},
    {Comando::Primeira, Ir, "&Primeira página", "Home Ctrl+Home", false, false,
     "M 6 5 L 6 19 M 18 5 L 10 12 L 18 19"},
    {Comando::Anterior, Ir, "Página &anterior", "PgUp", false, false, "M 16 5 L 8 12 L 16 19"},
    {Comando::Proxima, Ir, "Pró&xima página", "PgDown", false, false, "M 8 5 L 16 12 L 8 19"},
    {Comando::Ultima, Ir, "&Última página", "End Ctrl+End", false, false,
     "M 18 5 L 18 19 M 6 5 L 14 12 L 6 19"},
    {Comando::IrParaPagina, Ir, "Ir para a pá&gina…", "Ctrl+G", false, true, ""},
    {Comando::Atalhos, Ajuda, "Atalhos do &teclado", "F1", false, false, ""},
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

Comandos::Comandos(QMainWindow& janela, const std::function<void(Comando)>& acao) {
    QMenu* menu = nullptr;
    const char* titulo = nullptr;
    for (const auto& descricao : Tabela) {
        if (menu == nullptr || titulo != descricao.menu) {
            titulo = descricao.menu;
            menu = janela.menuBar()->addMenu(ParaQt(titulo));
        }
        if (descricao.separado) {
            menu->addSeparator();
        }
        auto* nova = menu->addAction(IconeDeTracos(descricao.icone), ParaQt(descricao.texto));
        nova->setIconText(SemMnemonico(descricao.texto));
        nova->setToolTip(nova->iconText() + u" ("_s + AtalhoMostrado(descricao) + u")"_s);
        nova->setShortcuts(Atalhos(descricao));
        nova->setCheckable(descricao.marcavel);
        nova->setIconVisibleInMenu(false);
        QObject::connect(nova, &QAction::triggered, &janela,
                         [acao, comando = descricao.comando] { acao(comando); });
        acoes_.at(static_cast<std::size_t>(descricao.comando)) = nova;
    }
}

QString Comandos::ListaDeAtalhos() {
    QString linhas;
    for (const auto& descricao : Tabela) {
        linhas += u"<tr><td><b>%1</b>&nbsp;&nbsp;</td><td>%2</td></tr>"_s.arg(
            AtalhoMostrado(descricao).toHtmlEscaped(), SemMnemonico(descricao.texto));
    }
    return u"<table>"_s + linhas + u"</table>"_s;
}

}  // namespace tarvo
