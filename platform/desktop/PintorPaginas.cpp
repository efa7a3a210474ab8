#include "platform/desktop/PintorPaginas.h"

#include <algorithm>

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
    pintura_.setRenderMode(QPdfPageRenderer::RenderMode::MultiThreaded);
    pintura_.setDocument(&documento_);
    QObject::connect(&pintura_, &QPdfPageRenderer::pageRendered, &documento_,
                     [this](int, QSize, const QImage& imagem, QPdfDocumentRenderOptions,
                            quint64 pedido) { Receber(imagem, pedido); });
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
        QPdfDocumentRenderOptions opcoes;
        opcoes.setScaledSize(emCurso_->escala);
        // The component takes the rectangle's last column and row for its width and height.
        opcoes.setScaledClipRect(emCurso_->area.adjusted(0, 0, 1, 1));
        pedido_ = pintura_.requestPage(emCurso_->pagina, emCurso_->area.size(), opcoes);
    }
}

void PintorPaginas::Receber(const QImage& imagem, quint64 pedido) {
    if (!emCurso_ || pedido != pedido_) {
        return;
    }
    const Recorte pronta = *emCurso_;
    emCurso_.reset();
    imagens_.insert(pronta, new QImage(imagem), CustoKB(imagem));
    if (aoPintar) {
        aoPintar(pronta);
    }
    Avancar();
}

}  // namespace tarvo
