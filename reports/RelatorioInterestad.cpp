// SPDX-License-Identifier: MIT
#include "reports/RelatorioInterestad.h"

#include <algorithm>
#include <optional>
#include <span>
#include <vector>

#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "document/CicloPaginas.h"
#include "document/QuadroPagina.h"
#include "document/TabelaEmDesenho.h"
#include "reports/RelatorioEntInterestad.h"
#include "reports/RelatorioSaiInterestad.h"

namespace tarvo {

// A column heading. Columns count from 0 as from 2002 on.
struct TituloInterestad {
    std::string_view texto;
    std::size_t coluna;
    int colunas = 1;      // how many it spans
    double y = 0;         // cm below the headings' top
    double altura = 1.5;  // cm
};

// What differs between the two reports.
struct DescricaoInterestad {
    IdentidadeRelatorio identidade;
    std::string_view faixa;                       // title band above the columns
    char grupo;                                   // first character of the CFOPs
    std::span<const std::string_view> somas;      // summed columns, in the query's order
    std::span<const std::string_view> impressas;  // the same in the order of printing
    std::string_view tituloEstado;
    double larguraEstado;  // cm
    std::span<const TituloInterestad> titulos;
};

namespace {

constexpr double W = LarguraRetrato;
constexpr double YFaixa = 5.4;
constexpr double AlturaFaixa = 0.7;
constexpr double YTitulos = 6.1;
constexpr double AlturaTitulos = 1.5;
constexpr double Meia = AlturaTitulos / 2;
constexpr double PrimeiraLinha = 7.6;
constexpr double AlturaLinha = 0.6;
constexpr double LimiteLinha = 24.4;

constexpr EstiloTexto CelulaTexto{.tamanho = 6};
constexpr EstiloTexto CelulaTotal{.negrito = true};

constexpr std::string_view ColunaDesde2002 = "Imposto";

constexpr EstiloCabecalho Cabecalho{
    .titulo = "Informação das Operações e Prestações Interestaduais - ICMS", .barraFinal = false};

constexpr std::string_view SomasSaidas[] = {"ValorContábil_2", "ValorContábil_1", "BaseCálculo_2",
                                            "BaseCálculo_1",   "Imposto",         "Outras",
                                            "ICMSCobradoST"};
constexpr std::string_view ImpressasSaidas[] = {
    "ValorContábil_1", "ValorContábil_2", "BaseCálculo_1", "BaseCálculo_2",
    "Imposto",         "Outras",          "ICMSCobradoST"};
constexpr TituloInterestad TitulosSaidas[] = {
    {"Valor Contábil", 0, 2, 0, Meia},
    {"Contribuinte", 0, 1, Meia, Meia},
    {"Não Contribuinte", 1, 1, Meia, Meia},
    {"Base de Cálculo", 2, 2, 0, Meia},
    {"Contribuinte", 2, 1, Meia, Meia},
    {"Não Contribuinte", 3, 1, Meia, Meia},
    {"Imposto", 4},
    {"Outras", 5},
    {"ICMS Cobrado por\r\nSubstituição\r\nTributária", 6},
};

constexpr std::string_view SomasEntradas[] = {
    "ValorContábil_1", "BaseCálculo_1", "Imposto", "Outras", "PetróleoEnergia", "OutrosProdutos"};
constexpr TituloInterestad TitulosEntradas[] = {
    {"Valor\r\nContábil", 0},
    {"Base de\r\nCálculo", 1},
    {"Imposto", 2},
    {"Outras", 3},
    {"ICMS Cobrado por\r\nSubstituição Tributária", 4, 2, 0, Meia},
    {"Petróleo /\r\nEnergia", 4, 1, Meia, Meia},
    {"Outros\r\nProdutos", 5, 1, Meia, Meia},
};

constexpr DescricaoInterestad Entradas{
    .identidade = {.classe = "RelatorioEntInterestad",
                   .titulo = "Relatório de Informação das Operações e Prestações de Entradas "
                             "Interestaduais - ICMS",
                   .tituloResumido = "Oper. Entradas Interestaduais"},
    .faixa = "Entradas de Mercadorias, Bens e/ou Aquisições de Serviços",
    .grupo = '2',
    .somas = SomasEntradas,
    .impressas = SomasEntradas,
    .tituloEstado = "Código e Unidade da\r\nFederação de Origem",
    .larguraEstado = 3.5,
    .titulos = TitulosEntradas};

constexpr DescricaoInterestad Saidas{
    .identidade = {.classe = "RelatorioSaiInterestad",
                   .titulo = "Relatório de Informação das Operações e Prestações de Saídas "
                             "Interestaduais - ICMS",
                   .tituloResumido = "Oper. Saídas Interestaduais"},
    .faixa = "Saídas de Mercadorias, Bens e/ou Prestações de Serviços",
    .grupo = '6',
    .somas = SomasSaidas,
    .impressas = ImpressasSaidas,
    .tituloEstado = "Código e Unidade da\r\nFederação de Destino",
    .larguraEstado = 3.2,
    .titulos = TitulosSaidas};

std::string ConsultaEstados(const DescricaoInterestad& d, std::int32_t NumeroDRQ) {
    std::string consulta = "select [UF] & '. ' & [Estado] as UFESTADO, Estado";
    for (const auto campo : d.somas) {
        consulta.append(", sum(tblDetalhesInterUFs.").append(campo);
        consulta.append(") as Soma_").append(campo);
    }
    consulta +=
        " from tblDetalhesInterUFs inner join tblEstados "
        "on tblDetalhesInterUFs.UF = tblEstados.Código "
        "where (((Left(tblDetalhesInterUFs.CFOP, 1)) = '";
    return consulta + d.grupo +
           "')) and tblDetalhesInterUFs.NroDRQ = " + std::to_string(NumeroDRQ) +
           " group by [UF] & '. ' & [Estado], Estado order by Estado";
}

// The columns of one document: all from 2002 on, without the tax before.
class Colunas {
  public:
    Colunas(const DescricaoInterestad& descricao, int ano) : d_(descricao) {
        for (std::size_t i = 0; i < d_.impressas.size(); ++i) {
            if (ano >= 2002 || d_.impressas[i] != ColunaDesde2002) {
                colunas_.push_back(i);
            }
        }
        largura_ = (W - d_.larguraEstado) / static_cast<double>(colunas_.size());
    }

