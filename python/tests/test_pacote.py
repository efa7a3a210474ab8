# SPDX-License-Identifier: MIT
"""The package on an installed library and the example database: BANCO in the environment."""

import datetime
import decimal
import io
import os
import pathlib
import pickle
import shutil
import signal
import sqlite3
import tempfile
import time
import unittest

import relatoriostarvo as tarvo

EXEMPLO = pathlib.Path(os.environ["BANCO"])
IE, DRQ = "250114377019", 101


class AosPoucos(io.RawIOBase):
    """A file that takes a thousand bytes at a time."""

    recebido = b""

    def write(self, trecho):
        self.recebido += trecho[:1000]
        return len(trecho[:1000])


class Bancos(unittest.TestCase):
    def test_lists_what_is_there_and_reviews_it(self):
        with tarvo.abrir(EXEMPLO) as banco:
            self.assertIn("Metalúrgica Serra Dourada S.A.", [c.razao_social for c in banco.contribuintes()])
            declaracoes = {d.numero: d for d in banco.declaracoes()}
            self.assertEqual((declaracoes[DRQ].ie, declaracoes[DRQ].referencia), (IE, "07/2003"))
            self.assertTrue(banco.existe_declaracao(DRQ) and not banco.existe_declaracao(-1))
            self.assertIn("tblDetalhesCFOPs", [a.tabela for a in banco.revisar(IE, DRQ)])
            self.assertEqual(banco.revisar(IE, DRQ, "01"), [])
        with self.assertRaises(tarvo.Erro) as fechado:
            banco.contribuintes()
        self.assertEqual(fechado.exception.numero, 91)

    def test_what_cannot_be_opened_says_why(self):
        with self.assertRaises(tarvo.Erro) as erro:
            tarvo.abrir(EXEMPLO.with_name("nenhum"))
        self.assertEqual(erro.exception.numero, 3024)
        self.assertIn(erro.exception.texto, str(erro.exception))
        with self.assertRaises(tarvo.Erro) as erro:
            tarvo.criar(EXEMPLO)
        self.assertEqual(erro.exception.numero, 3204)

    def test_no_argument_is_cut_to_what_the_library_could_take(self):
        with tarvo.abrir(EXEMPLO) as banco, tarvo.RelatorioPagamentos() as relatorio:
            for errado, excecao in (((IE + "\0", DRQ), ValueError), ((IE, str(DRQ)), TypeError), ((7, DRQ), TypeError)):
                with self.assertRaises(excecao):
                    relatorio.construir(banco, *errado)
            with self.assertRaises(tarvo.Erro) as erro:
                banco.existe_declaracao(2**32 + DRQ)
            copia = pickle.loads(pickle.dumps(erro.exception))
            self.assertEqual((copia.numero, str(copia)), (6, str(erro.exception)))
            with self.assertRaises(ValueError):
                tarvo.criar("a\0b")
            with self.assertRaises(TypeError):  # two owners would release one database
                pickle.dumps(banco)

    def test_a_store_of_the_programs_own_is_filled_with_pythons_values(self):
        with tarvo.em_memoria() as banco, tarvo.RelatorioPagamentos() as relatorio:
            banco.preencher("tblContribuinte", ["IE", "RazãoSocial", "CNPJ"], [["100", "Padaria", None]])
            banco.preencher("tblDRQ", ["NroDRQ", "Ref1", "Tipo", "RegTrib", "Consistente", "Autenticação"],
                            [[1, datetime.datetime(2003, 7, 1, 12), 1, "01", True, "A1"]])
            pagamento = [1, True, datetime.date(2003, 8, 5), decimal.Decimal("-1234.5")]
            banco.preencher("tblPagamento", ["NroDRQ", "OpPróprias", "Data", "Valor"], [pagamento])
            relatorio.construir(banco, "100", 1)
            saida = io.BytesIO()
            relatorio.escrever(saida, "json")
            for texto in ("Padaria", "05/08/2003", "-1.234,50"):
                self.assertIn(texto, saida.getvalue().decode())
            for tabela, coluna, errada in (("tblDetalhesCFOPs", "ValorContábil", decimal.Decimal("0.00001")),
                                           ("tblVELO", "Referência", 2**31)):
                with self.assertRaises(tarvo.Erro) as erro:
                    banco.preencher(tabela, [coluna], [[errada]])
                self.assertEqual(erro.exception.numero, 6)
            with self.assertRaises(ValueError):
                banco.preencher("tblEstados", ["Código", "Estado"], [["1"]])


