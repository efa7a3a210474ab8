// SPDX-License-Identifier: MIT
#include "desktop/printing/ConexaoCups.h"

#include "data/CodigosDeErros.h"

namespace tarvo {

namespace {

constexpr int EsperaConexao = 5'000;  // ms
constexpr int EsperaResposta = 10;    // s, in steps of one

}  // namespace

void LancarErroImpressora(const std::string& descricao) {
    throw Erro(NumeroErro::ErroImpressora, descricao);
}

void LancarSeCancelado(const std::atomic<bool>* cancelar) {
    if (cancelar != nullptr && cancelar->load()) {
        throw Erro(NumeroErro::Cancelado, "Impressão cancelada.");
    }
}

ConexaoCups::ConexaoCups(const std::atomic<bool>* cancelar) : cancelar_(cancelar) {
    // Nobody is there to type a password into a terminal.
    cupsSetPasswordCB2([](const char*, http_t*, const char*, const char*,
                          void*) -> const char* { return nullptr; },
                       nullptr);
    http_.reset(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                             EsperaConexao, nullptr));
    if (http_ == nullptr) {
        LancarErroImpressora(
            "O serviço de impressão não está acessível. Verifique se o CUPS está em execução.");
    }
    httpSetTimeout(http_.get(), 1.0, ContinuarEsperando, this);
}

void ConexaoCups::LancarSeCalado() const {
    if (segundosSemResposta_ >= EsperaResposta) {
        LancarErroImpressora("O serviço de impressão não respondeu.");
    }
    LancarSeCancelado(cancelar_);
}

void ConexaoCups::Lancar(const std::string& operacao) const {
    LancarSeCalado();
    LancarErroImpressora(operacao + ": " + cupsLastErrorString() + ".");
}

int ConexaoCups::ContinuarEsperando(http_t*, void* conexao) {
    auto& esta = *static_cast<ConexaoCups*>(conexao);
    ++esta.segundosSemResposta_;
    const bool cancelado = esta.cancelar_ != nullptr && esta.cancelar_->load();
    return !cancelado && esta.segundosSemResposta_ < EsperaResposta ? 1 : 0;
}

}  // namespace tarvo
