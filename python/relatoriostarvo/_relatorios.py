# SPDX-License-Identifier: MIT
"""The reports and the selection dialog."""

from __future__ import annotations

import ctypes
import io
import os
from collections.abc import Callable, Sequence
from typing import Any, BinaryIO, NamedTuple, Optional

from . import _biblioteca as c
from ._banco import Banco, Caminho

# Told of each page; False cancels.
Andamento = Callable[[int], Optional[bool]]

FORMATOS = {"pdf": 1, "json": 2, "csv": 3, "xlsx": 4, "pdf_sem_estrutura": 5}


class TextoCortado(NamedTuple):
    """A text that its box could not show whole."""

    pagina: int
    texto: str


class _Objeto(c.Identificado):
    """An object of the public class that bears the name of the Python class, or of the class of this
    module that a program derives its own from."""

    def __init__(self) -> None:
        super().__init__(0)
        nome = next(classe.__name__ for classe in type(self).__mro__ if classe.__module__ == __name__)
        self._identificador = c.obter(ctypes.c_uint64, "criar", f"RelatoriosTarvo.{nome}")

    def _construir(self, nome: str, *argumentos: Any, andamento: Andamento | None) -> None:
        ditas = 0

        # Without an andamento too: here Python sees Ctrl+C in the middle of a query or a wait.
        def contar(paginas: int) -> bool:
            nonlocal ditas
            novas, ditas = paginas - ditas, paginas
            return andamento is None or andamento(novas) is not False

        retorno = c.Retorno(c.Andamento, contar)
        c.chamar("definir_andamento", self.identificador, retorno.em_c, None)
        try:
            retorno.chamar(nome, self.identificador, *argumentos)
        finally:
            c.chamar("definir_andamento", self.identificador, c.Andamento(0), None)
        # The library tells of a page when the next one begins: here of the last.
        if andamento is not None:
            andamento(c.obter(ctypes.c_size_t, "paginas", self.identificador) - ditas)


class Relatorio(_Objeto):
    """A report: built from a database, then exported, shown or printed."""

    @property
    def paginas(self) -> int:
        """Pages of the document; one, empty, before it is built."""
        return int(c.obter(ctypes.c_size_t, "paginas", self.identificador))

    @property
    def textos_cortados(self) -> list[TextoCortado]:
        """Texts that the last PDF had to cut."""
        quantos = c.obter(ctypes.c_size_t, "textos_cortados", self.identificador)
        return [self._texto_cortado(indice) for indice in range(1, quantos + 1)]

    def _texto_cortado(self, indice: int) -> TextoCortado:
        pagina, memoria = ctypes.c_size_t(), ctypes.c_uint64()
        c.chamar("texto_cortado", self.identificador, indice, ctypes.byref(pagina), ctypes.byref(memoria))
        with c.Identificado(memoria.value):
            bytes_, tamanho = ctypes.c_void_p(), ctypes.c_size_t()
            c.chamar("memoria_bytes", memoria, ctypes.byref(bytes_), ctypes.byref(tamanho))
            return TextoCortado(pagina.value, ctypes.string_at(bytes_.value or 0, tamanho.value).decode())

    def exportar(self, arquivo: Caminho, formato: str | None = None) -> None:
        """Writes the document to a file, which appears whole or stays as it was.

        formato: a key of FORMATOS; without it the ending of the file's name. ValueError for any
        other; Erro 76 no such folder, 70 no permission, 61 no space, 20005 a missing font.
        """
        exportar([self], arquivo, formato)

    def escrever(self, saida: BinaryIO, formato: str = "pdf") -> None:
        """The same into an open binary file, piece by piece."""

        def receber(bytes_: Any, tamanho: int) -> bool:
            resto = ctypes.string_at(bytes_, tamanho)
            while resto:  # a file without a buffer may take less than it is given
                escritos = saida.write(resto)
                if escritos is None and not isinstance(saida, io.RawIOBase):
                    escritos = len(resto)
                if not escritos:
                    raise OSError("a saída não recebe mais bytes")
                resto = resto[escritos:]
            return True

        retorno = c.Retorno(c.Receber, receber)
        retorno.chamar("transmitir", _identificadores([self]), 1, _formato(formato), retorno.em_c, None)

    def exibir(self) -> None:
        """Opens a preview, which `aguardar_janelas` serves. Erro 445 without a desktop."""
        c.chamar("exibir", self.identificador)

    def ocultar(self) -> None:
        """Hides the preview, if there is one."""
        c.chamar("ocultar", self.identificador)

    def imprimir(self, impressora: str = "") -> None:
        """Prints at once; without a name on the user's default printer. Erro 482 no printer."""
        c.chamar("imprimir_em", self.identificador, impressora)


