#!/usr/bin/env python3
"""Prints the payments of a declaration that the program keeps in a store of its own, here in lists:
memoria.py ARQUIVO"""

import ctypes
import datetime
import decimal
import sys

u64, texto, lista = ctypes.c_uint64, ctypes.c_char_p, ctypes.c_void_p
tarvo = ctypes.CDLL("libRelatoriosTarvoC.so.1")
tarvo.tarvo_erro_texto.restype = texto
tarvo.tarvo_comecar_tabela.argtypes = [u64, texto, lista, ctypes.c_size_t]
tarvo.tarvo_acrescentar_linhas.argtypes = [u64, lista, ctypes.c_size_t]
tarvo.tarvo_construir.argtypes = [u64, u64, texto, ctypes.c_int32]
tarvo.tarvo_exportar_arquivo.argtypes = [u64, ctypes.c_int32, texto]


class Valor(ctypes.Structure):
    _fields_ = [("texto", texto), ("numero", ctypes.c_int64), ("tipo", ctypes.c_int32)]


def valor(v):
    """None, a text, an int, a Decimal, a date or a bool as a tarvo_valor."""
    if v is None:
        return Valor(None, 0, 0)
    if isinstance(v, str):
        return Valor(v.encode(), 0, 1)
    if isinstance(v, bool):
        return Valor(None, v, 5)
    if isinstance(v, decimal.Decimal):
        return Valor(None, int(v * 10000), 3)
    return Valor(v.isoformat().encode(), 0, 4) if isinstance(v, datetime.date) else Valor(None, v, 2)


def conferir(erro):
    """Every call returns zero or the number of its error."""
    if erro != 0:
        sys.exit(f"erro {erro}: {tarvo.tarvo_erro_texto().decode()}")


def preencher(banco, tabela, colunas, linhas):
    nomes = (texto * len(colunas))(*(c.encode() for c in colunas))
    valores = [valor(v) for linha in linhas for v in linha]
    conferir(tarvo.tarvo_comecar_tabela(banco, tabela.encode(), nomes, len(colunas)))
    conferir(tarvo.tarvo_acrescentar_linhas(banco, (Valor * len(valores))(*valores), len(valores)))


def principal(arquivo):
    banco, relatorio = u64(), u64()
    conferir(tarvo.tarvo_banco_em_memoria(ctypes.byref(banco)))
    preencher(banco, "tblContribuinte", ["IE", "RazãoSocial", "CNPJ"],
              [["100", "Padaria São João", "00.1"]])
    preencher(banco, "tblDRQ",
              ["NroDRQ", "Ref1", "Tipo", "RegTrib", "Consistente", "Autenticação"],
              [[1, datetime.date(2003, 7, 1), 1, "01", True, "A1B2"]])
    preencher(banco, "tblPagamento", ["NroDRQ", "OpPróprias", "Data", "Valor"],
              [[1, True, datetime.date(2003, 8, 5), decimal.Decimal("1234.56")],
               [1, True, datetime.date(2003, 8, 20), decimal.Decimal("50.00")]])
    conferir(tarvo.tarvo_criar(b"RelatoriosTarvo.RelatorioPagamentos", ctypes.byref(relatorio)))
    conferir(tarvo.tarvo_construir(relatorio, banco, b"100", 1))
    conferir(tarvo.tarvo_exportar_arquivo(relatorio, 1, arquivo.encode()))
    tarvo.tarvo_liberar(relatorio)
    tarvo.tarvo_liberar(banco)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    principal(sys.argv[1])
