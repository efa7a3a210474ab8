// SPDX-License-Identifier: MIT
#include <csignal>
#include <random>

#include "data/TabelasDoBanco.h"
#include "tests/databases/postgresql/ServidorDeTeste.h"
#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using apoio::ServidorDeTeste;
using testing::AllOf;
using testing::HasSubstr;

// All values of all tables in their order; True is one number.
std::string Despejo(const std::string& banco) {
    std::string texto;
    const auto aberto = BancoSQLite::Abrir(banco);
    for (const auto& tabela : TabelasDoBanco()) {
        const int colunas = static_cast<int>(tabela.Colunas().size());
        for (const auto& linha :
             apoio::Linhas(*aberto, "select * from [" + std::string(tabela.nome) + "]", colunas)) {
            texto += linha + "\n";
        }
    }
    return texto;
}

// As SQL writes it; a key is the row's own.
std::string ValorSorteado(std::mt19937& sorte, const ColunaDoBanco& coluna, int linha) {
    const auto um = [&](std::vector<const char*> lista) {
        return std::string(lista[sorte() % lista.size()]);
    };
    if (sorte() % 9 == 0 && !coluna.chave) {
        return "NULL";
    }
    switch (coluna.tipo) {
        case TipoDaColuna::Longo:
            return std::to_string(900 + (coluna.chave ? linha : static_cast<int>(sorte() % 15)));
        case TipoDaColuna::Moeda:
            return std::to_string(static_cast<std::int64_t>(sorte()) * 1000 - 5);
        case TipoDaColuna::Data:
            return um({"'2003-07-01'", "'0100-01-01'", "'2002-01-31 23:59:59'"});
        case TipoDaColuna::Booleano:
            return um({"-1", "0", "7"});
        default:
            return coluna.chave ? "'" + std::to_string(linha) + "'"
                                : um({"'1.101'", "'6.109'", "'001.01'", "'É\t\n'", "''", "'SP'",
                                      "'12'", "'250114377019'"});
    }
}

class ComandosNoServidor : public ComExemplo {
  protected:
    ComandosNoServidor() {
        ::setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
        EXPECT_THAT(Rodar("criar " + endereco), Termina(0));
    }
    void Copiar() { EXPECT_THAT(Rodar("copiar " + Banco() + " " + endereco), Termina(0)); }
    std::string Lote(const std::string& banco, const std::string& onde,
                     const std::string& formato = "pdf") {
        return "lote " + banco + " --saida " + Saida(onde) + " --formato " + formato +
               " --trabalhos 2 --ref-atual declaração";
    }
    // Every file but the summary.
    void EsperarIguais(const std::string& uma, const std::string& outra) {
        const auto nomes = Arquivos(Saida(uma));
        EXPECT_EQ(nomes, Arquivos(Saida(outra)));
        EXPECT_GT(nomes.size(), 20U);
        for (const auto& nome : nomes) {
            if (!nome.ends_with("resumo.csv")) {
                EXPECT_EQ(apoio::BytesDe(Saida(uma + "/" + nome)),
                          apoio::BytesDe(Saida(outra + "/" + nome)))
                    << nome;
            }
        }
    }
    // Rows of all kinds, which refer to each other or to nothing.
    void Sortear(unsigned semente) {
        std::mt19937 sorte(semente);
        for (const auto& tabela : TabelasDoBanco()) {
            for (int linha = 0; linha < 15; ++linha) {
                std::string valores;
                for (const auto& coluna : tabela.Colunas()) {
                    valores += (valores.empty() ? "" : ", ") + ValorSorteado(sorte, coluna, linha);
                }
                Executar("INSERT OR IGNORE INTO \"" + std::string(tabela.nome) + "\" VALUES (" +
                         valores + ")");
            }
        }
    }

    ServidorDeTeste& servidor = ServidorDeTeste::Unico();
    std::string endereco = servidor.BancoNovo();
};

TEST_F(ComandosNoServidor, GiveTheSamePagesAsAFileAndCopyBackIntoThatFile) {
    for (const unsigned semente : {0U, 1U}) {
        if (semente > 0) {
            Sortear(semente);
            endereco = servidor.BancoNovo();
            EXPECT_THAT(Rodar("criar " + endereco), Termina(0));
        }
        Copiar();
        const std::string n = std::to_string(semente);
        const char* const formato = semente == 0 ? "pdf" : "json";
        const auto doServidor = Rodar(Lote(endereco, "no" + n, formato));
        EXPECT_EQ(doServidor.situacao, Rodar(Lote(Banco(), "de" + n, formato)).situacao);
        EsperarIguais("no" + n, "de" + n);
        for (const std::string comando : {"listar --json ", "verificar --json "}) {
            EXPECT_EQ(Rodar(comando + endereco).saida, Rodar(comando + Banco()).saida);
        }
        const std::string volta = (pasta / ("volta" + n)).string();
        EXPECT_THAT(Rodar("copiar " + endereco + " " + volta), Termina(0));
        EXPECT_EQ(Despejo(volta), Despejo(Banco()));
        EXPECT_THAT(Rodar("copiar --drq 101 " + endereco + " " + volta + "101"), Termina(0));
        EXPECT_THAT(Rodar("copiar --drq 101 " + Banco() + " " + volta + "um"), Termina(0));
        EXPECT_EQ(Despejo(volta + "101"), Despejo(volta + "um"));
    }
}

