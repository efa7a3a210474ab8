// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>
#include <array>

class QMainWindow;

namespace tarvo {

// What the user can do in the preview.
enum class Acao {
    Imprimir,
    ImprimirTodos,
    Salvar,
    SalvarTodos,
    SalvarCadaUm,
    SalvarPlanilha,
    SalvarTabela,
    Atualizar,
    Fechar,
    Copiar,
    CopiarTabela,
    SelecionarPagina,
    SelecionarTudo,
    Localizar,
    LocalizarProximo,
    LocalizarAnterior,
    Ampliar,
    Reduzir,
    TamanhoReal,
    PaginaInteira,
    LarguraDaPagina,
    Continuo,
    LadoALado,
    CursorDeLeitura,
    Painel,
    EmAbas,
    TelaCheia,
    TelaSeguinte,
    TelaAnterior,
    Primeira,
    Anterior,
    Proxima,
    Ultima,
    IrParaPagina,
    DeclaracaoAnterior,
    ProximaDeclaracao,
    Atalhos,
    Quantidade,
};

// The actions of one window: one table that menus, tool bar, tool tips and the list of shortcuts
// are made from.
class AcoesDaVisualizacao {
  public:
    // Makes the actions and the window's menus.
    explicit AcoesDaVisualizacao(QMainWindow& janela);

    [[nodiscard]] QAction& operator[](Acao acao) const {
        return *acoes_.at(static_cast<std::size_t>(acao));
    }
    // Shortcut and name of every action, in a window over janela.
    static void MostrarAtalhos(QWidget* janela);

  private:
    std::array<QAction*, static_cast<std::size_t>(Acao::Quantidade)> acoes_{};
};

}  // namespace tarvo
