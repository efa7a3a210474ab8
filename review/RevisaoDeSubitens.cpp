// SPDX-License-Identifier: MIT
#include <algorithm>
#include <vector>

#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "data/Procura.h"
#include "reports/FamiliasDeSubitens.h"
#include "review/Familias.h"
#include "review/Leitura.h"

namespace tarvo::revisao {

namespace {

constexpr std::string_view Tabela = "tblOcorrências";
constexpr std::string_view ColunasLidas[] = {"CódSubItem", "Código", "Valor", "OpPróprias"};
constexpr std::string_view ColunasDoNumero[] = {"Código", "NroDRQ"};
constexpr std::string_view ColunasDoQuadro[] = {"CódSubItem", "OpPróprias"};

struct TabelaDeDetalhes {
    std::string_view nome;
    Colunas colunas;
    bool temNota = false;
    bool temPeriodo = false;
};

constexpr std::string_view SoValor[] = {"Código", "Valor"};
constexpr std::string_view ComNota[] = {"Código", "Valor", "NF"};
constexpr std::string_view ComPeriodo[] = {"Código", "Valor", "NF", "DataInicio", "DataFim"};

constexpr TabelaDeDetalhes TabelasDeDetalhes[] = {{"tblIEsRemetente", SoValor},
                                                  {"tblRecibosCredito", SoValor},
                                                  {"tblIESubstituto", ComPeriodo, true, true},
                                                  {"tblIESubstituido", ComNota, true}};

// An entry of the declaration.
struct Subitem {
    std::string codigo;  // "002.18"
    std::int32_t numero = 0;
    Moeda declarado;
    std::optional<bool> opProprias;
    const FamiliaDeSubitens* familia = nullptr;  // whose report prints it
    std::size_t impressoes = 0;                  // in that report
    Moeda detalhado;                             // what its supporting rows add up to there
    bool temDetalhes = false;                    // there

