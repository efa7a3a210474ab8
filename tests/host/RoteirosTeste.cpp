// SPDX-License-Identifier: MIT
#include "tests/host/Programa.h"
#include "tests/support/Roteiro.h"

namespace tarvo::host {
namespace {

void Juntar(std::vector<std::string>& respostas, const char* antes, const std::string& texto) {
    std::istringstream linhas(texto);
    for (std::string linha; std::getline(linhas, linha);) {
        respostas.push_back(antes + linha);
    }
}

// What the command says to those who type it. In a folder of its own:
//   $ SCRIPT    what the shell's commands write, what they write as errors behind "! ", and their
//               status, "= 2", unless it is zero
//   sql SCRIPT  runs it in the database b.tarvo
class Roteiros : public testing::TestWithParam<const char*> {};

TEST_P(Roteiros, AreAnsweredAsTheyTell) {
    const apoio::PastaTemporaria pasta;
    apoio::Roteiro roteiro;
    roteiro.Ensinar("$", [&](const std::string& script) {
        const Execucao e = Programa(pasta.Caminho(), script).Esperar();
        apoio::Roteiro::Respostas respostas;
        Juntar(respostas, "", e.saida);
        Juntar(respostas, "! ", e.erros);
        Juntar(respostas, "= ", e.situacao == 0 ? "" : std::to_string(e.situacao));
        return respostas;
    });
    roteiro.Ensinar("sql", [&](const std::string& script) {
        BancoSQLite::Abrir(pasta / "b.tarvo")->ExecutarScript(script);
        return apoio::Roteiro::Respostas();
    });
    roteiro.Conferir("host/" + std::string(GetParam()) + ".txt");
}

INSTANTIATE_TEST_SUITE_P(DaLinhaDeComando, Roteiros,
                         testing::Values("Alheio", "Comandos", "Copia", "Exportacao", "Lote",
                                         "Partes", "Retomada", "Verificacao"));

}  // namespace
}  // namespace tarvo::host
