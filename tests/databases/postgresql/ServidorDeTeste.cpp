// SPDX-License-Identifier: MIT
#include "tests/databases/postgresql/ServidorDeTeste.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

namespace tarvo::apoio {

namespace {

std::string SemFim(std::string texto) {
    while (texto.ends_with('\n')) {
        texto.pop_back();
    }
    return texto;
}

}  // namespace

ServidorDeTeste& ServidorDeTeste::Unico() {
    static ServidorDeTeste servidor;
    return servidor;
}

ServidorDeTeste::ServidorDeTeste()
    : comando_(::geteuid() == 0 ? "setpriv --reuid=postgres --regid=postgres --init-groups "
                                : "env "),
      programas_(SemFim(SaidaDe("ls -d /usr/lib/postgresql/*/bin | tail -1"))) {
    const std::string pasta = pasta_.Caminho().string();
    if (::geteuid() == 0) {
        SaidaDe("chown postgres " + pasta + " && chmod 755 " + pasta);
    }
    SaidaDe("cd / && " + comando_ + programas_ + "/initdb -D " + pasta +
            "/dados -U dono -A trust -E UTF8 --locale=C.UTF-8 --no-sync");
    std::ofstream(pasta + "/dados/pg_hba.conf")
        << "local all dono trust\nlocal all all scram-sha-256\n";
    Iniciar();
    static_cast<void>(
        Executar(Endereco("postgres"), "CREATE ROLE leitor LOGIN PASSWORD 'segredo'"));
}

ServidorDeTeste::~ServidorDeTeste() {
    Matar();
}

void ServidorDeTeste::Iniciar() {
    const std::string pasta = pasta_.Caminho().string();
    processo_ = ::fork();
    if (processo_ == 0) {
        const std::string linha =
            "cd / && exec " + (::geteuid() == 0 ? comando_ : "setpriv ") + "--pdeathsig QUIT " +
            programas_ + "/postgres -D " + pasta +
            "/dados -c fsync=off -c listen_addresses= " + "-c unix_socket_directories=" + pasta +
            " >> " + pasta + "/registro 2>&1";
        ::execl("/bin/sh", "sh", "-c", linha.c_str(), nullptr);
        ::_exit(127);
    }
    SaidaDe("for i in $(seq 200); do " + programas_ + "/pg_isready -q -h " + pasta +
            " && exit 0; sleep 0.05; done; cat " + pasta + "/registro; exit 1");
}

void ServidorDeTeste::Matar() {
    ::kill(processo_, SIGQUIT);
    ::waitpid(processo_, nullptr, 0);
}

std::string ServidorDeTeste::BancoNovo() {
    const std::string nome = "teste" + std::to_string(++bancos_);
    static_cast<void>(Executar(Endereco("postgres"), "CREATE DATABASE " + nome));
    return Endereco(nome);
}

std::string ServidorDeTeste::Endereco(const std::string& banco, const std::string& usuario) const {
    return "postgresql://" + usuario + "@/" + banco + "?host=" + pasta_.Caminho().string();
}

std::string ServidorDeTeste::Executar(const std::string& endereco, const std::string& sql) {
    const PastaTemporaria pasta;
    std::ofstream(pasta / "sql") << sql;
    return SemFim(SaidaDe("psql -qAtX -v ON_ERROR_STOP=1 -d '" + endereco + "' -f " +
                          (pasta / "sql").string()));
}

}  // namespace tarvo::apoio
