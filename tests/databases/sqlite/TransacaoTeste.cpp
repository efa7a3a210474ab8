// SPDX-License-Identifier: MIT
#include "databases/sqlite/Transacao.h"

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "databases/sqlite/Abertura.h"
#include "tests/databases/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

constexpr const char* Trabalho = "tblResumoCFOPsEntradas";

void Executar(sqlite3* db, const char* sql) {
    EXPECT_EQ(sqlite3_exec(db, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
}

// Never gives up waiting before that many questions.
class Paciente final : public Acompanhante {
  public:
    explicit Paciente(int paciencia) : restam_(paciencia) {}
    bool Continuar(std::chrono::milliseconds aguardando) override {
        // A query that a busy machine lets run long asks too, without waiting.
        return aguardando.count() == 0 || --restam_ > 0;
    }
    [[nodiscard]] int Restam() const { return restam_; }

  private:
    int restam_;
};

class Turn : public testing::Test {
  protected:
    Turn() {
        EXPECT_EQ(sqlite3_open(banco_.Arquivo().c_str(), &outro_), SQLITE_OK);
        Refazer(*banco_, "velha");
    }
    ~Turn() override { sqlite3_close(outro_); }

    // Empties the work table, adds a line and does what else is said.
    static void Refazer(
        BancoDados& banco, const std::string& linha, const std::function<void()>& depois = [] {}) {
        banco.RefazerTabela(Trabalho, [&] {
            banco.CreateQueryDef("", std::string("DELETE * FROM ") + Trabalho)->Execute();
            const auto linhas = banco.OpenRecordset(std::string("SELECT * FROM ") + Trabalho,
                                                    TipoRecordset::Dynaset);
            linhas->AddNew();
            linhas->Fields("Linha") = linha;
            linhas->Update();
            depois();
        });
    }
    std::string Lidas(BancoDados& banco) {
        return LinhasDe(banco, std::string("SELECT * FROM ") + Trabalho, "Linha");
    }
    // In a process of its own, as its end does not come back; its status.
    int NoutroProcesso(const std::function<void(BancoDados&)>& acao) {
        const pid_t filho = fork();
        if (filho == 0) {
            int situacao = 1;
            try {
                acao(*BancoSQLite::Abrir(banco_.Arquivo()));
            } catch (const Erro& erro) {
                situacao = static_cast<int>(erro.Numero());
            }
            _exit(situacao);
        }
        int estado = 0;
        EXPECT_EQ(waitpid(filho, &estado, 0), filho);
        return WIFEXITED(estado) ? WEXITSTATUS(estado) : -WTERMSIG(estado);
    }

    apoio::BancoDeTeste banco_;
    sqlite3* outro_ = nullptr;  // another program
};

TEST_F(Turn, NobodyElseWritesUntilTheLinesAreReadBack) {
    Refazer(*banco_, "minha", [&] {
        EXPECT_EQ(sqlite3_exec(outro_, "DELETE FROM tblVELO", nullptr, nullptr, nullptr),
                  SQLITE_BUSY);
        EXPECT_EQ(Lidas(*banco_), "minha");
        EXPECT_EQ(Lidas(*BancoSQLite::Abrir(banco_.Arquivo())), "velha");
    });
    Executar(outro_, "DELETE FROM tblVELO");
    EXPECT_EQ(Lidas(*BancoSQLite::Abrir(banco_.Arquivo())), "minha");
}

TEST_F(Turn, ADeclarationIsReadAsOfOneMomentUntilItsReaderWrites) {
    const auto Nome = [&] { return LinhasDe(*banco_, "SELECT IE FROM tblContribuinte", "IE"); };
    Executar(outro_, "INSERT INTO tblContribuinte (IE) VALUES ('1')");
    {
        const LeituraMantida leitura(*banco_, "1", 7);
        EXPECT_EQ(Nome(), "1");
        Executar(outro_, "UPDATE tblContribuinte SET IE = '2'");
        const LeituraMantida dentro(*banco_, "1", 7);
        EXPECT_EQ(Nome(), "1");
        Refazer(*banco_, "nova");  // on the database's last state
        EXPECT_EQ(Nome(), "2");
    }
    Executar(outro_, "UPDATE tblContribuinte SET IE = '3'");
    EXPECT_EQ(Nome(), "3");
}

TEST_F(Turn, AnErrorOfTheReportKeepsTheLinesBeforeIt) {
    EXPECT_EQ(NumeroDoErro([&] {
                  Refazer(*banco_, "até aqui", [] { LancarUsoInvalidoDeNull("o saldo"); });
              }),
              94);
    EXPECT_EQ(Lidas(*banco_), "até aqui");
}

TEST_F(Turn, AFullDiskOrAKillLeavesTheLinesOfTheBuildBefore) {
    const auto muitas = [&](BancoDados& banco) {
        const rlimit limite{600'000, 600'000};
        signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &limite);
        Refazer(banco, std::string(1'000'000, 'x'));
    };
    EXPECT_EQ(NoutroProcesso(muitas), static_cast<int>(NumeroErro::ErroDispositivo));
    EXPECT_EQ(Lidas(*banco_), "velha");
    EXPECT_EQ(
        NoutroProcesso([&](BancoDados& banco) { Refazer(banco, "x", [] { raise(SIGKILL); }); }),
        -SIGKILL);
    EXPECT_EQ(Lidas(*banco_), "velha");
    EXPECT_EQ(NumeroDoErro([&] {
                  Refazer(*banco_, "x", [] { throw Erro(NumeroErro::DiscoCheio, "cheio"); });
              }),
              61);
    EXPECT_EQ(Lidas(*banco_), "velha");
}

TEST_F(Turn, WaitsForItsTurnAsLongAsItsUserAndAMinuteAllow) {
    Executar(outro_, "BEGIN IMMEDIATE");
    Paciente impaciente(2);
    {
        const Acompanhamento acompanhamento(*banco_, &impaciente);
        EXPECT_EQ(NumeroDoErro([&] { Refazer(*banco_, "x"); }), 18);
    }
    const auto conexao = sqlite::AbrirArquivo(banco_.Arquivo(), ModoAbertura::LeituraEscrita);
    const auto tabela = sqlite::Esquema(conexao).Procurar(Trabalho);
    EXPECT_EQ(
        NumeroDoErro([&] { sqlite::Transacao(*conexao, *tabela, std::chrono::milliseconds(100)); }),
        3260);
    class Solta final : public Acompanhante {
      public:
        explicit Solta(sqlite3* outro) : outro_(outro) {}
        bool Continuar(std::chrono::milliseconds /*aguardando*/) override {
            sqlite3_exec(outro_, "COMMIT", nullptr, nullptr, nullptr);
            return true;
        }

      private:
        sqlite3* outro_;
    } solta(outro_);
    const Acompanhamento acompanhamento(*banco_, &solta);
    Refazer(*banco_, "minha vez");
    EXPECT_EQ(Lidas(*banco_), "minha vez");
}

TEST_F(Turn, InAHostsTransactionTheHostDecides) {
    sqlite3* hospedeiro = nullptr;
    ASSERT_EQ(sqlite3_open(banco_.Arquivo().c_str(), &hospedeiro), SQLITE_OK);
    {
        const auto banco = BancoSQLite::Adotar(hospedeiro);
        Executar(hospedeiro, "BEGIN");
        Refazer(*banco, "do hospedeiro");
        EXPECT_EQ(NumeroDoErro([&] {
                      Refazer(*banco, "x", [] { throw Erro(NumeroErro::DiscoCheio, ""); });
                  }),
                  61);
        EXPECT_EQ(Lidas(*banco), "do hospedeiro");
        Executar(hospedeiro, "ROLLBACK");
        EXPECT_EQ(Lidas(*banco), "velha");

        // A state that somebody has since changed cannot be written any more: no waiting helps.
        Paciente nuncaPerguntado(1);
        const Acompanhamento acompanhamento(*banco, &nuncaPerguntado);
        Executar(hospedeiro, "BEGIN; SELECT count(*) FROM tblDRQ");
        Executar(outro_, "INSERT INTO tblVELO (IE) VALUES ('1')");
        EXPECT_EQ(NumeroDoErro([&] { Refazer(*banco, "x"); }), 3260);
        EXPECT_EQ(nuncaPerguntado.Restam(), 1);
        Executar(hospedeiro, "COMMIT");
        Refazer(*banco, "nova");
        EXPECT_EQ(Lidas(*banco), "nova");
    }
    sqlite3_close(hospedeiro);
}

}  // namespace

}  // namespace tarvo
