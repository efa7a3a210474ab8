# SPDX-License-Identifier: MIT
"""Declaration databases."""

from __future__ import annotations

import ctypes
import datetime
import decimal
import os
from collections.abc import Iterable, Sequence
from typing import NamedTuple, Optional, Union

from . import _biblioteca as c

Caminho = Union[str, "os.PathLike[str]"]
ValorDeCampo = Union[None, str, int, bool, decimal.Decimal, datetime.date]


class Contribuinte(NamedTuple):
    """A taxpayer."""

    ie: str  # state registration
    razao_social: str
    cnpj: str


class Declaracao(NamedTuple):
    """A declaration."""

    ie: Optional[str]  # whose it is; None when the database does not tell
    numero: int
    referencia: str  # "07/2003"; empty without a month
    regime: str  # code as stored, "01"
    tipo: str  # "Normal"; empty for an unknown one
    consistente: bool


class Achado(NamedTuple):
    """Something of a declaration that does not print as its user expects."""

    relatorio: str  # code, "05"; empty: of no report, or of all
    tabela: str  # empty when motivo says everything
    linhas: int  # rows of tabela; 0 when it is not about rows
    motivo: str  # Portuguese, one line


class Banco(c.Identificado):
    """An open declaration database; `abrir` and `em_memoria` give it."""

    def contribuintes(self) -> list[Contribuinte]:
        """The taxpayers in the order of their names."""
        return c.listar(
            c.VerContribuinte,
            lambda um: Contribuinte(um.ie.decode(), um.razao_social.decode(), um.cnpj.decode()),
            "listar_contribuintes", self.identificador)

    def declaracoes(self) -> list[Declaracao]:
        """The declarations in the order of reference and number."""
        return c.listar(
            c.VerDeclaracao,
            lambda uma: Declaracao(None if uma.ie is None else uma.ie.decode(), uma.numero_drq,
                                   uma.referencia.decode(), uma.regime.decode(), uma.tipo.decode(),
                                   bool(uma.consistente)),
            "listar_declaracoes", self.identificador)

    def existe_contribuinte(self, ie: str) -> bool:
        """Whether the database has that taxpayer."""
        return bool(c.obter(ctypes.c_int32, "existe_contribuinte", self.identificador, ie))

    def existe_declaracao(self, numero: int) -> bool:
        """Whether the database has that declaration."""
        return bool(c.obter(ctypes.c_int32, "existe_declaracao", self.identificador, numero))

    def revisar(self, ie: str, numero: int, relatorio: str | None = None,
                ref_atual: str | None = None) -> list[Achado]:
        """What the pages of a declaration leave out, split, repeat or show under another code.

        relatorio: one report's code, "05"; without it those that the selection dialog offers.
        ref_atual: "07/2003", by which the CFOP summaries choose their table; without it the
        declaration's own month. Erro 5 for another code, 13 for no month.
        """
        return c.listar(
            c.VerAchado,
            lambda um: Achado(um.relatorio.decode(), um.tabela.decode(), um.linhas, um.motivo.decode()),
            "revisar", self.identificador, ie, numero, relatorio, ref_atual)


class BancoEmMemoria(Banco):
    """A database for a program with a store of its own, which fills it table by table."""

    def preencher(self, tabela: str, colunas: Sequence[str],
                  linhas: Iterable[Sequence[ValorDeCampo]]) -> None:
        """Adds a table with these of its columns and these rows, in their order.

        A Decimal is an amount, a date or datetime a date, None a Null. ValueError for a row of
        another length, Erro 3078, 3061 and 3219 for unknown names or a table that is there.
        """
        nomes = (ctypes.c_char_p * len(colunas))(*(c.em_c(ctypes.c_char_p, coluna) for coluna in colunas))
        c.chamar("comecar_tabela", self.identificador, tabela, nomes, len(colunas))
        for linha in linhas:
            if len(linha) != len(colunas):
                raise ValueError(f"{tabela}: {len(linha)} valores para {len(colunas)} colunas")
            valores = (c.Valor * len(linha))(*(_valor(v) for v in linha))
            c.chamar("acrescentar_linhas", self.identificador, valores, len(linha))


def abrir(banco: Caminho, somente_leitura: bool = True, tabelas_privadas: bool = True) -> Banco:
    """Opens a database, which is never created by it.

    banco: a file of SQLite or of the desktop engine, or the address of a server. With
    somente_leitura nothing is written to it; with tabelas_privadas the work tables of reports are
    this connection's own. Erro 3024 no such file, 70 no permission, 3343 not a database, 3260
    locked.
    """
    opcoes = (1 if somente_leitura else 0) | (2 if tabelas_privadas else 0)
    return Banco(c.obter(ctypes.c_uint64, "abrir_banco", os.fsencode(banco), opcoes))


def criar(banco: Caminho) -> None:
    """Creates a declaration database without any declaration. Erro 3204 when the file exists."""
    c.chamar("criar_banco", os.fsencode(banco))


def em_memoria() -> BancoEmMemoria:
    """An empty database that lives in memory alone."""
    return BancoEmMemoria(c.obter(ctypes.c_uint64, "banco_em_memoria"))


def _valor(valor: ValorDeCampo) -> c.Valor:
    if valor is None:
        return c.Valor(None, 0, 0)
    if isinstance(valor, bool):
        return c.Valor(None, valor, 5)
    if isinstance(valor, str):
        return c.Valor(c.em_c(ctypes.c_char_p, valor), 0, 1)
    if isinstance(valor, int):
        return c.Valor(None, c.em_c(ctypes.c_int32, valor), 2)
    if isinstance(valor, decimal.Decimal):
        contexto = decimal.Context(prec=40, traps=[])
        unidades = valor.scaleb(4, contexto)
        inteiras = unidades.to_integral_value(context=contexto)
        if contexto.flags[decimal.Inexact] or unidades != inteiras or not -2**63 <= unidades < 2**63:
            raise c.Erro(6, f"Estouro: {valor} não é uma quantia com até quatro decimais")
        return c.Valor(None, int(unidades), 3)
    if isinstance(valor, datetime.datetime):
        return c.Valor(valor.replace(microsecond=0, tzinfo=None).isoformat(" ").encode(), 0, 4)
    if isinstance(valor, datetime.date):
        return c.Valor(valor.isoformat().encode(), 0, 4)
    raise TypeError(f"{type(valor).__name__} não é um valor de campo")
