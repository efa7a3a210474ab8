#include "reports/RelatorioDeTabela.h"

#include "data/Consultas.h"
#include "document/CicloPaginas.h"
#include "reports/FormatoDeTabela.h"
#include "reports/TabelaDeTrabalho.h"

namespace tarvo {

void RelatorioDeTabela::Desenhar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) {
    banco.RefazerTabela(formato_.tabela, [&] {
        Montar(banco, NumeroDRQ);
        const auto identificacao =
            banco.OpenRecordset(ConsultaIdentificacao(IE, NumeroDRQ), TipoRecordset::ForwardOnly);
        const auto linhas = TabelaDeTrabalho::Ler(banco, formato_.tabela, NumeroDRQ);
        IniciarDocumento();
        if (!identificacao->EOF_()) {
            ImprimirPaginas(*linhas, *identificacao);
        }
    });
}

void RelatorioDeTabela::ImprimirPaginas(Recordset& linhas, Recordset& identificacao) {
    const auto cabecalho = [&] {
        ImprimirCabecalho(Desenho(), formato_.cabecalho, 0, 0, identificacao);
        ImprimirTitulosColunas(identificacao);
    };
    CicloPaginas paginas(Desenho(), formato_.yPrimeiraLinha, cabecalho, formato_.yRodape,
                         formato_.cabecalho.largura);
    for (; !linhas.EOF_(); linhas.MoveNext()) {
        ImprimirLinha(linhas, identificacao, paginas.Bloco(formato_.yUltimaLinha, AlturaLinha));
    }
    paginas.Encerrar();
}

}  // namespace tarvo
