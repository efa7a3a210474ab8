// SPDX-License-Identifier: MIT
#include "reports/RelatorioResumoCFOPs.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "data/Textos.h"
#include "document/TabelaEmDesenho.h"
#include "reports/FaixasCFOP.h"
#include "reports/FormatoDeTabela.h"
#include "reports/FormatosCFOP.h"
#include "reports/ReferenciaAtual.h"
#include "reports/RelatorioResumoCFOPsEnt.h"
#include "reports/RelatorioResumoCFOPsSai.h"
#include "reports/Somas.h"
#include "reports/TabelaDeTrabalho.h"

namespace tarvo {

// What differs between the CFOP summaries.
struct TipoResumo {
    IdentidadeRelatorio identidade;
    FormatoDeTabela formato;
    const std::span<const FaixaCFOP>& faixasAntigas;
    const std::span<const FaixaCFOP>& faixasNovas;
    std::string_view grupos;  // CFOP groups of the total, one digit each
    std::string_view tituloComImposto;
    std::string_view tituloSemImposto;
    std::string_view tituloImposto;
};

namespace {

using namespace Alinhamento;

// The pages of the CFOP summaries: landscape, 14 lines.
constexpr FormatoDeTabela FormatoDeResumo(std::string_view tabela, std::string_view titulo) {
    return {.tabela = tabela,
            .cabecalho = {.titulo = titulo, .largura = LarguraPaisagem},
            .yPrimeiraLinha = 7.7,
            .yUltimaLinha = 15.7,
            .yRodape = 16.3};
}

constexpr TipoResumo Entradas{
    .identidade = {.classe = "RelatorioResumoCFOPsEnt",
                   .titulo = "Relatório de Resumo dos CFOPs para as Operações / Prestações de "
                             "Entrada (Grupos 1, 2 e 3)",
                   .tituloResumido = "Resumo CFOPs Oper. Entrada",
                   .orientacao = 1},
    .formato =
        FormatoDeResumo("tblResumoCFOPsEntradas", "Resumo por CFOPs - Entradas (Grupos 1, 2 e 3)"),
    .faixasAntigas = FaixasCFOP::EntradasAntigas,
    .faixasNovas = FaixasCFOP::EntradasNovas,
    .grupos = "123",
    .tituloComImposto = "Operações com Crédito do Imposto",
    .tituloSemImposto = "Operações sem Crédito do Imposto",
    .tituloImposto = "Imposto Creditado",
};

constexpr TipoResumo Saidas{
    .identidade = {.classe = "RelatorioResumoCFOPsSai",
                   .titulo = "Relatório de Resumo dos CFOPs para as Operações / Prestações de "
                             "Saída (Grupos 5, 6 e 7)",
                   .tituloResumido = "Resumo CFOPs Oper. Saída",
                   .orientacao = 1},
    .formato =
        FormatoDeResumo("tblResumoCFOPsSaídas", "Resumo por CFOPs - Saídas (Grupos 5, 6 e 7)"),
    .faixasAntigas = FaixasCFOP::SaidasAntigas,
    .faixasNovas = FaixasCFOP::SaidasNovas,
    .grupos = "567",
    .tituloComImposto = "Operações com Débito do Imposto",
    .tituloSemImposto = "Operações sem Débito do Imposto",
    .tituloImposto = "Imposto Debitado",
};

// The amounts of a detail line, under the same names in the CFOP details and the work tables.
constexpr std::array<std::string_view, 9> Colunas{
    "ValorContábil",   "BaseCálculo",        "Imposto",           "IsentasNãoTrib", "Outras",
    "ImpostoRetidoST", "ImpRetSubstitutoST", "ImpRetSubstituido", "OutrosImpostos",
};

constexpr std::size_t LarguraRotuloGrupo = 26;  // characters

constexpr double YTitulos = 5.9;
constexpr double AlturaTitulo = 0.6;  // of one of three heading rows
constexpr double XValores = 5.5;      // cm; left of it stand label and code
constexpr double LarguraValores = LarguraPaisagem - XValores;

// A column heading over some of the value columns.
struct TituloColuna {
    std::string_view texto;
    int coluna;
    int colunas;
    double y;       // cm
    double altura;  // cm
};

// The value columns that are printed, and the headings that are not common to both sets.
struct ConjuntoDeColunas {
    std::span<const std::string_view> campos;
    std::string_view tituloIsentas;
    std::span<const TituloColuna> titulos;

