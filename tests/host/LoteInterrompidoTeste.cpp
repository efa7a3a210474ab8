#include <sqlite3.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include "tests/host/LoteDeTeste.h"

namespace tarvo::host {

std::string Identidade(const std::filesystem::path& arquivo) {
    struct stat estado {};
    EXPECT_EQ(::stat(arquivo.c_str(), &estado), 0) << arquivo;
    return std::to_string(estado.st_ino) + " " + std::to_string(estado.st_mtim.tv_sec) + "." +
           std::to_string(estado.st_mtim.tv_nsec);
}

namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

class LoteQueParou : public ComLote {
  protected:
    // Of the files that the summary says are complete.
    std::map<std::string, std::string> Identidades() {
        std::map<std::string, std::string> identidades;
        for (const auto& [chave, linha] : Resumo()) {
            if (linha[8] == "0") {
                identidades[linha[4]] = Identidade(Saida() + "/" + linha[4]);
            }
        }
        return identidades;
    }
    // The batch goes on to its end and leaves those files alone.
    void Retomar(std::vector<std::string> outros, const std::map<std::string, std::string>& antes) {
        outros.emplace_back("--retomar");
        const Execucao e = RodarLote(outros);
        EXPECT_EQ(e.situacao, 0) << e.erros;
        for (const auto& [nome, identidade] : antes) {
            EXPECT_EQ(Identidade(Saida() + "/" + nome), identidade) << nome;
        }
    }
};

// What a stopped batch left is whole, and the next run makes exactly the rest.
class LoteInterrompido : public LoteQueParou, public testing::WithParamInterface<int> {};

TEST_P(LoteInterrompido, GoesOnWhereItStopped) {
    Multiplicar(60);
    const std::vector<std::string> relatorios{"--relatorios", "01,17"};
    Programa primeira(Argumentos(relatorios));
    for (int i = 0; i < 20'000 && Resumo().size() < 100; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    primeira.Sinalizar(GetParam());
    const Execucao e = primeira.Esperar();
    const auto antes = Identidades();
    ASSERT_GE(antes.size(), 100U);
    ASSERT_LT(antes.size(), 1220U) << "the batch ended before it was stopped";
    if (GetParam() == SIGKILL) {
        EXPECT_EQ(e.situacao, 128 + SIGKILL);
    } else {
        EXPECT_EQ(e.situacao, 1);
        EXPECT_THAT(e.erros, HasSubstr("--retomar"));
        EXPECT_THAT(Arquivos(Saida()), SizeIs(antes.size() + 1)) << "the summary knows them all";
    }
    ConferirInteiros();
    const Execucao semRetomar = RodarLote(relatorios);
    EXPECT_EQ(semRetomar.situacao, 1);
    EXPECT_THAT(semRetomar.erros, AllOf(StartsWith("erro 58: "), HasSubstr("--retomar")));
    Retomar(relatorios, antes);
    EXPECT_THAT(Resumo(), SizeIs(1220));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(1221));
    ConferirInteiros();
}

INSTANTIATE_TEST_SUITE_P(Sinais, LoteInterrompido, testing::Values(SIGINT, SIGTERM, SIGKILL));

TEST_F(LoteQueParou, ResumingBelievesOnlyWholeLinesOfWholeFiles) {
    const std::vector<std::string> chamada{"--relatorios", "01,17", "--ie", "250114377019"};
    ASSERT_EQ(RodarLote(chamada).situacao, 0);
    auto antes = Identidades();
    ASSERT_THAT(antes, SizeIs(6));
    // A power failure left one file short and lost another; a kill cut the last line.
    const std::string curto = "250114377019-101/01-RelatorioCadastro.pdf";
    const std::string perdido = "250114377019-102/17-RelatorioPagamentos.pdf";
    std::filesystem::resize_file(Saida() + "/" + curto, 0);
    std::filesystem::remove(Saida() + "/" + perdido);
    antes.erase(curto);
    antes.erase(perdido);
    std::ofstream(Saida() + "/resumo.csv", std::ios::app | std::ios::binary)
        << "250114377019;103;11/2001;17;250114377019-103/17-Relat";
    // What a killed process may leave where files must have names.
    std::ofstream(Saida() + "/250114377019-101/.tarvo-1-0.tmp") << "%PDF";
    std::filesystem::create_directory(Saida() + "/250114377019-101/17-RelatorioPagamentos.1.tmp");
    std::ofstream(Saida() + "/250114377019-101/17-RelatorioPagamentos.1.tmp/x.png") << "PNG";
    std::ofstream(Saida() + "/do usuário.tmp") << "fica";
    Retomar(chamada, antes);
    EXPECT_THAT(Resumo(), SizeIs(6));
    EXPECT_THAT(Arquivos(Saida()), SizeIs(8));
    EXPECT_EQ(Conteudo(Saida() + "/do usuário.tmp"), "fica");
    std::filesystem::remove(Saida() + "/do usuário.tmp");
    ConferirInteiros();
    EXPECT_FALSE(
        std::filesystem::exists(Saida() + "/250114377019-101/17-RelatorioPagamentos.1.tmp"));
}

TEST_F(LoteQueParou, ResumingOnePartKeepsTheSummaryOfTheOthers) {
    Executar("update tblDRQ set SaldoCredAntDig = null where NroDRQ = 201");
    ASSERT_EQ(RodarLote({"--relatorios", "10"}).situacao, 1);
    ASSERT_EQ(Resumo().at({201, "10"})[8], "94");
    EXPECT_EQ(RodarLote({"--relatorios", "17", "--ie", "250114377019", "--retomar"}).situacao, 0);
    EXPECT_THAT(Resumo(), SizeIs(13));
    EXPECT_EQ(Resumo().at({201, "10"})[8], "94");
}

TEST_F(LoteQueParou, AFileThatIsNoSummaryIsNotTouched) {
    std::filesystem::create_directory(Saida());
    std::ofstream(Saida() + "/resumo.csv") << "do usuário\n";
    EXPECT_THAT(RodarLote().erros, StartsWith("erro 58: "));
    EXPECT_THAT(RodarLote({"--retomar"}).erros, StartsWith("erro 5: "));
    EXPECT_EQ(Conteudo(Saida() + "/resumo.csv"), "do usuário\n");
    EXPECT_THAT(Arquivos(Saida()), SizeIs(1));
}

TEST_F(LoteQueParou, AFullDiskEndsTheBatchWithWholeFilesAndItGoesOnLater) {
    const Execucao e = RodarLote({}, {.limiteDeArquivo = 35'000});
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, AllOf(HasSubstr("erro 61: "), HasSubstr("--retomar")));
    ConferirInteiros();
    const auto antes = Identidades();
    EXPECT_THAT(Arquivos(Saida()), SizeIs(antes.size() + 1));
    Retomar({}, antes);
    EXPECT_THAT(Resumo(), SizeIs(178));
}

TEST_F(LoteQueParou, ATargetThatCannotBeWrittenEndsTheBatchAtOnce) {
    CriarPastaProtegida(Saida());
    const Execucao e = RodarLote({}, {.comoNinguem = true});
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, StartsWith("erro 70: "));
    EXPECT_THAT(Arquivos(Saida()), IsEmpty());
}

TEST_F(LoteQueParou, OneFolderThatCannotBeWrittenStopsNoOther) {
    std::filesystem::create_directory(Saida());
    std::filesystem::permissions(Saida(), std::filesystem::perms::all);
    CriarPastaProtegida(Saida() + "/250114377019-101");
    const Execucao e =
        RodarLote({"--relatorios", "17", "--ie", "250114377019"}, {.comoNinguem = true});
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, StartsWith("erro 70: declaração 101, relatório 17: "));
    EXPECT_EQ(Resumo().at({101, "17"})[8], "70");
    EXPECT_EQ(Resumo().at({102, "17"})[8], "0");
}

