#include "host/commands/Impressao.h"

#include <ostream>

#include "desktop/printing/FilaImpressao.h"

#include "host/commands/Preparo.h"

namespace tarvo::host {

int ImprimirRelatorios(const Argumentos& a, std::ostream& saida, std::ostream& erros) {
    return ParaCadaRelatorio(a, erros, [&](const std::string& codigo, const Relatorio& relatorio) {
        std::string pdf;
        ResultadoPDF resultado = RenderizarPDF(relatorio.Documento(), pdf);
        const int trabalho = EnviarTrabalho({.pdf = pdf,
                                             .titulo = relatorio.Documento().tituloResumido,
                                             .impressora = a.impressora});
        saida << NomeDoArquivo(codigo) << "  trabalho " << trabalho << "\n";
        return std::move(resultado.cortados);
    });
}

}  // namespace tarvo::host
