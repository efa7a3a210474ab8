#pragma once

#include <QMainWindow>
#include <filesystem>
#include <memory>

#include "data/BancoDados.h"
#include "data/CodigosDeErros.h"
#include "desktop/dialog/JanelaSelecaoQt.h"
#include "dispatch/Relatorios.h"
#include "host/windows/ModeloDeclaracoes.h"

class QLabel;
class QLineEdit;
class QTableView;

namespace tarvo::host {

class AmbienteComJanelas;

// The host's window: the taxpayers of a database and their declarations; opening one shows the
// selection dialog. Errors are told in a box and leave the window as it was.
class JanelaPrincipal final : public QMainWindow {
  public:
    // ambiente outlives the window.
    explicit JanelaPrincipal(AmbienteComJanelas& ambiente);
    ~JanelaPrincipal() override;

    // Puts another database in the place of the open one and closes its previews.
    void Abrir(const std::filesystem::path& arquivo);

  protected:
    void closeEvent(QCloseEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    void LerGeometria();
    void CriarMenus();
    void CriarLista();
    void EscolherArquivo();
    void MostrarRecentes(QMenu& menu);
    void AbrirDeclaracao(const QModelIndex& indice);
    [[nodiscard]] std::string PerguntarContribuinte();  // empty: none chosen
    void DefinirRefAtual();
    void DizerQuantas();
    void DizerErro(const Erro& erro);

    AmbienteComJanelas& ambiente_;
    JanelaSelecaoQt selecao_;
    std::unique_ptr<BancoDados> banco_;
    std::unique_ptr<Relatorios> relatorios_;
    ModeloDeclaracoes modelo_;
    DeclaracoesFiltradas filtradas_;
    QLineEdit* campoBusca_ = nullptr;
    QTableView* lista_ = nullptr;
    QLabel* situacao_ = nullptr;
    bool ocupada_ = false;  // Executar must not be entered twice
};

}  // namespace tarvo::host