    [[nodiscard]] bool DetalhadoEm(std::string_view tabela) const {
        return familia != nullptr && familia->tabela == tabela;
    }
};

const FamiliaDeSubitens* FamiliaDe(const Subitem& subitem) {
    return Achar(familias::Todas, true, [&](const FamiliaDeSubitens& familia) {
        return subitem.opProprias == familia.opProprias && Contem(familia.subitens, subitem.codigo);
    });
}

std::vector<Subitem> LerSubitens(const Contexto& c) {
    std::vector<Subitem> subitens;
    for (Leitura linha(c.banco, Tabela, ColunasLidas, DaDeclaracao(c.NroDRQ)); !linha.Fim();
         linha.Proxima()) {
        Subitem subitem;
        subitem.codigo = linha.Texto("CódSubItem");
        subitem.numero = linha.Longo("Código");
        subitem.declarado = linha.Quantia("Valor");
        if (!linha.Nulo("OpPróprias")) {
            subitem.opProprias = BooleanoCampo(linha.Ler("OpPróprias"));
        }
        subitem.familia = FamiliaDe(subitem);
        subitens.push_back(std::move(subitem));
    }
    return subitens;
}

// How often each entry is printed: once for each row of the catalogue that fits.
void ContarImpressoes(const Contexto& c, std::vector<Subitem>& subitens) {
    std::set<std::string> codigos;
    for (const Subitem& subitem : subitens) {
        if (subitem.familia != nullptr) {
            codigos.insert(TextoSql(subitem.codigo));
        }
    }
    LerLinhasCom(
        c.banco, "tblQuadroOcorrências", ColunasDoQuadro, codigos, [&](const Leitura& linha) {
            const std::string codigo = linha.Texto("CódSubItem");
            const bool opProprias = BooleanoCampo(linha.Ler("OpPróprias"));
            for (Subitem& subitem : subitens) {
                const bool serve = subitem.familia != nullptr && subitem.codigo == codigo &&
                                   subitem.opProprias == opProprias && !linha.Nulo("OpPróprias");
                subitem.impressoes += serve ? 1 : 0;
            }
        });
}

void RevisarLinha(const Contexto& c, const TabelaDeDetalhes& tabela, const Leitura& linha,
                  std::vector<Subitem>& subitens) {
    const std::int32_t numero = linha.Longo("Código");
    const Moeda valor = linha.Quantia("Valor");
    std::size_t impressoes = 0;
    const Subitem* dono = nullptr;
    for (Subitem& subitem : subitens) {
        if (subitem.numero != numero) {
            continue;
        }
        dono = dono == nullptr || subitem.DetalhadoEm(tabela.nome) ? &subitem : dono;
        if (subitem.DetalhadoEm(tabela.nome)) {
            impressoes += subitem.impressoes;
            subitem.detalhado += valor;
            subitem.temDetalhes = true;
        }
    }
    if (dono == nullptr) {
        return;
    }
    const bool detalhado = dono->DetalhadoEm(tabela.nome);
    const std::string_view relatorio = detalhado ? dono->familia->relatorio : std::string_view();
    const auto achar = [&](std::string_view motivo) {
        c.achados.Linha(relatorio, tabela.nome, motivo, dono->codigo);
    };
    if (!detalhado) {
        achar("detalhes de um subitem que nenhum relatório detalha por esta tabela – não saem");
    } else if (impressoes == 0) {
        achar("detalhes de um subitem que não sai");
    } else if (impressoes > 1) {
        achar("detalhes que saem mais de uma vez");
    }
    if (detalhado && tabela.temNota && dono->codigo == dono->familia->subitemSemNota &&
        !linha.Texto("NF").empty()) {
        achar("nota fiscal, que não sai neste subitem");
    }
    if (tabela.temPeriodo && (linha.Nulo("DataInicio") || linha.Nulo("DataFim"))) {
        achar("sem início ou fim do período – sai com 12/1899");
    }
}

// Supporting rows know their entry by its number alone: where another declaration has it too,
// whose they are cannot be told.
void RevisarNumeros(const Contexto& c, const std::vector<Subitem>& subitens) {
    std::set<std::int32_t> numeros;
    for (const Subitem& subitem : subitens) {
        if (subitem.temDetalhes && subitem.impressoes > 0) {
            numeros.insert(subitem.numero);
        }
    }
    LerLinhasCom(c.banco, Tabela, ColunasDoNumero, numeros, [&](const Leitura& linha) {
        const std::int32_t numero = linha.Longo("Código");
        const std::int32_t outra = linha.Longo("NroDRQ");
        const auto daqui = std::ranges::find_if(subitens, [&](const Subitem& subitem) {
            return subitem.numero == numero && subitem.temDetalhes && subitem.impressoes > 0;
        });
        if (outra != c.NroDRQ && daqui != subitens.end()) {
            c.achados.Linha(daqui->familia->relatorio, Tabela,
                            "subitem com o mesmo Código de um de outra declaração – os detalhes "
                            "de ambos saem nas duas",
                            daqui->codigo + ", DRQ " + std::to_string(outra));
        }
    });
}

void RevisarDetalhados(const Contexto& c, const std::vector<Subitem>& subitens) {
    for (const Subitem& subitem : subitens) {
        if (subitem.familia == nullptr) {
            continue;
        }
        const std::string_view relatorio = subitem.familia->relatorio;
        if (subitem.impressoes == 0) {
            c.achados.Linha(
                relatorio, Tabela,
                subitem.opProprias.value_or(false)
                    ? "subitem sem linha de operações próprias em tblQuadroOcorrências – "
                      "não sai neste relatório"
                    : "subitem sem linha de substituição tributária em "
                      "tblQuadroOcorrências – não sai neste relatório",
                subitem.codigo);
        } else if (subitem.impressoes > 1) {
            c.achados.Linha(
                relatorio, Tabela,
                "subitem com mais de uma linha em tblQuadroOcorrências – sai e soma mais de "
                "uma vez",
                subitem.codigo);
        } else if (subitem.detalhado != subitem.declarado) {
            c.achados.Linha(relatorio, Tabela, "subitem cujos detalhes não somam o seu valor",
                            subitem.codigo + ": " + FormatarValor(subitem.detalhado) + " de " +
                                FormatarValor(subitem.declarado));
        }
    }
}

// The entries in the assessments.
void RevisarNasApuracoes(const Contexto& c, const std::vector<Subitem>& subitens) {
    constexpr std::string_view Somados[] = {"002", "003", "007", "008"};
    const std::string& regime = c.declaracao.regime;
    const bool temDeducoes = regime == "01" || regime == "02" || regime == "03";
    for (const Subitem& subitem : subitens) {
        const std::string_view relatorio = subitem.opProprias.value_or(false) ? "10" : "14";
        const std::string item = subitem.codigo.substr(0, 3);
        if (!subitem.opProprias) {
            c.achados.Linha("", Tabela,
                            "não diz se é de operações próprias – não sai em relatório algum",
                            subitem.codigo);
        } else if (item == "014" && relatorio == "10" && !temDeducoes) {
            c.achados.Linha(relatorio, Tabela, "dedução, que não sai neste regime tributário",
                            subitem.codigo);
        } else if (item != "014" && !Contem(Somados, item)) {
            c.achados.Linha(relatorio, Tabela,
                            "subitem fora dos itens 002, 003, 007, 008 e 014 – não sai na apuração",
                            subitem.codigo);
        }
    }
}

// The entries and their supporting rows in the detail reports.
void RevisarNosDetalhamentos(const Contexto& c, std::vector<Subitem>& subitens) {
    ContarImpressoes(c, subitens);
    std::set<std::int32_t> numeros;
    for (const Subitem& subitem : subitens) {
        numeros.insert(subitem.numero);
    }
    for (const TabelaDeDetalhes& tabela : TabelasDeDetalhes) {
        LerLinhasCom(c.banco, tabela.nome, tabela.colunas, numeros,
                     [&](const Leitura& linha) { RevisarLinha(c, tabela, linha, subitens); });
    }
    RevisarNumeros(c, subitens);
    RevisarDetalhados(c, subitens);
    const bool doRelatorio15 = std::ranges::any_of(subitens, [](const Subitem& subitem) {
        return subitem.familia != nullptr && subitem.familia->relatorio == "15";
    });
    if (c.todos && doRelatorio15 && !c.declaracao.Desde2002()) {
        c.achados.Frase("15", "declaração anterior a 2002: só sai quando pedido pelo código");
    }
}

}  // namespace

void RevisarSubitens(const Contexto& c) {
    std::vector<Subitem> subitens = LerSubitens(c);
    if (c.pedido("10") || c.pedido("14")) {
        RevisarNasApuracoes(c, subitens);
    }
    if (std::ranges::any_of(familias::Todas, c.pedido, &FamiliaDeSubitens::relatorio)) {
        RevisarNosDetalhamentos(c, subitens);
    }
}

}  // namespace tarvo::revisao
