#!/usr/bin/env python3
"""Writes a report of a declaration as a PDF and says what its first page says.

exportar.py BANCO IE DRQ ARQUIVO [CLASSE]
"""

import ctypes
import json
import sys

TARVO_SOMENTE_LEITURA, TARVO_TABELAS_PRIVADAS = 1, 2
TARVO_PDF, TARVO_JSON = 1, 2
u64 = ctypes.c_uint64

tarvo = ctypes.CDLL("libRelatoriosTarvoC.so.1")
tarvo.tarvo_erro_texto.restype = ctypes.c_char_p
tarvo.tarvo_exportar_arquivo.argtypes = [u64, ctypes.c_int32, ctypes.c_char_p]
tarvo.tarvo_construir.argtypes = [u64, u64, ctypes.c_char_p, ctypes.c_int32]


def conferir(erro):
    """Every call returns zero or the number of its error."""
    if erro != 0:
        sys.exit(f"erro {erro}: {tarvo.tarvo_erro_texto().decode()}")


def exportado(objeto, forma):
    memoria, bytes_, tamanho = u64(), ctypes.c_void_p(), ctypes.c_size_t()
    conferir(tarvo.tarvo_exportar_memoria(objeto, forma, ctypes.byref(memoria)))
    conferir(tarvo.tarvo_memoria_bytes(memoria, ctypes.byref(bytes_), ctypes.byref(tamanho)))
    copia = ctypes.string_at(bytes_, tamanho.value)
    tarvo.tarvo_liberar(memoria)
    return copia


def principal(arquivo_banco, ie, drq, arquivo, classe="RelatorioPagamentos"):
    banco, objeto = u64(), u64()
    conferir(tarvo.tarvo_abrir_banco(arquivo_banco.encode(),
                                     TARVO_SOMENTE_LEITURA | TARVO_TABELAS_PRIVADAS,
                                     ctypes.byref(banco)))
    conferir(tarvo.tarvo_criar(f"RelatoriosTarvo.{classe}".encode(), ctypes.byref(objeto)))
    conferir(tarvo.tarvo_construir(objeto, banco, ie.encode(), int(drq)))
    conferir(tarvo.tarvo_exportar_arquivo(objeto, TARVO_PDF, arquivo.encode()))
    documento = json.loads(exportado(objeto, TARVO_JSON))
    print(documento["titulo"])
    for operacao in documento["paginas"][0]:
        if operacao[0].startswith("EscreverTexto"):
            print(" ", operacao[5])
    tarvo.tarvo_liberar(objeto)
    tarvo.tarvo_liberar(banco)


if __name__ == "__main__":
    if len(sys.argv) not in (5, 6):
        sys.exit(__doc__)
    principal(*sys.argv[1:])
