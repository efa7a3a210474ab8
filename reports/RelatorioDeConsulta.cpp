// SPDX-License-Identifier: MIT
#include "reports/RelatorioDeConsulta.h"

#include "data/Consultas.h"

namespace tarvo {

void RelatorioDeConsulta::Desenhar(BancoDados& banco, const std::string& IE,
                                   std::int32_t NumeroDRQ) {
    const auto identificacao =
        banco.OpenRecordset(ConsultaIdentificacao(IE, NumeroDRQ), TipoRecordset::ForwardOnly);
    const auto linhas = banco.OpenRecordset(Consulta(NumeroDRQ), TipoRecordset::ForwardOnly);
    IniciarDocumento();
    if (!identificacao->EOF_()) {
        ImprimirPaginas(banco, *identificacao, *linhas);
    }
}

}  // namespace tarvo
