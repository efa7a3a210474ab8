// SPDX-License-Identifier: MIT
#include <map>

#include "data/Consultas.h"
#include "review/Familias.h"
#include "review/Leitura.h"

namespace tarvo::revisao {

namespace {

constexpr std::string_view Tabela = "tblMIDAX";
constexpr std::string_view ColunasLidas[] = {"CódMIDAX", "Município"};
constexpr std::string_view ColunasDoMunicipio[] = {"CódMunicípio", "Município"};
constexpr std::string_view ColunasDoCodigo[] = {"Código", "Descrição"};

// Where the reports of a group of codes find the name of what they print.
struct Ligacao {
    std::string_view catalogo;
    Colunas colunas;          // its key and the name
    std::string_view coluna;  // of tblMIDAX
    std::string_view semLinha;
    std::string_view repetida;
    std::string_view semNome;
};

constexpr Ligacao PeloMunicipio{
    "tblMunicípios",
    ColunasDoMunicipio,
    "Município",
    "município sem linha em tblMunicípios – não sai",
    "município com mais de uma linha em tblMunicípios – sai mais de uma "
    "vez",
    "município sem nome em tblMunicípios"};
constexpr Ligacao PeloCodigo{
    "tblCódigosMIDAX",
    ColunasDoCodigo,
    "CódMIDAX",
    "código sem linha em tblCódigosMIDAX – não sai",
    "código com mais de uma linha em tblCódigosMIDAX – sai mais de uma vez",
    "código sem descrição em tblCódigosMIDAX"};

struct Grupo {
    char digito;
    std::string_view relatorio;
    const Ligacao& ligacao;
};

constexpr Grupo Grupos[] = {
    {'1', "07", PeloMunicipio}, {'2', "08", PeloMunicipio}, {'3', "09", PeloCodigo}};

using ChavesDosGrupos = std::map<char, CodigosLidos>;  // by the code's first character

Catalogo LerCatalogo(const Contexto& c, const Ligacao& ligacao, ChavesDosGrupos& chaves) {
    std::set<std::string> codigos;
    for (const Grupo& grupo : Grupos) {
        if (&grupo.ligacao != &ligacao || !c.pedido(grupo.relatorio)) {
            continue;
        }
        for (const auto& [chave, linhas] : chaves[grupo.digito].EmOrdem()) {
            if (chave) {
                codigos.insert(TextoSql(*chave));
            }
        }
    }
    return {c.banco, ligacao.catalogo, ligacao.colunas, codigos};
}

void RevisarGrupo(const Contexto& c, const Grupo& grupo, const CodigosLidos& chaves,
                  const Catalogo& catalogo) {
    const Ligacao& ligacao = grupo.ligacao;
    std::map<std::string, std::set<std::string>> codigosDoNome;
    for (const auto& [chave, linhas] : chaves.EmOrdem()) {
        if (const auto* const item = catalogo.Procurar(chave)) {
            codigosDoNome[SemCaixa(item->nome)].insert(SemCaixa(*chave));
        }
    }
    for (const auto& lida : chaves.EmOrdem()) {
        const auto& chave = lida.texto;
        const auto achar = [&](std::string_view motivo) {
            c.achados.Linha(grupo.relatorio, Tabela, motivo, chave.value_or(""), lida.linhas);
        };
        const auto* const item = catalogo.Procurar(chave);
        if (item == nullptr) {
            achar(ligacao.semLinha);
        } else if (item->linhas > 1) {
            achar(ligacao.repetida);
        } else if (item->nome.empty()) {
            achar(ligacao.semNome);
        } else if (&ligacao == &PeloMunicipio && codigosDoNome[SemCaixa(item->nome)].size() > 1) {
            achar("municípios de mesmo nome, misturados num só bloco");
        }
    }
}

}  // namespace

void RevisarMIDAXB(const Contexto& c) {
    ChavesDosGrupos chaves;
    for (Leitura linha(c.banco, Tabela, ColunasLidas, DaDeclaracao(c.NroDRQ)); !linha.Fim();
         linha.Proxima()) {
        const std::string codigo = linha.Texto("CódMIDAX");
        const char digito = codigo.empty() ? ' ' : codigo[0];
        if (digito < '1' || digito > '3') {
            c.achados.Linha("", Tabela,
                            "código que não começa com 1, 2 nem 3 – não sai em relatório algum",
                            codigo);
        } else {
            chaves[digito].Acrescentar(linha.Chave(Grupos[digito - '1'].ligacao.coluna));
        }
    }
    const Catalogo municipios = LerCatalogo(c, PeloMunicipio, chaves);
    const Catalogo itens = LerCatalogo(c, PeloCodigo, chaves);
    for (const Grupo& grupo : Grupos) {
        if (c.pedido(grupo.relatorio)) {
            RevisarGrupo(c, grupo, chaves[grupo.digito],
                         &grupo.ligacao == &PeloMunicipio ? municipios : itens);
        }
    }
}

}  // namespace tarvo::revisao
