#include "desktop/preview/SelecaoDeCelulas.h"

#include "desktop/preview/CelulasDeTexto.h"

namespace tarvo {

namespace {

// A rectangle without extent touches no cell.
constexpr QSizeF Ponta(0.01, 0.01);

}  // namespace

void SelecaoDeCelulas::Mostrar(const CelulasDeTexto* celulas) {
    celulas_ = celulas;
    area_.reset();
}

bool SelecaoDeCelulas::Comecar(int pagina, const QPointF& ponto) {
    pagina_ = pagina;
    inicio_ = ponto;
    const bool havia = area_.has_value();
    area_.reset();
    return havia;
}

bool SelecaoDeCelulas::Estender(const QPointF& ponto) {
    constexpr double Intencao = 3;  // points
    const QRectF area = QRectF(inicio_, ponto).normalized();
    if (celulas_ == nullptr || (Vazia() && area.width() + area.height() <= Intencao)) {
        return false;
    }
    area_ = QRectF(area.topLeft(), area.size() + Ponta);
    return true;
}

bool SelecaoDeCelulas::SelecionarCelula(int pagina, const QPointF& ponto) {
    const QRectF area(ponto, Ponta);
    if (celulas_ == nullptr || celulas_->Caixas(pagina, area).empty()) {
        return false;
    }
    SelecionarArea(pagina, area);
    return true;
}

void SelecaoDeCelulas::SelecionarArea(int pagina, const QRectF& area) {
    pagina_ = pagina;
    area_ = area;
}

QString SelecaoDeCelulas::Texto() const {
    return area_ && celulas_ != nullptr ? celulas_->Copiar(pagina_, *area_) : QString();
}

std::vector<QRectF> SelecaoDeCelulas::Caixas(int pagina) const {
    return area_ && celulas_ != nullptr && pagina == pagina_ ? celulas_->Caixas(pagina, *area_)
                                                             : std::vector<QRectF>();
}

}  // namespace tarvo
