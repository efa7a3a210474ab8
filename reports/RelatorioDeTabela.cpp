#include "reports/RelatorioDeTabela.h"

#include "data/Consultas.h"
#include "reports/TabelaDeTrabalho.h"

namespace tarvo {

void RelatorioDeTabela::Construir(BancoDados& BancoDados, const std::string& IE,
                                  std::int32_t NumeroDRQ) {
    Montar(BancoDados, NumeroDRQ);
    const auto identificacao =
        BancoDados.OpenRecordset(ConsultaIdentificacao(IE, NumeroDRQ), TipoRecordset::ForwardOnly);
    const auto linhas = TabelaDeTrabalho::Ler(BancoDados, formato_.tabela, NumeroDRQ);
    IniciarDocumento();
    if (!identificacao->EOF_()) {
        ImprimirPaginas(*linhas, *identificacao);
    }
}

void RelatorioDeTabela::ImprimirPaginas(Recordset& linhas, Recordset& identificacao) {
    while (!linhas.EOF_()) {
        ImprimirCabecalho(Desenho(), formato_.cabecalho, 0, 0, identificacao);
        ImprimirTitulosColunas(identificacao);
        double y = formato_.yPrimeiraLinha;
        while (!linhas.EOF_() && y <= Limite(formato_.yUltimaLinha)) {
            ImprimirLinha(linhas, identificacao, y);
            y += AlturaLinha;
            linhas.MoveNext();
        }
        ImprimirRodape(Desenho(), 0, formato_.yRodape, formato_.cabecalho.largura);
        if (!linhas.EOF_()) {
            Desenho().NovaPagina();
        }
    }
}

}  // namespace tarvo
