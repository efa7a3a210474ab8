#include "reports/ReferenciaAtual.h"

#include <algorithm>
#include <string>

#include "data/CodigosDeErros.h"

namespace tarvo {

namespace {

bool SaoDigitos(std::string_view texto) {
    return std::all_of(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool TemFormaDeMesAno(std::string_view texto) {
    const auto barra = texto.find('/');
    if (barra != 1 && barra != 2) {
        return false;
    }
    const auto mes = texto.substr(0, barra);
    const auto ano = texto.substr(barra + 1);
    return SaoDigitos(mes) && SaoDigitos(ano) &&
           (ano.size() == 2 || (ano.size() == 4 && ano >= "0100"));
}

}  // namespace

Data DataDeReferencia(std::string_view mesAno) {
    if (!TemFormaDeMesAno(mesAno)) {
        LancarTipoIncompativel(mesAno, "mês/ano da referência atual");
    }
    return Data::DeTexto("20/" + std::string(mesAno));
}

bool ReferenciaUsaCFOPsNovos(const Configuracoes* configuracoes) {
    const std::string mesAno =
        configuracoes == nullptr
            ? ""
            : configuracoes->Ler(AjusteRefAtual::Aplicacao, AjusteRefAtual::Secao,
                                 AjusteRefAtual::Chave, "");
    return DataDeReferencia(mesAno) > DataDeReferencia("12/2002");
}

}  // namespace tarvo
