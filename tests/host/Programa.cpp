// SPDX-License-Identifier: MIT
#include "tests/host/Programa.h"

#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <sstream>

namespace tarvo::host {

const std::string ComoNinguem =
    ::geteuid() == 0 ? "exec setpriv --reuid=65534 --regid=65534 --clear-groups" : "exec";

Programa::Programa(NoShell /*assim*/, const std::string& comando) {
    const std::string tudo = "exec >" + (pasta_ / "saida").string() + " 2>" +
                             (pasta_ / "erros").string() + "; " + comando;
    processo_ = ::fork();
    if (processo_ == 0) {
        ::setenv("XDG_CONFIG_HOME", pasta_.Caminho().c_str(), 0);
        ::execl("/bin/sh", "sh", "-c", tudo.c_str(), nullptr);
        ::_exit(127);
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

ComExemplo::ComExemplo() {
    EXPECT_THAT(Rodar("criar --exemplo " + Banco()), Termina(0));
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
