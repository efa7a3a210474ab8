// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QPdfDocument>
#include <QPolygonF>
#include <QString>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

namespace tarvo {

// Text search in a document, without regard to the kind of blanks and, unless it is to be exact, to
// case and accents ("apuracao" finds "Apuração"). Reads a few pages at a time between the user's
// actions, from a given page on and around the end.
class BuscaTexto {
  public:
    struct Achado {
        int pagina = 0;  // from 0
        int inicio = 0;  // index of the first character in the page's text
        int tamanho = 0;
        friend bool operator==(const Achado&, const Achado&) = default;
    };

    // The document outlives the search.
    explicit BuscaTexto(QPdfDocument& documento);

    // Forgets the earlier search; the first hit from that page on becomes the current one. An
    // empty text only forgets.
    void Procurar(const QString& texto, int pagina, bool exata = false);
    [[nodiscard]] int Paginas() const { return static_cast<int>(achados_.size()); }
    [[nodiscard]] bool Terminada() const { return lidas_ == Paginas(); }
    [[nodiscard]] int Lidas() const { return lidas_; }  // pages
    [[nodiscard]] int Total() const { return total_; }  // hits so far
    [[nodiscard]] const QString& Texto() const { return texto_; }

    [[nodiscard]] std::optional<Achado> Atual() const;
    // The current hit's number among the hits so far, from 1; 0 without one.
    [[nodiscard]] int Ordem() const;
    // Makes the following hit the current one, or the preceding one when sentido is negative;
    // around the ends.
    void Mover(int sentido);
    // Where the hits of a page and the current hit stand, in points from the page's top-left
    // corner. A page's places are found once they were asked for; aoMudar tells when.
    QList<QPolygonF> Marcas(int pagina);
    [[nodiscard]] QList<QPolygonF> MarcaAtual() const;

    // Told when hits or marks were added or the search has ended; novoAtual when the current hit is
    // a new one, to be shown.
    std::function<void(bool novoAtual)> aoMudar;

    // The text as it is compared, and for each of its characters the index in the original.
    static QString Dobrar(const QString& texto, std::vector<int>* posicoes = nullptr,
                          bool exata = false);

  private:
    void AvancarALeitura();
    void MarcarUm();
    bool LerUma();
    std::vector<Achado> LerPagina(int pagina) const;
    [[nodiscard]] QList<QPolygonF> Marca(const Achado& achado) const;
    void Avisar(bool novoAtual) const;

    QPdfDocument& documento_;
    QTimer passo_;
    QString texto_;
    QString procurado_;  // texto_ folded
    bool exata_ = false;
    int primeira_ = 0;
    int lidas_ = 0;
    int total_ = 0;
    std::vector<std::vector<Achado>> achados_;  // by page
    std::optional<std::pair<int, std::ptrdiff_t>> atual_;
    struct Marcadas {
        std::size_t achados = 0;  // of the page's hits, those whose places are known
        QList<QPolygonF> lugares;
    };
    QHash<int, Marcadas> marcas_;      // by page
    std::vector<int> paginasAMarcar_;  // asked for and not complete; the last one first
};

}  // namespace tarvo
