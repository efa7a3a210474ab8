#pragma once

#include <QPointer>
#include <QWidget>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "data/CodigosDeErros.h"

class QPrintDialog;

namespace tarvo {

struct TrabalhoImpressao;

// A document on its way to the printer.
struct DocumentoImpresso {
    std::shared_ptr<const std::string> pdf;
    std::string titulo;  // the job's name
    int paginas = 1;
};

// Prints from a window without ever freezing it: whatever asks the print service runs on another
// thread. One printing at a time; releasing the object gives it up.
class ImpressaoQt final : public QObject {
  public:
    explicit ImpressaoQt(QWidget* janela);
    ~ImpressaoQt() override;

    // Asks for printer, pages and copies with the system's print dialog, then prints.
    void Perguntar(const DocumentoImpresso& documento);
    // Prints at once on the user's default printer.
    void Enviar(const DocumentoImpresso& documento);
    void Cancelar();
    [[nodiscard]] bool EmCurso() const { return emCurso_; }

    // Told what is going on, and at last, exactly once, how it ended: without an error, with error
    // 18 when the user cancelled, or with another.
    std::function<void(const QString&)> aoMudar;
    std::function<void(const std::optional<Erro>&)> aoTerminar;

    // Prints and returns once the job is in the queue; the user can cancel meanwhile. Errors as
    // FilaImpressao.h states, 18 when cancelled.
    static void ImprimirEEsperar(QWidget* janela, const DocumentoImpresso& documento,
                                 bool perguntar);

  private:
    void Comecar(const DocumentoImpresso& documento, const QString& situacao);
    void AbrirDialogo();
    void AceitarDialogo(QPrintDialog& dialogo);
    void Enviar(TrabalhoImpressao trabalho);
    void Terminar(const std::optional<Erro>& erro);

    QWidget* janela_;
    DocumentoImpresso documento_;
    std::shared_ptr<std::atomic<bool>> cancelar_;
    QPointer<QPrintDialog> dialogo_;
    bool emCurso_ = false;
    bool dialogoBloqueia_ = false;  // all windows, not only janela_
};

}  // namespace tarvo