TEST_F(LoteQueParou, ALockedDatabaseEndsTheBatchAndItGoesOnLater) {
    const std::vector<std::string> chamada{"--relatorios", "17"};
    {
        const OutroPrograma exclusivo(Banco(), "PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE");
        const Execucao e = RodarLote(chamada);
        EXPECT_EQ(e.situacao, 1);
        EXPECT_THAT(e.erros, AllOf(StartsWith("erro 3260: "), HasSubstr("Feche o outro")));
    }
    // Someone who only writes locks nobody out.
    const OutroPrograma escrevendo(Banco(), "PRAGMA journal_mode = WAL; BEGIN IMMEDIATE");
    EXPECT_EQ(RodarLote(chamada).situacao, 0);
}

std::size_t Perguntar(const std::string& banco, const std::string& sql) {
    sqlite3* db = nullptr;
    sqlite3_stmt* consulta = nullptr;
    std::size_t resposta = 0;
    if (sqlite3_open(banco.c_str(), &db) == SQLITE_OK &&
        sqlite3_prepare_v2(db, sql.c_str(), -1, &consulta, nullptr) == SQLITE_OK &&
        sqlite3_step(consulta) == SQLITE_ROW) {
        resposta = static_cast<std::size_t>(sqlite3_column_int64(consulta, 0));
    }
    sqlite3_finalize(consulta);
    sqlite3_close(db);
    EXPECT_GT(resposta, 0U) << sql;
    return resposta;
}

TEST_F(LoteQueParou, ADamagedPageFailsOnlyTheReportsThatReadIt) {
    const auto pagina = Perguntar(
        Banco(), "SELECT rootpage FROM sqlite_master WHERE name = 'tblRegistroExportação'");
    const auto tamanho = Perguntar(Banco(), "PRAGMA page_size");
    std::string bytes = Conteudo(Banco());
    bytes.replace((pagina - 1) * tamanho, 100, std::string(100, '\xFF'));
    std::ofstream(Banco(), std::ios::binary) << bytes;
    const Execucao e = RodarLote({"--relatorios", "16,17"});
    EXPECT_EQ(e.situacao, 1);
    EXPECT_THAT(e.erros, HasSubstr("erro 3343: declaração 101, relatório 16: "));
    EXPECT_EQ(Resumo().at({101, "16"})[8], "3343");
    EXPECT_EQ(Resumo().at({101, "17"})[8], "0");
    EXPECT_EQ(Conteudo(Banco()), bytes);
}

}  // namespace
}  // namespace tarvo::host
