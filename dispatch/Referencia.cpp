#include "dispatch/Referencia.h"

#include "data/Consultas.h"
#include "data/Funcoes.h"

namespace tarvo {

bool ReferenciaDesde2002(BancoDados& BancoDados, std::int32_t NumeroDRQ) {
    const auto declaracao =
        BancoDados.OpenRecordset(ConsultaRef1(NumeroDRQ), TipoRecordset::ForwardOnly);
    return DataCampo(declaracao->Fields("Ref1")).Ano() >= 2002;
}

}  // namespace tarvo
