// SPDX-License-Identifier: MIT
#include <grp.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "tests/databases/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

// 0 when there is no error.
int NumeroOuZero(const std::function<void()>& acao) {
    try {
        acao();
    } catch (const Erro& erro) {
        return static_cast<int>(erro.Numero());
    }
    return 0;
}

// The same, done by a user without privileges: root may do everything, so a child process gives its
// privileges up first.
int NumeroSemPrivilegio(const std::function<void()>& acao) {
    if (geteuid() != 0) {
        return NumeroOuZero(acao);
    }
    constexpr id_t Ninguem = 65534;
    int cano[2];
    EXPECT_EQ(pipe(cano), 0);
    const pid_t filho = fork();
    if (filho == 0) {
        const bool renunciou =
            setgroups(0, nullptr) == 0 && setgid(Ninguem) == 0 && setuid(Ninguem) == 0;
        const int numero = renunciou ? NumeroOuZero(acao) : -1;
        _exit(write(cano[1], &numero, sizeof numero) == sizeof numero ? 0 : 1);
    }
    close(cano[1]);
    int numero = -2;
    EXPECT_EQ(read(cano[0], &numero, sizeof numero), static_cast<ssize_t>(sizeof numero));
    close(cano[0]);
    waitpid(filho, nullptr, 0);
    return numero;
}

void Escrever(const fs::path& arquivo, const std::string& bytes) {
    std::ofstream(arquivo, std::ios::binary) << bytes;
}

// What another program does to a file.
void ExecutarFora(const fs::path& arquivo, const std::string& sql) {
    sqlite3* db = nullptr;
    sqlite3_open(arquivo.c_str(), &db);
    EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
}

std::size_t Entradas(const fs::path& pasta) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(pasta), fs::directory_iterator()));
}

class Abertura : public testing::Test {
  protected:
    Abertura() {
        CriarBanco(banco_);
        fs::permissions(pasta_.Caminho(), fs::perms(0755));
    }
    ~Abertura() override { fs::permissions(pasta_.Caminho(), fs::perms(0755)); }

    apoio::PastaTemporaria pasta_;
    fs::path banco_ = pasta_ / "banco #1?%.tarvo";
};

void LerEEsvaziar(const fs::path& arquivo, TabelasDeTrabalho onde = TabelasDeTrabalho::NoBanco) {
    const auto banco = BancoSQLite::Abrir(arquivo, {.tabelasDeTrabalho = onde});
    banco->OpenRecordset("SELECT * FROM tblDRQ", TipoRecordset::ForwardOnly);
    banco->CreateQueryDef("", "DELETE * FROM tblResumoCFOPsEntradas")->Execute();
}

TEST_F(Abertura, CreatingNeverReplacesAFileNorLeavesAnythingBehind) {
    EXPECT_EQ(NumeroDoErro([&] { CriarBanco(banco_); }), 3204);
    EXPECT_EQ(NumeroDoErro([&] { CriarBanco(pasta_ / "falta" / "x.tarvo"); }), 76);
    fs::permissions(pasta_.Caminho(), fs::perms(0555));
    EXPECT_EQ(NumeroSemPrivilegio([&] { CriarBanco(pasta_ / "x.tarvo"); }), 70);
    EXPECT_EQ(Entradas(pasta_.Caminho()), 1U);
    fs::permissions(pasta_.Caminho(), fs::perms(0755));
    LerEEsvaziar(banco_);
    EXPECT_EQ(Entradas(pasta_.Caminho()), 1U) << "no -wal and no -shm stays";
}

TEST_F(Abertura, WhatIsNoDatabaseIsAnErrorWithItsNumber) {
    for (const char* nome : {"falta", "falta/banco"}) {
        EXPECT_EQ(NumeroDoErro([&] { BancoSQLite::Abrir(pasta_ / nome); }), 3024);
    }
    EXPECT_EQ(NumeroDoErro([&] { BancoSQLite::Abrir(pasta_.Caminho()); }), 3343);
    const std::string inteiro = apoio::BytesDe(banco_);
    for (const std::string& bytes :
         {std::string("Isto é um texto, não um banco de dados."), std::string(),
          inteiro.substr(0, inteiro.size() / 2),
          inteiro.substr(0, 100) + std::string(200, '\x55') + inteiro.substr(300)}) {
        Escrever(pasta_ / "outro", bytes);
        EXPECT_EQ(NumeroDoErro([&] { BancoSQLite::Abrir(pasta_ / "outro"); }), 3343) << bytes;
        EXPECT_EQ(apoio::BytesDe(pasta_ / "outro"), bytes);
    }
    EXPECT_EQ(Entradas(pasta_.Caminho()), 2U) << "opening creates nothing";
    const fs::path diario = fs::path(banco_) += "-journal";
    ASSERT_EQ(::mkfifo(diario.c_str(), 0600), 0);
    EXPECT_EQ(NumeroDoErro([&] { BancoSQLite::Abrir(banco_); }), 75) << "and nobody waits";
    fs::remove(diario);
    const fs::path longo = pasta_ / std::string(255, 'x');
    fs::copy_file(banco_, longo);
    EXPECT_EQ(NumeroDoErro([&] { BancoSQLite::Abrir(longo); }), 76)
        << "its -wal would have a name that is too long";
}

TEST_F(Abertura, ADamagedPageIsAnErrorWhenItIsRead) {
    BancoSQLite::Abrir(banco_)->ExecutarScript(
        "WITH RECURSIVE d(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM d WHERE n < 500) INSERT INTO "
        "tblVELO (Contribuinte) SELECT 'contribuinte número ' || n FROM d");
    std::string bytes = apoio::BytesDe(banco_);
    const std::size_t pagina = bytes.find("contribuinte número 450") / 4096 * 4096;
    Escrever(pasta_ / "danificado", bytes.replace(pagina, 64, std::string(64, '\xFF')));
    const auto banco = BancoSQLite::Abrir(pasta_ / "danificado");
    EXPECT_EQ(NumeroDoErro([&] { LinhasDe(*banco, "SELECT * FROM tblVELO", "Contribuinte"); }),
              3343);
}

