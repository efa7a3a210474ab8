// SPDX-License-Identifier: MIT
#include "host/windows/Tela.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <cstdlib>

#include "data/CodigosDeErros.h"

namespace tarvo::host {

namespace {

bool Definida(const char* variavel) {
    const char* valor = std::getenv(variavel);
    return valor != nullptr && *valor != '\0';
}

// A display that is named but does not answer makes the library abort: let a child process try.
bool TelaResponde() {
    const pid_t filho = fork();
    if (filho == 0) {
        const int nada = open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nada, STDERR_FILENO);
        int argc = 1;
        char nome[] = "tela";
        char* argv[] = {nome, nullptr};
        const QGuiApplication tentativa(argc, argv);
        _exit(0);
    }
    int situacao = 0;
    return filho > 0 && waitpid(filho, &situacao, 0) == filho && WIFEXITED(situacao) &&
           WEXITSTATUS(situacao) == 0;
}

}  // namespace

void ExigirTela() {
    const bool nomeada =
        Definida("QT_QPA_PLATFORM") || Definida("DISPLAY") || Definida("WAYLAND_DISPLAY");
    if (!nomeada || !TelaResponde()) {
        throw Erro(NumeroErro::AcaoNaoSuportada,
                   "Não há tela nesta sessão para abrir janelas. Os comandos exportar e imprimir "
                   "funcionam sem tela.");
    }
}

}  // namespace tarvo::host
