// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <string>

#include "data/ObjetoDeC.h"
#include "desktop/printing/LibCups.h"

namespace tarvo {

// Error 482.
[[noreturn]] void LancarErroImpressora(const std::string& descricao);
// Error 18 when the user has cancelled; null is nobody.
void LancarSeCancelado(const std::atomic<bool>* cancelar);

// A connection to the print service, with the patience of one operation and for its thread alone.
class ConexaoCups {
  public:
    // cancelar, which may be null, outlives the connection. Error 482 when nobody answers.
    explicit ConexaoCups(const std::atomic<bool>* cancelar);

    [[nodiscard]] http_t* Http() const { return http_.get(); }

    // Error 482 when the service has been silent too long, 18 when the user has cancelled.
    void LancarSeCalado() const;
    // The service's last refusal, or its silence, as an error.
    [[noreturn]] void Lancar(const std::string& operacao) const;

  private:
    static int ContinuarEsperando(http_t* http, void* conexao);

    const std::atomic<bool>* cancelar_;
    ObjetoDeC<LiberarConexao> http_;
    int segundosSemResposta_ = 0;
};

}  // namespace tarvo
