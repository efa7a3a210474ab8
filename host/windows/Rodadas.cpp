// SPDX-License-Identifier: MIT
#include "host/windows/Rodadas.h"

#include "data/Textos.h"
#include "desktop/Habitos.h"
#include "desktop/dialog/JanelaSelecaoQt.h"
#include "host/windows/AmbienteComJanelas.h"
#include "host/windows/AvisosDaDeclaracao.h"
#include "host/windows/Explicacao.h"

namespace tarvo::host {

namespace {

constexpr std::string_view Secao = "Selecao";
constexpr std::string_view Chave = "Marcas";  // the mask of the ticked reports, decimal

}  // namespace

Rodadas::Rodadas(AmbienteComJanelas& ambiente, QWidget& janela, AvisosDaDeclaracao& avisos)
    : ambiente_(ambiente),
      janela_(janela),
      avisos_(avisos),
      selecao_(ambiente, janela),
      relatorios_(ambiente.DosRelatorios(), selecao_),
      velo_(ambiente.DosRelatorios()) {}

std::int32_t Rodadas::Selecao::Marcas() const {
    return LerInteiro<std::int32_t>(LerHabito(&ambiente_.Preferencias(), Secao, Chave)).value_or(0);
}

void Rodadas::Selecao::ExibirModal(frmImpressaoRelatorios& dialogo) {
    ambiente_.Previas().nomeDeArquivo = dialogo.nomeDeArquivo;
    if (repetir) {
        return dialogo.cmdVisualizar();
    }
    JanelaSelecaoQt(&janela_).ExibirModal(dialogo);
    if (dialogo.lngModoSaida == ModoSaida::Nenhum) {
        return;
    }
    // What this declaration does not offer stays ticked for the others.
    const auto antes = static_cast<std::uint32_t>(Marcas());
    const auto marcas = (antes & ~dialogo.lstSelecao.Oferecidas()) | dialogo.lstSelecao.Marcadas();
    if (marcas != antes) {
        GravarHabito(&ambiente_.Preferencias(), Secao, Chave, std::to_string(marcas));
    }
}

void Rodadas::Executar(BancoDados& banco, const Declaracao& declaracao) {
    const AmbienteComJanelas::Rodada rodada(ambiente_, &janela_,
                                            MesDaDeclaracao(banco, declaracao.NroDRQ));
    selecao_.repetir = false;
    Produzir(banco, declaracao);
}

void Rodadas::Repetir(BancoDados& banco, const Declaracao& declaracao) {
    const bool mesma = ultima_ && ultima_->NroDRQ == declaracao.NroDRQ;
    const AmbienteComJanelas::Rodada rodada(ambiente_, &janela_,
                                            MesDaDeclaracao(banco, declaracao.NroDRQ),
                                            mesma ? Permanece::Paginas : Permanece::Janelas);
    selecao_.repetir = true;
    Produzir(banco, declaracao);
}

void Rodadas::Produzir(BancoDados& banco, const Declaracao& declaracao) {
    try {
        relatorios_.Executar(banco, declaracao.IE, declaracao.NroDRQ, selecao_.Marcas());
    } catch (...) {
        throw Explicar(ErroCorrente(), relatorios_.QueFalhou());
    }
    if (relatorios_.Produzidos() > 0) {
        ultima_ = declaracao;
        avisos_.Mostrar(declaracao.NroDRQ, relatorios_.Avisos());
    }
}

void Rodadas::MostrarVELO(BancoDados& banco) {
    const auto fim = ambiente_.ConcluirAndamentoNoFim();
    velo_.Ocultar();
    try {
        velo_.Construir(banco);
        velo_.Exibir();
    } catch (...) {
        throw Explicar(ErroCorrente(), "VELO");
    }
}

}  // namespace tarvo::host
