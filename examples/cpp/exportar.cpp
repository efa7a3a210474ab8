// SPDX-License-Identifier: MIT
// Writes the payments of a declaration as a PDF: exportar BANCO IE DRQ ARQUIVO
#include <charconv>
#include <iostream>
#include <string_view>

#include <relatoriostarvo/AbrirBanco.h>
#include <relatoriostarvo/CodigosDeErros.h>
#include <relatoriostarvo/Declaracoes.h>
#include <relatoriostarvo/RelatorioPagamentos.h>
#include <relatoriostarvo/RenderizadorPDF.h>

int main(int argc, char** argv) {
    int numero = 0;
    const std::string_view texto = argc == 5 ? argv[3] : "";
    const auto lido = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
    if (lido.ec != std::errc() || lido.ptr != texto.data() + texto.size()) {
        std::cerr << "uso: exportar BANCO IE DRQ ARQUIVO (DRQ: o número da declaração)\n";
        return 2;
    }
    try {
        // The file is only read: a report's work table would be this connection's own.
        const auto banco =
            tarvo::AbrirBanco(argv[1], {.modo = tarvo::ModoAbertura::SomenteLeitura,
                                        .tabelasDeTrabalho = tarvo::TabelasDeTrabalho::Privadas});
        if (!tarvo::ExisteDeclaracao(*banco, numero)) {
            std::cerr << "não há a declaração " << numero << "\n";
            return 1;
        }
        tarvo::RelatorioPagamentos relatorio;
        relatorio.Construir(*banco, argv[2], numero);
        tarvo::GravarPDF(relatorio.Documento(), argv[4]);
        return 0;
    } catch (const tarvo::Erro& erro) {
        std::cerr << "erro " << static_cast<int>(erro.Numero()) << ": " << erro.Descricao() << "\n";
        return 1;
    }
}