    [[nodiscard]] double Largura() const {
        return LarguraValores / static_cast<double>(campos.size());
    }
    [[nodiscard]] double X(int coluna) const { return XValores + coluna * Largura(); }
};

constexpr std::string_view TituloST = "Imposto Retido por\r\nSubstituição Tributária";

constexpr std::string_view CamposAte2001[] = {"ValorContábil",  "BaseCálculo", "Imposto",
                                              "IsentasNãoTrib", "Outras",      "ImpostoRetidoST",
                                              "OutrosImpostos"};
constexpr TituloColuna TitulosAte2001[] = {{TituloST, 5, 1, 5.9, 1.8},
                                           {"Outros Impostos", 6, 1, 5.9, 1.8}};

constexpr std::string_view CamposDesde2002[] = {
    "ValorContábil", "BaseCálculo",        "Imposto",           "IsentasNãoTrib",
    "Outras",        "ImpRetSubstitutoST", "ImpRetSubstituido", "OutrosImpostos"};
constexpr TituloColuna TitulosDesde2002[] = {{TituloST, 5, 2, 5.9, 1.2},
                                             {"Substituto", 5, 1, 7.1, 0.6},
                                             {"Substituído", 6, 1, 7.1, 0.6},
                                             {"Outros Impostos", 7, 1, 5.9, 1.8}};

constexpr ConjuntoDeColunas Ate2001{CamposAte2001, "Isentas / Não Tributadas", TitulosAte2001};
constexpr ConjuntoDeColunas Desde2002{CamposDesde2002, "Isentas / Não Tribut.", TitulosDesde2002};

const ConjuntoDeColunas& ColunasDaDeclaracao(Recordset& identificacao) {
    return DataCampo(identificacao.Fields("Ref1")).Ano() >= 2002 ? Desde2002 : Ate2001;
}

std::unique_ptr<Recordset> AbrirDetalhesCFOPs(BancoDados& banco, const FaixaCFOP& faixa,
                                              std::int32_t NumeroDRQ) {
    std::string condicao =
        "(CFOP >= " + TextoSql(faixa.de) + " AND CFOP <= " + TextoSql(faixa.ate) + " )";
    if (!faixa.extra.empty()) {
        condicao = "(" + condicao + " OR (CFOP = " + TextoSql(faixa.extra) + "))";
    }
    return banco.OpenRecordset("SELECT * FROM tblDetalhesCFOPs WHERE ((NroDRQ=" +
                                   std::to_string(NumeroDRQ) + ") AND " + condicao + ")",
                               TipoRecordset::Dynaset);
}

}  // namespace

RelatorioResumoCFOPs::RelatorioResumoCFOPs(const TipoResumo& tipo, const Ambiente& ambiente)
    : RelatorioDeTabela(tipo.identidade, tipo.formato, ambiente), tipo_(tipo) {}

void RelatorioResumoCFOPs::Montar(BancoDados& banco, std::int32_t NumeroDRQ) {
    const auto& faixas = ReferenciaUsaCFOPsNovos(AmbienteDoRelatorio().configuracoes)
                             ? tipo_.faixasNovas
                             : tipo_.faixasAntigas;
    TabelaDeTrabalho tabela(banco, tipo_.formato.tabela, NumeroDRQ);
    for (const FaixaCFOP& faixa : faixas) {
        if (faixa.EhTitulo()) {
            tabela.Acrescentar({{"Linha", " " + std::string(faixa.rotulo)}});
        } else {
            AdicionarGrupo(banco, tabela, faixa, NumeroDRQ);
        }
    }
    AdicionarTotal(banco, tabela, NumeroDRQ);
}

void RelatorioResumoCFOPs::AdicionarGrupo(BancoDados& banco, TabelaDeTrabalho& tabela,
                                          const FaixaCFOP& faixa, std::int32_t NumeroDRQ) {
    const auto detalhes = AbrirDetalhesCFOPs(banco, faixa, NumeroDRQ);
    if (detalhes->EOF_()) {
        return;
    }
    std::string rotulo = " " + std::string(faixa.rotulo);
    rotulo.append(LarguraRotuloGrupo - Caracteres(rotulo), ' ');
    tabela.Acrescentar({{"Linha", rotulo}});
    CopiarDetalhesCFOPs(*detalhes, tabela);
}

void RelatorioResumoCFOPs::CopiarDetalhesCFOPs(Recordset& detalhes, TabelaDeTrabalho& tabela) {
    const auto formatar = ReferenciaUsaCFOPsNovos(AmbienteDoRelatorio().configuracoes)
                              ? FormatarCFOPNovo
                              : FormatarCFOPAntigo;
    for (; !detalhes.EOF_(); detalhes.MoveNext()) {
        std::array<std::string, Colunas.size()> valores;
        std::vector<ColunaTexto> linha;
        const std::string codigo = formatar(TextoCampo(detalhes.Fields("CFOP")));
        linha.push_back({"CFOP", codigo});
        for (std::size_t i = 0; i < Colunas.size(); ++i) {
            valores[i] = FormatarValor(MoedaCampo(detalhes.Fields(Colunas[i])));
            linha.push_back({Colunas[i], valores[i]});
        }
        tabela.Acrescentar(linha);
    }
}

void RelatorioResumoCFOPs::AdicionarTotal(BancoDados& banco, TabelaDeTrabalho& tabela,
                                          std::int32_t NumeroDRQ) {
    std::array<std::string, Colunas.size()> valores;
    std::vector<ColunaTexto> linha{{"Linha", " Total"}};
    for (std::size_t i = 0; i < Colunas.size(); ++i) {
        valores[i] = FormatarValor(SomarCFOPs(banco, Colunas[i], tipo_.grupos, NumeroDRQ));
        linha.push_back({Colunas[i], valores[i]});
    }
    tabela.Acrescentar(linha);
}

void RelatorioResumoCFOPs::ImprimirTitulosColunas(TabelaEmDesenho& tabela,
                                                  Recordset& identificacao) {
    const ConjuntoDeColunas& colunas = ColunasDaDeclaracao(identificacao);
    const TituloColuna comuns[] = {
        {"Valores Contábeis", 0, 1, 5.9, 1.8},    {"ICMS - VALORES FISCAIS", 1, 4, 5.9, 0.6},
        {tipo_.tituloComImposto, 1, 2, 6.5, 0.6}, {tipo_.tituloSemImposto, 3, 2, 6.5, 0.6},
        {"Base de Cálculo", 1, 1, 7.1, 0.6},      {tipo_.tituloImposto, 2, 1, 7.1, 0.6},
        {colunas.tituloIsentas, 3, 1, 7.1, 0.6},  {"Outras", 4, 1, 7.1, 0.6},
    };
    const auto imprimir = [&](const TituloColuna& t) {
        tabela.Titulo(CelulaTitulo, colunas.X(t.coluna), t.y, t.colunas * colunas.Largura(),
                      t.altura, t.texto, t.colunas);
    };
    tabela.ComecarTitulos(3, YTitulos, AlturaTitulo);
    tabela.Titulo(CelulaTitulo, 0, YTitulos, XValores, 1.8, "CÓDIGOS FISCAIS");
    std::for_each(std::begin(comuns), std::end(comuns), imprimir);
    std::for_each(colunas.titulos.begin(), colunas.titulos.end(), imprimir);
}

void RelatorioResumoCFOPs::ImprimirLinha(Recordset& linha, Recordset& identificacao, double y) {
    const auto texto = [&](std::string_view coluna) { return TextoCampo(linha.Fields(coluna)); };
    const ConjuntoDeColunas& colunas = ColunasDaDeclaracao(identificacao);

    const std::string rotulo = texto("Linha");
    const auto semRotulo =
        texto("ValorContábil").empty() ? FuncaoDaLinha::TituloDeGrupo : FuncaoDaLinha::Total;
    const Trecho trecho(Desenho(), LinhaDe(rotulo.empty() ? FuncaoDaLinha::Dados : semRotulo));
    {
        const Trecho codigo(Desenho(), TituloDeLinha(Natureza::Codigo));
        Celula(Desenho(), CelulaRotulo, 0, y, XValores, AlturaLinha, rotulo);
        Celula(Desenho(), CelulaValor, 0, y, XValores, AlturaLinha, texto("CFOP"));
    }
    for (int i = 0; const auto campo : colunas.campos) {
        Celula(Desenho(), CelulaDe(Natureza::Quantia), CelulaValor, colunas.X(i), y,
               colunas.Largura(), AlturaLinha, texto(campo));
        ++i;
    }
}

RelatorioResumoCFOPsEnt::RelatorioResumoCFOPsEnt(const Ambiente& ambiente)
    : RelatorioResumoCFOPs(Entradas, ambiente) {}

RelatorioResumoCFOPsSai::RelatorioResumoCFOPsSai(const Ambiente& ambiente)
    : RelatorioResumoCFOPs(Saidas, ambiente) {}

}  // namespace tarvo
