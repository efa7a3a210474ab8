// SPDX-License-Identifier: MIT
#include <algorithm>
#include <span>

#include "data/Procura.h"
#include "data/Textos.h"
#include "reports/FaixasCFOP.h"
#include "reports/FormatosCFOP.h"
#include "review/Familias.h"
#include "review/Leitura.h"

namespace tarvo::revisao {

namespace {

constexpr std::string_view Tabela = "tblDetalhesCFOPs";
constexpr std::string_view ColunasLidas[] = {"CFOP", "ImpostoRetidoST", "ImpRetSubstitutoST",
                                             "ImpRetSubstituido"};
constexpr std::string_view GruposEntradas = "123";
constexpr std::string_view GruposSaidas = "567";

struct ColunaOculta {
    std::string_view coluna;
    bool desde2002;  // in the layout from 2002 on; otherwise in the one before
    std::string_view motivo;
};

constexpr ColunaOculta ColunasOcultas[] = {
    {"ImpostoRetidoST", true, "valor em ImpostoRetidoST, coluna que não sai desde 2002"},
    {"ImpRetSubstitutoST", false, "valor em ImpRetSubstitutoST, coluna que só sai desde 2002"},
    {"ImpRetSubstituido", false, "valor em ImpRetSubstituido, coluna que só sai desde 2002"},
};

// How the database orders the characters of codes: signs, digits, letters.
int Posto(char c) {
    const bool letra = c >= 'a' && c <= 'z';
    return static_cast<int>(c) + (EhDigito(c) ? 0x100 : 0) + (letra ? 0x200 : 0);
}

bool Antes(std::string_view a, std::string_view b) {
    return std::ranges::lexicographical_compare(a, b, {}, Posto, Posto);
}

bool EstaNaFaixa(const FaixaCFOP& faixa, std::string_view codigo) {
    return !faixa.EhTitulo() && ((!Antes(codigo, faixa.de) && !Antes(faixa.ate, codigo)) ||
                                 (!faixa.extra.empty() && codigo == faixa.extra));
}

std::span<const FaixaCFOP> FaixasDe(bool entrada, bool novas) {
    if (entrada) {
        return novas ? FaixasCFOP::EntradasNovas : FaixasCFOP::EntradasAntigas;
    }
    return novas ? FaixasCFOP::SaidasNovas : FaixasCFOP::SaidasAntigas;
}

// A detail line in its summary: in one of the printed ranges, under its own code, with all amounts.
void RevisarNoResumo(const Contexto& c, const Leitura& detalhe, const std::string& CFOP) {
    const bool entrada = Contem(GruposEntradas, CFOP[0]);
    const std::string_view relatorio = entrada ? "02" : "03";
    const std::string codigo = SemCaixa(CFOP);
    const auto faixas = FaixasDe(entrada, c.declaracao.cfopsNovos);
    const std::string impresso =
        c.declaracao.cfopsNovos ? FormatarCFOPNovo(CFOP) : FormatarCFOPAntigo(CFOP);
    if (std::ranges::any_of(CFOP, [](char letra) { return letra < ' ' || letra > '~'; })) {
        c.achados.Linha(relatorio, Tabela, "CFOP com caracteres que não são de um código", CFOP);
    } else if (std::ranges::none_of(faixas,
                                    [&](const FaixaCFOP& f) { return EstaNaFaixa(f, codigo); })) {
        c.achados.Linha(relatorio, Tabela,
                        "CFOP em nenhuma faixa da tabela usada – não é listado, mas conta no total",
                        CFOP);
    } else if (impresso.empty()) {
        c.achados.Linha(relatorio, Tabela, "sai sem o código do CFOP", CFOP);
    } else if (impresso != CFOP) {
        c.achados.Linha(relatorio, Tabela, "sai com outro código de CFOP",
                        CFOP + " como " + impresso);
    }
    for (const auto& [coluna, desde2002, motivo] : ColunasOcultas) {
        if (desde2002 == c.declaracao.Desde2002() && detalhe.Quantia(coluna) != Moeda()) {
            c.achados.Linha(relatorio, Tabela, motivo, CFOP);
        }
    }
}

// Its amounts of substitution in the assessment, which takes two columns of two groups.
void RevisarNaApuracao(const Contexto& c, const Leitura& detalhe, const std::string& CFOP) {
    const bool retido = detalhe.Quantia("ImpostoRetidoST") != Moeda() ||
                        detalhe.Quantia("ImpRetSubstitutoST") != Moeda();
    if (retido && CFOP[0] != '1' && CFOP[0] != '5') {
        c.achados.Linha("14", Tabela,
                        "imposto retido fora dos grupos 1 e 5, que não entra na apuração", CFOP);
    }
    if (detalhe.Quantia("ImpRetSubstituido") != Moeda()) {
        c.achados.Linha("14", Tabela, "ImpRetSubstituido não entra na apuração", CFOP);
    }
}

}  // namespace

void RevisarCFOPs(const Contexto& c) {
    for (Leitura detalhe(c.banco, Tabela, ColunasLidas, DaDeclaracao(c.NroDRQ)); !detalhe.Fim();
         detalhe.Proxima()) {
        const std::string CFOP = detalhe.Texto("CFOP");
        if (CFOP.empty()) {
            c.achados.Linha("", Tabela, "sem CFOP – não sai nem entra em total algum");
        } else if (!Contem(GruposEntradas, CFOP[0]) && !Contem(GruposSaidas, CFOP[0])) {
            c.achados.Linha(
                "", Tabela,
                "CFOP fora dos grupos 1, 2, 3, 5, 6 e 7 – não sai nem entra em total algum", CFOP);
        } else {
            RevisarNoResumo(c, detalhe, CFOP);
            if (c.pedido("14")) {
                RevisarNaApuracao(c, detalhe, CFOP);
            }
        }
    }
}

}  // namespace tarvo::revisao
