// SPDX-License-Identifier: MIT
#include <map>

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

struct Estado {
    std::size_t linhas = 0;  // of the catalogue
    std::string rotulo;      // as the report groups by it
    bool temNome = false;
};

using Estados = std::map<std::string, Estado>;  // by code
using Juntos = std::set<const Estado*>;         // on one printed line

// The rows of one direction and one state, which their report joins with it.
struct Operacoes {
    const Direcao& direcao;
    std::string UF;
    std::size_t linhas;
    const Estado* estado = nullptr;  // if there is one
    const Juntos* juntos = nullptr;
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
std::vector<Operacoes> LerOperacoes(const Contexto& c) {
    CodigosLidos gruposComUF;
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
            gruposComUF.Acrescentar(direcao.grupo + *UF);
        } else {
            c.achados.Linha(direcao.relatorio, Tabela, "sem UF – não sai", CFOP);
        }
    }
    std::vector<Operacoes> operacoes;
    for (const auto& [grupoComUF, linhas] : gruposComUF.EmOrdem()) {
        operacoes.push_back({grupoComUF->starts_with(Entradas.grupo) ? Entradas : Saidas,
                             grupoComUF->substr(1), linhas});
    }
    return operacoes;
}

// All of them: they are few.
Estados LerEstados(BancoDados& banco) {
    Estados estados;
    for (Leitura linha(banco, "tblEstados", ColunasDoEstado); !linha.Fim(); linha.Proxima()) {
        Estado& estado = estados[SemCaixa(linha.Texto("Código"))];
        ++estado.linhas;
        estado.rotulo = SemCaixa(linha.Texto("UF") + ". " + linha.Texto("Estado"));
        estado.temNome = estado.rotulo != ". ";
    }
    return estados;
}

}  // namespace

void RevisarInterestaduais(const Contexto& c) {
    std::vector<Operacoes> operacoes = LerOperacoes(c);
    const Estados estados = operacoes.empty() ? Estados() : LerEstados(c.banco);
    std::map<std::string, Juntos> linhasImpressas;
    for (Operacoes& iguais : operacoes) {
        if (const auto estado = estados.find(SemCaixa(iguais.UF)); estado != estados.end()) {
            iguais.estado = &estado->second;
            auto& juntos = linhasImpressas[iguais.direcao.grupo + iguais.estado->rotulo];
            juntos.insert(iguais.estado);
            iguais.juntos = &juntos;
        }
    }
    for (const Operacoes& iguais : operacoes) {
        const auto achar = [&](std::string_view motivo) {
            c.achados.Linha(iguais.direcao.relatorio, Tabela, motivo, iguais.UF, iguais.linhas);
        };
        if (iguais.estado == nullptr) {
            achar("UF sem linha em tblEstados – não sai nem entra no total");
        } else if (iguais.estado->linhas > 1) {
            achar("UF com mais de uma linha em tblEstados – é somada mais de uma vez");
        } else if (!iguais.estado->temNome) {
            achar("UF sem sigla nem nome em tblEstados");
        } else if (iguais.juntos->size() > 1) {
            achar("UFs de mesma sigla e mesmo nome, somadas numa só linha");
        }
    }
}

}  // namespace tarvo::revisao
