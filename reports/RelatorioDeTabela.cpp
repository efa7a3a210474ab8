// SPDX-License-Identifier: MIT
#include "reports/RelatorioDeTabela.h"

#include <optional>

#include "data/Consultas.h"
#include "document/CicloPaginas.h"
#include "document/TabelaEmDesenho.h"
#include "reports/FormatoDeTabela.h"

namespace tarvo {

void RelatorioDeTabela::Desenhar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) {
    banco.RefazerTabela(formato_.tabela, [&] {
        Montar(banco, NumeroDRQ);
        RelatorioDeConsulta::Desenhar(banco, IE, NumeroDRQ);
    });
}

std::string RelatorioDeTabela::Consulta(std::int32_t NumeroDRQ) const {
    return ConsultaDaDeclaracao(formato_.tabela, NumeroDRQ);
}

void RelatorioDeTabela::ImprimirPaginas(BancoDados& /*banco*/, Recordset& identificacao,
                                        Recordset& linhas) {
    std::optional<TabelaEmDesenho> tabela;  // begins under the first page's header
    const auto cabecalho = [&] {
        ImprimirCabecalho(Desenho(), formato_.cabecalho, 0, 0, identificacao);
        if (!tabela) {
            tabela.emplace(Desenho());
        }
        ImprimirTitulosColunas(*tabela, identificacao);
    };
    CicloPaginas paginas(Desenho(), formato_.yPrimeiraLinha, cabecalho, formato_.yRodape,
                         formato_.cabecalho.largura);
    for (; !linhas.EOF_(); linhas.MoveNext()) {
        ImprimirLinha(linhas, identificacao, paginas.Bloco(formato_.yUltimaLinha, AlturaLinha));
    }
    paginas.Encerrar();
}

}  // namespace tarvo
