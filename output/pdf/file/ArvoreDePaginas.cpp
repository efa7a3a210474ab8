// SPDX-License-Identifier: MIT
#include "output/pdf/file/ArvoreDePaginas.h"

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

int ArvoreDePaginas::Acrescentar(int pagina) {
    if (quantas_ % PaginasPorFolha == 0) {
        FecharFolha();
        folha_ = escritor_.Reservar();
        folhas_ += Referencia(folha_) + " ";
    }
    filhas_ += Referencia(pagina) + " ";
    ++quantas_;
    return folha_;
}

int ArvoreDePaginas::Terminar() {
    FecharFolha();
    escritor_.Objeto(
        raiz_, "<</Type/Pages/Count " + std::to_string(quantas_) + "/Kids[" + folhas_ + "]>>");
    return raiz_;
}

void ArvoreDePaginas::FecharFolha() {
    if (filhas_.empty()) {
        return;
    }
    const auto nesta = (quantas_ - 1) % PaginasPorFolha + 1;
    escritor_.Objeto(folha_, "<</Type/Pages/Parent " + Referencia(raiz_) + "/Count " +
                                 std::to_string(nesta) + "/Kids[" + filhas_ + "]>>");
    filhas_.clear();
}

}  // namespace tarvo::pdf
