// SPDX-License-Identifier: MIT
#include "reports/RelatorioDetSubitens.h"

#include <span>

#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "document/CicloPaginas.h"
#include "document/QuadroPagina.h"
#include "document/TabelaEmDesenho.h"
#include "reports/FamiliasDeSubitens.h"

namespace tarvo {

enum class FormatoCaixa { Texto, MesAno };

// A box of a supporting row, beside the value box that ends every row.
struct CaixaLinha {
    double x;  // cm
    double largura;
    std::string_view rotulo;
    std::string_view campo;
    FormatoCaixa formato = FormatoCaixa::Texto;
};

// What differs between the five reports.
struct DescricaoDetSubitens {
    IdentidadeRelatorio identidade;
    std::string_view titulo;  // two lines
    const FamiliaDeSubitens& familia;
    std::string_view ordem;
    std::span<const CaixaLinha> caixas;
    std::span<const CaixaLinha> caixasSemNota = {};  // of the sub-item without invoice numbers
    std::string_view rotuloValor;
    std::string_view rotuloSubtotal = "Subtotal";
    std::string_view rotuloTotal = "Total";

    [[nodiscard]] int Colunas() const { return static_cast<int>(caixas.size()) + 1; }
};

namespace {

constexpr double W = LarguraRetrato;
constexpr double Meia = W / 2;
constexpr double Quarto = W / 4;
constexpr double Terco = 2 * Quarto / 3;  // of the half left of the value box and its neighbour
constexpr double PrimeiraLinha = 6.6;
constexpr double AlturaSubitem = 1.8;
constexpr double AlturaLinha = 0.6;
constexpr double AlturaCaixaSoma = 0.7;
constexpr double AlturaSoma = 1.2;  // with its bar and the gap before the next block
constexpr double LimiteSubitem = 22.6;
constexpr double LimiteLinha = 24.4;
constexpr double LimiteSoma = 24.0;

constexpr CaixaLinha CaixasCredAcum[] = {
    {Meia, Quarto, "Inscrição Estadual do Remetente", "IERemetente"}};
constexpr DescricaoDetSubitens CredAcum{
    .identidade = {.classe = "RelatorioDetRecCredAcum",
                   .titulo = "Relatório de Recebimento de Crédito Acumulado (Subitens 007.04 a "
                             "007.07) - Operações Próprias",
                   .tituloResumido = "Rec Créd Acum Oper Próprias"},
    .titulo =
        "Recebimento de Crédito Acumulado\r\n"
        "(Subitens 007.04 a 007.07) - Operações Próprias",
    .familia = familias::CredAcum,
    .ordem = "IERemetente",
    .caixas = CaixasCredAcum,
    .rotuloValor = "Valor da Nota Fiscal"};

constexpr CaixaLinha CaixasCredAcVE[] = {{Meia, Quarto, "Visto Eletrônico", "CodAutorização"}};
constexpr DescricaoDetSubitens CredAcVE{
    .identidade = {.classe = "RelatorioDetRecCredAcVE",
                   .titulo = "Relatório de Crédito Acumulado com Visto Eletrônico (Subitens "
                             "002.20, 002.21, 007.40 e 007.41) - Operações Próprias",
                   .tituloResumido = "Rec Créd Acum Oper Próprias"},
    .titulo =
        "Crédito Acumulado com Visto Eletrônico\r\n"
        "(Subitens 002.20, 002.21, 007.40 e 007.41) - Operações Próprias",
    .familia = familias::CredAcVE,
    .ordem = "CodAutorização",
    .caixas = CaixasCredAcVE,
    .rotuloValor = "Valor",
    .rotuloSubtotal = "Total",
    .rotuloTotal = "Total Geral"};

constexpr CaixaLinha CaixasCentrRecImp[] = {{Meia, Quarto, "Inscrição Estadual", "IERemetente"}};
constexpr DescricaoDetSubitens CentrRecImp{
    .identidade = {.classe = "RelatorioDetCentrRecImp",
                   .titulo = "Relatório de Centralização do Imposto (Subitens 002.18, 002.19, "
                             "007.29 e 007.30) - Operações Próprias",
                   .tituloResumido = "Centr. Imposto Oper. Próprias"},
    .titulo =
        "Centralização do Imposto\r\n"
        "(Subitens 002.18, 002.19, 007.29 e 007.30) - Operações Próprias",
    .familia = familias::CentrRecImp,
    .ordem = "IERemetente",
    .caixas = CaixasCentrRecImp,
    .rotuloValor = "Valor da Transferência"};

constexpr CaixaLinha InicioPeriodo{Terco + Quarto, Terco, "Início do Período", "DataInicio",
                                   FormatoCaixa::MesAno};
constexpr CaixaLinha FinalPeriodo{2 * Terco + Quarto, Terco, "Final do Período", "DataFim",
                                  FormatoCaixa::MesAno};
constexpr CaixaLinha CaixasSubstitui[] = {
    {0, Quarto, "Inscrição Estadual do Substituto", "IESubstituto"},
    {Quarto, Terco, "Nota Fiscal", "NF"},
    InicioPeriodo,
    FinalPeriodo};
constexpr CaixaLinha CaixasSubstituiSemNota[] = {
    {Terco, Quarto, "Inscrição Estadual do Substituto", "IESubstituto"},
    InicioPeriodo,
    FinalPeriodo};
constexpr DescricaoDetSubitens ResSubstitui{
    .identidade = {.classe = "RelatorioDetResSubstitui",
                   .titulo = "Relatório de Ressarcimento do ICMS Retido por ST (Subitens 002.10 e "
                             "002.11) - Operações Próprias",
                   .tituloResumido = "Ressarc ICMS Ret. ST - Op. Pr."},
    .titulo =
        "Ressarcimento do ICMS Retido por ST\r\n"
        "(Subitens 002.10 e 002.11) - Operações Próprias",
    .familia = familias::ResSubstitui,
    .ordem = "IESubstituto, NF",
    .caixas = CaixasSubstitui,
    .caixasSemNota = CaixasSubstituiSemNota,
    .rotuloValor = "Valor do Ressarcimento"};

constexpr CaixaLinha CaixasSubstitut[] = {
    {2 * Terco, Quarto, "Inscrição Estadual do Substituído", "IESubstituido"},
    {2 * Terco + Quarto, Terco, "Nota Fiscal", "NF"}};
constexpr CaixaLinha CaixasSubstitutSemNota[] = {
    {2 * Quarto, Quarto, "Inscrição Estadual do Substituído", "IESubstituido"}};
constexpr DescricaoDetSubitens ResSubstitut{
    .identidade = {.classe = "RelatorioDetResSubstitut",
                   .titulo = "Ressarcimento do ICMS Retido por ST (Subitens 007.01 e 007.02) - "
                             "ST-11",
                   .tituloResumido = "Ressarc. ICMS Ret. ST - ST-11"},
    .titulo = "Ressarcimento do ICMS Retido por ST\r\n(Subitens 007.01 e 007.02) - ST-11",
    .familia = familias::ResSubstitut,
    .ordem = "IESubstituido, NF",
    .caixas = CaixasSubstitut,
    .caixasSemNota = CaixasSubstitutSemNota,
    .rotuloValor = "Valor do Ressarcimento"};

std::string ConsultaEntradas(const DescricaoDetSubitens& d, std::int32_t NumeroDRQ) {
    const std::string opProprias = d.familia.opProprias ? "TRUE" : "FALSE";
    std::string consulta =
        "select tblOcorrências.CódSubItem, tblOcorrências.NroDRQ, tblOcorrências.Código, "
        "tblOcorrências.Valor, tblOcorrências.OpPróprias, tblQuadroOcorrências.Ocorrência, "
        "tblQuadroOcorrências.FLegal from tblOcorrências inner join tblQuadroOcorrências on "
        "(tblOcorrências.CódSubItem = tblQuadroOcorrências.CódSubItem) where "
        "(tblQuadroOcorrências.OpPróprias = " +
        opProprias + ") and ((";
    std::string_view separador;
    for (const auto subitem : d.familia.subitens) {
        consulta.append(separador).append("tblOcorrências.CódSubItem = ");
        consulta += TextoSql(subitem);
        separador = " Or ";
    }
    return consulta + ") AND tblOcorrências.OpPróprias = " + opProprias +
           " AND tblOcorrências.NroDRQ = " + std::to_string(NumeroDRQ) +
           ") order by tblOcorrências.CódSubItem";
}

std::string ConsultaLinhas(const DescricaoDetSubitens& d, std::int32_t codigo) {
    std::string consulta = "select * from ";
    consulta.append(d.familia.tabela).append(" where Código = ").append(std::to_string(codigo));
    return consulta.append(" order by ").append(d.ordem);
}

std::string TextoDaCaixa(const CaixaLinha& caixa, const Valor& valor) {
    return caixa.formato == FormatoCaixa::MesAno ? FormatarMesAno(DataCampo(valor))
                                                 : TextoCampo(valor);
}

}  // namespace

RelatorioDetSubitens::RelatorioDetSubitens(const DescricaoDetSubitens& descricao,
                                           const Ambiente& ambiente)
    : RelatorioDeConsulta(descricao.identidade, ambiente), descricao_(descricao) {}

std::string RelatorioDetSubitens::Consulta(std::int32_t NumeroDRQ) const {
    return ConsultaEntradas(descricao_, NumeroDRQ);
}

void RelatorioDetSubitens::ImprimirPaginas(BancoDados& banco, Recordset& identificacao,
                                           Recordset& entradas) {
    const EstiloCabecalho cabecalho{
        .titulo = descricao_.titulo, .alturaTitulo = 1.4, .yIdentificacao = 4.3};
    CicloPaginas paginas(Desenho(), PrimeiraLinha,
                         [&] { ImprimirCabecalho(Desenho(), cabecalho, 0, 0, identificacao); });
    TabelaEmDesenho tabela(Desenho());
    if (entradas.EOF_()) {
        ImprimirSubitem(paginas.Bloco(LimiteSubitem, AlturaSubitem), " ", " ", " ");
    }
    Moeda total;
    for (; !entradas.EOF_(); entradas.MoveNext()) {
        const std::string subitem = TextoCampo(entradas.Fields("CódSubItem"));
        ImprimirSubitem(paginas.Bloco(LimiteSubitem, AlturaSubitem), subitem,
                        TextoCampo(entradas.Fields("Ocorrência")),
                        TextoCampo(entradas.Fields("FLegal")));
        const auto linhas =
            banco.OpenRecordset(ConsultaLinhas(descricao_, LongCampo(entradas.Fields("Código"))),
                                TipoRecordset::ForwardOnly);
        for (; !linhas->EOF_(); linhas->MoveNext()) {
            ImprimirLinha(tabela, paginas.Bloco(LimiteLinha, AlturaLinha), subitem, *linhas);
        }
        const Moeda declarado = MoedaCampo(entradas.Fields("Valor"));
        ImprimirSoma(paginas.Bloco(LimiteSoma, AlturaSoma), FuncaoDaLinha::Subtotal,
                     descricao_.rotuloSubtotal, declarado);
        total += declarado;
    }
    ImprimirSoma(paginas.Bloco(LimiteSoma, AlturaSoma), FuncaoDaLinha::Total,
                 descricao_.rotuloTotal, total);
    paginas.Encerrar();
}

void RelatorioDetSubitens::ImprimirSubitem(double y, std::string_view subitem,
                                           std::string_view ocorrencia,
                                           std::string_view fundamento) {
    constexpr double AlturaCodigo = 0.7;
    constexpr double AlturaTextos = AlturaSubitem - AlturaCodigo;
    const int colunas = descricao_.Colunas();
    {
        const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::TituloDeGrupo));
        CelulaRotulada(Desenho(), CampoTotalNegrito, 0, y, W, AlturaCodigo, "Código do Subitem",
                       subitem, TituloDeLinha(Natureza::Codigo, colunas));
    }
    const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::TituloDeGrupo));
    CelulaRotulada(Desenho(), CampoMultilinhaPequeno, 0, y + AlturaCodigo, Meia, AlturaTextos,
                   "Ocorrência", ocorrencia, CelulaDe(Natureza::Texto, colunas / 2));
    CelulaRotulada(Desenho(), CampoMultilinhaPequeno, Meia, y + AlturaCodigo, Meia, AlturaTextos,
                   "Fundamentação Legal", fundamento,
                   CelulaDe(Natureza::Texto, colunas - colunas / 2));
}

