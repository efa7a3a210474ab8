// SPDX-License-Identifier: MIT
#include "desktop/preview/BuscaTexto.h"

#include <QElapsedTimer>
#include <QPdfSelection>

#include "desktop/Ligacao.h"

namespace tarvo {

namespace {

constexpr int FatiaDeTempo = 10;  // ms

}  // namespace

BuscaTexto::BuscaTexto(QPdfDocument& documento)
    : documento_(documento), achados_(static_cast<std::size_t>(documento.pageCount())) {
    lidas_ = Paginas();
    passo_.setInterval(0);
    Ligar(&passo_, &QTimer::timeout, &passo_, [this] { AvancarALeitura(); });
}

QString BuscaTexto::Dobrar(const QString& texto, std::vector<int>* posicoes, bool exata) {
    QString dobrado;
    dobrado.reserve(texto.size());
    for (int i = 0; i < texto.size(); ++i) {
        QChar c = texto[i];
        while (!exata && c.decompositionTag() == QChar::Canonical) {
            c = c.decomposition().at(0);
        }
        const bool acento = !exata && c.category() == QChar::Mark_NonSpacing;
        if (acento || (c.isSpace() && dobrado.endsWith(u' '))) {
            continue;
        }
        dobrado += c.isSpace() ? QChar(u' ') : exata ? c : c.toCaseFolded();
        if (posicoes != nullptr) {
            posicoes->push_back(i);
        }
    }
    return dobrado;
}

void BuscaTexto::Procurar(const QString& texto, int pagina, bool exata) {
    texto_ = texto;
    exata_ = exata;
    // The page's letters are whole ones.
    procurado_ =
        Dobrar(exata ? texto.normalized(QString::NormalizationForm_C) : texto, nullptr, exata);
    primeira_ = pagina;
    total_ = 0;
    achados_.assign(achados_.size(), {});
    atual_.reset();
    marcas_.clear();
    paginasAMarcar_.clear();
    const bool nada = procurado_.trimmed().isEmpty();
    lidas_ = nada ? Paginas() : 0;
    if (nada) {
        passo_.stop();
    } else {
        passo_.start();
    }
    Avisar(false);
}

// What the user looks at comes first: finding the place of a hit takes about as long as reading a
// page, and a page may have hundreds.
void BuscaTexto::AvancarALeitura() {
    QElapsedTimer tempo;
    tempo.start();
    bool novoAtual = false;
    while (tempo.elapsed() < FatiaDeTempo && !(Terminada() && paginasAMarcar_.empty())) {
        if (!paginasAMarcar_.empty()) {
            MarcarUm();
        } else {
            novoAtual = LerUma() || novoAtual;
        }
    }
    if (Terminada() && paginasAMarcar_.empty()) {
        passo_.stop();
    }
    Avisar(novoAtual);
}

// True when the page has brought the current hit.
bool BuscaTexto::LerUma() {
    const int pagina = (primeira_ + lidas_) % Paginas();
    auto achados = LerPagina(pagina);
    const bool novoAtual = !atual_ && !achados.empty();
    if (novoAtual) {
        atual_ = {pagina, 0};
    }
    total_ += static_cast<int>(achados.size());
    achados_[static_cast<std::size_t>(pagina)] = std::move(achados);
    ++lidas_;
    return novoAtual;
}

void BuscaTexto::MarcarUm() {
    const int pagina = paginasAMarcar_.back();
    const auto& achados = achados_[static_cast<std::size_t>(pagina)];
    auto& marcadas = marcas_[pagina];
    if (marcadas.achados < achados.size()) {
        marcadas.lugares += Marca(achados[marcadas.achados++]);
    } else {
        paginasAMarcar_.pop_back();
    }
}

std::vector<BuscaTexto::Achado> BuscaTexto::LerPagina(int pagina) const {
    std::vector<int> posicoes;
    const QString texto = Dobrar(documento_.getAllText(pagina).text(), &posicoes, exata_);
    std::vector<Achado> achados;
    for (qsizetype i = texto.indexOf(procurado_); i >= 0;
         i = texto.indexOf(procurado_, i + procurado_.size())) {
        const int inicio = posicoes[static_cast<std::size_t>(i)];
        const int fim = posicoes[static_cast<std::size_t>(i + procurado_.size() - 1)];
        achados.push_back({pagina, inicio, fim - inicio + 1});
    }
    return achados;
}

std::optional<BuscaTexto::Achado> BuscaTexto::Atual() const {
    if (!atual_) {
        return std::nullopt;
    }
    return achados_[static_cast<std::size_t>(atual_->first)].at(
        static_cast<std::size_t>(atual_->second));
}

int BuscaTexto::Ordem() const {
    if (!atual_) {
        return 0;
    }
    std::size_t antes = 0;
    for (int p = 0; p < atual_->first; ++p) {
        antes += achados_[static_cast<std::size_t>(p)].size();
    }
    return static_cast<int>(antes) + static_cast<int>(atual_->second) + 1;
}

void BuscaTexto::Mover(int sentido) {
    if (!atual_) {
        return;
    }
    auto& pagina = atual_->first;
    auto& indice = atual_->second;
    const auto achados = [&] { return std::ssize(achados_[static_cast<std::size_t>(pagina)]); };
    for (indice += sentido; indice < 0 || indice >= achados();) {
        pagina = (pagina + Paginas() + sentido) % Paginas();
        indice = sentido > 0 ? 0 : achados() - 1;
    }
    Avisar(true);
}

QList<QPolygonF> BuscaTexto::Marcas(int pagina) {
    const auto& marcadas = marcas_[pagina];
    if (marcadas.achados < achados_[static_cast<std::size_t>(pagina)].size()) {
        std::erase(paginasAMarcar_, pagina);
        paginasAMarcar_.push_back(pagina);
        passo_.start();
    }
    return marcadas.lugares;
}

QList<QPolygonF> BuscaTexto::MarcaAtual() const {
    const auto atual = Atual();
    return atual ? Marca(*atual) : QList<QPolygonF>();
}

QList<QPolygonF> BuscaTexto::Marca(const Achado& achado) const {
    return documento_.getSelectionAtIndex(achado.pagina, achado.inicio, achado.tamanho).bounds();
}

void BuscaTexto::Avisar(bool novoAtual) const {
    if (aoMudar) {
        aoMudar(novoAtual);
    }
}

}  // namespace tarvo
