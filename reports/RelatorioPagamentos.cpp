// SPDX-License-Identifier: MIT
#include "reports/RelatorioPagamentos.h"

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "document/CicloPaginas.h"
#include "document/QuadroPagina.h"
#include "document/TabelaEmDesenho.h"

namespace tarvo {

namespace {

using namespace Alinhamento;

constexpr IdentidadeRelatorio Pagamentos{.classe = "RelatorioPagamentos",
                                         .titulo = "Relatório de Pagamentos",
                                         .tituloResumido = "Relatório de Pagamentos"};
constexpr EstiloCabecalho Cabecalho{.titulo = "Datas de Pagamento"};

constexpr double LarguraData = 12.0;
constexpr double LarguraValor = 5.0;
constexpr double AlturaLinha = 0.6;
constexpr double AlturaTitulos = 1.2;
constexpr double PrimeiraLinha = 5.9;
constexpr double LimiteTitulos = 23.2;  // titles and one line must fit
constexpr double LimiteLinha = 24.4;

constexpr EstiloTexto CelulaTituloGrupo{
    .recuoX = 0, .horizontal = Centro, .tamanho = 10, .negrito = true};
constexpr EstiloTexto CelulaDireitaRecuadaNegrito{
    .recuoX = 0.2, .horizontal = Direita, .negrito = true};

enum Grupo : int { Nenhum = 0, OperacoesProprias = 1, SubstituicaoTributaria = 2 };

int GrupoDe(Recordset& pagamento) {
    return BooleanoCampo(pagamento.Fields("OpPróprias")) ? OperacoesProprias
                                                         : SubstituicaoTributaria;
}

// An amount for a sum that, unlike the printed line, does not take Null for zero.
double ValorParaSoma(const Valor& valor) {
    if (EhNulo(valor)) {
        LancarUsoInvalidoDeNull("valor de um pagamento");
    }
    return MoedaCampo(valor).ParaDouble();
}

}  // namespace

RelatorioPagamentos::RelatorioPagamentos(const Ambiente& ambiente)
    : RelatorioDeConsulta(Pagamentos, ambiente) {}

std::string RelatorioPagamentos::Consulta(std::int32_t NumeroDRQ) const {
    return ConsultaDaDeclaracao("tblPagamento", NumeroDRQ) + " order by opPróprias, data";
}

void RelatorioPagamentos::ImprimirPaginas(BancoDados& /*banco*/, Recordset& identificacao,
                                          Recordset& pagamentos) {
    CicloPaginas paginas(Desenho(), PrimeiraLinha,
                         [&] { ImprimirCabecalho(Desenho(), Cabecalho, 0, 0, identificacao); });
    TabelaEmDesenho tabela(Desenho());
    int grupoAnterior = Nenhum;
    double total = 0;
    for (; !pagamentos.EOF_(); pagamentos.MoveNext()) {
        const int grupo = GrupoDe(pagamentos);
        if (grupo != grupoAnterior) {
            if (grupoAnterior != Nenhum) {
                ImprimirTotal(0, paginas.Bloco(LimiteLinha, AlturaLinha), total);
                total = 0;
            }
            ImprimirTitulosGrupo(tabela, paginas.Bloco(LimiteTitulos, AlturaTitulos), grupo);
            grupoAnterior = grupo;
        }
        ImprimirLinha(paginas.Bloco(LimiteLinha, AlturaLinha), pagamentos);
        total += ValorParaSoma(pagamentos.Fields("Valor"));
    }
    ImprimirTotal(0, paginas.Bloco(LimiteLinha, AlturaLinha), total);
    paginas.Encerrar();
}

void RelatorioPagamentos::AdicionarTotalOP(double x, double y, double totOp) {
    const TabelaEmDesenho tabela(Desenho());
    ImprimirTotal(x, y, totOp);
}

void RelatorioPagamentos::ImprimirTotal(double x, double y, double total) {
    const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::Subtotal));
    Celula(Desenho(), TituloDeLinha(), CelulaRotulo, x, y, LarguraData, AlturaLinha, "Total");
    Celula(Desenho(), CelulaDe(Natureza::Quantia), CelulaDireitaRecuadaNegrito, x + LarguraData, y,
           LarguraValor, AlturaLinha, FormatarValor(Moeda::DeDouble(total)));
}

void RelatorioPagamentos::ImprimirTitulosGrupo(TabelaEmDesenho& tabela, double y, int grupo) {
    {
        const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::TituloDeGrupo));
        Celula(Desenho(), TituloDeLinha(Natureza::Texto, 2), CelulaTituloGrupo, 0, y,
               LarguraRetrato, AlturaLinha,
               grupo == OperacoesProprias ? "Operações Próprias" : "Substituição Tributária");
    }
    tabela.ComecarTitulos();
    tabela.Titulo(CelulaTextoFixo, 0, y + AlturaLinha, LarguraData, AlturaLinha,
                  "Data de Vencimento");
    tabela.Titulo(CelulaTextoFixo, LarguraData, y + AlturaLinha, LarguraValor, AlturaLinha,
                  "Valor");
}

void RelatorioPagamentos::ImprimirLinha(double y, Recordset& pagamento) {
    const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::Dados));
    Celula(Desenho(), TituloDeLinha(Natureza::Data), CelulaTextoFixo, 0, y, LarguraData,
           AlturaLinha, FormatarData(DataCampo(pagamento.Fields("Data"))));
    Celula(Desenho(), CelulaDe(Natureza::Quantia), CelulaDireitaRecuada, LarguraData, y,
           LarguraValor, AlturaLinha, FormatarValor(MoedaCampo(pagamento.Fields("Valor"))));
}

}  // namespace tarvo
