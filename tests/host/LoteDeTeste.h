// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "tests/host/Programa.h"

// Batches over the example database.
namespace tarvo::host {

using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

class ComLote : public ComExemplo {
  protected:
    [[nodiscard]] std::vector<std::string> Argumentos(std::vector<std::string> outros = {}) const {
        outros.insert(outros.begin(),
                      {"lote", Banco(), "--saida", Saida(), "--ref-atual", refAtual});
        return outros;
    }
    Execucao RodarLote(const std::vector<std::string>& outros = {},
                       const Condicoes& condicoes = {}) {
        return Rodar(Argumentos(outros), condicoes);
    }

    // The example's ten declarations that many times more, so that a batch takes a while.
    void Multiplicar(int vezes) {
        Executar(
            "create temp table n as with recursive r(i) as (select 1 union all select i + 1 from r "
            "where i < " +
            std::to_string(vezes) +
            ") select i from r;"
            "insert into tblDRQ select NroDRQ + 1000 * i, IE, Ref1, Ref2, Tipo, RegTrib, "
            "Consistente, Autenticação, SaldoCredAntDig, ICMSFixPerRES, OutrasRES, DeduçõesRPA, "
            "SaldoCredAntDigST, DeduçõesST from tblDRQ, n;");
    }
    // Until the summary of a running batch has so many lines, or the batch ends.
    void EsperarLinhas(const Programa& lote, std::size_t linhas) {
        while (lote.Ativo() && Resumo().size() < linhas) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    // Each file is a whole PDF, or the summary.
    void ConferirInteiros() {
        for (const auto& nome : Arquivos(Saida())) {
            if (!nome.starts_with("resumo")) {
                EXPECT_THAT(
                    apoio::BytesDe(Saida(nome)),
                    testing::AllOf(testing::StartsWith("%PDF"), testing::EndsWith("%%EOF\n")))
                    << nome;
            }
        }
    }

    // The lines of the summary of files and failures, by declaration and report.
    using Linha = std::vector<std::string>;
    std::map<std::pair<int, std::string>, Linha> Resumo(const std::string& nome = "resumo.csv") {
        std::map<std::pair<int, std::string>, Linha> linhas;
        std::istringstream resumo(apoio::BytesDe(Saida(nome)));
        std::string texto;
        std::getline(resumo, texto);
        while (std::getline(resumo, texto) && texto.ends_with('\r')) {
            texto.back() = ';';
            std::istringstream partes(texto);
            Linha colunas;
            for (std::string coluna; std::getline(partes, coluna, ';');) {
                colunas.push_back(coluna);
            }
            EXPECT_EQ(colunas.size(), 14U) << texto;
            if (colunas[3] == "lote" || colunas[3] == "fim") {
                continue;
            }
            const bool nova =
                linhas.try_emplace({std::stoi(colunas[1]), colunas[3]}, colunas).second;
            EXPECT_TRUE(nova) << "twice: " << texto;
        }
        return linhas;
    }

    std::string refAtual = "07/2003";
};

// What an i-node and a time tell: whether a file is still the same.
std::string Identidade(const fs::path& arquivo);

}  // namespace tarvo::host
