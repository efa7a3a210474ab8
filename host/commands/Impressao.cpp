// SPDX-License-Identifier: MIT
#include "host/commands/ComandosDoBanco.h"

#include "desktop/printing/FilaImpressao.h"
#include "host/commands/ProducaoDeRelatorios.h"
#include "host/commands/RelatoriosPorCodigo.h"

namespace tarvo::host {

int ImprimirRelatorios(const Argumentos& a, Console& console) {
    return ParaCadaRelatorio(
               a, console,
               [&](const std::string& codigo, const Relatorio& relatorio) {
                   std::string pdf;
                   ResultadoPDF resultado = RenderizarPDF(relatorio.Documento(), pdf);
                   const int trabalho =
                       EnviarTrabalho({.pdf = pdf,
                                       .titulo = relatorio.Documento().tituloResumido,
                                       .opcoes = {.impressora = a.impressora}});
                   console.Dizer(NomeDoArquivo(codigo) + "  trabalho " + std::to_string(trabalho));
                   return std::move(resultado.cortados);
               })
        .situacao;
}

}  // namespace tarvo::host
