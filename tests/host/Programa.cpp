// SPDX-License-Identifier: MIT
#include "tests/host/Programa.h"

#include <fcntl.h>
#include <grp.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <sstream>

namespace tarvo::host {

namespace {

constexpr uid_t Ninguem = 65534;

void Redirecionar(const fs::path& arquivo, int descritor) {
    const int fd = ::open(arquivo.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOCTTY, 0666);
    ::dup2(fd, descritor);
}

void Limitar(__rlimit_resource recurso, long bytes) {
    if (bytes > 0) {
        const rlimit limite{static_cast<rlim_t>(bytes), static_cast<rlim_t>(bytes)};
        ::setrlimit(recurso, &limite);
    }
}

[[noreturn]] void Substituir(const std::vector<std::string>& argumentos,
                             const Condicoes& condicoes) {
    if (condicoes.comoNinguem && ::geteuid() == 0 &&
        (::setgroups(0, nullptr) != 0 || ::setgid(Ninguem) != 0 || ::setuid(Ninguem) != 0)) {
        ::_exit(127);
    }
    Limitar(RLIMIT_FSIZE, condicoes.limiteDeArquivo);
    Limitar(RLIMIT_AS, condicoes.memoria);
    Limitar(RLIMIT_NOFILE, condicoes.arquivosAbertos);
    std::vector<char*> lista{const_cast<char*>(TARVO_PROGRAMA)};
    for (const auto& argumento : argumentos) {
        lista.push_back(const_cast<char*>(argumento.c_str()));
    }
    lista.push_back(nullptr);
    ::execv(TARVO_PROGRAMA, lista.data());
    ::_exit(127);
}

}  // namespace

Programa::Programa(const std::vector<std::string>& argumentos, const Condicoes& condicoes) {
    processo_ = ::fork();
    if (processo_ == 0) {
        Redirecionar(condicoes.saida.empty() ? pasta_ / "saida" : fs::path(condicoes.saida),
                     STDOUT_FILENO);
        Redirecionar(pasta_ / "erros", STDERR_FILENO);
        ::setenv("XDG_CONFIG_HOME", pasta_.Caminho().c_str(), 0);
        Substituir(argumentos, condicoes);
    }
}

void Programa::Sinalizar(int sinal) const {
    ::kill(processo_, sinal);
}

bool Programa::Ativo() const {
    siginfo_t fim{};
    return ::waitid(P_PID, static_cast<id_t>(processo_), &fim, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           fim.si_pid == 0;
}

bool Programa::Dizer(const std::string& texto) const {
    for (int i = 0; i < 3000; ++i) {
        if (apoio::BytesDe(pasta_ / "erros").find(texto) != std::string::npos) {
            return true;
        }
        ::usleep(10'000);
    }
    return false;
}

Execucao Programa::Esperar() {
    int estado = 0;
    ::waitpid(processo_, &estado, 0);
    return {WIFEXITED(estado) ? WEXITSTATUS(estado) : 128 + WTERMSIG(estado),
            apoio::BytesDe(pasta_ / "saida"), apoio::BytesDe(pasta_ / "erros")};
}

Execucao Rodar(const std::vector<std::string>& argumentos, const Condicoes& condicoes) {
    return Programa(argumentos, condicoes).Esperar();
}

ComExemplo::ComExemplo() {
    EXPECT_THAT(Rodar({"criar", Banco(), "--exemplo"}), Termina(0));
    fs::permissions(pasta.Caminho(), fs::perms::all);
    fs::permissions(Banco(), fs::perms::all);
}

std::vector<nlohmann::json> LinhasJSON(const std::string& saida) {
    std::vector<nlohmann::json> linhas;
    std::istringstream texto(saida);
    for (std::string linha; std::getline(texto, linha);) {
        linhas.push_back(nlohmann::json::parse(linha));
    }
    return linhas;
}

OutroPrograma::OutroPrograma(const std::string& banco, const std::string& sql) {
    int pronto[2];
    EXPECT_EQ(::pipe(pronto), 0);
    processo_ = ::fork();
    if (processo_ == 0) {
        sqlite3* db = nullptr;
        const bool feito = sqlite3_open(banco.c_str(), &db) == SQLITE_OK &&
                           sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
        (void)!::write(pronto[1], feito ? "s" : "n", 1);
        for (;;) {
            ::pause();
        }
    }
    char resposta = 'n';
    EXPECT_EQ(::read(pronto[0], &resposta, 1), 1);
    EXPECT_EQ(resposta, 's') << sql;
    ::close(pronto[0]);
    ::close(pronto[1]);
}

OutroPrograma::~OutroPrograma() {
    ::kill(processo_, SIGKILL);
    ::waitpid(processo_, nullptr, 0);
}

void CriarPastaProtegida(const fs::path& pasta) {
    fs::create_directory(pasta);
    fs::permissions(pasta, fs::perms(0555));
}

std::vector<std::string> Arquivos(const fs::path& pasta) {
    std::vector<std::string> nomes;
    if (fs::exists(pasta)) {
        for (const auto& item : fs::recursive_directory_iterator(pasta)) {
            if (item.is_regular_file()) {
                nomes.push_back(fs::relative(item.path(), pasta).string());
            }
        }
    }
    std::sort(nomes.begin(), nomes.end());
    return nomes;
}

}  // namespace tarvo::host
