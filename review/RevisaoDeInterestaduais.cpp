// SPDX-License-Identifier: MIT
#include <map>
#include <vector>

#include "data/Consultas.h"
#include "review/Familias.h"
#include "review/Leitura.h"

namespace tarvo::revisao {

namespace {

constexpr std::string_view Tabela = "tblDetalhesInterUFs";
constexpr std::string_view ColunasLidas[] = {
    "CFOP",          "UF",      "ValorContábil_2", "BaseCálculo_2",
    "ICMSCobradoST", "Imposto", "PetróleoEnergia", "OutrosProdutos"};
constexpr std::string_view ColunasDoEstado[] = {"Código", "UF", "Estado"};

struct Direcao {
    std::string_view relatorio;
    char grupo;  // first character of the CFOPs
};

constexpr Direcao Entradas{"04", '2'};
constexpr Direcao Saidas{"05", '6'};

struct ColunaOculta {
    std::string_view coluna;
    bool nasEntradas;
    bool nasSaidas;
    std::string_view motivo;
};

constexpr ColunaOculta ColunasOcultas[] = {
    {"ValorContábil_2", true, false, "valor em ValorContábil_2, que só sai nas saídas"},
    {"BaseCálculo_2", true, false, "valor em BaseCálculo_2, que só sai nas saídas"},
    {"ICMSCobradoST", true, false, "valor em ICMSCobradoST, que só sai nas saídas"},
    {"PetróleoEnergia", false, true, "valor em PetróleoEnergia, que só sai nas entradas"},
    {"OutrosProdutos", false, true, "valor em OutrosProdutos, que só sai nas entradas"},
};

// A row that its report joins with the state.
struct Operacao {
    const Direcao& direcao;
    std::string CFOP;
    std::string UF;
};

struct Estado {
    std::size_t linhas = 0;  // of the catalogue
    std::string rotulo;      // as the report groups and prints it
    bool temNome = false;
};

void RevisarColunas(const Contexto& c, const Leitura& linha, const Direcao& direcao,
                    const std::string& CFOP) {
    const bool entrada = direcao.grupo == Entradas.grupo;
    for (const auto& [coluna, nasEntradas, nasSaidas, motivo] : ColunasOcultas) {
        if ((entrada ? nasEntradas : nasSaidas) && linha.Quantia(coluna) != Moeda()) {
            c.achados.Linha(direcao.relatorio, Tabela, motivo, CFOP);
        }
    }
    if (!c.declaracao.Desde2002() && linha.Quantia("Imposto") != Moeda()) {
        c.achados.Linha(direcao.relatorio, Tabela, "valor em Imposto, que só sai desde 2002", CFOP);
    }
}

// Names the rows that no report takes, and hands on the others.
std::vector<Operacao> LerOperacoes(const Contexto& c) {
    std::vector<Operacao> operacoes;
    for (Leitura linha(c.banco, Tabela, ColunasLidas, DaDeclaracao(c.NroDRQ)); !linha.Fim();
         linha.Proxima()) {
        const std::string CFOP = linha.Texto("CFOP");
        if (!CFOP.starts_with(Entradas.grupo) && !CFOP.starts_with(Saidas.grupo)) {
            c.achados.Linha("", Tabela,
                            "CFOP que não começa com 2 nem 6 – não sai em relatório algum", CFOP);
            continue;
        }
        const Direcao& direcao = CFOP.starts_with(Entradas.grupo) ? Entradas : Saidas;
        RevisarColunas(c, linha, direcao, CFOP);
        if (const auto UF = linha.Chave("UF")) {
            operacoes.push_back({direcao, CFOP, *UF});
        } else {
            c.achados.Linha(direcao.relatorio, Tabela, "sem UF – não sai", CFOP);
        }
    }
    return operacoes;
}

using Estados = std::map<std::string, Estado>;  // by code

Estados LerEstados(BancoDados& banco, const std::vector<Operacao>& operacoes) {
    std::set<std::string> codigos;
    for (const Operacao& operacao : operacoes) {
        codigos.insert(TextoSql(operacao.UF));
    }
    Estados estados;
    LerLinhasCom(banco, "tblEstados", ColunasDoEstado, codigos, [&](const Leitura& linha) {
        Estado& estado = estados[SemCaixa(linha.Texto("Código"))];
        ++estado.linhas;
        estado.rotulo = linha.Texto("UF") + ". " + linha.Texto("Estado");
        estado.temNome = estado.rotulo != ". ";
    });
    return estados;
}

}  // namespace

void RevisarInterestaduais(const Contexto& c) {
    const std::vector<Operacao> operacoes = LerOperacoes(c);
    const Estados estados = LerEstados(c.banco, operacoes);
    // The codes of each printed line of each report.
    std::map<std::pair<std::string_view, std::string>, std::set<std::string>> codigosDaLinha;
    for (const auto& [direcao, CFOP, UF] : operacoes) {
        if (const auto estado = estados.find(SemCaixa(UF)); estado != estados.end()) {
            codigosDaLinha[{direcao.relatorio, SemCaixa(estado->second.rotulo)}].insert(
                estado->first);
        }
    }
    for (const Operacao& operacao : operacoes) {
        const auto linha = [&](std::string_view motivo) {
            c.achados.Linha(operacao.direcao.relatorio, Tabela, motivo, operacao.UF);
        };
        const auto estado = estados.find(SemCaixa(operacao.UF));
        if (estado == estados.end()) {
            linha("UF sem linha em tblEstados – não sai nem entra no total");
        } else if (estado->second.linhas > 1) {
            linha("UF com mais de uma linha em tblEstados – é somada mais de uma vez");
        } else if (!estado->second.temNome) {
            linha("UF sem sigla nem nome em tblEstados");
        } else if (codigosDaLinha[{operacao.direcao.relatorio, SemCaixa(estado->second.rotulo)}]
                       .size() > 1) {
            linha("UFs de mesma sigla e mesmo nome, somadas numa só linha");
        }
    }
}

}  // namespace tarvo::revisao
