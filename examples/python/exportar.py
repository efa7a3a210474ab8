#!/usr/bin/env python3
"""Writes the payments of a declaration as a PDF: exportar.py BANCO IE DRQ ARQUIVO"""

import ctypes
import sys

TARVO_SOMENTE_LEITURA, TARVO_TABELAS_PRIVADAS, TARVO_PDF = 1, 2, 1
u64 = ctypes.c_uint64

tarvo = ctypes.CDLL("libRelatoriosTarvoC.so.1")
tarvo.tarvo_erro_texto.restype = ctypes.c_char_p
tarvo.tarvo_exportar_arquivo.argtypes = [u64, ctypes.c_int32, ctypes.c_char_p]
tarvo.tarvo_existe_declaracao.argtypes = [u64, ctypes.c_int32, ctypes.c_void_p]
tarvo.tarvo_construir.argtypes = [u64, u64, ctypes.c_char_p, ctypes.c_int32]


def conferir(erro):
    """Every call returns zero or the number of its error."""
    if erro != 0:
        sys.exit(f"erro {erro}: {tarvo.tarvo_erro_texto().decode()}")


def principal(arquivo_banco, ie, drq, arquivo):
    banco, objeto = u64(), u64()
    conferir(tarvo.tarvo_abrir_banco(arquivo_banco.encode(),
                                     TARVO_SOMENTE_LEITURA | TARVO_TABELAS_PRIVADAS,
                                     ctypes.byref(banco)))
    existe = ctypes.c_int32()
    conferir(tarvo.tarvo_existe_declaracao(banco, int(drq), ctypes.byref(existe)))
    if not existe.value:
        sys.exit(f"não há a declaração {drq}")
    conferir(tarvo.tarvo_criar(b"RelatoriosTarvo.RelatorioPagamentos", ctypes.byref(objeto)))
    conferir(tarvo.tarvo_construir(objeto, banco, ie.encode(), int(drq)))
    conferir(tarvo.tarvo_exportar_arquivo(objeto, TARVO_PDF, arquivo.encode()))
    tarvo.tarvo_liberar(objeto)
    tarvo.tarvo_liberar(banco)


if __name__ == "__main__":
    if len(sys.argv) != 5 or not sys.argv[3].isdecimal() or int(sys.argv[3]) >= 2**31:
        sys.exit(__doc__)
    principal(*sys.argv[1:])
