# SPDX-License-Identifier: MIT
"""The C interface as ctypes sees it, and how its errors become exceptions."""

from __future__ import annotations

import ctypes
import operator
import sys
import threading
from ctypes import POINTER, c_char_p, c_double, c_int32, c_int64, c_size_t, c_uint32, c_uint64, c_void_p
from typing import Any, Callable, TypeVar


_Item = TypeVar("_Item")


class Erro(Exception):
    """What the library refused: its number, and a Portuguese text for the user."""

    def __init__(self, numero: int, texto: str) -> None:
        super().__init__(numero, texto)
        self.numero = numero
        self.texto = texto

    def __str__(self) -> str:
        return f"erro {self.numero}: {self.texto}"


class Valor(ctypes.Structure):
    _fields_ = [("texto", c_char_p), ("numero", c_int64), ("tipo", c_int32)]


class EstruturaContribuinte(ctypes.Structure):
    _fields_ = [("ie", c_char_p), ("razao_social", c_char_p), ("cnpj", c_char_p)]


class EstruturaDeclaracao(ctypes.Structure):
    _fields_ = [("ie", c_char_p), ("referencia", c_char_p), ("regime", c_char_p), ("tipo", c_char_p),
                ("numero_drq", c_int32), ("consistente", c_int32)]


class EstruturaAchado(ctypes.Structure):
    _fields_ = [("relatorio", c_char_p), ("tabela", c_char_p), ("motivo", c_char_p), ("linhas", c_size_t)]


Andamento = ctypes.CFUNCTYPE(c_int32, c_void_p, c_size_t)
Receber = ctypes.CFUNCTYPE(c_int32, c_void_p, POINTER(ctypes.c_char), c_size_t)
VerContribuinte = ctypes.CFUNCTYPE(c_int32, c_void_p, POINTER(EstruturaContribuinte))
VerDeclaracao = ctypes.CFUNCTYPE(c_int32, c_void_p, POINTER(EstruturaDeclaracao))
VerAchado = ctypes.CFUNCTYPE(c_int32, c_void_p, POINTER(EstruturaAchado))

_ASSINATURAS: dict[str, list[Any]] = {
    "abrir_banco": [c_char_p, c_uint32, POINTER(c_uint64)],
    "criar_banco": [c_char_p],
    "banco_em_memoria": [POINTER(c_uint64)],
    "comecar_tabela": [c_uint64, c_char_p, POINTER(c_char_p), c_size_t],
    "acrescentar_linhas": [c_uint64, POINTER(Valor), c_size_t],
    "existe_contribuinte": [c_uint64, c_char_p, POINTER(c_int32)],
    "existe_declaracao": [c_uint64, c_int32, POINTER(c_int32)],
    "listar_contribuintes": [c_uint64, VerContribuinte, c_void_p],
    "listar_declaracoes": [c_uint64, VerDeclaracao, c_void_p],
    "revisar": [c_uint64, c_char_p, c_int32, c_char_p, c_char_p, VerAchado, c_void_p],
    "criar": [c_char_p, POINTER(c_uint64)],
    "definir_ref_atual": [c_uint64, c_char_p],
    "definir_andamento": [c_uint64, Andamento, c_void_p],
    "executar": [c_uint64, c_uint64, c_char_p, c_int32, c_int32],
    "construir": [c_uint64, c_uint64, c_char_p, c_int32],
    "construir_cadastro": [c_uint64, c_uint64, c_char_p],
    "construir_velo": [c_uint64, c_uint64],
    "exibir": [c_uint64],
    "ocultar": [c_uint64],
    "imprimir": [c_uint64],
    "imprimir_em": [c_uint64, c_char_p],
    "aguardar_janelas": [c_int32, POINTER(c_size_t)],
    "paginas": [c_uint64, POINTER(c_size_t)],
    "transmitir": [POINTER(c_uint64), c_size_t, c_int32, Receber, c_void_p],
    "exportar_reunidos": [POINTER(c_uint64), c_size_t, c_int32, c_char_p],
    "textos_cortados": [c_uint64, POINTER(c_size_t)],
    "texto_cortado": [c_uint64, c_size_t, POINTER(c_size_t), POINTER(c_uint64)],
    "memoria_bytes": [c_uint64, POINTER(c_void_p), POINTER(c_size_t)],
    "campo_st": [c_uint64, c_int32, c_uint64, c_int32, c_char_p, c_size_t],
    "adicionar_total_op": [c_uint64, c_double, c_double, c_double],
    "liberar": [c_uint64],
}

try:
    _tarvo = ctypes.CDLL("libRelatoriosTarvoC.so.1")
