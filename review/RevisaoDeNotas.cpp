// SPDX-License-Identifier: MIT
#include <map>
#include <vector>

#include "data/Consultas.h"
#include "review/Familias.h"
#include "review/Leitura.h"

namespace tarvo::revisao {

namespace {

constexpr std::string_view Relatorio = "06";
constexpr std::string_view Tabela = "tblZFM_ALC";
constexpr std::string_view ColunasLidas[] = {"NF", "CFOP", "MunicípioDest", "Data"};
constexpr std::string_view ColunasDoDetalhe[] = {"CFOP"};
constexpr std::string_view ColunasDoMunicipio[] = {"CódMunicípio", "Município"};

struct Nota {
    std::string NF;
    std::optional<std::string> CFOP;
    std::optional<std::string> municipio;
};

// How many groups of the report a CFOP heads: one for each detail line that has it.
std::map<std::string, std::size_t> LerGrupos(const Contexto& c) {
    std::map<std::string, std::size_t> grupos;
    for (Leitura detalhe(c.banco, "tblDetalhesCFOPs", ColunasDoDetalhe, DaDeclaracao(c.NroDRQ));
         !detalhe.Fim(); detalhe.Proxima()) {
        if (const auto CFOP = detalhe.Chave("CFOP"); CFOP && CFOP->starts_with('6')) {
            ++grupos[SemCaixa(*CFOP)];
        }
    }
    return grupos;
}

Catalogo LerMunicipios(BancoDados& banco, const std::vector<Nota>& notas) {
    std::set<std::string> codigos;
    for (const Nota& nota : notas) {
        if (nota.municipio) {
            codigos.insert(TextoSql(*nota.municipio));
        }
    }
    return {banco, "tblMunicípiosZFM_ALC", ColunasDoMunicipio, codigos};
}

}  // namespace

void RevisarNotas(const Contexto& c) {
    std::vector<Nota> notas;
    const auto achar = [&](const Nota& nota, std::string_view motivo) {
        c.achados.Linha(Relatorio, Tabela, motivo, nota.NF);
    };
    for (Leitura linha(c.banco, Tabela, ColunasLidas, DaDeclaracao(c.NroDRQ)); !linha.Fim();
         linha.Proxima()) {
        notas.push_back({linha.Texto("NF"), linha.Chave("CFOP"), linha.Chave("MunicípioDest")});
        if (linha.Nulo("Data")) {
            achar(notas.back(), "nota sem data – sai com 30/12/1899");
        }
    }
    if (notas.empty()) {
        return;
    }
    const auto grupos = LerGrupos(c);
    const auto municipios = LerMunicipios(c.banco, notas);
    for (const Nota& nota : notas) {
        const auto grupo = grupos.find(SemCaixa(nota.CFOP.value_or("")));
        const auto* const municipio = municipios.Procurar(nota.municipio);
        if (!nota.CFOP || !nota.CFOP->starts_with('6')) {
            achar(nota, "nota cujo CFOP não começa com 6 – não sai");
        } else if (grupo == grupos.end()) {
            achar(nota, "nota cujo CFOP não está entre os da declaração – não sai");
        } else if (municipio == nullptr) {
            achar(nota, "nota de município sem linha em tblMunicípiosZFM_ALC – não sai");
        } else if (grupo->second > 1) {
            achar(nota,
                  "nota cujo CFOP a declaração tem mais de uma vez – sai e soma mais de uma vez");
        } else if (municipio->linhas > 1) {
            achar(
                nota,
                "nota de município com mais de uma linha em tblMunicípiosZFM_ALC – sai mais de uma "
                "vez");
        } else if (municipio->nome.empty()) {
            achar(nota, "nota de município sem nome em tblMunicípiosZFM_ALC");
        }
    }
}

}  // namespace tarvo::revisao
