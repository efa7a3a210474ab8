// SPDX-License-Identifier: MIT
#include "reports/ReferenciaAtual.h"

#include "data/CodigosDeErros.h"

namespace tarvo {

Data DataDeReferencia(std::string_view mesAno) {
    const auto mes = Data::DeMesAno(mesAno);
    if (!mes) {
        LancarTipoIncompativel(mesAno, "mês/ano da referência atual");
    }
    return Data::DeSerial(mes->Serial() + 19);
}

bool ReferenciaUsaCFOPsNovos(const Configuracoes* configuracoes) {
    return DataDeReferencia(configuracoes == nullptr ? "" : LerRefAtual(*configuracoes)) >
           DataDeReferencia("12/2002");
}

}  // namespace tarvo
