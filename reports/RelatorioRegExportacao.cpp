// SPDX-License-Identifier: MIT
#include "reports/RelatorioRegExportacao.h"

#include "data/Consultas.h"
#include "data/LeitoresDeCampo.h"
#include "document/QuadroPagina.h"
#include "document/TabelaEmDesenho.h"

namespace tarvo {

namespace {

constexpr IdentidadeRelatorio Registros{.classe = "RelatorioRegExportacao",
                                        .titulo = "Relatório de Registros de Exportação",
                                        .tituloResumido = "Registros de Exportação"};
constexpr EstiloCabecalho Cabecalho{.titulo = "Registros de Exportação"};

constexpr double W = LarguraRetrato;
constexpr int Colunas = 5;
constexpr double YTitulo = 5.9;
constexpr double PrimeiraLinha = 6.5;
constexpr double UltimaLinha = 24.4;
constexpr double AlturaLinha = 0.6;

constexpr EstiloTexto CelulaRegistro{.recuoX = 0, .horizontal = Alinhamento::Centro};

}  // namespace

RelatorioRegExportacao::RelatorioRegExportacao(const Ambiente& ambiente)
    : RelatorioDeConsulta(Registros, ambiente) {}

std::string RelatorioRegExportacao::Consulta(std::int32_t NumeroDRQ) const {
    return ConsultaDaDeclaracao("tblRegistroExportação", NumeroDRQ) + " order by RE";
}

void RelatorioRegExportacao::ImprimirPaginas(BancoDados& /*banco*/, Recordset& identificacao,
                                             Recordset& registros) {
    ImprimirCabecalho(Desenho(), Cabecalho, 0, 0, identificacao);
    TabelaEmDesenho tabela(Desenho());
    ImprimirRegistros(tabela, registros);
    while (!registros.EOF_()) {
        Desenho().NovaPagina();
        {
            const Trecho decoracao(Desenho(), Estrutura::Decoracao);
            ImprimirCabecalho(Desenho(), Cabecalho, 0, 0, identificacao);
        }
        ImprimirRegistros(tabela, registros);
    }
}

// Columns of a page are one column of the table.
void RelatorioRegExportacao::ImprimirRegistros(TabelaEmDesenho& tabela, Recordset& registros) {
    tabela.ComecarTitulos();
    tabela.Titulo(CelulaTitulo, 0, YTitulo, W, PrimeiraLinha - YTitulo, "Registro de Exportação");
    for (int coluna = 0; coluna < Colunas; ++coluna) {
        for (double y = PrimeiraLinha; !registros.EOF_() && y <= Limite(UltimaLinha);
             y += AlturaLinha) {
            const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::Dados));
            Celula(Desenho(), CelulaDe(Natureza::Codigo), CelulaRegistro, coluna * W / Colunas, y,
                   W / Colunas, AlturaLinha, TextoCampo(registros.Fields("RE")));
            registros.MoveNext();
        }
    }
    ImprimirRodape(Desenho(), 0, YRodape);
}

}  // namespace tarvo
