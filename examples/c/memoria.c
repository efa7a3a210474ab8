/* SPDX-License-Identifier: MIT */
/* Prints the payments of a declaration that the program keeps in a store of its own, here in arrays:
 * memoria ARQUIVO
 *
 *     cc memoria.c $(pkg-config --cflags --libs relatoriostarvo) -o memoria
 */
#include <relatoriostarvo/relatoriostarvo.h>
#include <stdio.h>

#define TEXTO(t) {t, 0, TARVO_TEXTO}
#define INTEIRO(n) {NULL, n, TARVO_INTEIRO}
#define MOEDA(n) {NULL, n, TARVO_MOEDA} /* ten-thousandths */
#define DATA(d) {d, 0, TARVO_DATA}
#define VERDADEIRO {NULL, 1, TARVO_BOOLEANO}

static const char *const Contribuinte[] = {"IE", "RazãoSocial", "CNPJ"};
static const tarvo_valor Empresa[] = {TEXTO("100"), TEXTO("Padaria São João"), TEXTO("00.1")};

static const char *const DRQ[] = {"NroDRQ", "Ref1", "Tipo", "RegTrib", "Consistente", "Autenticação"};
static const tarvo_valor Declaracao[] = {INTEIRO(1),  DATA("2003-07-01"), INTEIRO(1),
                                         TEXTO("01"), VERDADEIRO,         TEXTO("A1B2")};

static const char *const Pagamento[] = {"NroDRQ", "OpPróprias", "Data", "Valor"};
static const tarvo_valor Pagamentos[] = {
    INTEIRO(1), VERDADEIRO, DATA("2003-08-05"), MOEDA(12345600),
    INTEIRO(1), VERDADEIRO, DATA("2003-08-20"), MOEDA(500000),
};

int main(int argc, char **argv) {
    tarvo_banco banco = 0;
    tarvo_objeto relatorio = 0;
    const int erro =
        argc != 2 || tarvo_banco_em_memoria(&banco) != 0 ||
        tarvo_comecar_tabela(banco, "tblContribuinte", Contribuinte, 3) != 0 ||
        tarvo_acrescentar_linhas(banco, Empresa, 3) != 0 ||
        tarvo_comecar_tabela(banco, "tblDRQ", DRQ, 6) != 0 ||
        tarvo_acrescentar_linhas(banco, Declaracao, 6) != 0 ||
        tarvo_comecar_tabela(banco, "tblPagamento", Pagamento, 4) != 0 ||
        tarvo_acrescentar_linhas(banco, Pagamentos, 8) != 0 ||
        tarvo_criar("RelatoriosTarvo.RelatorioPagamentos", &relatorio) != 0 ||
        tarvo_construir(relatorio, banco, "100", 1) != 0 ||
        tarvo_exportar_arquivo(relatorio, TARVO_PDF, argv[1]) != 0;
    if (erro) {
        fprintf(stderr, "erro %d: %s\n", (int)tarvo_erro_numero(), tarvo_erro_texto());
    }
    tarvo_liberar(relatorio);
    tarvo_liberar(banco);
    return erro;
}
