// SPDX-License-Identifier: MIT
#include "host/commands/GravacaoDeRelatorios.h"

#include "host/commands/RelatoriosPorCodigo.h"

namespace tarvo::host {

DocumentoDeSaida DocumentoDe(const Relatorio& relatorio) {
    const Conteudo& conteudo = relatorio.Documento();
    return {relatorio.Identidade().classe, &conteudo, conteudo.titulo};
}

ResultadoDaSaida GravarRelatorio(std::string_view codigo, const Relatorio& relatorio,
                                 const SaidaEmArquivos& saida) {
    const DocumentoDeSaida documento = DocumentoDe(relatorio);
    return Gravar({&documento, 1}, *saida.formato, saida.pasta, NomeDoArquivo(codigo),
                  saida.opcoes);
}

}  // namespace tarvo::host
