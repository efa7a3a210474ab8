// SPDX-License-Identifier: MIT
#include <sqlite3.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

#include "tests/databases/sqlite/LinhasDe.h"

namespace tarvo {

namespace {

// A view that SQLite never finishes to compute; with rows it gives one after the other for ever.
std::string SemFim(const char* condicao) {
    return std::string(
               "DROP TABLE tblPagamento; CREATE VIEW tblPagamento AS WITH RECURSIVE n(i) AS "
               "(SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT 7 AS NroDRQ, i AS Valor "
               "FROM n WHERE ") +
           condicao;
}

// Says what it was made to say, and counts how often it was asked.
class Perguntado final : public Acompanhante {
  public:
    explicit Perguntado(std::function<bool()> resposta) : resposta_(std::move(resposta)) {}
    bool Continuar(std::chrono::milliseconds /*aguardando*/) override {
        ++vezes;
        return resposta_();
    }
    int vezes = 0;

  private:
    std::function<bool()> resposta_;
};

class HostileDatabase : public testing::Test {
  protected:
    ~HostileDatabase() override { sqlite3_close(db_); }

    // The file as a host has it open.
    std::unique_ptr<BancoSQLite> Adotado() {
        EXPECT_EQ(sqlite3_open(banco_.Arquivo().c_str(), &db_), SQLITE_OK);
        return BancoSQLite::Adotar(db_);
    }
    static void Percorrer(BancoDados& banco) { LinhasDe(banco, "SELECT * FROM tblPagamento", ""); }

    apoio::BancoDeTeste banco_{"INSERT INTO tblDRQ (NroDRQ) VALUES (7)"};
    sqlite3* db_ = nullptr;
};

TEST_F(HostileDatabase, ItsTriggersRunOnAHostsConnectionOnly) {
    banco_.Executar(
        "CREATE TRIGGER t BEFORE DELETE ON tblVELO BEGIN DELETE FROM tblDRQ; END;"
        "CREATE TRIGGER u BEFORE DELETE ON tblDRQ BEGIN SELECT raise(ABORT, 'tarvo#0 x'); END;"
        "INSERT INTO tblVELO (IE) VALUES ('1')");
    const auto excluir = [](BancoDados& banco) {
        banco.CreateQueryDef("", "DELETE * FROM tblVELO")->Execute();
    };
    const auto adotado = Adotado();
    const Erro erro = apoio::ErroDe([&] { excluir(*adotado); });
    EXPECT_EQ(erro.Numero(), NumeroErro::OperacaoInvalida) << "not what the text says";
    EXPECT_NE(erro.Descricao().find("tarvo#0 x"), std::string::npos);
    excluir(*banco_);
    EXPECT_EQ(banco_.Linhas("SELECT NroDRQ FROM tblDRQ", 1).size(), 1U);
    EXPECT_TRUE(banco_.Linhas("SELECT IE FROM tblVELO", 1).empty());
}

TEST_F(HostileDatabase, ItsSchemaCallsNothingThatCouldDoHarm) {
    banco_.Executar("CREATE VIEW vista AS SELECT load_extension('x') AS IE");
    EXPECT_EQ(NumeroDoErro([&] { LinhasDe(*banco_, "SELECT IE FROM vista", "IE"); }), 3075);
    EXPECT_EQ(NumeroDoErro([&] { banco_.Executar("ATTACH ':memory:' AS outro"); }), 3075);
}

TEST_F(HostileDatabase, DamageThatNoQueryMeetsIsFoundByLooking) {
    EXPECT_TRUE(banco_->Danos().empty());
    const auto adotado = Adotado();
    const char* const trocarIndices =
        "INSERT INTO tblZFM_ALC (NroDRQ) VALUES (7); PRAGMA writable_schema = ON; UPDATE "
        "sqlite_master SET rootpage = (SELECT rootpage FROM sqlite_master WHERE name = "
        "'idxtblMIDAXNroDRQ') WHERE name = 'idxtblZFM_ALCNroDRQ'";
    ASSERT_EQ(sqlite3_exec(db_, trocarIndices, nullptr, nullptr, nullptr), SQLITE_OK);
    const auto danificado = BancoSQLite::Abrir(banco_.Arquivo());
    EXPECT_EQ(LinhasDe(*danificado, "SELECT * FROM tblZFM_ALC WHERE NroDRQ = 7", ""), "")
        << "a row is missing without an error";
    EXPECT_THAT(danificado->Danos(), testing::Contains(testing::StartsWith("um índice não tem ")));
}

TEST_F(HostileDatabase, ColumnsThatItComputesAreReadAndNeverWritten) {
    banco_.Executar(
        "CREATE TABLE tblConta (a INTEGER, dobro INTEGER AS (a * 2), b TEXT, "
        "triplo INTEGER AS (a * 3) STORED)");
    const auto contas = banco_->OpenRecordset("SELECT * FROM tblConta", TipoRecordset::Dynaset);
    contas->AddNew();
    contas->Fields("a") = std::int32_t{5};
    contas->Fields("b") = std::string("b");
    EXPECT_EQ(NumeroDoErro([&] { contas->Fields("dobro") = std::int32_t{1}; }), 3219);
    contas->Update();
    EXPECT_EQ(LinhasDe(*banco_, "SELECT * FROM tblConta", "a|dobro|b|triplo"), "5|10|b|15");
}

TEST_F(HostileDatabase, AnEndlessQueryEndsWhenItsUserSaysSo) {
    int restam = 3;
    // By the processor's work between two questions, since other programs' time says nothing.
    std::clock_t ultima = std::clock();
    std::clock_t maior = 0;
    const auto medir = [&] {
        const auto esta = std::clock();
        maior = std::max(maior, esta - std::exchange(ultima, esta));
    };
    Perguntado usuario([&] {
        medir();
        return --restam > 0;
    });
    banco_.Executar(SemFim("i % 7 = 9"));
    {
        const Acompanhamento acompanhamento(*banco_, &usuario);
        const Acompanhamento ninguemMais(*banco_, nullptr);
        EXPECT_EQ(NumeroDoErro([&] { Percorrer(*banco_); }), 18);
    }
    medir();
    EXPECT_EQ(usuario.vezes, 3);
    EXPECT_LT(maior, CLOCKS_PER_SEC / 2);
    Perguntado quebrado([]() -> bool { throw std::runtime_error("x"); });
    const Acompanhamento acompanhamento(*banco_, &quebrado);
    EXPECT_THROW(Percorrer(*banco_), std::runtime_error);
    EXPECT_EQ(LinhasDe(*banco_, "SELECT * FROM tblVELO", ""), "") << "the next query starts anew";
}

TEST_F(HostileDatabase, OnAHostsConnectionTheUserIsAskedBetweenRows) {
    banco_.Executar(SemFim("i % 7 = 1"));
    Perguntado usuario([] { return false; });
    const auto adotado = Adotado();
    const Acompanhamento acompanhamento(*adotado, &usuario);
    EXPECT_EQ(NumeroDoErro([&] { Percorrer(*adotado); }), 18);
    sqlite3_progress_handler(
        db_, 1000, [](void*) { return 1; }, nullptr);
    EXPECT_EQ(NumeroDoErro([&] { Percorrer(*adotado); }), 18) << "what the host ends is cancelled";
}

}  // namespace

}  // namespace tarvo
