// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <map>
#include <string>

#include "data/LeitoresDeCampo.h"
#include "databases/sqlite/BancoSQLite.h"

// The database: walking many rows, finding one declaration among many, refilling a work table.
namespace tarvo {

namespace {

namespace fs = std::filesystem;

// Databases by number of declarations, made once and removed at the end. Every declaration has
// ten CFOP lines, six invoices and four sub-items.
class Bancos {
  public:
    Bancos() : pasta_(fs::temp_directory_path() / ("tarvo-bench-" + std::to_string(getpid()))) {
        fs::create_directory(pasta_);
    }
    ~Bancos() { fs::remove_all(pasta_); }
    Bancos(const Bancos&) = delete;
    Bancos& operator=(const Bancos&) = delete;

    const fs::path& Com(std::int64_t declaracoes) {
        auto& arquivo = arquivos_[declaracoes];
        if (arquivo.empty()) {
            arquivo = pasta_ / (std::to_string(declaracoes) + ".tarvo");
            CriarBanco(arquivo);
            BancoSQLite::Abrir(arquivo)->ExecutarScript(Dados(declaracoes));
        }
        return arquivo;
    }

  private:
    static std::string Dados(std::int64_t declaracoes) {
        const std::string n =
            "WITH RECURSIVE d(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM d "
            "WHERE n < " +
            std::to_string(declaracoes) +
            "), l(k) AS (VALUES (0), (1), (2), "
            "(3), (4), (5), (6), (7), (8), (9)) ";
        return n +
               "INSERT INTO tblDRQ (NroDRQ, IE, Ref1, RegTrib) "
               "SELECT n, '1', '2003-05-01', '01' FROM d;" +
               n +
               "INSERT INTO tblDetalhesCFOPs SELECT n, CASE WHEN k < 5 THEN '5.10' || k ELSE "
               "'6.10' || (k + n % 3) END, n, k, n * k, 1, 2, 3, 4, NULL, 6 FROM d, l;" +
               n +
               "INSERT INTO tblZFM_ALC SELECT n, '6.10' || (k + 4), 'NF' || k, '2003-05-02', 'm', "
               "'c', n FROM d, l WHERE k < 6;" +
               n +
               "INSERT INTO \"tblOcorrências\" SELECT n, '00' || (k + 2) || '.01', n * 10 + k, n, "
               "-(k % 2) FROM d, l WHERE k < 4;" +
               "INSERT INTO tblContribuinte (IE) VALUES ('1');"
               "INSERT INTO \"tblMunicípiosZFM_ALC\" VALUES ('m', 'Manaus', 'AM');";
    }

