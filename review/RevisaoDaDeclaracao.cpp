// SPDX-License-Identifier: MIT
#include <array>

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/Legivel.h"
#include "data/LeitoresDeCampo.h"
#include "data/Procura.h"
#include "document/QuadroPagina.h"
#include "reports/ReferenciaAtual.h"
#include "review/Familias.h"
#include "review/Leitura.h"

namespace tarvo::revisao {

namespace {

constexpr std::string_view Tabela = "tblDRQ";
constexpr std::string_view RES = "02";
constexpr std::size_t LetrasDeUmTexto = 60;
constexpr std::string_view ColunasLidas[] = {"IE",
                                             "Ref1",
                                             "Ref2",
                                             "Tipo",
                                             "RegTrib",
                                             "Consistente",
                                             "Autenticação",
                                             "SaldoCredAntDig",
                                             "ICMSFixPerRES",
                                             "OutrasRES",
                                             "DeduçõesRPA",
                                             "SaldoCredAntDigST"};

// An amount of the declaration that the assessments print under some regimes only, or cannot do
// without.
struct Quantia {
    std::string_view relatorio;
    std::string_view coluna;
    std::array<std::string_view, 2> regimes;  // both empty: all
    bool exigida;
};

constexpr Quantia Quantias[] = {
    {"10", "SaldoCredAntDig", {}, true},   {"10", "ICMSFixPerRES", {"02"}, true},
    {"10", "OutrasRES", {"02"}, false},    {"10", "DeduçõesRPA", {"01", "03"}, false},
    {"14", "SaldoCredAntDigST", {}, true},
};

// Databases of others may lack the column that says whose a declaration is: Tem("IE") then is
// false.
Leitura LerDeclaracao(BancoDados& banco, std::int32_t NroDRQ) {
    try {
        return {banco, Tabela, ColunasLidas, DaDeclaracao(NroDRQ)};
    } catch (const Erro& erro) {
        if (erro.Numero() != NumeroErro::ColunaDesconhecida) {
            throw;
        }
        return {banco, Tabela, Colunas(ColunasLidas).subspan(1), DaDeclaracao(NroDRQ)};
    }
}

// The setting that the CFOP summaries read, where it holds a month.
std::optional<std::string> MesDoResumo(const Configuracoes* configuracoes) {
    if (configuracoes == nullptr) {
        return std::nullopt;
    }
    std::string mes = LerRefAtual(*configuracoes);
    try {
        (void)DataDeReferencia(mes);
        return mes;
    } catch (const Erro&) {
        return std::nullopt;  // the summaries end with that error themselves
    }
}

bool UsaCFOPsNovos(Data data) {
    return data.Ano() > 2002;
}

void RevisarReferencia(const Leitura& linha, const Declaracao& d, Achados& achados) {
    const auto achar = [&](std::string_view motivo, std::string_view exemplo = {}) {
        achados.Linha("", Tabela, motivo, exemplo);
    };
    if (linha.Nulo("Ref1")) {
        achar("sem Ref1 – a referência sai como 12/1899");
    }
    if (d.regime == RES && linha.Nulo("Ref2")) {
        achar("sem Ref2 – o início do período sai como 12");
    }
    if (linha.Nulo("Ref2")) {
        return;
    }
    const Data ref2 = DataCampo(linha.Ler("Ref2"));
    const std::string inicio = FormatarMesAno(ref2);
    if (d.regime == RES && ref2.Ano() != d.ref1.Ano()) {
        achar("do início do período só sai o mês", inicio);
    } else if (d.regime != RES && inicio != FormatarMesAno(d.ref1)) {
        achar("Ref2, que neste regime tributário não sai", inicio);
    }
}

void RevisarDados(const Leitura& linha, const Declaracao& d, Achados& achados) {
    const auto achar = [&](std::string_view motivo, std::string_view exemplo = {}) {
        achados.Linha("", Tabela, motivo, exemplo);
    };
    if (TipoDaDRQ(linha.Longo("Tipo")).empty()) {
        achar("tipo de declaração desconhecido – sai em branco", linha.Texto("Tipo"));
    }
    if (RegimeTributario(d.regime).empty()) {
        achar("regime tributário desconhecido – ele e a referência saem em branco", d.regime);
    }
    const bool consistente = BooleanoCampo(linha.Ler("Consistente"));
    if (!consistente && !linha.Texto("Autenticação").empty()) {
        achar("autenticação de uma declaração não consistida – não sai",
              linha.Texto("Autenticação"));
    } else if (consistente && linha.Texto("Autenticação").empty()) {
        achar("declaração consistida sem autenticação – o lugar dela sai em branco");
    }
}

void RevisarQuantias(const Leitura& linha, const Declaracao& d,
                     const std::function<bool(std::string_view)>& pedido, Achados& achados) {
    const auto noRegime = [&](const std::array<std::string_view, 2>& regimes) {
        return regimes[0].empty() || (!d.regime.empty() && Contem(regimes, d.regime));
    };
    for (const auto& [relatorio, coluna, regimes, exigida] : Quantias) {
        if (!pedido(relatorio)) {
            continue;
        }
        if (exigida && noRegime(regimes) && linha.Nulo(coluna)) {
            achados.Linha(relatorio, Tabela, "valor que falta – o relatório termina em erro",
                          coluna);
        } else if (!noRegime(regimes) && linha.Quantia(coluna) != Moeda()) {
            achados.Linha(relatorio, Tabela, "valor que neste regime tributário não sai", coluna);
        }
    }
    if (pedido("10") && linha.Nulo("RegTrib")) {
        achados.Linha("10", Tabela, "sem regime tributário – o relatório termina em erro");
    }
}

}  // namespace

void RevisarContribuinte(BancoDados& banco, const std::string& IE, Achados& achados) {
    constexpr static std::string_view SoInscricao[] = {"IE"};
    Leitura linha(banco, "tblContribuinte", SoInscricao, "IE = " + TextoSql(IE));
    if (linha.Fim()) {
        achados.Frase("",
                      "o contribuinte " + Legivel(IE, LetrasDeUmTexto) + " não existe neste banco");
        return;
    }
    for (linha.Proxima(); !linha.Fim(); linha.Proxima()) {
        achados.Linha("", "tblContribuinte", "contribuinte repetido – só sai a primeira linha", IE);
    }
}

Declaracao RevisarIdentificacao(BancoDados& banco, const std::string& IE, std::int32_t NroDRQ,
                                const Configuracoes* configuracoes,
                                const std::function<bool(std::string_view)>& pedido,
                                Achados& achados) {
    const std::string numero = std::to_string(NroDRQ);
    Leitura linha = LerDeclaracao(banco, NroDRQ);
    Declaracao d;
    if (linha.Fim()) {
        achados.Frase("", "a declaração " + numero + " não existe neste banco");
        return d;
    }
    d.existe = true;
    d.ref1 = DataCampo(linha.Ler("Ref1"));
    d.regime = linha.Texto("RegTrib");
    d.cfopsNovos = UsaCFOPsNovos(d.ref1);
    if (const std::string dela = linha.Tem("IE") ? linha.Texto("IE") : "";
        !dela.empty() && !IE.empty() && SemCaixa(dela) != SemCaixa(IE)) {
        achados.Frase("", "a DRQ " + numero + " é do contribuinte " +
                              Legivel(dela, LetrasDeUmTexto) + ", não de " +
                              Legivel(IE, LetrasDeUmTexto));
    }
    RevisarReferencia(linha, d, achados);
    RevisarDados(linha, d, achados);
    RevisarQuantias(linha, d, pedido, achados);
    if (const auto mes = MesDoResumo(configuracoes); mes && (pedido("02") || pedido("03"))) {
        d.cfopsNovos = DataDeReferencia(*mes) > DataDeReferencia("12/2002");
        if (d.cfopsNovos != UsaCFOPsNovos(d.ref1) && !linha.Nulo("Ref1")) {
            achados.Frase("", "a DRQ " + numero + " é de " + FormatarMesAno(d.ref1) +
                                  ", mas o resumo usa a tabela de CFOPs de " +
                                  Legivel(*mes, LetrasDeUmTexto));
        }
    }
    for (linha.Proxima(); !linha.Fim(); linha.Proxima()) {
        achados.Linha("", Tabela, "declaração repetida – só sai a primeira linha", numero);
    }
    return d;
}

}  // namespace tarvo::revisao
