// SPDX-License-Identifier: MIT
#pragma once

#include <QBuffer>
#include <QCache>
#include <QImage>
#include <QPdfDocument>
#include <QThreadPool>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvo {

// A part of a page at some magnification, in device pixels.
struct Recorte {
    int pagina = 0;  // from 0
    QSize escala;    // the whole page
    QRect area;      // the part of it
    friend bool operator==(const Recorte&, const Recorte&) = default;
};
size_t qHash(const Recorte& recorte, size_t semente = 0);

// A PDF document and the pictures of its pages, painted on a thread of its own, the most wanted
// first. Belongs to the user-interface thread.
class PintorPaginas {
  public:
    explicit PintorPaginas(std::shared_ptr<const std::string> pdf);
    ~PintorPaginas();
    PintorPaginas(const PintorPaginas&) = delete;
    PintorPaginas& operator=(const PintorPaginas&) = delete;

    [[nodiscard]] const std::shared_ptr<const std::string>& Pdf() const { return pdf_; }
    [[nodiscard]] QPdfDocument& Documento() { return documento_; }
    [[nodiscard]] int Paginas() const { return documento_.pageCount(); }
    // Size of every page, points.
    [[nodiscard]] QSizeF Pontos() const { return pontos_; }

    // The picture, or null while it is not painted; valid until the next call.
    const QImage* Pronta(const Recorte& recorte) const { return imagens_.object(recorte); }
    // What the view misses now; earlier wishes are forgotten.
    void PedirParaVista(std::vector<Recorte> recortes);
    // Painted when the view has all it wants; of many, the latest ones.
    void PedirMiniatura(const Recorte& recorte);

    // Told of each picture that is ready.
    std::function<void(const Recorte&)> aoPintar;

  private:
    void Avancar();
    std::optional<Recorte> Proximo();
    void Receber(const QImage& imagem);

    std::shared_ptr<const std::string> pdf_;
    QByteArray bytes_;  // pdf_'s, not copied
    QBuffer leitura_;
    QPdfDocument documento_;
    QSizeF pontos_;
    mutable QCache<Recorte, QImage> imagens_;
    std::vector<Recorte> paraVista_;
    std::vector<Recorte> miniaturas_;
    std::optional<Recorte> emCurso_;
    QObject contexto_;    // what is being painted is of no use without it
    QThreadPool thread_;  // a single one, which ends before the document goes
};

}  // namespace tarvo
