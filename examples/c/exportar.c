/* Writes the payments of a declaration as a PDF: exportar BANCO IE DRQ ARQUIVO
 *
 *     cc exportar.c $(pkg-config --cflags --libs relatoriostarvo) -o exportar
 */
#include <relatoriostarvo/relatoriostarvo.h>
#include <stdio.h>
#include <stdlib.h>

int main(int argc, char **argv) {
    tarvo_banco banco = 0;
    tarvo_objeto relatorio = 0;
    size_t paginas = 0;
    int situacao = 1;

    if (argc != 5) {
        fputs("uso: exportar BANCO IE DRQ ARQUIVO\n", stderr);
        return 2;
    }
    if (tarvo_abrir_banco(argv[1], TARVO_SOMENTE_LEITURA | TARVO_TABELAS_PRIVADAS, &banco) == 0 &&
        tarvo_criar("RelatoriosTarvo.RelatorioPagamentos", &relatorio) == 0 &&
        tarvo_construir(relatorio, banco, argv[2], atoi(argv[3])) == 0 &&
        tarvo_exportar_arquivo(relatorio, TARVO_PDF, argv[4]) == 0 &&
        tarvo_paginas(relatorio, &paginas) == 0) {
        printf("%lu página(s)\n", (unsigned long)paginas);
        situacao = 0;
    } else {
        fprintf(stderr, "erro %d: %s\n", (int)tarvo_erro_numero(), tarvo_erro_texto());
    }
    tarvo_liberar(relatorio);
    tarvo_liberar(banco);
    return situacao;
}
