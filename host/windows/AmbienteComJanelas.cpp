#include "host/windows/AmbienteComJanelas.h"

namespace tarvo::host {

Ambiente AmbienteComJanelas::DosRelatorios() {
    return {.visualizadores = &visualizadores_,
            .configuracoes = &configuracoes_,
            .andamento = &andamento_};
}

}  // namespace tarvo::host
