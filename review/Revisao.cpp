// SPDX-License-Identifier: MIT
#include "review/Revisao.h"

#include <algorithm>
#include <array>

#include "data/CodigosDeErros.h"
#include "data/Legivel.h"
#include "data/Procura.h"
#include "review/Familias.h"
#include "review/Leitura.h"

namespace tarvo {

namespace {

using namespace revisao;

using Codigos = std::array<std::string_view, 7>;  // the unused ones empty

// What reviews which reports.
struct Revisor {
    void (*revisar)(const Contexto& contexto);
    Codigos relatorios;
};

constexpr Revisor Revisores[] = {
    {RevisarCFOPs, {"02", "03", "10", "14"}},
    {RevisarInterestaduais, {"04", "05"}},
    {RevisarNotas, {"06"}},
    {RevisarMIDAXB, {"07", "08", "09"}},
    {RevisarSubitens, {"10", "14", "11", "11A", "12", "13", "15"}},
    {RevisarExportacoes, {"16"}},
    {RevisarPagamentos, {"17"}},
};

// Conditions of the data that a review names, and goes on.
bool EhDosDados(NumeroErro numero) {
    switch (numero) {
        case NumeroErro::ConversaoDeDado:
        case NumeroErro::TipoIncompativel:
        case NumeroErro::TipoIncompativelNaConsulta:
        case NumeroErro::Estouro:
        case NumeroErro::TabelaInexistente:
        case NumeroErro::ColunaDesconhecida:
        case NumeroErro::ItemNaoEncontrado:
            return true;
        default:
            return false;
    }
}

template <class Passo>
void Nomeando(Achados& achados, Passo&& passo) {
    try {
        passo();
    } catch (const Erro& erro) {
        if (!EhDosDados(erro.Numero())) {
            throw;
        }
        achados.Frase("", "a revisão não pôde ler tudo: " + Legivel(erro.Descricao(), 200));
    }
}

// The slip shows the first row of its table.
void RevisarGuia(BancoDados& banco, Achados& achados) {
    constexpr static std::string_view SoNome[] = {"Contribuinte"};
    Leitura linha(banco, "tblVELO", SoNome);
    if (linha.Fim()) {
        return;
    }
    for (linha.Proxima(); !linha.Fim(); linha.Proxima()) {
        achados.Linha("VELO", "tblVELO", "guias depois da primeira – não saem",
                      linha.Texto("Contribuinte"));
    }
}

void ExigirCodigo(const std::string& codigo) {
    const bool existe = codigo == "01" || codigo == "VELO" ||
                        std::ranges::any_of(Revisores, [&](const auto& revisor) {
                            return Contem(revisor.relatorios, codigo);
                        });
    if (codigo.empty() || !existe) {
        throw Erro(NumeroErro::ChamadaInvalida, "Não há relatório \"" + codigo + "\".");
    }
}

}  // namespace

std::vector<Achado> Revisar(BancoDados& banco, const PedidoDeRevisao& pedido) {
    std::ranges::for_each(pedido.relatorios, ExigirCodigo);
    const LeituraMantida leitura(banco, pedido.IE, pedido.NroDRQ.value_or(0));
    const bool todos = pedido.relatorios.empty();
    const std::function<bool(std::string_view)> pedidos = [&](std::string_view codigo) {
        return (todos && codigo != "VELO") || Contem(pedido.relatorios, codigo);
    };
    const bool daDeclaracao = std::ranges::any_of(Revisores, [&](const Revisor& revisor) {
        return std::ranges::any_of(revisor.relatorios, pedidos);
    });
    Achados achados(pedido.IE, pedido.NroDRQ, pedidos);
    if (!pedido.IE.empty() && (daDeclaracao || pedidos("01"))) {
        Nomeando(achados, [&] { RevisarContribuinte(banco, pedido.IE, achados); });
    }
    if (pedido.NroDRQ && daDeclaracao) {
        Declaracao declaracao;
        Nomeando(achados, [&] {
            declaracao = RevisarIdentificacao(banco, pedido.IE, *pedido.NroDRQ,
                                              pedido.configuracoes, pedidos, achados);
        });
        const Contexto contexto{banco, *pedido.NroDRQ, declaracao, pedidos, todos, achados};
        for (const Revisor& revisor : Revisores) {
            if (declaracao.existe && std::ranges::any_of(revisor.relatorios, pedidos)) {
                Nomeando(achados, [&] { revisor.revisar(contexto); });
            }
        }
    }
    if (pedidos("VELO")) {
        Nomeando(achados, [&] { RevisarGuia(banco, achados); });
    }
    return std::move(achados).Entregar();
}

}  // namespace tarvo
