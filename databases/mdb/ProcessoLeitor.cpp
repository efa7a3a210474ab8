// SPDX-License-Identifier: MIT
#include "databases/mdb/ProcessoLeitor.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>

#include "data/CodigosDeErros.h"
#include "data/ObjetoDeC.h"
#include "databases/mdb/protocol/Protocolo.h"
#include "system/files/Descritor.h"

namespace tarvo::mdb {

namespace {

namespace fs = std::filesystem;

// Of the program or the shared library that holds this function.
fs::path PastaDesteCodigo() {
    Dl_info informacao{};
    link_map* mapa = nullptr;
    std::error_code ignorado;
    if (dladdr1(reinterpret_cast<void*>(&PastaDesteCodigo), &informacao,
                reinterpret_cast<void**>(&mapa), RTLD_DL_LINKMAP) != 0 &&
        mapa != nullptr && mapa->l_name != nullptr && *mapa->l_name != '\0') {
        return fs::canonical(mapa->l_name, ignorado).parent_path();
    }
    return fs::read_symlink("/proc/self/exe", ignorado).parent_path();
}

fs::path ProcurarPrograma() {
    constexpr const char* Nome = "relatorios-tarvo-mdb";
    const fs::path pasta = PastaDesteCodigo();
    // Programs stand in bin, libraries in lib or lib/ARCHITECTURE.
    const fs::path acima = pasta.parent_path();
    const fs::path instalado = fs::path(TARVO_LIBEXECDIR) / "relatoriostarvo" / Nome;
    for (const auto& lugar : {pasta / Nome, acima / instalado, acima.parent_path() / instalado}) {
        if (access(lugar.c_str(), X_OK) == 0) {
            return lugar;
        }
    }
    throw Erro(NumeroErro::AcaoNaoSuportada,
               "A leitura de arquivos .mdb e .accdb não faz parte desta instalação (falta "
               "relatorios-tarvo-mdb, do pacote librelatoriostarvo1).");
}

[[noreturn]] void LancarFalha(const char* que) {
    throw Erro(NumeroErro::ErroDispositivo,
               std::string("O leitor de arquivos .mdb não pôde ser ") + que + ".");
}

constexpr int EntrePerguntas = 50;  // ms

// Nothing of ours but the file and the pipe: no other descriptor, signal or variable.
pid_t Iniciar(const fs::path& programa, int arquivo, int escrita,
              const std::vector<std::string>& argumentos) {
    posix_spawn_file_actions_t acoes;
    posix_spawn_file_actions_init(&acoes);
    const ObjetoDeC<posix_spawn_file_actions_destroy> donoDasAcoes(&acoes);
    posix_spawn_file_actions_addopen(&acoes, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&acoes, escrita, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&acoes, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&acoes, arquivo, DescritorDoArquivo);
    posix_spawn_file_actions_addclosefrom_np(&acoes, DescritorDoArquivo + 1);
    posix_spawnattr_t atributos;
    posix_spawnattr_init(&atributos);
    const ObjetoDeC<posix_spawnattr_destroy> donoDosAtributos(&atributos);
    sigset_t nenhum;
    sigset_t todos;
    sigemptyset(&nenhum);
    sigfillset(&todos);
    posix_spawnattr_setsigmask(&atributos, &nenhum);
    posix_spawnattr_setsigdefault(&atributos, &todos);
    posix_spawnattr_setflags(&atributos, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    std::vector<char*> lista{const_cast<char*>(programa.c_str())};
    for (const std::string& argumento : argumentos) {
        lista.push_back(const_cast<char*>(argumento.c_str()));
    }
    lista.push_back(nullptr);
    char* ambiente[] = {nullptr};
    pid_t processo = -1;
    if (posix_spawn(&processo, programa.c_str(), &acoes, &atributos, lista.data(), ambiente) != 0) {
        LancarFalha("iniciado");
    }
    return processo;
}

int Acima(int descritor) {
    const int outro = fcntl(descritor, F_DUPFD_CLOEXEC, DescritorDoArquivo + 1);
    if (outro < 0) {
        LancarFalha("iniciado");
    }
    return outro;
}

}  // namespace

ProcessoLeitor::Cano ProcessoLeitor::AbrirCano() {
    std::array<int, 2> pontas{-1, -1};
    if (pipe2(pontas.data(), O_CLOEXEC) != 0) {
        LancarFalha("iniciado");
    }
    return {pontas[0], pontas[1]};
}

ProcessoLeitor::ProcessoLeitor(int arquivo, const std::vector<std::string>& argumentos,
                               Acompanhante* quem)
    : ProcessoLeitor(arquivo, argumentos, AbrirCano()) {
    vigilancia_.Acompanhar(quem);
}

ProcessoLeitor::ProcessoLeitor(int arquivo, const std::vector<std::string>& argumentos, Cano cano)
    : cano_(cano.leitura), processo_(-1) {
    const Descritor escrita(cano.escrita);
    const fs::path programa = ProcurarPrograma();
    // Above those that the process gets, so that none takes another's place.
    const Descritor escritaAcima(Acima(escrita.Valor()));
    const Descritor arquivoAcima(Acima(arquivo));
    processo_ = Iniciar(programa, arquivoAcima.Valor(), escritaAcima.Valor(), argumentos);
}

ProcessoLeitor::~ProcessoLeitor() {
    if (processo_ > 0) {
        ::kill(processo_, SIGKILL);
        Esperar();
    }
}

std::size_t ProcessoLeitor::Ler(std::span<char> destino) {
    for (;;) {
        pollfd pronto{cano_.Valor(), POLLIN, 0};
        const int prontos = ::poll(&pronto, 1, EntrePerguntas);
        if (!vigilancia_.Continuar(std::chrono::milliseconds(0))) {
            vigilancia_.LancarSeParou();
        }
        if (prontos == 0) {
            continue;
        }
        const ssize_t lidos = ::read(cano_.Valor(), destino.data(), destino.size());
        if (lidos >= 0) {
            return static_cast<std::size_t>(lidos);
        }
        if (errno != EINTR) {
            LancarFalha("lido");
        }
    }
}

bool ProcessoLeitor::Esperar() {
    int estado = 0;
    pid_t terminado = -1;
    do {
        terminado = ::waitpid(processo_, &estado, 0);
    } while (terminado < 0 && errno == EINTR);
    processo_ = -1;
    // A host that waits for its processes itself may have taken the answer; the last frame tells
    // then alone.
    return terminado < 0 || (WIFEXITED(estado) && WEXITSTATUS(estado) == 0);
}

}  // namespace tarvo::mdb
