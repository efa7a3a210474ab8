#include <grp.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <string>

#include "tests/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

int NumeroDoErro(const std::function<void()>& acao) {
    try {
        acao();
    } catch (const Erro& erro) {
        return static_cast<int>(erro.Numero());
    }
    return 0;
}

// The error's number (0 for none) of an action done by a user without privileges: root may do
// everything, so a child process gives its privileges up first.
int NumeroSemPrivilegio(const std::function<void()>& acao) {
    if (geteuid() != 0) {
        return NumeroDoErro(acao);
    }
    constexpr id_t Ninguem = 65534;
    int cano[2];
    EXPECT_EQ(pipe(cano), 0);
    const pid_t filho = fork();
    if (filho == 0) {
        int numero = -1;
        if (setgroups(0, nullptr) == 0 && setgid(Ninguem) == 0 && setuid(Ninguem) == 0) {
            numero = NumeroDoErro(acao);
        }
        const bool enviado = write(cano[1], &numero, sizeof numero) == sizeof numero;
        _exit(enviado ? 0 : 1);
    }
    close(cano[1]);
    int numero = -2;
    EXPECT_EQ(read(cano[0], &numero, sizeof numero), static_cast<ssize_t>(sizeof numero));
    close(cano[0]);
    waitpid(filho, nullptr, 0);
    return numero;
}

std::string Conteudo(const fs::path& arquivo) {
    std::ifstream entrada(arquivo, std::ios::binary);
    return {std::istreambuf_iterator<char>(entrada), {}};
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
    [[nodiscard]] int NumeroAoAbrir(std::string_view nome) const {
        return NumeroDoErro([&] { BancoSQLite::Abrir(pasta_ / nome); });
    }
    void Escrever(std::string_view nome, const std::string& bytes) const {
        std::ofstream(pasta_ / nome, std::ios::binary) << bytes;
    }

    apoio::PastaTemporaria pasta_;
    fs::path banco_ = pasta_ / "banco #1?%.tarvo";
};

void LerEEsvaziar(const fs::path& arquivo, TabelasDeTrabalho onde = TabelasDeTrabalho::NoBanco) {
    const auto banco = BancoSQLite::Abrir(arquivo, {.tabelasDeTrabalho = onde});
    banco->OpenRecordset("SELECT * FROM tblDRQ", TipoRecordset::ForwardOnly);
    banco->CreateQueryDef("", "DELETE * FROM tblResumoCFOPsEntradas")->Execute();
}

TEST_F(Abertura, CriarNuncaSubstituiNemDeixaRestos) {
    EXPECT_EQ(NumeroDoErro([&] { CriarBanco(banco_); }), 3204);
    EXPECT_EQ(NumeroDoErro([&] { CriarBanco(pasta_ / "falta" / "x.tarvo"); }), 76);
    fs::permissions(pasta_.Caminho(), fs::perms(0555));
    EXPECT_EQ(NumeroSemPrivilegio([&] { CriarBanco(pasta_ / "x.tarvo"); }), 70);
    EXPECT_EQ(Entradas(pasta_.Caminho()), 1U);
    fs::permissions(pasta_.Caminho(), fs::perms(0755));
    LerEEsvaziar(banco_);
    EXPECT_EQ(Entradas(pasta_.Caminho()), 1U) << "no -wal and no -shm stays";
}

TEST_F(Abertura, OQueNaoEBancoEErroComNumero) {
    const std::string inteiro = Conteudo(banco_);
    Escrever("texto", "Isto é um texto, não um banco de dados.");
    Escrever("vazio", "");
    Escrever("truncado", inteiro.substr(0, inteiro.size() / 2));
    std::string danificado = inteiro;
    danificado.replace(100, 200, std::string(200, '\x55'));
    Escrever("danificado", danificado);
    EXPECT_EQ(NumeroAoAbrir("falta"), 3024);
    EXPECT_EQ(NumeroAoAbrir("falta/banco"), 3024);
    EXPECT_EQ(NumeroAoAbrir(""), 3343) << "a folder";
    EXPECT_EQ(NumeroAoAbrir("texto"), 3343);
    EXPECT_EQ(NumeroAoAbrir("vazio"), 3343);
    EXPECT_EQ(NumeroAoAbrir("truncado"), 3343);
    EXPECT_EQ(NumeroAoAbrir("danificado"), 3343);
    EXPECT_EQ(Entradas(pasta_.Caminho()), 5U) << "opening creates nothing";
    EXPECT_EQ(Conteudo(pasta_ / "danificado"), danificado);
}

