// SPDX-License-Identifier: MIT
// What a batch reaches beside independent processes of one thread each: the same declarations with
// all reports, once by one batch over all cores, once by as many batches of one thread as there are
// cores, each on a database of its own. Rounds alternate; what counts is the ratio. Also the peak
// of memory for one and for four times the declarations. With the address of a server's empty
// database instead: the processor time of a batch on the server's declarations (the batch's own,
// not the server's) against that of one on the same in a file.
//
// bench_lote [DECLARATIONS [ROUNDS [postgresql://...]]]

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "databases/CopiarBanco.h"
#include "databases/CriarNoServidor.h"
#include "databases/sqlite/BancoSQLite.h"
#include "host/example/Exemplo.h"

namespace tarvo::bench {
namespace {

namespace fs = std::filesystem;

class BancoGrande {
  public:
    // The example's declarations over and over, as many as asked for.
    BancoGrande(const fs::path& arquivo, long declaracoes) {
        CriarBanco(arquivo, ScriptDeExemplo());
        if (sqlite3_open(arquivo.c_str(), &db_) != SQLITE_OK) {
            throw std::runtime_error(sqlite3_errmsg(db_));
        }
        constexpr int NoExemplo = 10;
        Executar(
            "BEGIN; CREATE TEMP TABLE vez AS WITH RECURSIVE r(i) AS (SELECT 1 UNION ALL SELECT "
            "i + 1 FROM r) SELECT i FROM r LIMIT " +
            std::to_string(declaracoes / NoExemplo - 1));
        for (const auto& tabela :
             Lista("SELECT DISTINCT m.name FROM sqlite_master m, pragma_table_info(m.name) c WHERE "
                   "m.type = 'table' AND c.name IN ('NroDRQ', 'Código') AND m.name NOT IN "
                   "('tblEstados', 'tblCódigosMIDAX')")) {
            Multiplicar(tabela);
        }
        Executar("COMMIT; PRAGMA wal_checkpoint(TRUNCATE)");
    }
    ~BancoGrande() { sqlite3_close(db_); }
    BancoGrande(const BancoGrande&) = delete;
    BancoGrande& operator=(const BancoGrande&) = delete;

  private:
    void Executar(const std::string& sql) {
        if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            throw std::runtime_error(sql + ": " + sqlite3_errmsg(db_));
        }
    }
    std::vector<std::string> Lista(const std::string& sql) {
        std::vector<std::string> textos;
        sqlite3_exec(
            db_, sql.c_str(),
            [](void* lista, int, char** colunas, char**) {
                static_cast<std::vector<std::string>*>(lista)->emplace_back(colunas[0]);
                return 0;
            },
            &textos, nullptr);
        return textos;
    }
    // Numbers of declarations and of entries stay apart from those that are there.
    void Multiplicar(const std::string& tabela) {
        std::string colunas;
        for (const auto& coluna : Lista("SELECT name FROM pragma_table_info('" + tabela + "')")) {
            colunas += (colunas.empty() ? "\"" : ", \"") + coluna + "\"";
            colunas += coluna == "NroDRQ" || coluna == "Código" ? " + 1000000 * i" : "";
        }
        Executar("INSERT INTO \"" + tabela + "\" SELECT " + colunas + " FROM vez, \"" + tabela +
                 "\"");
    }

    sqlite3* db_ = nullptr;
};

void CriarBancoGrande(const fs::path& arquivo, long declaracoes) {
    const BancoGrande banco(arquivo, declaracoes);
}

struct Medida {
    double segundos = 0;     // on the wall
    double processador = 0;  // of all processes
    double memoria = 0;      // MB, the largest process's peak
};

pid_t Iniciar(const fs::path& banco, const fs::path& saida, const std::string& trabalhos) {
    std::fflush(stdout);
    const pid_t processo = ::fork();
    if (processo == 0) {
        (void)!std::freopen("/dev/null", "w", stdout);
        ::execl(TARVO_PROGRAMA, TARVO_PROGRAMA, "lote", banco.c_str(), "--saida", saida.c_str(),
                "--ref-atual", "07/2003", "--trabalhos", trabalhos.c_str(), nullptr);
        ::_exit(127);
    }
    return processo;
}

// A batch of its own for each database, all at once.
Medida Medir(const std::vector<fs::path>& bancos, const fs::path& pasta, unsigned trabalhos) {
    fs::remove_all(pasta);
    const auto inicio = std::chrono::steady_clock::now();
    std::vector<pid_t> processos;
    for (std::size_t i = 0; i < bancos.size(); ++i) {
        processos.push_back(
            Iniciar(bancos[i], pasta / std::to_string(i), std::to_string(trabalhos)));
    }
    Medida medida;
    for (const pid_t processo : processos) {
        int estado = 0;
        rusage uso{};
        ::wait4(processo, &estado, 0, &uso);
        if (estado != 0) {
            throw std::runtime_error("the batch failed");
        }
        const auto segundos = [](const timeval& t) {
            return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
        };
        medida.processador += segundos(uso.ru_utime) + segundos(uso.ru_stime);
        medida.memoria = std::max(medida.memoria, static_cast<double>(uso.ru_maxrss) / 1024);
    }
    medida.segundos =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - inicio).count();
    return medida;
}

