// SPDX-License-Identifier: MIT
#include "reports/RelatorioMIDAXB.h"

#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "document/CicloPaginas.h"
#include "document/QuadroPagina.h"
#include "document/TabelaEmDesenho.h"

namespace tarvo {

// What differs between the groups.
struct DescricaoMIDAXB {
    IdentidadeRelatorio identidade;
    std::string_view grupo;  // first character of the codes
    std::string_view titulo;
};

namespace {

using namespace Alinhamento;

constexpr DescricaoMIDAXB Codigo1{
    .identidade = {.classe = "RelatorioMIDAXBCodigo1",
                   .titulo = "Relatório de Informações Adicionais para MIDAX - Código 1",
                   .tituloResumido = "Informações p/ MIDAX - Cód. 1"},
    .grupo = "1",
    .titulo = "MIDAX-B - Código 1"};
constexpr DescricaoMIDAXB Codigo2{
    .identidade = {.classe = "RelatorioMIDAXBCodigo2",
                   .titulo = "Relatório de Informações Adicionais para MIDAX - Código 2",
                   .tituloResumido = "Informações p/ MIDAX - Cód. 2"},
    .grupo = "2",
    .titulo = "MIDAX-B - Código 2"};
constexpr DescricaoMIDAXB Codigo3{
    .identidade = {.classe = "RelatorioMIDAXBCodigo3",
                   .titulo = "Relatório de Informações Adicionais para MIDAX - Código 3",
                   .tituloResumido = "Informações p/ MIDAX - Cód. 3"},
    .grupo = "3",
    .titulo = "MIDAX-B - Código 3"};

constexpr double W = LarguraRetrato;
constexpr double Meia = W / 2;
constexpr double YCabecalhoGrupo = 3.8;
constexpr double AlturaCabecalhoGrupo = 2.1;
constexpr double PrimeiraLinha = 8.2;
constexpr double AlturaLinha = 0.6;
constexpr double LimiteLinha = 24.4;
constexpr double AlturaBloco = 2.3;
constexpr double LimiteBloco = 22.7;
constexpr int ColunasDaTabela = 3;  // in every group
constexpr double AlturaTotal = 0.7;
constexpr double LimiteTotal = 24.3;

constexpr EstiloCampo CampoLinha{
    {.recuoTopo = 0.05, .recuoBase = 0.05, .negrito = true, .cor = Cor::Teal},
    {.recuoTopo = 0.05, .recuoBase = 0.05, .horizontal = Direita}};

std::string ConsultaMunicipios(std::string_view grupo, std::int32_t NumeroDRQ) {
    return "select * from tblMIDAX, tblMunicípios where Left(tblMIDAX.CódMIDAX, 1) = " +
           TextoSql(grupo) + " And tblMIDAX.Município = tblMunicípios.CódMunicípio And NroDRQ = " +
           std::to_string(NumeroDRQ) + " order by tblMunicípios.Município, tblMIDAX.CódMIDAX";
}

std::string ConsultaCodigos(std::string_view grupo, std::int32_t NumeroDRQ) {
    return "select * from tblMIDAX, tblCódigosMIDAX where Left(tblMIDAX.CódMIDAX, 1) = " +
           TextoSql(grupo) + " And tblMIDAX.CódMIDAX = tblCódigosMIDAX.Código And NroDRQ = " +
           std::to_string(NumeroDRQ);
}

// The heading of a group of codes: that of the first code of the group, without its final full
// stop; "" when there is none.
std::string CabecalhoCodigoMIDAX(BancoDados& banco, std::string_view grupo) {
    const auto codigos = banco.OpenRecordset(
        "select Cabeçalho from tblCódigosMIDAX where Left(tblCódigosMIDAX.Código, 1) = " +
            TextoSql(grupo),
        TipoRecordset::ForwardOnly);
    std::string cabecalho = codigos->EOF_() ? "" : TextoCampo(codigos->Fields(0));
    if (cabecalho.ends_with('.')) {
        cabecalho.pop_back();
    }
    return cabecalho;
}

// The page header, with the heading of the group of codes between title and identification.
void ImprimirCabecalhoMIDAXB(DocumentoRelatorio& doc, const DescricaoMIDAXB& descricao,
                             std::string_view cabecalhoGrupo, Recordset& identificacao) {
    const EstiloCabecalho estilo{.titulo = descricao.titulo,
                                 .alturaTitulo = 0.9,
                                 .tamanhoTitulo = 16,
                                 .yIdentificacao = YCabecalhoGrupo + AlturaCabecalhoGrupo};
    ImprimirTopo(doc, estilo, 0, 0, &identificacao);
    Celula(doc, TituloQuadro, 0, YCabecalhoGrupo, W, AlturaCabecalhoGrupo, cabecalhoGrupo);
    ImprimirIdentificacao(doc, estilo, 0, 0, identificacao);
}

EstiloCampo ValorEmBloco(std::int32_t horizontal) {
    return {Campo.rotulo,
            {.recuoX = 0.2,
             .recuoTopo = 0.4,
             .horizontal = horizontal,
             .vertical = Topo,
             .tamanho = 7,
             .multilinha = true}};
}

}  // namespace

RelatorioMIDAXBMunicipios::RelatorioMIDAXBMunicipios(const DescricaoMIDAXB& descricao,
                                                     const Ambiente& ambiente)
    : RelatorioDeConsulta(descricao.identidade, ambiente), descricao_(descricao) {}

std::string RelatorioMIDAXBMunicipios::Consulta(std::int32_t NumeroDRQ) const {
    return ConsultaMunicipios(descricao_.grupo, NumeroDRQ);
}

void RelatorioMIDAXBMunicipios::ImprimirPaginas(BancoDados& banco, Recordset& identificacao,
                                                Recordset& entradas) {
    const std::string cabecalho = CabecalhoCodigoMIDAX(banco, descricao_.grupo);
    CicloPaginas paginas(Desenho(), PrimeiraLinha, [&] {
        ImprimirCabecalhoMIDAXB(Desenho(), descricao_, cabecalho, identificacao);
    });
    const TabelaEmDesenho tabela(Desenho());
    const auto municipio = [&] { return TextoCampo(entradas.Fields("tblMunicípios.Município")); };
    Moeda total;
    Moeda subtotal;
    while (!entradas.EOF_()) {
        const std::string municipioAtual = municipio();
        ImprimirLinha(paginas.Bloco(LimiteLinha, AlturaLinha), municipioAtual, entradas);
        const Moeda valor = MoedaCampo(entradas.Fields("Valor"));
        subtotal += valor;
        total += valor;
        entradas.MoveNext();
        if (entradas.EOF_() || municipio() != municipioAtual) {
            ImprimirSoma(paginas.Bloco(LimiteLinha, AlturaLinha), FuncaoDaLinha::Subtotal,
                         "Subtotal", subtotal);
            subtotal = Moeda();
        }
    }
    ImprimirSoma(paginas.Bloco(LimiteLinha, AlturaLinha), FuncaoDaLinha::Total, "Total", total);
    paginas.Encerrar();
}

void RelatorioMIDAXBMunicipios::ImprimirLinha(double y, std::string_view municipio,
                                              Recordset& entrada) {
    const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::Dados));
    CelulaRotulada(Desenho(), CampoLinha, 0, y, Meia, AlturaLinha, municipio,
                   TextoCampo(entrada.Fields("CódMIDAX")), TituloDeLinha(Natureza::Codigo, 2));
    const Trecho valor(Desenho(), CelulaDe(Natureza::Quantia));
    Celula(Desenho(), CampoLinha.rotulo, Meia, y, Meia, AlturaLinha, "");
    EscreverEmCaixa(Desenho(), CampoLinha.valor, Meia, y, Meia, AlturaLinha,
                    FormatarValor(MoedaCampo(entrada.Fields("Valor"))));
}

