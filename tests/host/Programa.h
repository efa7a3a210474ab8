#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/apoio/Apoio.h"

// The real command, run as a user or a script runs it.
namespace tarvo::host {

struct Execucao {
    int situacao = -1;  // exit status; 128 plus the signal when one ended it
    std::string saida;
    std::string erros;
};

struct Condicoes {
    bool comoNinguem = false;  // unprivileged, where the test runs as root: permissions hold
    long limiteDeArquivo = 0;  // bytes, as on a full disk; 0: none
    std::string saida = {};    // file or device for standard output; empty: kept for Execucao
};

// A started command; its output goes to files in a folder of its own.
class Programa {
  public:
    explicit Programa(const std::vector<std::string>& argumentos, const Condicoes& condicoes = {});
    void Sinalizar(int sinal) const;
    Execucao Esperar();

  private:
    apoio::PastaTemporaria pasta_;
    pid_t processo_ = 0;
};

Execucao Rodar(const std::vector<std::string>& argumentos, const Condicoes& condicoes = {});

// What the command writes to a terminal.
std::string RodarNoTerminal(const std::vector<std::string>& argumentos);

// The example database in a folder of its own, readable and writable by everyone.
class ComExemplo : public testing::Test {
  protected:
    void SetUp() override;
    [[nodiscard]] std::string Banco() const { return (pasta / "exemplo.tarvo").string(); }
    [[nodiscard]] std::string Saida(const char* nome = "saida") const {
        return (pasta / nome).string();
    }
    void Executar(std::string_view script) { BancoSQLite::Abrir(Banco())->ExecutarScript(script); }
    Execucao Exportar(const std::string& relatorios, const std::string& formato = "pdf",
                      const std::string& drq = "101", const std::string& IE = "250114377019",
                      const Condicoes& condicoes = {}) {
        return Rodar({"exportar", Banco(), "--ie", IE, "--drq", drq, "--ref-atual", "07/2003",
                      "--relatorios", relatorios, "--formato", formato, "--saida", Saida()},
                     condicoes);
    }
    apoio::PastaTemporaria pasta;
};

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

// Makes a folder that nobody but root may write.
void CriarPastaProtegida(const std::filesystem::path& pasta);

// Names of the files below a folder, relative to it and sorted.
std::vector<std::string> Arquivos(const std::filesystem::path& pasta);
std::string Conteudo(const std::filesystem::path& arquivo);

}  // namespace tarvo::host
