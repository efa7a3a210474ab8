// SPDX-License-Identifier: MIT
#include "tests/desktop/printing/ServicoDeImpressao.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <thread>

namespace tarvo::apoio {

namespace {

// False when it has not come true within 30 s.
template <class Condicao>
bool Aguardar(Condicao condicao) {
    using namespace std::chrono_literals;
    const auto limite = std::chrono::steady_clock::now() + 30s;
    while (!condicao()) {
        if (std::chrono::steady_clock::now() > limite) {
            return false;
        }
        std::this_thread::sleep_for(50ms);
    }
    return true;
}

}  // namespace

ServicoDeImpressao::ServicoDeImpressao() {
    const std::string pasta = pasta_.Caminho().string();
    const std::string comando = "'" SERVICO_DE_IMPRESSAO "' '" + pasta + "' >'" + pasta + "/diz'";
    processo_ = popen(comando.c_str(), "we");
    if (processo_ == nullptr || !Aguardar([&] { return BytesDe(pasta_ / "diz") == "pronto\n"; })) {
        throw std::runtime_error("the print service did not start");
    }
    setenv("CUPS_SERVER", (pasta_ / "cups.sock").c_str(), 1);
}

ServicoDeImpressao::~ServicoDeImpressao() {
    pclose(processo_);
    unsetenv("CUPS_SERVER");
}

std::filesystem::path ServicoDeImpressao::Chegada(const std::string& nomeDoTrabalho) const {
    std::filesystem::path chegada;
    EXPECT_TRUE(Aguardar([&] {
        for (const auto& arquivo : std::filesystem::directory_iterator(pasta_ / "saida")) {
            // Whole once the mark stands there with which a PDF ends.
            if (arquivo.path().filename().string().find(nomeDoTrabalho) != std::string::npos &&
                BytesDe(arquivo.path()).ends_with("%%EOF\n")) {
                chegada = arquivo.path();
            }
        }
        return !chegada.empty();
    })) << "nothing arrived as "
        << nomeDoTrabalho;
    return chegada;
}

std::string ServicoDeImpressao::Opcoes(int trabalho) const {
    const auto numero = std::to_string(100'000 + trabalho).substr(1);
    EXPECT_TRUE(Aguardar([&] { return !BytesDe(pasta_ / "fila" / ("c" + numero)).empty(); }));
    return BytesDe(pasta_ / "fila" / ("c" + numero));
}

std::ptrdiff_t ServicoDeImpressao::Trabalhos() const {
    const auto lista = SaidaDe("lpstat -W all -o");
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
    if (cliente_ >= 0) {
        close(cliente_);
    }
    unsetenv("CUPS_SERVER");
}

void ServicoMudo::EsperarCliente() {
    // Kept open: a closed connection would be an answer.
    cliente_ = accept4(escuta_, nullptr, nullptr, SOCK_CLOEXEC);
}

}  // namespace tarvo::apoio