void RelatorioMIDAXBMunicipios::ImprimirSoma(double y, FuncaoDaLinha funcao,
                                             std::string_view rotulo, Moeda soma) {
    const Trecho linha(Desenho(), LinhaDe(funcao));
    CelulaRotulada(Desenho(), CampoLinha, Meia, y, Meia, AlturaLinha, rotulo, FormatarValor(soma),
                   CelulaDe(Natureza::Quantia, ColunasDaTabela));
}

RelatorioMIDAXBCodigo1::RelatorioMIDAXBCodigo1(const Ambiente& ambiente)
    : RelatorioMIDAXBMunicipios(Codigo1, ambiente) {}

RelatorioMIDAXBCodigo2::RelatorioMIDAXBCodigo2(const Ambiente& ambiente)
    : RelatorioMIDAXBMunicipios(Codigo2, ambiente) {}

RelatorioMIDAXBCodigo3::RelatorioMIDAXBCodigo3(const Ambiente& ambiente)
    : RelatorioDeConsulta(Codigo3.identidade, ambiente) {}

std::string RelatorioMIDAXBCodigo3::Consulta(std::int32_t NumeroDRQ) const {
    return ConsultaCodigos(Codigo3.grupo, NumeroDRQ);
}

void RelatorioMIDAXBCodigo3::ImprimirPaginas(BancoDados& banco, Recordset& identificacao,
                                             Recordset& entradas) {
    const std::string cabecalho = CabecalhoCodigoMIDAX(banco, Codigo3.grupo);
    CicloPaginas paginas(Desenho(), PrimeiraLinha, [&] {
        ImprimirCabecalhoMIDAXB(Desenho(), Codigo3, cabecalho, identificacao);
    });
    TabelaEmDesenho tabela(Desenho());
    Moeda total;
    for (; !entradas.EOF_(); entradas.MoveNext()) {
        ImprimirBloco(tabela, paginas.Bloco(LimiteBloco, AlturaBloco), entradas);
        total += MoedaCampo(entradas.Fields("Valor"));
    }
    ImprimirTotal(paginas.Bloco(LimiteTotal, AlturaTotal), total);
    paginas.Encerrar();
}

void RelatorioMIDAXBCodigo3::ImprimirBloco(TabelaEmDesenho& tabela, double y, Recordset& entrada) {
    tabela.ComecarTitulos();
    const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::Dados));
    const auto caixa = [&](Elemento celula, double x, double largura, std::int32_t horizontal,
                           std::string_view rotulo, std::string_view valor) {
        tabela.Caixa(ValorEmBloco(horizontal), x, y, largura, AlturaBloco, rotulo, valor, celula);
    };
    caixa(TituloDeLinha(Natureza::Codigo), 0, 1.8, Esquerda, "Código MIDAX",
          TextoCampo(entrada.Fields("CódMIDAX")));
    caixa(CelulaDe(Natureza::Texto), 1.8, 12.0, Esquerda, "Descrição",
          TextoCampo(entrada.Fields("Descrição")));
    caixa(CelulaDe(Natureza::Quantia), 13.8, 3.2, Direita, "Valor",
          FormatarValor(MoedaCampo(entrada.Fields("Valor"))));
}

void RelatorioMIDAXBCodigo3::ImprimirTotal(double y, Moeda total) {
    EstiloCampo estilo = CampoTotal;
    estilo.valor.tamanho = 7;
    const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::Total));
    CelulaRotulada(Desenho(), estilo, Meia, y, Meia, AlturaTotal, "Total", FormatarValor(total),
                   CelulaDe(Natureza::Quantia, ColunasDaTabela));
}

}  // namespace tarvo
