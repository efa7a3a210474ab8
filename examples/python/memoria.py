#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints the payments of a declaration that the program keeps in a store of its own, here in lists:
memoria.py ARQUIVO"""

import sys
from datetime import date
from decimal import Decimal

import relatoriostarvo as tarvo


def principal(arquivo):
    with tarvo.em_memoria() as banco, tarvo.RelatorioPagamentos() as relatorio:
        banco.preencher("tblContribuinte", ["IE", "RazãoSocial", "CNPJ"],
                        [["100", "Padaria São João", "00.1"]])
        banco.preencher("tblDRQ", ["NroDRQ", "Ref1", "Tipo", "RegTrib", "Consistente", "Autenticação"],
                        [[1, date(2003, 7, 1), 1, "01", True, "A1B2"]])
        banco.preencher("tblPagamento", ["NroDRQ", "OpPróprias", "Data", "Valor"],
                        [[1, True, date(2003, 8, 5), Decimal("1234.56")],
                         [1, True, date(2003, 8, 20), Decimal("50.00")]])
        relatorio.construir(banco, "100", 1)
        relatorio.exportar(arquivo, "pdf")


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    principal(sys.argv[1])
