// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "host/windows/ModeloDeclaracoes.h"

class QAction;
class QLineEdit;
class QStackedWidget;
class QTableView;

namespace tarvo::host {

class Recado;

// Where the user is in the list.
struct LugarNaLista {
    QString filtro;
    std::string IE;
    std::optional<std::int32_t> NroDRQ;
};

// The list of declarations with the field that searches it. What is chosen is always in sight;
// where nothing can be listed it says why, and what to do.
class ListaDeclaracoes final : public QWidget {
  public:
    // relatorios opens what is chosen and stands beside the search field too; abrirBanco is offered
    // while there is no database.
    ListaDeclaracoes(QWidget* pai, QAction& relatorios, QAction& abrirBanco);

    // Shows another list, as near that place as it has it.
    void Ler(std::shared_ptr<FonteDaLista> fonte, const LugarNaLista& lugar = {});
    // Puts the focus into the search field.
    void Localizar();
    // The row that is chosen; nothing while another one may come to be.
    [[nodiscard]] std::optional<ChaveDaLista> Escolhida() const;
    [[nodiscard]] LugarNaLista Lugar() const;
    // Goes to the declaration that many rows behind (or, negative, before) that one, taxpayers
    // without one left out; nothing when the list ends there.
    std::optional<ChaveDaLista> IrAVizinha(const std::string& IE, std::int32_t NroDRQ, int sentido);
    // "12 declarações", "3 de 12 declarações", "Procurando…"
    [[nodiscard]] QString Situacao() const;

    // To be set before the list is used: other rows are shown, or another one is chosen.
    std::function<void()> aoMudar;

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

  private:
    void CriarTabela();
    void Procurar(const QString& texto);
    void MostrarAchadas();
    void MostrarEspera();
    void MostrarFalha(const Erro& erro);
    void Desistir();
    void DizerNoLugarDaLista(const QString& texto, const QString& acao = {},
                             std::function<void()> fazer = {});
    void MedirColunas();
    void RepartirLargura();
    [[nodiscard]] int LinhaDe(const ChaveDaLista& chave) const;

    ModeloDeclaracoes modelo_;
    QAction& relatorios_;
    QAction& abrirBanco_;
    bool lida_ = false;               // a database is open
    bool porMedir_ = false;           // its columns
    bool esperando_ = false;          // and saying so
    bool abrirAoAchar_ = false;       // Enter was pressed before the answer came
    QString texto_;                   // of the rows that are shown
    std::optional<ChaveDaLista> ir_;  // where to go once the rows are there
    ChaveDaLista atual_;              // the row that was chosen last
    QTimer espera_;
    QLineEdit* campoBusca_;
    QTableView* tabela_;
    Recado* recado_;
    QStackedWidget* pilha_;
};

}  // namespace tarvo::host
