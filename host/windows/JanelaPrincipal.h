// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <memory>
#include <string>

#include "desktop/LugarDaJanela.h"
#include "desktop/preview/VisualizadorQt.h"
#include "host/windows/ListaDeclaracoes.h"

class QAction;
class QLabel;
class QMenu;

namespace tarvo::host {

class AmbienteComJanelas;
class AvisosDaDeclaracao;
class BancoAberto;
class Rodadas;

// The host's window: the taxpayers of a database and their declarations; opening one shows the
// selection dialog. Closing it closes the previews. Errors are told over the window and leave it as
// it was.
class JanelaPrincipal final : public QMainWindow {
  public:
    // ambiente outlives the window.
    explicit JanelaPrincipal(AmbienteComJanelas& ambiente);
    ~JanelaPrincipal() override;

    // Puts another database in the place of the open one and closes its previews; lugar: where its
    // list begins.
    void Abrir(const std::filesystem::path& arquivo, const LugarNaLista& lugar = {});
    // Opens what was open when the window was closed last, if it is still there.
    void Reabrir();
    // Shows the open database as it is now; previews stay. A file that was read into a copy and has
    // not changed is not read again.
    void Reler();

  protected:
    void closeEvent(QCloseEvent* evento) override;
    void dragEnterEvent(QDragEnterEvent* evento) override;
    void dropEvent(QDropEvent* evento) override;

  private:
    void CriarMenusELista();
    void EscolherArquivo();
    void Trocar(const std::filesystem::path& arquivo, const LugarNaLista& lugar);
    void Ler(const std::filesystem::path& arquivo, const LugarNaLista& lugar);
    bool RelerSeMudou();  // false: it has not
    void AtualizarEstado();
    void MostrarRecentes(QMenu& menu);
    void AbrirDeclaracao();
    void MostrarVELO();
    void Atender(Pedido pedido);
    [[nodiscard]] std::string PerguntarContribuinte();  // empty: none chosen
    void DefinirRefAtual();
    void DizerDosDados();

    AmbienteComJanelas& ambiente_;
    LugarDaJanela lugar_;
    std::unique_ptr<BancoAberto> banco_;
    std::unique_ptr<Rodadas> rodadas_;
    QAction* relatorios_ = nullptr;
    QAction* velo_ = nullptr;
    ListaDeclaracoes* lista_ = nullptr;
    QLabel* situacao_;
    QLabel* dados_;               // of when what is shown is, where it is a copy
    AvisosDaDeclaracao* avisos_;  // about what the last dialog has produced
    bool ocupada_ = false;        // Executar must not be entered twice
};

}  // namespace tarvo::host
