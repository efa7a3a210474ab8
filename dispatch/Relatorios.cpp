#include "dispatch/Relatorios.h"

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "data/Funcoes.h"
#include "dispatch/Catalogo.h"
#include "dispatch/frmImpressaoRelatorios.h"

namespace tarvo {

Relatorios::Relatorios(const Ambiente& ambiente, JanelaSelecao& janela)
    : Relatorios(ambiente, janela, Catalogo()) {}

Relatorios::Relatorios(const Ambiente& ambiente, JanelaSelecao& janela,
                       std::span<const EntradaCatalogo> catalogo)
    : janela_(janela), catalogo_(catalogo.data()) {
    relatorios_.reserve(catalogo.size());
    for (const auto& entrada : catalogo) {
        relatorios_.push_back(entrada.criar != nullptr ? entrada.criar(ambiente) : nullptr);
    }
}

Relatorios::~Relatorios() {
    for (auto& relatorio : relatorios_) {
        relatorio.reset();
    }
}

void Relatorios::Executar(BancoDados& BancoDados, const std::string& IE, std::int32_t NumeroDRQ,
                          std::int32_t OpcoesSelecionadas) {
    OcultarTodos();
    frmImpressaoRelatorios dialogo({catalogo_, relatorios_.size()});
    auto& lista = dialogo.lstSelecao;
    const auto opcoes = static_cast<std::uint32_t>(OpcoesSelecionadas);
    for (std::size_t i = 0; i < lista.Quantidade(); ++i) {
        lista.Selecionar(i, (opcoes >> i & 1U) != 0);
    }
    if (!ReferenciaDesde2002(BancoDados, NumeroDRQ)) {
        lista.Remover(EntradaDesde2002);
    }
    lista.Focar(0);
    dialogo.ExibirModal(janela_);
    if (dialogo.lngModoSaida != ModoSaida::Visualizar &&
        dialogo.lngModoSaida != ModoSaida::Imprimir) {
        return;
    }
    for (std::size_t i = 0; i < lista.Quantidade(); ++i) {
        if (lista.Selecionada(i)) {
            Produzir(dialogo, lista.Relatorio(i), BancoDados, IE, NumeroDRQ);
        }
    }
}

bool Relatorios::ReferenciaDesde2002(BancoDados& BancoDados, std::int32_t NumeroDRQ) {
    const auto declaracao =
        BancoDados.OpenRecordset(ConsultaRef1(NumeroDRQ), TipoRecordset::ForwardOnly);
    return DataCampo(declaracao->Fields("Ref1")).Ano() >= 2002;
}

void Relatorios::OcultarTodos() {
    for (const auto& relatorio : relatorios_) {
        if (relatorio != nullptr) {
            relatorio->Ocultar();
        }
    }
}

void Relatorios::Produzir(const frmImpressaoRelatorios& dialogo, std::size_t indice,
                          BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) {
    const auto& relatorio = relatorios_.at(indice);
    if (relatorio == nullptr) {
        throw Erro(NumeroErro::AcaoNaoSuportada, "O relatório \"" +
                                                     std::string(catalogo_[indice].rotulo) +
                                                     "\" não está disponível nesta versão.");
    }
    relatorio->Construir(banco, IE, NumeroDRQ);
    if (dialogo.lngModoSaida == ModoSaida::Visualizar) {
        relatorio->Exibir();
    } else if (dialogo.lngModoSaida == ModoSaida::Imprimir) {
        relatorio->Imprimir();
    }
}

}  // namespace tarvo
