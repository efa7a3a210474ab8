// SPDX-License-Identifier: MIT
#include "interface/Objetos.h"

#include "data/CodigosDeErros.h"
#include "interface/Janelas.h"
#include "reports/ReferenciaAtual.h"

namespace tarvo::c {

Objeto::Objeto(std::string_view nome)
    : nome_(nome),
      objeto_(CriarObjeto(nome,
                          {.visualizadores = &VisualizadoresSobDemanda(),
                           .configuracoes = &configuracoes_,
                           .andamento = &andamento_,
                           .revisor = &revisor_},
                          &SelecaoSobDemanda())) {}

Relatorios& Objeto::EntradaDasClasses() {
    auto* relatorios = std::get_if<std::unique_ptr<Relatorios>>(&objeto_);
    if (relatorios == nullptr) {
        RecusarOperacao();
    }
    return **relatorios;
}

Relatorio& Objeto::DeRelatorio() {
    auto* relatorio = std::get_if<std::unique_ptr<Relatorio>>(&objeto_);
    if (relatorio == nullptr) {
        RecusarOperacao();
    }
    return **relatorio;
}

void Objeto::DefinirReferencia(std::optional<std::string> mesAno) {
    if (mesAno) {
        static_cast<void>(DataDeReferencia(*mesAno));
    }
    configuracoes_ = ConfiguracoesDaChamada(doUsuario_, std::move(mesAno));
}

void Objeto::UsarImpressao() {
    static_cast<void>(ExigirAreaDeTrabalho());
    comJanelas_ = true;
}

void Objeto::UsarJanelas() {
    UsarImpressao();
    if (!ExigirAreaDeTrabalho().TemTela()) {
        throw Erro(NumeroErro::AcaoNaoSuportada, "Não há tela em que abrir janelas.");
    }
}

void Objeto::ConferirThreadDasJanelas() const {
    if (comJanelas_) {
        static_cast<void>(ExigirAreaDeTrabalho());
    }
}

void Objeto::RecusarOperacao() const {
    throw Erro(NumeroErro::MembroNaoSuportado, "A classe " + nome_ + " não tem essa operação.");
}

}  // namespace tarvo::c