void RelatorioDetSubitens::ImprimirLinha(TabelaEmDesenho& tabela, double y,
                                         std::string_view subitem, Recordset& linha) {
    const bool semNota = subitem == descricao_.familia.subitemSemNota;
    const auto caixas = semNota ? descricao_.caixasSemNota : descricao_.caixas;
    tabela.ComecarTitulos();
    const Trecho trecho(Desenho(), LinhaDe(FuncaoDaLinha::Dados));
    // The first box heads the row, over the columns of the boxes that it lacks.
    Elemento celula =
        TituloDeLinha(Natureza::Codigo, descricao_.Colunas() - static_cast<int>(caixas.size()));
    for (const auto& caixa : caixas) {
        tabela.Caixa(CampoValor, caixa.x, y, caixa.largura, AlturaLinha, caixa.rotulo,
                     TextoDaCaixa(caixa, linha.Fields(caixa.campo)), celula);
        celula = CelulaDe(Natureza::Codigo);
    }
    tabela.Caixa(CampoValor, 3 * Quarto, y, Quarto, AlturaLinha, descricao_.rotuloValor,
                 FormatarValor(MoedaCampo(linha.Fields("Valor"))), CelulaDe(Natureza::Quantia));
}

void RelatorioDetSubitens::ImprimirSoma(double y, FuncaoDaLinha funcao, std::string_view rotulo,
                                        Moeda soma) {
    const Trecho linha(Desenho(), LinhaDe(funcao));
    CelulaRotulada(Desenho(), CampoTotal, 0, y, W, AlturaCaixaSoma, rotulo, FormatarValor(soma),
                   CelulaDe(Natureza::Quantia, descricao_.Colunas()));
    Barra(Desenho(), 0, y + 0.9, W);
}

RelatorioDetRecCredAcum::RelatorioDetRecCredAcum(const Ambiente& ambiente)
    : RelatorioDetSubitens(CredAcum, ambiente) {}

RelatorioDetRecCredAcVE::RelatorioDetRecCredAcVE(const Ambiente& ambiente)
    : RelatorioDetSubitens(CredAcVE, ambiente) {}

RelatorioDetCentrRecImp::RelatorioDetCentrRecImp(const Ambiente& ambiente)
    : RelatorioDetSubitens(CentrRecImp, ambiente) {}

RelatorioDetResSubstitui::RelatorioDetResSubstitui(const Ambiente& ambiente)
    : RelatorioDetSubitens(ResSubstitui, ambiente) {}

RelatorioDetResSubstitut::RelatorioDetResSubstitut(const Ambiente& ambiente)
    : RelatorioDetSubitens(ResSubstitut, ambiente) {}

}  // namespace tarvo