TEST_F(ComandosNoServidor, RefuseToOverwriteAndWhatTheServerCannotHold) {
    EXPECT_THAT(Rodar("criar " + endereco), Termina(1, HasSubstr("erro 3204")));
    Executar("UPDATE tblPagamento SET Valor = 'dez' WHERE rowid = 3");
    EXPECT_THAT(Rodar("copiar " + Banco() + " " + endereco),
                Termina(1, AllOf(HasSubstr("erro 3421: Tabela \"tblPagamento\": linha 3, NroDRQ "),
                                 HasSubstr("\"dez\""))));
    Executar(
        "UPDATE tblPagamento SET Valor = 10 WHERE rowid = 3; UPDATE tblContribuinte SET "
        "Bairro = CAST(x'610062' AS TEXT) WHERE rowid = 2");
    EXPECT_THAT(Rodar("copiar " + Banco() + " " + endereco),
                Termina(1, AllOf(HasSubstr("linha 2, IE "), HasSubstr("byte nulo"))));
    Executar("UPDATE tblContribuinte SET Bairro = ''; ALTER TABLE tblDRQ DROP COLUMN Ref2");
    EXPECT_THAT(Rodar("copiar " + Banco() + " " + endereco),
                Termina(0, HasSubstr("não tem a coluna Ref2 de tblDRQ")));
    EXPECT_THAT(Rodar("copiar " + Banco() + " " + endereco), Termina(1, HasSubstr("erro 3204")));
    for (const std::string banco : {"postgresql://eu:segredo@x/y", "POSTGRESQL://eu:segredo@x/y",
                                    "'host=x password=segredo'"}) {
        EXPECT_THAT(Rodar("listar " + banco),
                    Termina(2, AllOf(HasSubstr(".pgpass"), testing::Not(HasSubstr("segredo")))));
    }
}

TEST_F(ComandosNoServidor, ABatchOutlivesItsServerAndAnInterruptedOneIsResumed) {
    Executar(
        "WITH RECURSIVE r(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM r WHERE i < 20) INSERT "
        "INTO tblDRQ (NroDRQ, IE, Ref1, RegTrib, Tipo, SaldoCredAntDig, SaldoCredAntDigST) "
        "SELECT 1000 + i, '250114377019', '2003-07-01', '01', 1, 0, 0 FROM r");
    Copiar();
    EXPECT_THAT(Rodar(Lote(Banco(), "sem")), Termina(0));
    const auto esperar = [&](std::size_t arquivos, const Programa& lote) {
        while (lote.Ativo() && Arquivos(Saida("com")).size() < arquivos) {
            ::usleep(1000);
        }
        EXPECT_TRUE(lote.Ativo());
    };
    {
        Programa lote(Lote(endereco, "com"));
        esperar(60, lote);
        servidor.Matar();
        EXPECT_TRUE(lote.Dizer("aguardando"));
        servidor.Iniciar();
        esperar(120, lote);
        servidor.Matar();
        ::usleep(300'000);
        lote.Sinalizar(SIGTERM);
        EXPECT_THAT(lote.Esperar(), Termina(1, HasSubstr("--retomar continua")));
        servidor.Iniciar();
    }
    EXPECT_THAT(Rodar(Lote(endereco, "com") + " --retomar"), Termina(0));
    EsperarIguais("sem", "com");
}

TEST_F(ComandosNoServidor, ACancelledExportIsCancelledOnTheServer) {
    Copiar();
    static_cast<void>(ServidorDeTeste::Executar(
        endereco, R"(ALTER TABLE "tblPagamento" RENAME TO p; CREATE VIEW "tblPagamento" AS
                     SELECT p.*, pg_sleep(60)::text AS "Observação" FROM p WHERE pg_sleep(60)::text = '')"));
    Programa exportacao("exportar " + endereco +
                        " --ie 250114377019 --drq 101 --relatorios 17 "
                        "--formato pdf --saida " +
                        Saida());
    const std::string emCurso =
        "SELECT count(*) FROM pg_stat_activity WHERE state = 'active' AND wait_event = 'PgSleep'";
    while (ServidorDeTeste::Executar(endereco, emCurso) == "0" && exportacao.Ativo()) {
        ::usleep(10'000);
    }
    exportacao.Sinalizar(SIGINT);
    EXPECT_THAT(exportacao.Esperar(), Termina(1, HasSubstr("erro 18")));
    ::usleep(200'000);
    EXPECT_EQ(ServidorDeTeste::Executar(endereco, emCurso), "0");
}

}  // namespace
}  // namespace tarvo::host
