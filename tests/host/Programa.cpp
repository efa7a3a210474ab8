#include "tests/host/Programa.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <sstream>

namespace tarvo::host {

namespace {

constexpr uid_t Ninguem = 65534;

void Redirecionar(const std::filesystem::path& arquivo, int descritor) {
    const int fd = ::open(arquivo.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    ::dup2(fd, descritor);
}

[[noreturn]] void Substituir(const std::vector<std::string>& argumentos, bool comoNinguem,
                             long limiteDeArquivo) {
    if (comoNinguem && ::geteuid() == 0 && (::setgid(Ninguem) != 0 || ::setuid(Ninguem) != 0)) {
        ::_exit(127);
    }
    if (limiteDeArquivo > 0) {
        const rlimit limite{static_cast<rlim_t>(limiteDeArquivo),
                            static_cast<rlim_t>(limiteDeArquivo)};
        ::setrlimit(RLIMIT_FSIZE, &limite);
        std::signal(SIGXFSZ, SIG_IGN);
    }
    std::vector<char*> lista{const_cast<char*>(TARVO_PROGRAMA)};
    for (const auto& argumento : argumentos) {
        lista.push_back(const_cast<char*>(argumento.c_str()));
    }
    lista.push_back(nullptr);
    ::execv(TARVO_PROGRAMA, lista.data());
    ::_exit(127);
}

}  // namespace

Programa::Programa(const std::vector<std::string>& argumentos, bool comoNinguem,
                   long limiteDeArquivo) {
    processo_ = ::fork();
    if (processo_ == 0) {
        Redirecionar(pasta_ / "saida", STDOUT_FILENO);
        Redirecionar(pasta_ / "erros", STDERR_FILENO);
        ::setenv("XDG_CONFIG_HOME", pasta_.Caminho().c_str(), 0);
        Substituir(argumentos, comoNinguem, limiteDeArquivo);
    }
}

void Programa::Sinalizar(int sinal) const {
    ::kill(processo_, sinal);
}

Execucao Programa::Esperar() {
    int estado = 0;
    ::waitpid(processo_, &estado, 0);
    return {WIFEXITED(estado) ? WEXITSTATUS(estado) : 128 + WTERMSIG(estado),
            Conteudo(pasta_ / "saida"), Conteudo(pasta_ / "erros")};
}

Execucao Rodar(const std::vector<std::string>& argumentos, bool comoNinguem) {
    return Programa(argumentos, comoNinguem).Esperar();
}

void ComExemplo::SetUp() {
    ASSERT_EQ(Rodar({"criar", Banco(), "--exemplo"}).situacao, 0);
    std::filesystem::permissions(pasta.Caminho(), std::filesystem::perms::all);
    std::filesystem::permissions(Banco(), std::filesystem::perms::all);
}

std::vector<std::string> Arquivos(const std::filesystem::path& pasta) {
    std::vector<std::string> nomes;
    if (std::filesystem::exists(pasta)) {
        for (const auto& item : std::filesystem::recursive_directory_iterator(pasta)) {
            if (item.is_regular_file()) {
                nomes.push_back(std::filesystem::relative(item.path(), pasta).string());
            }
        }
    }
    std::sort(nomes.begin(), nomes.end());
    return nomes;
}

std::string Conteudo(const std::filesystem::path& arquivo) {
    std::ostringstream texto;
    texto << std::ifstream(arquivo, std::ios::binary).rdbuf();
    return texto.str();
}

}  // namespace tarvo::host
