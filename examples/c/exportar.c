/* SPDX-License-Identifier: MIT */
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
    int32_t existe = 0;
    int situacao = 1;
    char *fim = NULL;
    const long numero = argc == 5 ? strtol(argv[3], &fim, 10) : 0;

    if (argc != 5 || fim == argv[3] || *fim != '\0' || numero < 1 || numero > INT32_MAX) {
        fputs("uso: exportar BANCO IE DRQ ARQUIVO (DRQ: o número da declaração)\n", stderr);
        return 2;
    }
    if (tarvo_abrir_banco(argv[1], TARVO_SOMENTE_LEITURA | TARVO_TABELAS_PRIVADAS, &banco) != 0 ||
        tarvo_existe_declaracao(banco, (int32_t)numero, &existe) != 0) {
        fprintf(stderr, "erro %d: %s\n", (int)tarvo_erro_numero(), tarvo_erro_texto());
    } else if (!existe) {
        fprintf(stderr, "não há a declaração %ld\n", numero);
    } else if (tarvo_criar("RelatoriosTarvo.RelatorioPagamentos", &relatorio) != 0 ||
               tarvo_construir(relatorio, banco, argv[2], (int32_t)numero) != 0 ||
               tarvo_exportar_arquivo(relatorio, TARVO_PDF, argv[4]) != 0) {
        fprintf(stderr, "erro %d: %s\n", (int)tarvo_erro_numero(), tarvo_erro_texto());
    } else {
        situacao = 0;
    }
    tarvo_liberar(relatorio);
    tarvo_liberar(banco);
    return situacao;
}
