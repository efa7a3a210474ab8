// SPDX-License-Identifier: MIT
#include "review/Revisao.h"

#include "tests/support/BancoSorteado.h"
#include "tests/support/Roteiro.h"

namespace tarvo::apoio {
namespace {

Roteiro::Respostas Dizer(const std::vector<Achado>& achados) {
    Roteiro::Respostas textos;
    for (const Achado& achado : achados) {
        textos.push_back(TextoDoAchado(achado));
    }
    return textos;
}

// TAXPAYER DECLARATION [REPORTS [PERIOD]], "-" for none; reports as "10,14".
PedidoDeRevisao Pedido(const std::string& argumentos, std::optional<ConfiguracaoFixa>& periodo) {
    const auto [IE, NroDRQ, relatorios, mes] =
        Palavras<std::string, std::string, std::string, std::string>(argumentos);
    PedidoDeRevisao pedido;
    if (IE != "-") {
        pedido.IE = IE;
        pedido.NroDRQ = std::stoi(NroDRQ);
    }
    std::istringstream lista(relatorios == "-" ? "" : relatorios);
    for (std::string codigo; std::getline(lista, codigo, ',');) {
        pedido.relatorios.push_back(codigo);
    }
    if (!mes.empty()) {
        pedido.configuracoes = &periodo.emplace(mes);
    }
    return pedido;
}

TEST(Revisao, NamesWhatItsRoteiroTells) {
    Roteiro roteiro;
    const auto revisar = [&](const std::string& argumentos) {
        std::optional<ConfiguracaoFixa> periodo;
        return Dizer(Revisar(*roteiro.Banco(), Pedido(argumentos, periodo)));
    };
    roteiro.Ensinar("revisar", revisar);
    // Reviews reports 10 and 14 of a new database whose declaration is changed.
    roteiro.Ensinar("mudar", [&](const std::string& mudanca) {
        roteiro.Renovar();
        roteiro.Banco().Executar("update tblDRQ set " + mudanca);
        return revisar("1 1 10,14");
    });
    roteiro.Ensinar("revisar-banco",
                    [&](const auto&) { return Dizer(RevisarBanco(*roteiro.Banco())); });
    roteiro.Ensinar("sem-chaves", [&](const auto&) {
        roteiro.Banco().Executar(TabelasSemChaves);
        return Roteiro::Respostas();
    });
    roteiro.Conferir("review/revisao.txt");
}

}  // namespace
}  // namespace tarvo::apoio
