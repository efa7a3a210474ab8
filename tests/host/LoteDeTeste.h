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
        std::vector<std::string> lista{"lote",  Banco(),       "--saida",
                                       Saida(), "--ref-atual", "07/2003"};
        lista.insert(lista.end(), outros.begin(), outros.end());
        return lista;
    }
    Execucao RodarLote(const std::vector<std::string>& outros = {},
                       const Condicoes& condicoes = {}) {
        return Rodar(Argumentos(outros), condicoes);
    }

    // The example's declarations many times over, so that a batch takes a while.
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

    // Each file is a whole PDF, or the summary.
    void ConferirInteiros() {
        for (const auto& nome : Arquivos(Saida())) {
            if (nome != "resumo.csv") {
                EXPECT_THAT(
                    Conteudo(Saida() + "/" + nome),
                    testing::AllOf(testing::StartsWith("%PDF"), testing::EndsWith("%%EOF\n")))
                    << nome;
            }
        }
    }

    // The lines of the summary, without its header, by report and declaration.
    using Linha = std::vector<std::string>;
    std::map<std::pair<int, std::string>, Linha> Resumo() {
        std::map<std::pair<int, std::string>, Linha> linhas;
        std::istringstream resumo(Conteudo(Saida() + "/resumo.csv"));
        std::string texto;
        std::getline(resumo, texto);
        while (std::getline(resumo, texto) && texto.ends_with('\r')) {
            Linha colunas(1);
            for (const char c : texto) {
                if (c == ';') {
                    colunas.emplace_back();
                } else if (c != '\r') {
                    colunas.back() += c;
                }
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
std::string Identidade(const std::filesystem::path& arquivo);

}  // namespace tarvo::host
