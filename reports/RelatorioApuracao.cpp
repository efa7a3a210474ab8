// SPDX-License-Identifier: MIT
#include "reports/RelatorioApuracao.h"

#include <algorithm>

#include "data/CodigosDeErros.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "data/Procura.h"
#include "data/Textos.h"
#include "reports/LinhasApuracao.h"
#include "reports/Somas.h"
#include "reports/TipoApuracao.h"

namespace tarvo {

namespace {

using namespace Alinhamento;

constexpr EstiloTexto CelulaCentralizadaNegrito{.recuoX = 0, .horizontal = Centro, .negrito = true};

constexpr std::string_view Subtotais[] = {"052", "053", "055", "057", "058", "060"};
constexpr std::string_view TotalDeCreditos = "062";

// The lines of an item, its sub-items and components, are indented; its title is not.
FuncaoDaLinha FuncaoDe(std::string_view rotulo, std::string_view total) {
    if (total.empty()) {
        return rotulo.starts_with(' ') ? FuncaoDaLinha::Dados : FuncaoDaLinha::TituloDeGrupo;
    }
    if (total == TotalDeCreditos) {
        return FuncaoDaLinha::Total;
    }
    const bool subtotal = Contem(Subtotais, total);
    return subtotal ? FuncaoDaLinha::Subtotal : FuncaoDaLinha::Dados;
}

// What a summed field adds up: the CFOP details of its groups, or the sub-items of its item.
struct CampoSomado {
    int numero;
    std::string_view item;
    std::string_view TipoApuracao::*grupos = nullptr;
};

constexpr CampoSomado CamposSomados[] = {
    {51, "", &TipoApuracao::gruposDebito},  {52, "002"}, {53, "003"},
    {56, "", &TipoApuracao::gruposCredito}, {57, "007"}, {58, "008"},
};

Moeda OuZero(Moeda valor) {
    return std::max(valor, Moeda());
}

}  // namespace

RelatorioApuracao::RelatorioApuracao(const TipoApuracao& tipo, const Ambiente& ambiente)
    : RelatorioDeTabela(tipo.identidade, tipo.formato, ambiente), tipo_(tipo) {}

// The summed fields enter the subtotals as they are printed, with two decimals; what is read from
// the declaration itself keeps its four.
void RelatorioApuracao::Montar(BancoDados& banco, std::int32_t n) {
    LinhasApuracao linhas(banco, tipo_.formato.tabela, tipo_.opProprias, n);
    const auto somado = [&](std::string_view campo, std::string_view rotulo, int numero) {
        return linhas.Total(campo, rotulo, ComZeros(numero, 3),
                            Moeda::DeTexto(Campo(numero, &banco, n)));
    };
    const RegimeApuracao& regime = LerRegime(banco, n);

    linhas.Rotulo("", "DÉBITO DO IMPOSTO");
    const Moeda a051 = somado("001", "Por saídas com débito do imposto", 51);
    linhas.Item("002", "Outros débitos");
    const Moeda a052 = somado("", " ", 52);
    linhas.Item("003", "Estorno de créditos");
    const Moeda a053 = somado("", " ", 53);
    const Moeda a055 = linhas.Total("005", "SUBTOTAL (051+052+053)", "055", a051 + a052 + a053);

    linhas.Rotulo("", "CRÉDITO DO IMPOSTO");
    const Moeda a056 = somado("006", "Por entradas com crédito do imposto", 56);
    linhas.Item("007", "Outros créditos");
    const Moeda a057 = somado("", " ", 57);
    linhas.Item("008", "Estorno de débitos");
    const Moeda a058 = somado("", " ", 58);
    const Moeda a060 = linhas.Total("010", "SUBTOTAL (056+057+058)", "060", a056 + a057 + a058);
    const Moeda a061 = linhas.Total("011", "Saldo credor do período anterior", "061",
                                    linhas.ExigirDaDeclaracao(tipo_.saldoCredor));
    const Moeda a062 = linhas.Total("012", "TOTAL (060+061)", "062", a060 + a061);

    if (!regime.titulo.empty()) {
        linhas.Rotulo("", regime.titulo);
    }
    const Moeda a063 = linhas.Total("013", "Saldo devedor (055-062)", "063", OuZero(a055 - a062));
    const Moeda a064 = regime.deduzir == nullptr ? Moeda() : regime.deduzir(linhas);
    linhas.Total("015", "Imposto a recolher (063-064)", "065", OuZero(a063 - a064));
    if (regime.fixadoAMaior) {
        linhas.Total("", "Fixado a maior (064-063)", "067", OuZero(a064 - a063));
    }
    linhas.Total("016", "Saldo credor a transportar (062-055)", "066", OuZero(a062 - a055));
}

const RegimeApuracao& RelatorioApuracao::LerRegime(BancoDados& banco, std::int32_t n) const {
    const auto ultimo = tipo_.regimes.end() - 1;
    if (tipo_.regimes.size() == 1) {
        return *ultimo;
    }
    const auto declaracao =
        banco.OpenRecordset("SELECT tblDRQ.RegTrib FROM tblDRQ WHERE NroDRQ = " + std::to_string(n),
                            TipoRecordset::Dynaset);
    const Valor codigo = declaracao->Fields("RegTrib");
    if (EhNulo(codigo)) {
        LancarUsoInvalidoDeNull("a declaração não tem RegTrib");
    }
    return *std::find_if(tipo_.regimes.begin(), ultimo, [&](const RegimeApuracao& regime) {
        return regime.codigo == TextoCampo(codigo);
    });
}

std::string RelatorioApuracao::Campo(int numero, BancoDados* banco, std::int32_t n) const {
    const auto* const campo = Achar(CamposSomados, numero, &CampoSomado::numero);
    if (campo == nullptr) {
        throw Erro(NumeroErro::ChamadaInvalida,
                   "A apuração não soma nenhum campo " + std::to_string(numero) + ".");
    }
    if (banco == nullptr) {
        return "";
    }
    return FormatarValor(campo->item.empty()
                             ? SomaDosCFOPs(*banco, tipo_.*campo->grupos, n)
                             : SomarSubitens(*banco, campo->item, tipo_.opProprias, n));
}

void RelatorioApuracao::ImprimirLinha(Recordset& linha, Recordset& /*identificacao*/, double y) {
    const auto texto = [&](std::string_view coluna) { return TextoCampo(linha.Fields(coluna)); };
    const auto celula = [&](Elemento elemento, const EstiloTexto& estilo, double x, double largura,
                            std::string_view escrito) {
        Celula(Desenho(), elemento, estilo, x, y, largura, AlturaLinha, escrito);
    };
    const std::string rotulo = texto("Linha");
    const std::string total = texto("Total");
    const bool semRotulo = rotulo.find_first_not_of(' ') == std::string::npos;

    const Trecho trecho(Desenho(), LinhaDe(FuncaoDe(rotulo, total)));
    celula(CelulaDe(Natureza::Codigo), CelulaCentralizadaNegrito, 0, 0.9, texto("Campo"));
    {
        // A sub-item's amount stands inside the cell of its label.
        const Trecho caixa(Desenho(), semRotulo ? CelulaDe(Natureza::Texto, 2)
                                                : TituloDeLinha(Natureza::Texto, 2));
        celula({.tipo = TipoElemento::Rotulo}, CelulaTextoFixo, 0.9, 11.7, rotulo);
        celula({.tipo = TipoElemento::ValorDeCampo, .natureza = Natureza::Quantia},
               CelulaDireitaRecuada, 0.9, 11.7, texto("CódigoSubitem"));
    }
    celula(semRotulo ? TituloDeLinha(Natureza::Codigo) : CelulaDe(Natureza::Codigo),
           CelulaCentralizadaNegrito, 12.6, 1.1, total);
    celula(CelulaDe(Natureza::Quantia), CelulaDireitaRecuada, 13.7, 3.3, texto("Valor"));
}

Moeda RelatorioApuracao::SomaDosCFOPs(BancoDados& banco, std::string_view grupos,
                                      std::int32_t n) const {
    Moeda soma;
    for (const auto coluna : tipo_.colunasCFOP) {
        soma += SomarCFOPs(banco, coluna, grupos, n);
    }
    return soma;
}

}  // namespace tarvo