class Exportacao(unittest.TestCase):
    def setUp(self):
        pasta = tempfile.TemporaryDirectory()
        self.addCleanup(pasta.cleanup)
        self.pasta = pathlib.Path(pasta.name)

    def test_writes_files_bytes_and_several_reports_in_one(self):
        with tarvo.abrir(EXEMPLO) as banco, tarvo.RelatorioApuracaoOpProp() as apuracao, \
                tarvo.RelatorioCadastro() as cadastro:
            apuracao.construir(banco, IE, DRQ)
            cadastro.construir(banco, IE)
            self.assertEqual(apuracao.paginas, 2)
            apuracao.exportar(self.pasta / "apuracao.pdf")
            tarvo.exportar([cadastro, apuracao], self.pasta / "juntos.pdf")
            for nome in ("apuracao.pdf", "juntos.pdf"):
                self.assertTrue((self.pasta / nome).read_bytes().startswith(b"%PDF-"))
            apuracao.exportar(self.pasta / "apuracao.xlsx")
            self.assertTrue((self.pasta / "apuracao.xlsx").read_bytes().startswith(b"PK"))
            self.assertEqual(apuracao.textos_cortados, [])
            inteira, aos_poucos = io.BytesIO(), AosPoucos()
            apuracao.escrever(inteira, "json")
            apuracao.escrever(aos_poucos, "json")
            self.assertEqual(aos_poucos.recebido, inteira.getvalue())
            with self.assertRaises(ValueError):
                apuracao.exportar(self.pasta / "apuracao.doc")
            with self.assertRaises(tarvo.Erro) as erro:
                apuracao.exportar(self.pasta / "nenhuma" / "x.pdf")
            self.assertEqual(erro.exception.numero, 76)
            self.assertEqual(sorted(os.listdir(self.pasta)), ["apuracao.pdf", "apuracao.xlsx", "juntos.pdf"])

    def test_tells_what_was_cut(self):
        with tarvo.em_memoria() as banco, tarvo.RelatorioCadastro() as relatorio:
            colunas = ["IE", "RazãoSocial", "CNPJ", "DataCadastro", "Localização", "Número", "Complemento", "Bairro",
                       "Município", "CEP", "UF", "Telefone", "FAX", "Email", "HomePage", "Contato", "Observação"]
            banco.preencher("tblContribuinte", colunas, [["1", "longa " * 100] + [None] * 15])
            relatorio.construir(banco, "1")
            relatorio.escrever(io.BytesIO())
            self.assertEqual(relatorio.textos_cortados, [tarvo.TextoCortado(1, "longa " * 100)])

    def test_ctrl_c_ends_a_build_that_waits_for_its_turn(self):
        arquivo = self.pasta / "banco.tarvo"
        shutil.copy(EXEMPLO, arquivo)
        outro = sqlite3.connect(arquivo, isolation_level=None)
        self.addCleanup(outro.close)
        outro.execute("BEGIN IMMEDIATE")
        signal.signal(signal.SIGALRM, signal.default_int_handler)
        signal.setitimer(signal.ITIMER_REAL, 0.2)
        comeco = time.monotonic()
        with tarvo.abrir(arquivo, somente_leitura=False, tabelas_privadas=False) as banco, \
                tarvo.RelatorioApuracaoOpProp() as relatorio, self.assertRaises(KeyboardInterrupt):
            relatorio.construir(banco, IE, DRQ)
        self.assertLess(time.monotonic() - comeco, 30)

    def test_progress_counts_pages_and_an_exception_in_it_comes_through(self):
        with tarvo.abrir(EXEMPLO) as banco, tarvo.RelatorioApuracaoOpProp() as relatorio:
            novas = []
            relatorio.construir(banco, IE, DRQ, andamento=novas.append)
            self.assertEqual(sum(novas), relatorio.paginas)
            with self.assertRaises(tarvo.Erro) as erro:
                relatorio.construir(banco, IE, DRQ, andamento=lambda paginas: False)
            self.assertEqual(erro.exception.numero, 18)
            with self.assertRaises(ZeroDivisionError):
                relatorio.construir(banco, IE, DRQ, andamento=lambda paginas: 1 // 0)
            relatorio.construir(banco, IE, DRQ)

            def quebrar(_):
                raise BrokenPipeError

            saida = io.BytesIO()
            saida.write = quebrar
            with self.assertRaises(BrokenPipeError):
                relatorio.escrever(saida)


if __name__ == "__main__":
    unittest.main()
