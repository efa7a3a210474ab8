#include "document/CicloPaginas.h"

#include <utility>

#include "document/QuadroPagina.h"

namespace tarvo {

CicloPaginas::CicloPaginas(DocumentoRelatorio& doc, double primeiraLinha,
                           std::function<void()> imprimirCabecalho)
    : doc_(doc),
      primeiraLinha_(primeiraLinha),
      imprimirCabecalho_(std::move(imprimirCabecalho)),
      y_(primeiraLinha) {
    imprimirCabecalho_();
}

double CicloPaginas::Bloco(double limite, double altura) {
    if (y_ > Limite(limite)) {
        ImprimirRodape(doc_, 0, YRodape);
        doc_.NovaPagina();
        imprimirCabecalho_();
        y_ = primeiraLinha_;
    }
    return std::exchange(y_, y_ + altura);
}

void CicloPaginas::Encerrar() {
    ImprimirRodape(doc_, 0, YRodape);
}

}  // namespace tarvo