TEST_F(Abertura, UmaPaginaDanificadaEErroQuandoLida) {
    BancoSQLite::Abrir(banco_)->ExecutarScript(
        "WITH RECURSIVE d(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM d WHERE n < 500) INSERT INTO "
        "tblVELO (Contribuinte) SELECT 'contribuinte número ' || n FROM d");
    std::string bytes = Conteudo(banco_);
    const std::size_t pagina = bytes.find("contribuinte número 450") / 4096 * 4096;
    Escrever("danificado", bytes.replace(pagina, 64, std::string(64, '\xFF')));
    EXPECT_EQ(NumeroDoErro([&] {
                  const auto banco = BancoSQLite::Abrir(pasta_ / "danificado");
                  const auto rs =
                      banco->OpenRecordset("SELECT * FROM tblVELO", TipoRecordset::ForwardOnly);
                  LinhasDe(*rs, {"Contribuinte"});
              }),
              3343);
}

TEST_F(Abertura, UmBancoBloqueadoEErroDepoisDaEspera) {
    sqlite3* outro = nullptr;
    ASSERT_EQ(sqlite3_open(banco_.c_str(), &outro), SQLITE_OK);
    sqlite3_exec(outro, "PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    EXPECT_EQ(NumeroDoErro([&] { BancoSQLite::Abrir(banco_); }), 3260);
    sqlite3_exec(outro, "ROLLBACK", nullptr, nullptr, nullptr);
    LerEEsvaziar(banco_);
    sqlite3_close(outro);
}

TEST_F(Abertura, SemPermissaoDeLeituraEErro70) {
    fs::permissions(banco_, fs::perms(0200));
    EXPECT_EQ(NumeroSemPrivilegio([&] { BancoSQLite::Abrir(banco_); }), 70);
    fs::permissions(banco_, fs::perms(0644));
    fs::permissions(pasta_.Caminho(), fs::perms(0600));
    EXPECT_EQ(NumeroSemPrivilegio([&] { BancoSQLite::Abrir(banco_); }), 70);
}

TEST_F(Abertura, OQueNaoSePodeEscreverAindaSeLe) {
    const std::string antes = Conteudo(banco_);
    for (const auto permissao : {fs::perms(0555), fs::perms(0777)}) {      // of the folder
        for (const auto doArquivo : {fs::perms(0444), fs::perms(0666)}) {  // of the file
            for (const char* modo : {"WAL", "DELETE"}) {
                SCOPED_TRACE(std::string(modo) + " " + std::to_string(static_cast<int>(permissao)) +
                             " " + std::to_string(static_cast<int>(doArquivo)));
                fs::permissions(pasta_.Caminho(), fs::perms(0755));
                fs::permissions(banco_, fs::perms(0666));
                BancoSQLite::Abrir(banco_);
                sqlite3* db = nullptr;
                sqlite3_open(banco_.c_str(), &db);
                sqlite3_exec(db, ("PRAGMA journal_mode = " + std::string(modo)).c_str(), nullptr,
                             nullptr, nullptr);
                sqlite3_close(db);
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

TEST_F(Abertura, UmBancoDeOutrosGuardaOSeuModo) {
    sqlite3* db = nullptr;
    const fs::path outro = pasta_ / "outro.db";
    ASSERT_EQ(sqlite3_open(outro.c_str(), &db), SQLITE_OK);
    // Another encoding, another order of columns, a column more, no keys, other capitals; a table
    // without rowid, a view.
    ASSERT_EQ(sqlite3_exec(
                  db,
                  "PRAGMA encoding = 'UTF-16'; CREATE TABLE TBLDRQ (x, \"RÉF\" TEXT, nrodrq INT);"
                  "INSERT INTO tbldrq VALUES (1, 'maçã', 2), ('dois', 'Maca', 1);"
                  "CREATE TABLE est (Código TEXT PRIMARY KEY, nome TEXT) WITHOUT ROWID;"
                  "INSERT INTO est VALUES ('b', 'Bahia'), ('a', 'Acre');"
                  "CREATE VIEW tblEstados AS SELECT Código, nome AS Estado FROM est",
                  nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(db);
    {
        const auto banco =
            BancoSQLite::Abrir(outro, {.tabelasDeTrabalho = TabelasDeTrabalho::Privadas});
        const auto rs = banco->OpenRecordset(
            "SELECT * FROM tblDRQ WHERE Réf > 'MACA' OR NroDRQ = 1", TipoRecordset::ForwardOnly);
        EXPECT_EQ(LinhasDe(*rs, {"X", "Réf", "NroDRQ"}), "1|maçã|2\ndois|Maca|1");
        const auto juntos = banco->OpenRecordset(
            "SELECT est.*, tblEstados.Estado FROM est, tblEstados WHERE "
            "est.Código = tblEstados.Código AND tblEstados.Código = 'B'",
            TipoRecordset::ForwardOnly);
        EXPECT_EQ(LinhasDe(*juntos, {"Código", "nome", "Estado"}), "b|Bahia|Bahia");
        LerEEsvaziar(outro, TabelasDeTrabalho::Privadas);
    }
    EXPECT_EQ(Conteudo(outro)[18], '\1') << "no WAL";
}

}  // namespace

}  // namespace tarvo
