// SPDX-License-Identifier: MIT
#include "document/CicloPaginas.h"

#include <utility>

namespace tarvo {

CicloPaginas::CicloPaginas(DocumentoRelatorio& doc, double primeiraLinha,
                           std::function<void()> imprimirCabecalho, double yRodape,
                           double larguraRodape)
    : doc_(doc),
      primeiraLinha_(primeiraLinha),
      imprimirCabecalho_(std::move(imprimirCabecalho)),
      yRodape_(yRodape),
      larguraRodape_(larguraRodape),
      y_(primeiraLinha) {
    imprimirCabecalho_();
}

double CicloPaginas::Bloco(double limite, double altura) {
    if (y_ > Limite(limite)) {
        Encerrar();
        doc_.NovaPagina();
        const Trecho decoracao(doc_, Estrutura::Decoracao);
        imprimirCabecalho_();
        y_ = primeiraLinha_;
    }
    return std::exchange(y_, y_ + altura);
}

void CicloPaginas::Encerrar() {
    ImprimirRodape(doc_, 0, yRodape_, larguraRodape_);
}

}  // namespace tarvo
