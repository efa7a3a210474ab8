#pragma once

#include <QAction>
#include <array>
#include <functional>
#include <span>

class QMainWindow;
class QToolBar;

namespace tarvo {

// The commands of the preview: one table that menus, tool bar, tool tips and the list of shortcuts
// are made from.
enum class Comando {
    Imprimir,
    Salvar,
    Fechar,
    Copiar,
    SelecionarPagina,
    Localizar,
    LocalizarProximo,
    LocalizarAnterior,
    Ampliar,
    Reduzir,
    TamanhoReal,
    PaginaInteira,
    LarguraDaPagina,
    Continuo,
    Miniaturas,
    Primeira,
    Anterior,
    Proxima,
    Ultima,
    IrParaPagina,
    Atalhos,
    Quantidade,
};

// The actions of one window, in the order of the enumeration.
class Comandos {
  public:
    // Makes the actions and the window's menus; acao is called with each command triggered.
    Comandos(QMainWindow& janela, const std::function<void(Comando)>& acao);

    [[nodiscard]] QAction& operator[](Comando comando) const {
        return *acoes_.at(static_cast<std::size_t>(comando));
    }
    // Shortcut and name of every command, as a table of rich text.
    static QString ListaDeAtalhos();

  private:
    std::array<QAction*, static_cast<std::size_t>(Comando::Quantidade)> acoes_{};
};

}  // namespace tarvo
