// SPDX-License-Identifier: MIT
// Prints the payments of a declaration that the program keeps in a store of its own, here written
// out: memoria ARQUIVO
#include <iostream>

#include <relatoriostarvo/BancoEmMemoria.h>
#include <relatoriostarvo/CodigosDeErros.h>
#include <relatoriostarvo/RelatorioPagamentos.h>
#include <relatoriostarvo/RenderizadorPDF.h>

using tarvo::Data;
using tarvo::Moeda;

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "uso: memoria ARQUIVO\n";
        return 2;
    }
    try {
        tarvo::BancoEmMemoria banco;
        banco.Tabela("tblContribuinte", {"IE", "RazãoSocial", "CNPJ"});
        banco.Linha({"100", "Padaria São João", "00.1"});
        banco.Tabela("tblDRQ",
                     {"NroDRQ", "Ref1", "Tipo", "RegTrib", "Consistente", "Autenticação"});
        banco.Linha({1, Data::DeTexto("01/07/2003"), 1, "01", true, "A1B2"});
        banco.Tabela("tblPagamento", {"NroDRQ", "OpPróprias", "Data", "Valor"});
        banco.Linha({1, true, Data::DeTexto("05/08/2003"), Moeda::DeTexto("1.234,56")});
        banco.Linha({1, true, Data::DeTexto("20/08/2003"), Moeda::DeTexto("50,00")});

        tarvo::RelatorioPagamentos relatorio;
        relatorio.Construir(banco, "100", 1);
        tarvo::GravarPDF(relatorio.Documento(), argv[1]);
        return 0;
    } catch (const tarvo::Erro& erro) {
        std::cerr << "erro " << static_cast<int>(erro.Numero()) << ": " << erro.Descricao() << "\n";
        return 1;
    }
}