except OSError as _falta:
    raise ImportError(f"{_falta} (Debian: librelatoriostarvo1)") from _falta
_tarvo.tarvo_erro_texto.restype = c_char_p
for _nome, _argumentos in _ASSINATURAS.items():
    getattr(_tarvo, f"tarvo_{_nome}").argtypes = _argumentos


def versao() -> tuple[int, int, int]:
    """Major, minor and patch version of the library that is running."""
    numero = _tarvo.tarvo_versao()
    return numero // 10000, numero // 100 % 100, numero % 100


def em_c(tipo: Any, valor: Any) -> Any:
    """An argument as the library takes it; ctypes alone would cut a text at its null character and
    an integer to its lower bits."""
    if tipo is c_int32:
        inteiro = operator.index(valor)
        if not -2**31 <= inteiro < 2**31:
            raise Erro(6, f"Estouro: {inteiro}")
        return inteiro
    if tipo is c_char_p and isinstance(valor, (str, bytes)):
        texto = valor.encode() if isinstance(valor, str) else valor
        if b"\0" in texto:
            raise ValueError(f"um caractere nulo em {valor!r}")
        return texto
    if tipo is c_char_p and valor is not None and not isinstance(valor, ctypes.Array):
        raise TypeError(f"{type(valor).__name__} não é um texto")
    return valor


def chamar(nome: str, *argumentos: Any) -> None:
    """Calls tarvo_NOME and raises the error that it returns."""
    numero = getattr(_tarvo, f"tarvo_{nome}")(*map(em_c, _ASSINATURAS[nome], argumentos))
    if numero != 0:
        raise Erro(numero, _tarvo.tarvo_erro_texto().decode())


def obter(tipo: Any, nome: str, *argumentos: Any) -> Any:
    """The same for a call whose last argument receives its result."""
    resultado = tipo()
    chamar(nome, *argumentos, ctypes.byref(resultado))
    return resultado.value


class Retorno:
    """A function of the program as the library calls it. An exception in it ends the library's call,
    and leaves that call as if the function had been called directly."""

    def __init__(self, tipo: Any, funcao: Callable[..., bool]) -> None:
        self._funcao = funcao
        self._excecao: BaseException | None = None
        self.em_c = tipo(self._chamado)

    def _chamado(self, _contexto: Any, *argumentos: Any) -> int:
        try:
            return 0 if self._excecao is None and self._funcao(*argumentos) else 1
        except BaseException as excecao:  # pylint: disable=broad-exception-caught
            self._excecao = excecao
            return 1

    def chamar(self, nome: str, *argumentos: Any) -> None:
        """Calls tarvo_NOME, which may call the function."""
        anterior = sys.unraisablehook

        # Ctrl+C as the function is entered, before its try.
        def perdida(excecao: Any) -> None:
            if excecao.object == self._chamado:
                self._excecao = excecao.exc_value
            else:
                anterior(excecao)

        no_principal = threading.current_thread() is threading.main_thread()  # signals go there
        try:
            if no_principal:
                sys.unraisablehook = perdida
            chamar(nome, *argumentos)
        except Erro:
            if self._excecao is None:
                raise
        finally:
            if no_principal:
                sys.unraisablehook = anterior
        excecao, self._excecao = self._excecao, None
        if excecao is not None:
            raise excecao


def listar(tipo: Any, ler: Callable[[Any], _Item], nome: str, *argumentos: Any) -> list[_Item]:
    """What tarvo_NOME shows one after the other, as ler reads it."""
    lista: list[_Item] = []

    def ver(item: Any) -> bool:
        lista.append(ler(item.contents))
        return True
    retorno = Retorno(tipo, ver)
    retorno.chamar(nome, *argumentos, retorno.em_c, None)
    return lista


_Identificado = TypeVar("_Identificado", bound="Identificado")


class Identificado:
    """What the library knows by a number, until it is closed."""

    def __init__(self, identificador: int) -> None:
        self._identificador = identificador

    @property
    def identificador(self) -> int:
        """The library's number for it; zero once it is closed."""
        return self._identificador

    def fechar(self) -> None:
        """Releases it; once is enough."""
        if self._identificador:
            chamar("liberar", self._identificador)
            self._identificador = 0

    def __reduce__(self) -> Any:
        raise TypeError(f"{type(self).__name__} não se copia nem vai a outro processo")

    def __enter__(self: _Identificado) -> _Identificado:
        return self

    def __exit__(self, *_excecao: object) -> None:
        self.fechar()

    def __del__(self) -> None:
        if getattr(self, "_identificador", 0):
            _tarvo.tarvo_liberar(self._identificador)