    void ImprimirTitulos(TabelaEmDesenho& tabela) const {
        tabela.ComecarTitulos(2, YTitulos, Meia);
        tabela.Titulo(CelulaTitulo, 0, YTitulos, d_.larguraEstado, AlturaTitulos, d_.tituloEstado);
        for (const auto& titulo : d_.titulos) {
            const auto achada = std::find(colunas_.begin(), colunas_.end(), titulo.coluna);
            if (achada != colunas_.end()) {
                tabela.Titulo(CelulaTitulo, X(achada - colunas_.begin()), YTitulos + titulo.y,
                              titulo.colunas * largura_, titulo.altura, titulo.texto,
                              titulo.colunas);
            }
        }
    }

    // A row of label and amounts; valores holds all columns, in the order of printing.
    void ImprimirLinha(DocumentoRelatorio& doc, double y, FuncaoDaLinha funcao,
                       std::string_view rotulo, const std::vector<Moeda>& valores) const {
        const Trecho linha(doc, LinhaDe(funcao));
        Celula(doc, TituloDeLinha(), funcao == FuncaoDaLinha::Total ? CelulaTotal : CelulaTexto, 0,
               y, d_.larguraEstado, AlturaLinha, rotulo);
        std::ptrdiff_t k = 0;
        for (const auto coluna : colunas_) {
            Celula(doc, CelulaDe(Natureza::Quantia), CelulaValor, X(k++), y, largura_, AlturaLinha,
                   FormatarValor(valores[coluna]));
        }
    }

  private:
    [[nodiscard]] double X(std::ptrdiff_t k) const {
        return d_.larguraEstado + static_cast<double>(k) * largura_;
    }

    const DescricaoInterestad& d_;
    std::vector<std::size_t> colunas_;  // indices into d_.impressas
    double largura_ = 0;                // of a value column, cm
};

std::vector<Moeda> LerSomas(const DescricaoInterestad& d, Recordset& estado) {
    std::vector<Moeda> somas;
    for (const auto campo : d.impressas) {
        somas.push_back(MoedaCampo(estado.Fields("Soma_" + std::string(campo))));
    }
    return somas;
}

}  // namespace

RelatorioInterestad::RelatorioInterestad(const DescricaoInterestad& descricao,
                                         const Ambiente& ambiente)
    : RelatorioDeConsulta(descricao.identidade, ambiente), descricao_(descricao) {}

std::string RelatorioInterestad::Consulta(std::int32_t NumeroDRQ) const {
    return ConsultaEstados(descricao_, NumeroDRQ);
}

void RelatorioInterestad::ImprimirPaginas(BancoDados& /*banco*/, Recordset& identificacao,
                                          Recordset& estados) {
    const Colunas colunas(descricao_, DataCampo(identificacao.Fields("Ref1")).Ano());
    std::optional<TabelaEmDesenho> tabela;  // begins under the first page's header
    CicloPaginas paginas(Desenho(), PrimeiraLinha, [&] {
        ImprimirCabecalho(Desenho(), Cabecalho, 0, 0, identificacao);
        Celula(Desenho(), {.tipo = TipoElemento::Secao}, TituloQuadro, 0, YFaixa, W, AlturaFaixa,
               descricao_.faixa);
        if (!tabela) {
            tabela.emplace(Desenho());
        }
        colunas.ImprimirTitulos(*tabela);
    });
    std::vector<Moeda> totais(descricao_.impressas.size());
    for (; !estados.EOF_(); estados.MoveNext()) {
        const auto somas = LerSomas(descricao_, estados);
        colunas.ImprimirLinha(Desenho(), paginas.Bloco(LimiteLinha, AlturaLinha),
                              FuncaoDaLinha::Dados, TextoCampo(estados.Fields("UFESTADO")), somas);
        std::transform(somas.begin(), somas.end(), totais.begin(), totais.begin(),
                       [](Moeda soma, Moeda total) { return total + soma; });
    }
    colunas.ImprimirLinha(Desenho(), paginas.Bloco(LimiteLinha, AlturaLinha), FuncaoDaLinha::Total,
                          "Total", totais);
    paginas.Encerrar();
}

RelatorioEntInterestad::RelatorioEntInterestad(const Ambiente& ambiente)
    : RelatorioInterestad(Entradas, ambiente) {}

RelatorioSaiInterestad::RelatorioSaiInterestad(const Ambiente& ambiente)
    : RelatorioInterestad(Saidas, ambiente) {}

}  // namespace tarvo
