// SPDX-License-Identifier: MIT
#include "dispatch/RevisorDosRelatorios.h"

#include "data/CodigosDeErros.h"
#include "data/Procura.h"
#include "dispatch/Catalogo.h"
#include "review/Revisao.h"

namespace tarvo {

std::vector<std::string> RevisorDosRelatorios::Rever(BancoDados& banco, std::string_view classe,
                                                     const std::string& IE,
                                                     std::optional<std::int32_t> NumeroDRQ) {
    const auto* const entrada = Achar(Catalogo(), classe, &EntradaCatalogo::classe);
    const std::string_view codigo = entrada != nullptr ? entrada->codigo : "VELO";
    std::vector<std::string> avisos;
    try {
        for (const Achado& achado : Revisar(banco, {.IE = IE,
                                                   .NroDRQ = NumeroDRQ,
                                                   .relatorios = {std::string(codigo)},
                                                   .configuracoes = &configuracoes_})) {
            avisos.push_back(TextoDoAchado(achado));
        }
    } catch (const Erro& erro) {
        if (erro.Numero() == NumeroErro::Cancelado) {
            throw;
        }
        avisos.push_back("os dados não puderam ser revistos: " + erro.Descricao());
    }
    return avisos;
}

}  // namespace tarvo
