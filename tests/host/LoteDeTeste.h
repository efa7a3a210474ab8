#pragma once

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/host/Programa.h"

// Batches over the example database.
namespace tarvo::host {

class ComLote : public ComExemplo {
  protected:
    [[nodiscard]] std::vector<std::string> Argumentos(std::vector<std::string> outros = {}) const {
        outros.insert(outros.begin(),
                      {"lote", Banco(), "--saida", Saida(), "--ref-atual", "07/2003"});
        return outros;
    }
    Execucao RodarLote(const std::vector<std::string>& outros = {},
                       const Condicoes& condicoes = {}) {
        return Rodar(Argumentos(outros), condicoes);
    }

    // Each file is a whole PDF, or the summary.
    void ConferirInteiros() {
        for (const auto& nome : Arquivos(Saida())) {
            if (nome != "resumo.csv") {
                EXPECT_THAT(
                    apoio::BytesDe(Saida(nome)),
                    testing::AllOf(testing::StartsWith("%PDF"), testing::EndsWith("%%EOF\n")))
                    << nome;
            }
        }
    }

    // The lines of the summary, without its header, by declaration and report.
    using Linha = std::vector<std::string>;
    std::map<std::pair<int, std::string>, Linha> Resumo() {
        std::map<std::pair<int, std::string>, Linha> linhas;
        std::istringstream resumo(apoio::BytesDe(Saida("resumo.csv")));
        std::string texto;
        std::getline(resumo, texto);
        while (std::getline(resumo, texto) && texto.ends_with('\r')) {
            texto.back() = ';';
            std::istringstream partes(texto);
            Linha colunas;
            for (std::string coluna; std::getline(partes, coluna, ';');) {
                colunas.push_back(coluna);
            }
            EXPECT_EQ(colunas.size(), 10U) << texto;
            const bool nova =
                linhas.try_emplace({std::stoi(colunas[1]), colunas[3]}, colunas).second;
            EXPECT_TRUE(nova) << "twice: " << texto;
        }
        return linhas;
    }
};

// What an i-node and a time tell: whether a file is still the same.
std::string Identidade(const fs::path& arquivo);

}  // namespace tarvo::host
