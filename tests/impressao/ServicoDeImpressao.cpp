#include "tests/impressao/ServicoDeImpressao.h"

#include <fcntl.h>
#include <netinet/in.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <thread>

extern char** environ;

namespace tarvo::apoio {

std::string Saida(const std::string& comando) {
    FILE* tubo = popen(comando.c_str(), "r");
    std::string saida;
    std::array<char, 4096> bloco{};
    while (const auto lidos = fread(bloco.data(), 1, bloco.size(), tubo)) {
        saida.append(bloco.data(), lidos);
    }
    EXPECT_EQ(pclose(tubo), 0) << comando << "\n" << saida;
    return saida;
}

namespace {

// A PDF ends with its mark.
bool EstaInteiro(const std::filesystem::path& arquivo) {
    std::ifstream leitura(arquivo, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(leitura), {});
    return bytes.find("%%EOF", bytes.size() - std::min<std::size_t>(bytes.size(), 16)) !=
           std::string::npos;
}

}  // namespace

ServicoDeImpressao::ServicoDeImpressao() {
    std::array<int, 2> entrada{};
    std::array<int, 2> saida{};
    if (pipe2(entrada.data(), O_CLOEXEC) != 0 || pipe2(saida.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    posix_spawn_file_actions_t acoes;
    posix_spawn_file_actions_init(&acoes);
    posix_spawn_file_actions_adddup2(&acoes, entrada[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&acoes, saida[1], STDOUT_FILENO);
    std::string programa = SERVICO_DE_IMPRESSAO;
    std::string pasta = pasta_.Caminho().string();
    std::array<char*, 3> argumentos{programa.data(), pasta.data(), nullptr};
    const int erro =
        posix_spawn(&processo_, programa.c_str(), &acoes, nullptr, argumentos.data(), environ);
    posix_spawn_file_actions_destroy(&acoes);
    close(entrada[0]);
    close(saida[1]);
    entrada_ = entrada[1];
    std::array<char, 16> resposta{};
    const auto lidos = read(saida[0], resposta.data(), resposta.size());
    close(saida[0]);
    if (erro != 0 || std::string(resposta.data(), lidos > 0 ? 6U : 0U) != "pronto") {
        throw std::runtime_error("the print service did not start");
    }
    setenv("CUPS_SERVER", (pasta_ / "cups.sock").c_str(), 1);
}

ServicoDeImpressao::~ServicoDeImpressao() {
    close(entrada_);
    waitpid(processo_, nullptr, 0);
    unsetenv("CUPS_SERVER");
}

std::filesystem::path ServicoDeImpressao::Chegada(const std::string& nomeDoTrabalho) const {
    using namespace std::chrono_literals;
    const auto limite = std::chrono::steady_clock::now() + 30s;
    while (std::chrono::steady_clock::now() < limite) {
        for (const auto& arquivo : std::filesystem::directory_iterator(pasta_ / "saida")) {
            const auto nome = arquivo.path().filename().string();
            if (nome.find(nomeDoTrabalho) != std::string::npos && EstaInteiro(arquivo.path())) {
                return arquivo.path();
            }
        }
        std::this_thread::sleep_for(50ms);
    }
    ADD_FAILURE() << "nothing arrived as " << nomeDoTrabalho;
    return {};
}

std::ptrdiff_t ServicoDeImpressao::Trabalhos() const {
    const auto lista = Saida("lpstat -W all -o");
    return std::count(lista.begin(), lista.end(), '\n');
}

ServicoMudo::ServicoMudo() : escuta_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in endereco{
        .sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
    socklen_t tamanho = sizeof endereco;
    auto* geral = reinterpret_cast<sockaddr*>(&endereco);
    if (bind(escuta_, geral, tamanho) != 0 || listen(escuta_, 8) != 0) {
        throw std::runtime_error("no socket");
    }
    getsockname(escuta_, geral, &tamanho);
    setenv("CUPS_SERVER", ("127.0.0.1:" + std::to_string(ntohs(endereco.sin_port))).c_str(), 1);
}

ServicoMudo::~ServicoMudo() {
    close(escuta_);
    unsetenv("CUPS_SERVER");
}

}  // namespace tarvo::apoio