// SQLite itself calls that a lack of memory.
TEST_F(Abertura, ALengthThatNoFileCanHaveIsDamageAndNoLackOfMemory) {
    BancoSQLite::Abrir(banco_)->ExecutarScript(
        "INSERT INTO tblVELO (Contribuinte) VALUES ('antes'), ('o que segue é a linha "
        "danificada')");
    std::string bytes = apoio::BytesDe(banco_);
    for (const auto& [texto, antes] :
         {std::pair{"o que segue é", 22}, {"tabletblVELOtblVELO", 10}}) {
        std::string danificado = bytes;
        danificado.replace(danificado.find(texto) - antes, 9, 9, '\xFF');
        Escrever(pasta_ / "danificado", danificado);
        EXPECT_EQ(NumeroDoErro([&] {
                      LinhasDe(*BancoSQLite::Abrir(pasta_ / "danificado"), "SELECT * FROM tblVELO",
                               "Contribuinte");
                  }),
                  3343)
            << texto;
    }
}

TEST_F(Abertura, ALockedDatabaseIsAnErrorAfterTheWait) {
    sqlite3* outro = nullptr;
    ASSERT_EQ(sqlite3_open(banco_.c_str(), &outro), SQLITE_OK);
    sqlite3_exec(outro, "PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    EXPECT_EQ(NumeroDoErro([&] { BancoSQLite::Abrir(banco_); }), 3260);
    sqlite3_exec(outro, "ROLLBACK", nullptr, nullptr, nullptr);
    LerEEsvaziar(banco_);
    sqlite3_close(outro);
}

TEST_F(Abertura, WithoutPermissionToReadItIsError70) {
    fs::permissions(banco_, fs::perms(0200));
    EXPECT_EQ(NumeroSemPrivilegio([&] { BancoSQLite::Abrir(banco_); }), 70);
    fs::permissions(banco_, fs::perms(0644));
    fs::permissions(pasta_.Caminho(), fs::perms(0600));
    EXPECT_EQ(NumeroSemPrivilegio([&] { BancoSQLite::Abrir(banco_); }), 70);
}

TEST_F(Abertura, WhatCannotBeWrittenIsStillRead) {
    const std::string antes = apoio::BytesDe(banco_);
    for (const auto permissao : {fs::perms(0555), fs::perms(0777)}) {      // of the folder
        for (const auto doArquivo : {fs::perms(0444), fs::perms(0666)}) {  // of the file
            for (const char* modo : {"WAL", "DELETE"}) {
                SCOPED_TRACE(std::string(modo) + " " + std::to_string(static_cast<int>(permissao)) +
                             " " + std::to_string(static_cast<int>(doArquivo)));
                fs::permissions(pasta_.Caminho(), fs::perms(0755));
                fs::permissions(banco_, fs::perms(0666));
                BancoSQLite::Abrir(banco_);
                ExecutarFora(banco_, "PRAGMA journal_mode = " + std::string(modo));
                fs::permissions(banco_, doArquivo);
                fs::permissions(pasta_.Caminho(), permissao);
                const bool gravavel = permissao == fs::perms(0777) && doArquivo == fs::perms(0666);
                EXPECT_EQ(NumeroSemPrivilegio([&] { LerEEsvaziar(banco_); }), gravavel ? 0 : 3027);
                EXPECT_EQ(
                    NumeroSemPrivilegio([&] { LerEEsvaziar(banco_, TabelasDeTrabalho::Privadas); }),
                    0);
                EXPECT_EQ(Entradas(pasta_.Caminho()), 1U) << "nothing is left beside the file";
            }
        }
    }
}

TEST_F(Abertura, ADatabaseOfOthersKeepsItsOwnForm) {
    const fs::path outro = pasta_ / "outro.db";
    // Another encoding, another order of columns, a column more, no keys, other capitals; a table
    // without rowid, a view.
    ExecutarFora(outro,
                 "PRAGMA encoding = 'UTF-16'; CREATE TABLE TBLDRQ (x, \"RÉF\" TEXT, nrodrq INT);"
                 "INSERT INTO tbldrq VALUES (1, 'maçã', 2), ('dois', 'Maca', 1);"
                 "CREATE TABLE est (Código TEXT PRIMARY KEY, nome TEXT) WITHOUT ROWID;"
                 "INSERT INTO est VALUES ('b', 'Bahia'), ('a', 'Acre');"
                 "CREATE VIEW tblEstados AS SELECT Código, nome AS Estado FROM est");
    {
        const auto banco =
            BancoSQLite::Abrir(outro, {.tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
        EXPECT_EQ(LinhasDe(*banco, "SELECT * FROM tblDRQ WHERE Réf >= 'maçã' OR NroDRQ = 1",
                           "X|Réf|NroDRQ"),
                  "1|maçã|2\ndois|Maca|1");
        EXPECT_EQ(LinhasDe(*banco,
                           "SELECT est.*, tblEstados.Estado FROM est, tblEstados WHERE "
                           "est.Código = tblEstados.Código AND tblEstados.Código = 'B'",
                           "Código|nome|Estado"),
                  "b|Bahia|Bahia");
        LerEEsvaziar(outro, TabelasDeTrabalho::Privadas);
    }
    EXPECT_EQ(apoio::BytesDe(outro)[18], '\1') << "no WAL";
}

}  // namespace

}  // namespace tarvo
