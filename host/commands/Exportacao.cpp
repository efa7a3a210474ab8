// SPDX-License-Identifier: MIT
#include "host/commands/ComandosDoBanco.h"

#include <unistd.h>

#include <ostream>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"
#include "host/commands/Avisos.h"
#include "host/commands/ProducaoDeRelatorios.h"
#include "host/commands/RelatoriosPorCodigo.h"
#include "host/commands/ResultadoEmJSON.h"

namespace tarvo::host {

namespace {

ResultadoDaSaida EscreverNaSaidaPadrao(const Relatorio& relatorio, const SaidaEmArquivos& saida,
                                       Console& console) {
    const DocumentoDeSaida documento = DocumentoDe(relatorio);
    return saida.formato->escrever({&documento, 1}, saida.opcoes, [&](std::string_view bytes) {
        if (!console.Dados().write(bytes.data(), static_cast<std::streamsize>(bytes.size()))) {
            throw Erro(NumeroErro::ErroDispositivo, "A saída padrão não pôde ser escrita.");
        }
    });
}

}  // namespace

int ExportarRelatorios(const Argumentos& a, Console& console) {
    if (a.naSaidaPadrao && ::isatty(STDOUT_FILENO) == 1) {
        throw UsoErrado("--saida - num terminal; dirija a saída a um arquivo ou a outro programa");
    }
    std::vector<std::pair<std::string, ResultadoDaSaida>> gravados;  // for --json
    const Producao producao =
        ParaCadaRelatorio(a, console, [&](const std::string& codigo, const Relatorio& relatorio) {
            if (a.naSaidaPadrao) {
                return EscreverNaSaidaPadrao(relatorio, a.saida, console).cortados;
            }
            const DocumentoDeSaida documento = DocumentoDe(relatorio);
            auto resultado = Gravar({&documento, 1}, *a.saida.formato, a.saida.pasta,
                                    NomeDoArquivo(codigo), a.saida.opcoes);
            if (a.json) {
                return gravados.emplace_back(codigo, std::move(resultado)).second.cortados;
            }
            console.Dizer(NomeDoArquivo(codigo) + "  " +
                          Contados(resultado.paginas, "página", "páginas"));
            return std::move(resultado.cortados);
        });
    for (const auto& [codigo, resultado] : gravados) {
        console.Dados() << ResultadoEmJSON(codigo, a.IE, a.NumeroDRQ, resultado,
                                           AchadosDe({codigo}, producao.achados))
                        << "\n";
    }
    return producao.situacao;
}

}  // namespace tarvo::host
