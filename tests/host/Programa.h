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

// A started command; its output goes to files in a folder of its own.
class Programa {
  public:
    // comoNinguem: as an unprivileged user, where the test runs as root, so that permissions hold.
    explicit Programa(const std::vector<std::string>& argumentos, bool comoNinguem = false,
                      long limiteDeArquivo = 0);
    void Sinalizar(int sinal) const;
    Execucao Esperar();

  private:
    apoio::PastaTemporaria pasta_;
    pid_t processo_ = 0;
};

Execucao Rodar(const std::vector<std::string>& argumentos, bool comoNinguem = false);

// The example database in a folder of its own, readable and writable by everyone.
class ComExemplo : public testing::Test {
  protected:
    void SetUp() override;
    [[nodiscard]] std::string Banco() const { return (pasta / "exemplo.tarvo").string(); }
    [[nodiscard]] std::string Saida(const char* nome = "saida") const {
        return (pasta / nome).string();
    }
    Execucao Exportar(const std::string& relatorios, const std::string& formato = "pdf",
                      const std::string& drq = "101", const std::string& IE = "250114377019") {
        return Rodar({"exportar", Banco(), "--ie", IE, "--drq", drq, "--ref-atual", "07/2003",
                      "--relatorios", relatorios, "--formato", formato, "--saida", Saida()});
    }

    apoio::PastaTemporaria pasta;
};

// Names of the files below a folder, relative to it and sorted.
std::vector<std::string> Arquivos(const std::filesystem::path& pasta);
std::string Conteudo(const std::filesystem::path& arquivo);

}  // namespace tarvo::host
