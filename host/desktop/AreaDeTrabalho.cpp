#include "host/desktop/AreaDeTrabalho.h"

namespace tarvo::host {

Ambiente AreaDeTrabalho::AmbienteDosRelatorios() {
    return {.visualizadores = &visualizadores_,
            .configuracoes = &configuracoes_,
            .andamento = &andamento_};
}

}  // namespace tarvo::host
