// SPDX-License-Identifier: MIT
#include "dispatch/Relatorios.h"

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "data/Procura.h"
#include "dispatch/Catalogo.h"
#include "dispatch/frmImpressaoRelatorios.h"

namespace tarvo {

namespace {

std::vector<EntradaSelecao> CriarTodos(const Ambiente& ambiente) {
    std::vector<EntradaSelecao> entradas;
    for (const auto& entrada : Catalogo()) {
        entradas.push_back({entrada.rotulo, entrada.criar(ambiente), entrada.desde});
    }
    return entradas;
}

// The taxpayer's name; IE where the database has none. No report rests on it: a database that
// cannot tell is no error here.
std::string NomeDoContribuinte(BancoDados& banco, const std::string& IE) {
    try {
        const auto rs = banco.OpenRecordset(ConsultaContribuinte(IE), TipoRecordset::ForwardOnly);
        return rs->EOF_() ? IE : TextoCampo(rs->Fields("RazãoSocial"));
    } catch (const Erro& erro) {
        if (erro.Numero() == NumeroErro::Cancelado) {
            throw;
        }
        return IE;
    }
}

}  // namespace

Relatorios::Relatorios(const Ambiente& ambiente, JanelaSelecao& janela)
    : Relatorios(janela, CriarTodos(ambiente)) {}

Relatorios::Relatorios(JanelaSelecao& janela, std::vector<EntradaSelecao> entradas)
    : janela_(janela), entradas_(std::move(entradas)) {}

Relatorios::~Relatorios() {
    for (auto& entrada : entradas_) {
        entrada.relatorio.reset();
    }
}

void Relatorios::Executar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ,
                          std::int32_t OpcoesSelecionadas) {
    for (const auto& entrada : entradas_) {
        entrada.relatorio->Ocultar();
    }
    emProducao_ = {};
    produzidos_ = 0;
    avisos_.clear();
    frmImpressaoRelatorios dialogo;
    const Data referencia = Referencia(banco, NumeroDRQ);
    Oferecer(dialogo, OpcoesSelecionadas, referencia.Ano());
    const std::string mes = FormatarMesAno(referencia);
    dialogo.declaracao =
        NomeDoContribuinte(banco, IE) + ", DRQ " + std::to_string(NumeroDRQ) + ", " + mes;
    dialogo.nomeDeArquivo = "DRQ-" + IE + "-" + mes.substr(3) + "-" + mes.substr(0, 2);
    dialogo.ExibirModal(janela_);
    if (dialogo.lngModoSaida != ModoSaida::Visualizar &&
        dialogo.lngModoSaida != ModoSaida::Imprimir) {
        return;
    }
    const auto& lista = dialogo.lstSelecao;
    for (std::size_t i = 0; i < lista.Quantidade(); ++i) {
        if (!lista.Selecionada(i)) {
            continue;
        }
        const auto& entrada = entradas_.at(lista.Relatorio(i));
        RelatorioDeclaracao& relatorio = *entrada.relatorio;
        emProducao_ = entrada.rotulo;
        try {
            relatorio.Construir(banco, IE, NumeroDRQ);
            if (dialogo.lngModoSaida == ModoSaida::Visualizar) {
                relatorio.Exibir();
            } else if (dialogo.lngModoSaida == ModoSaida::Imprimir) {
                relatorio.Imprimir();
            }
        } catch (const Erro& erro) {
            if (erro.Numero() == NumeroErro::Cancelado) {
                relatorio.Descartar();
            }
            throw;
        }
        ++produzidos_;
        for (const std::string& aviso : relatorio.Documento().avisos) {
            if (!Contem(avisos_, aviso)) {
                avisos_.push_back(aviso);
            }
        }
    }
    emProducao_ = {};
}

Data Relatorios::Referencia(BancoDados& banco, std::int32_t NumeroDRQ) {
    const auto declaracao =
        banco.OpenRecordset(ConsultaRef1(NumeroDRQ), TipoRecordset::ForwardOnly);
    return DataCampo(declaracao->Fields("Ref1"));
}

void Relatorios::Oferecer(frmImpressaoRelatorios& dialogo, std::int32_t opcoes, int ano) const {
    auto& lista = dialogo.lstSelecao;
    auto bits = static_cast<std::uint32_t>(opcoes);
    for (const auto& entrada : entradas_) {
        lista.Acrescentar(entrada.rotulo, (bits & 1U) != 0);
        bits >>= 1U;
    }
    for (std::size_t i = entradas_.size(); i-- > 0;) {
        if (entradas_[i].desde > ano) {
            lista.Remover(i);
        }
    }
    if (lista.Quantidade() != 0) {
        lista.Focar(0);
    }
}

}  // namespace tarvo