    fs::path pasta_;
    std::map<std::int64_t, fs::path> arquivos_;
};

Bancos& OsBancos() {
    static Bancos bancos;
    return bancos;
}

void Percorrer(Recordset& registros) {
    for (; !registros.EOF_(); registros.MoveNext()) {
        for (const char* coluna : {"NroDRQ", "CFOP", "ValorContábil", "Imposto", "Outras"}) {
            benchmark::DoNotOptimize(Valor(registros.Fields(coluna)));
        }
    }
}

// Opens the database, a query on 100,000 rows, and reads five columns of each.
void AbrirEPercorrer(benchmark::State& estado) {
    const fs::path& arquivo = OsBancos().Com(estado.range(0) / 10);
    for ([[maybe_unused]] auto _ : estado) {
        const auto banco = BancoSQLite::Abrir(arquivo);
        Percorrer(
            *banco->OpenRecordset("SELECT * FROM tblDetalhesCFOPs", TipoRecordset::ForwardOnly));
    }
    estado.SetItemsProcessed(estado.iterations() * estado.range(0));
}
BENCHMARK(AbrirEPercorrer)->Arg(100'000)->Unit(benchmark::kMillisecond);

// The queries of one declaration, as reports send them, among range(0) declarations.
void UmaDeclaracao(benchmark::State& estado) {
    const auto banco = BancoSQLite::Abrir(OsBancos().Com(estado.range(0)));
    const std::string n = std::to_string(estado.range(0) / 2);
    const std::string consultas[] = {
        "select tblContribuinte.*, tblDRQ.* from tblContribuinte, tblDRQ where "
        "tblContribuinte.IE = '1' And tblDRQ.NroDRQ = " +
            n,
        "SELECT DISTINCTROW Sum(tblDetalhesCFOPs.Imposto) AS [Soma De Imposto] FROM "
        "tblDetalhesCFOPs WHERE (((tblDetalhesCFOPs.CFOP) Like '5*' Or (tblDetalhesCFOPs.CFOP) "
        "Like '6*' Or (tblDetalhesCFOPs.CFOP) Like '7*')) GROUP BY tblDetalhesCFOPs.NroDRQ HAVING "
        "(((tblDetalhesCFOPs.NroDRQ)=" +
            n + "));",
        "SELECT * FROM tblOcorrências WHERE ((NroDRQ=" + n +
            ") AND(OpPróprias=True)AND(Left(CódSubitem, 3)='002'))ORDER BY CódSubitem",
        "select distinctrow tblDetalhesCFOPs.* from tblDetalhesCFOPs, tblZFM_ALC where "
        "Left(tblDetalhesCFOPs.CFOP, 1) = '6' and tblDetalhesCFOPs.CFOP = tblZFM_ALC.CFOP and "
        "tblZFM_ALC.NroDRQ = " +
            n + " and tblDetalhesCFOPs.NroDRQ = " + n + " order by tblDetalhesCFOPs.CFOP",
        "SELECT distinctrow tblZFM_ALC.*, tblMunicípiosZFM_ALC.Município, "
        "tblMunicípiosZFM_ALC.UF As UFMun FROM tblMunicípiosZFM_ALC, tblDetalhesCFOPs INNER JOIN "
        "tblZFM_ALC ON tblDetalhesCFOPs.CFOP = tblZFM_ALC.CFOP  WHERE tblZFM_ALC.NroDRQ = " +
            n +
            " AND tblMunicípiosZFM_ALC.CódMunicípio = tblZFM_ALC.MunicípioDest  AND "
            "tblZFM_ALC.CFOP = '6.105' ORDER BY tblZFM_ALC.Data",
    };
    for ([[maybe_unused]] auto _ : estado) {
        for (const std::string& consulta : consultas) {
            const auto registros = banco->OpenRecordset(consulta, TipoRecordset::ForwardOnly);
            for (; !registros->EOF_(); registros->MoveNext()) {
                benchmark::DoNotOptimize(Valor(registros->Fields(0)));
            }
        }
    }
    estado.SetItemsProcessed(estado.iterations() * std::ssize(consultas));
}
BENCHMARK(UmaDeclaracao)->Arg(10)->Arg(100'000)->Unit(benchmark::kMicrosecond);

// One assessment's work table: emptied and refilled with 60 lines in one step.
void Refazer(benchmark::State& estado) {
    const auto banco = BancoSQLite::Abrir(OsBancos().Com(10));
    for ([[maybe_unused]] auto _ : estado) {
        banco->RefazerTabela("tblApuraçãoOperaçõesPróprias", [&] {
            banco->CreateQueryDef("", "DELETE * FROM tblApuraçãoOperaçõesPróprias")->Execute();
            const auto linhas = banco->OpenRecordset("SELECT * FROM tblApuraçãoOperaçõesPróprias",
                                                     TipoRecordset::Dynaset);
            for (int i = 0; i < 60; ++i) {
                linhas->AddNew();
                linhas->Fields("NroDRQ") = std::int32_t{7};
                linhas->Fields("Linha") = std::string("Saídas com débito do imposto");
                linhas->Fields("Valor") = std::string("1.234,56");
                linhas->Update();
            }
        });
    }
    estado.SetItemsProcessed(estado.iterations() * 60);
}
BENCHMARK(Refazer)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace tarvo

BENCHMARK_MAIN();
