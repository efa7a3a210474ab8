// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/support/Apoio.h"

// The real command, run as a user or a script runs it.
namespace tarvo::host {

namespace fs = std::filesystem;

struct Execucao {
    int situacao = -1;  // exit status; 128 plus the signal when one ended it
    std::string saida;
    std::string erros;
};

// Before a command: unprivileged, where the test runs as root, so that permissions hold.
extern const std::string ComoNinguem;
// Before a command: a limit in the shell's units; "-f 68" ends files at 34 KiB, as a full disk.
inline std::string ComLimite(const std::string& limite) {
    return "ulimit " + limite + "; exec";
}

// A started command; its output goes to files in a folder of its own.
class Programa {
  public:
    // The shell reads the arguments, which may send the output elsewhere, and what stands before.
    explicit Programa(const std::string& argumentos, const std::string& antes = "exec")
        : Programa(NoShell(), antes + " " TARVO_PROGRAMA " " + argumentos) {}
    // Commands of the shell, in that folder; it finds the program by its name.
    Programa(const fs::path& pasta, const std::string& script)
        : Programa(NoShell(), "cd " + pasta.string() +
                                  "; PATH=" + fs::path(TARVO_PROGRAMA).parent_path().string() +
                                  ":$PATH; " + script) {}
    void Sinalizar(int sinal) const;
    [[nodiscard]] bool Ativo() const;
    // Waits until the command has said that on standard error; False when it has not in 30 s.
    [[nodiscard]] bool Dizer(const std::string& texto) const;
    Execucao Esperar();

  private:
    struct NoShell {};
    Programa(NoShell, const std::string& comando);

    apoio::PastaTemporaria pasta_;
    pid_t processo_ = 0;
};

inline Execucao Rodar(const std::string& argumentos, const std::string& antes = "exec") {
    return Programa(argumentos, antes).Esperar();
}

// That a command ended with that status and such messages.
inline auto Termina(int situacao, const testing::Matcher<std::string>& erros = testing::_) {
    return testing::AllOf(testing::Field("situacao", &Execucao::situacao, situacao),
                          testing::Field("erros", &Execucao::erros, erros));
}

// The example database in a folder of its own, readable and writable by everyone.
class ComExemplo : public testing::Test {
  protected:
    ComExemplo();
    [[nodiscard]] std::string Banco() const { return (pasta / "exemplo.tarvo").string(); }
    // The folder of the output, and a file in it.
    [[nodiscard]] std::string Saida(const std::string& arquivo = "") const {
        return (pasta / "saida").string() + (arquivo.empty() ? "" : "/" + arquivo);
    }
    void Executar(std::string_view script) { BancoSQLite::Abrir(Banco())->ExecutarScript(script); }
    apoio::PastaTemporaria pasta;
};

// The objects that a command has written, one a line.
std::vector<nlohmann::json> LinhasJSON(const std::string& saida);

// Another process that has the database open and has run some SQL on it, for its lifetime.
class OutroPrograma {
  public:
    OutroPrograma(const std::string& banco, const std::string& sql);
    ~OutroPrograma();
    OutroPrograma(const OutroPrograma&) = delete;
    OutroPrograma& operator=(const OutroPrograma&) = delete;

  private:
    pid_t processo_;
};

// Names of the files below a folder, relative to it and sorted.
std::vector<std::string> Arquivos(const fs::path& pasta);

}  // namespace tarvo::host
