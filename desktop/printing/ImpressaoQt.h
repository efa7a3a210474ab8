// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/CodigosDeErros.h"
#include "desktop/printing/DialogoImpressao.h"

namespace tarvo {

class ConfiguracoesIni;

// A document on its way to the printer.
struct DocumentoImpresso {
    std::shared_ptr<const std::string> pdf;
    std::string titulo;  // the job's name
    int paginas = 1;
};

// When the user is asked before something is printed: for each document, for the first of a run, or
// where there is no default printer.
enum class Pergunta { Sempre, UmaVez, SemImpressoraPadrao };

// Prints from a window without ever freezing it: whatever asks the print service runs on another
// thread. One printing at a time; releasing the object gives it up.
class ImpressaoQt final : public QObject {
  public:
    // preferencias, which may be null, remembers the printer that the user has chosen.
    explicit ImpressaoQt(QWidget* janela, ConfiguracoesIni* preferencias = nullptr);
    ~ImpressaoQt() override;

    // Looks for the printers, asks when it is to ask, and prints: on the user's default printer
    // when nothing is asked.
    void Imprimir(const DocumentoImpresso& documento, Pergunta pergunta);
    // Prints at once.
    void Enviar(const DocumentoImpresso& documento, const OpcoesDeImpressao& opcoes);
    // Gives up, also a question that stands open.
    void Cancelar();
    [[nodiscard]] bool EmCurso() const { return emCurso_; }
    // How the last document was printed.
    [[nodiscard]] const OpcoesDeImpressao& Opcoes() const { return opcoes_; }

    // Told what is going on, and at last, exactly once, how it ended: without an error, with error
    // 18 when the user cancelled, or with another.
    std::function<void(const QString&)> aoMudar;
    std::function<void(const std::optional<Erro>&)> aoTerminar;

    // Prints and returns once the job is in the queue; the user can cancel meanwhile. Asks as
    // pergunta says unless opcoes has been chosen, and leaves there what was chosen. Errors as
    // FilaImpressao.h states, 18 when cancelled.
    static void ImprimirEEsperar(QWidget* janela, const DocumentoImpresso& documento,
                                 Pergunta pergunta, std::optional<OpcoesDeImpressao>& opcoes);

  private:
    void Comecar(const DocumentoImpresso& documento, const QString& situacao);
    void Escolher(const std::vector<Impressora>& impressoras, Pergunta pergunta);
    void AbrirDialogo(const std::vector<Impressora>& impressoras, Pergunta pergunta);
    void EnviarPaginas(const std::vector<int>& paginas);
    void Dizer(const QString& situacao) const;
    void Terminar(const std::optional<Erro>& erro);

    QWidget* janela_;
    ConfiguracoesIni* preferencias_;
    DocumentoImpresso documento_;
    OpcoesDeImpressao opcoes_;
    std::shared_ptr<std::atomic<bool>> cancelar_;
    QPointer<DialogoImpressao> dialogo_;
    bool emCurso_ = false;
    bool dialogoBloqueia_ = false;  // all windows, not only janela_
};

}  // namespace tarvo
