// SPDX-License-Identifier: MIT
#include "interface/BancoPreenchido.h"

#include <cstdint>
#include <vector>

#include "interface/ArgumentosDaChamada.h"

namespace tarvo::c {

namespace {

Valor LerValor(const tarvo_valor& v) {
    switch (v.tipo) {
        case TARVO_NULO:
            return Nulo{};
        case TARVO_TEXTO:
            return LerTexto(v.texto, "texto");
        case TARVO_INTEIRO:
            if (!std::in_range<std::int32_t>(v.numero)) {
                LancarEstouro(std::to_string(v.numero) + " não cabe em 32 bits");
            }
            return static_cast<std::int32_t>(v.numero);
        case TARVO_MOEDA:
            return Moeda::DeDecimosMilesimos(v.numero);
        case TARVO_DATA: {
            const std::string texto = LerTexto(v.texto, "texto");
            const auto data = Data::DeIso(texto);
            if (!data) {
                LancarTipoIncompativel(texto, "data");
            }
            return *data;
        }
        case TARVO_BOOLEANO:
            return v.numero != 0;
        default:
            Recusar("tipo de valor desconhecido: " + std::to_string(v.tipo));
    }
}

}  // namespace

void BancoPreenchido::ComecarTabela(const std::string& nome, std::span<const std::string> colunas) {
    emMemoria_.Tabela(nome, colunas);
    colunas_ = colunas.size();
}

void BancoPreenchido::Acrescentar(std::span<const tarvo_valor> valores) {
    if (colunas_ == 0 || valores.size() % colunas_ != 0) {
        throw Erro(NumeroErro::OperacaoInvalida, colunas_ == 0
                                                     ? "Nenhuma tabela foi começada."
                                                     : std::to_string(valores.size()) +
                                                           " valores não são linhas inteiras de " +
                                                           std::to_string(colunas_) + " colunas.");
    }
    std::vector<Valor> linha;
    for (; !valores.empty(); valores = valores.subspan(colunas_)) {
        linha.clear();
        for (const tarvo_valor& valor : valores.first(colunas_)) {
            linha.push_back(LerValor(valor));
        }
        emMemoria_.Linha(linha);
    }
}

}  // namespace tarvo::c