double Mediana(std::vector<double> valores) {
    std::sort(valores.begin(), valores.end());
    return valores[valores.size() / 2];
}

void Comparar(long declaracoes, long rodadas, const fs::path& pasta) {
    const unsigned nucleos = std::max(1U, std::thread::hardware_concurrency());
    const fs::path inteiro = pasta / "inteiro.tarvo";
    CriarBancoGrande(inteiro, declaracoes);
    std::vector<fs::path> partes;
    for (unsigned i = 0; i < nucleos; ++i) {
        partes.push_back(pasta / ("parte" + std::to_string(i) + ".tarvo"));
        CriarBancoGrande(partes.back(), declaracoes / nucleos);
    }
    std::vector<double> razoes;
    for (long rodada = 0; rodada < rodadas; ++rodada) {
        const Medida processos = Medir(partes, pasta / "processos", 1);
        const Medida lote = Medir({inteiro}, pasta / "lote", nucleos);
        razoes.push_back(processos.segundos / lote.segundos);
        std::printf(
            "%u processes: %.1f s, processor %.1f s; one batch: %.1f s, processor %.1f s, %.0f MB; "
            "ratio %.2f\n",
            nucleos, processos.segundos, processos.processador, lote.segundos, lote.processador,
            lote.memoria, razoes.back());
    }
    std::printf("%ld declarations, %u cores: median ratio %.2f\n", declaracoes, nucleos,
                Mediana(razoes));
    CriarBancoGrande(pasta / "quatro.tarvo", 4 * declaracoes);
    std::printf("memory with %ld declarations: %.0f MB\n", 4 * declaracoes,
                Medir({pasta / "quatro.tarvo"}, pasta / "lote", nucleos).memoria);
}

void CompararComServidor(long declaracoes, long rodadas, const fs::path& pasta,
                         const std::string& endereco) {
    const unsigned nucleos = std::max(1U, std::thread::hardware_concurrency());
    const fs::path arquivo = pasta / "banco.tarvo";
    CriarBancoGrande(arquivo, declaracoes);
    CriarNoServidor(endereco);
    CopiarBanco(OrigemBanco(arquivo), endereco, {});
    std::vector<double> razoes;
    for (long rodada = 0; rodada < rodadas; ++rodada) {
        const Medida doArquivo = Medir({arquivo}, pasta / "arquivo", nucleos);
        const Medida doServidor = Medir({endereco}, pasta / "servidor", nucleos);
        razoes.push_back(doServidor.processador / doArquivo.processador);
        std::printf(
            "file: processor %.2f s, %.0f MB; server: processor %.2f s, %.0f MB; ratio %.2f\n",
            doArquivo.processador, doArquivo.memoria, doServidor.processador, doServidor.memoria,
            razoes.back());
    }
    std::printf("%ld declarations: median ratio %.2f\n", declaracoes, Mediana(razoes));
}

}  // namespace
}  // namespace tarvo::bench

int main(int argc, char** argv) {
    const long declaracoes = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 1000;
    const long rodadas = argc > 2 ? std::strtol(argv[2], nullptr, 10) : 3;
    std::string modelo = (std::filesystem::temp_directory_path() / "bench_lote-XXXXXX").string();
    if (declaracoes < 20 || rodadas < 1 || ::mkdtemp(modelo.data()) == nullptr) {
        std::fprintf(stderr, "bench_lote [DECLARATIONS [ROUNDS [ADDRESS]]]\n");
        return 2;
    }
    try {
        if (argc > 3) {
            tarvo::bench::CompararComServidor(declaracoes, rodadas, modelo, argv[3]);
        } else {
            tarvo::bench::Comparar(declaracoes, rodadas, modelo);
        }
    } catch (const std::exception& erro) {
        std::fprintf(stderr, "%s\n", erro.what());
    }
    std::filesystem::remove_all(modelo);
    return 0;
}
