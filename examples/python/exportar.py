#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the payments of a declaration as a PDF: exportar.py BANCO IE DRQ ARQUIVO"""

import sys

import relatoriostarvo as tarvo


def principal(arquivo_banco, ie, drq, arquivo):
    with tarvo.abrir(arquivo_banco) as banco, tarvo.RelatorioPagamentos() as relatorio:
        if not banco.existe_declaracao(drq):
            sys.exit(f"não há a declaração {drq}")
        relatorio.construir(banco, ie, drq)
        relatorio.exportar(arquivo, "pdf")


if __name__ == "__main__":
    if len(sys.argv) != 5 or not sys.argv[3].isdecimal() or int(sys.argv[3]) >= 2**31:
        sys.exit(__doc__)
    try:
        principal(sys.argv[1], sys.argv[2], int(sys.argv[3]), sys.argv[4])
    except tarvo.Erro as erro:
        sys.exit(str(erro))