class _RelatorioDeDeclaracao(Relatorio):
    def construir(self, banco: Banco, ie: str, numero: int, andamento: Andamento | None = None) -> None:
        """Builds the report of a declaration, in place of what it held.

        andamento: called with the number of pages completed since its last call; False, or an
        exception, cancels (Erro 18, or the exception). After an error the object holds what was
        drawn so far. Errors of the database and of its values.
        """
        self._construir("construir", banco.identificador, ie, numero, andamento=andamento)


class _ResumoCFOPs(_RelatorioDeDeclaracao):
    def definir_ref_atual(self, mes_ano: str | None) -> None:
        """The reference month ("07/2003") in place of the user's setting; None for the setting."""
        c.chamar("definir_ref_atual", self.identificador, mes_ano)


class RelatorioResumoCFOPsEnt(_ResumoCFOPs):
    """02: summary of entries by CFOP."""


class RelatorioResumoCFOPsSai(_ResumoCFOPs):
    """03: summary of exits by CFOP."""


class RelatorioSaiInterestad(_RelatorioDeDeclaracao):
    """05: interstate exits."""


class RelatorioNotasSaiZFMALC(_RelatorioDeDeclaracao):
    """06: invoices to free trade zones."""


class RelatorioApuracaoOpProp(_RelatorioDeDeclaracao):
    """10: assessment of own operations."""


class RelatorioApuracaoSubTrib(_RelatorioDeDeclaracao):
    """14: assessment of tax substitution."""

    def campo(self, campo: int, banco: Banco, numero: int) -> str:
        """One of the fields 51, 52, 53, 56, 57 and 58 of a declaration as printed ("1.234,56")."""
        texto = ctypes.create_string_buffer(64)
        c.chamar("campo_st", self.identificador, campo, banco.identificador, numero, texto, len(texto))
        return texto.value.decode()


class RelatorioRegExportacao(_RelatorioDeDeclaracao):
    """16: export registrations."""


class RelatorioPagamentos(_RelatorioDeDeclaracao):
    """17: payments."""


class RelatorioCadastro(Relatorio):
    """01: a taxpayer's registration."""

    def construir(self, banco: Banco, ie: str, andamento: Andamento | None = None) -> None:
        """Builds the report of a taxpayer; otherwise as the other reports."""
        self._construir("construir_cadastro", banco.identificador, ie, andamento=andamento)


class RelatorioVELO(Relatorio):
    """The payment slip."""

    def construir(self, banco: Banco, andamento: Andamento | None = None) -> None:
        """Builds the slip of a database; otherwise as the other reports."""
        self._construir("construir_velo", banco.identificador, andamento=andamento)


class Relatorios(_Objeto):
    """The selection dialog of all eighteen reports."""

    def executar(self, banco: Banco, ie: str, numero: int, opcoes: int = 0) -> None:
        """Shows the dialog, and shows or prints what its user chose. Bit i of opcoes ticks entry i.
        Erro 445 without a desktop."""
        c.chamar("executar", self.identificador, banco.identificador, ie, numero, opcoes)


def exportar(relatorios: Sequence[Relatorio], arquivo: Caminho, formato: str | None = None) -> None:
    """Writes the documents of several reports to one file, in their order. Errors as one's own."""
    if formato is None:
        formato = os.path.splitext(os.fsdecode(arquivo))[1][1:].lower()
    c.chamar("exportar_reunidos", _identificadores(relatorios), len(relatorios), _formato(formato),
             os.fsencode(arquivo))


def aguardar_janelas(segundos: float | None = None) -> int:
    """Serves the windows that were opened until all are closed or the time is over; how many are open."""
    milissegundos = -1 if segundos is None else int(segundos * 1000)
    return int(c.obter(ctypes.c_size_t, "aguardar_janelas", milissegundos))


def _formato(nome: str) -> int:
    if nome not in FORMATOS:
        raise ValueError(f"formato desconhecido: {nome!r}; há {', '.join(FORMATOS)}")
    return FORMATOS[nome]


def _identificadores(relatorios: Sequence[Relatorio]) -> Any:
    return (ctypes.c_uint64 * len(relatorios))(*(r.identificador for r in relatorios))
