// SPDX-License-Identifier: MIT
#include "tests/output/tables/LeituraDeTabelas.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "output/tables/PlanilhaXLSX.h"
#include "output/tables/TabelasCSV.h"
#include "tests/support/Apoio.h"

namespace tarvo::apoio {

namespace {

std::vector<TabelaLida> Ler(std::string_view bytes, std::string_view nome) {
    const PastaTemporaria pasta;
    std::ofstream(pasta / nome, std::ios::binary) << bytes;
    const auto saida = SaidaDe(TARVO_LER_TABELAS " '" + (pasta / nome).string() + "' 2>&1");
    return nlohmann::json::parse(saida, nullptr, false).get<std::vector<TabelaLida>>();
}

}  // namespace

std::string ComoCSV(const Conteudo& conteudo) {
    std::ostringstream saida;
    EscreverCSV(TabelasDoDocumento(conteudo), saida);
    return std::move(saida).str();
}

std::string ComoXLSX(const Conteudo& conteudo) {
    std::ostringstream saida;
    const SecaoDaPlanilha secao{.nome = "", .tabelas = TabelasDoDocumento(conteudo)};
    EscreverXLSX({&secao, 1}, saida);
    return std::move(saida).str();
}

std::vector<TabelaLida> LerCSV(std::string_view bytes) {
    return Ler(bytes, "tabelas.csv");
}

std::vector<TabelaLida> LerXLSX(std::string_view bytes) {
    return Ler(bytes, "tabelas.xlsx");
}

}  // namespace tarvo::apoio
