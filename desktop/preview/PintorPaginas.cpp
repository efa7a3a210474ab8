// SPDX-License-Identifier: MIT
#include "desktop/preview/PintorPaginas.h"

#include <algorithm>

#include "desktop/SegundoPlano.h"

namespace tarvo {

namespace {

constexpr int MemoriaDeImagens = 256 * 1024;  // KB
constexpr std::size_t MiniaturasEmEspera = 40;

int CustoKB(const QImage& imagem) {
    return static_cast<int>(std::max<qsizetype>(1, imagem.sizeInBytes() / 1024));
}

}  // namespace

size_t qHash(const Recorte& recorte, size_t semente) {
    return qHashMulti(semente, recorte.pagina, recorte.escala.width(), recorte.area.x(),
                      recorte.area.y());
}

PintorPaginas::PintorPaginas(std::shared_ptr<const std::string> pdf)
    : pdf_(std::move(pdf)),
      bytes_(QByteArray::fromRawData(pdf_->data(), static_cast<qsizetype>(pdf_->size()))),
      leitura_(&bytes_),
      imagens_(MemoriaDeImagens) {
    leitura_.open(QIODevice::ReadOnly);
    documento_.load(&leitura_);
    pontos_ = documento_.pagePointSize(0);
    thread_.setMaxThreadCount(1);
}

PintorPaginas::~PintorPaginas() = default;

void PintorPaginas::PedirParaVista(std::vector<Recorte> recortes) {
    paraVista_ = std::move(recortes);
    Avancar();
}

void PintorPaginas::PedirMiniatura(const Recorte& recorte) {
    std::erase(miniaturas_, recorte);
    miniaturas_.push_back(recorte);
    if (miniaturas_.size() > MiniaturasEmEspera) {
        miniaturas_.erase(miniaturas_.begin());
    }
    Avancar();
}

std::optional<Recorte> PintorPaginas::Proximo() {
    for (auto* lista : {&paraVista_, &miniaturas_}) {
        std::erase_if(*lista, [this](const Recorte& r) { return imagens_.contains(r); });
        if (!lista->empty()) {
            return lista->front();
        }
    }
    return std::nullopt;
}

void PintorPaginas::Avancar() {
    if (emCurso_) {
        return;
    }
    emCurso_ = Proximo();
    if (emCurso_) {
        EmSegundoPlano(
            &contexto_, thread_,
            [this, recorte = *emCurso_] {
                QPdfDocumentRenderOptions opcoes;
                opcoes.setScaledSize(recorte.escala);
                // The component takes the rectangle's last column and row for width and height.
                opcoes.setScaledClipRect(recorte.area.adjusted(0, 0, 1, 1));
                return documento_.render(recorte.pagina, recorte.area.size(), opcoes);
            },
            [this](const std::variant<QImage, Erro>& pintado) {
                Receber(std::get<QImage>(pintado));
            });
    }
}

void PintorPaginas::Receber(const QImage& imagem) {
    const Recorte pronta = *emCurso_;
    emCurso_.reset();
    imagens_.insert(pronta, new QImage(imagem), CustoKB(imagem));
    if (aoPintar) {
        aoPintar(pronta);
    }
    Avancar();
}

}  // namespace tarvo
