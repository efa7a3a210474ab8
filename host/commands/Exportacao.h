#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/BancoDados.h"
#include "document/Relatorio.h"
#include "output/FormatoDeSaida.h"

// Building reports by their codes and writing them to files.
namespace tarvo::host {

// A report that the command can build: an entry of the selection list, or the payment slip.
constexpr std::string_view CodigoVELO = "VELO";

std::string EmMaiusculas(std::string_view texto);  // of ASCII letters

// The codes of a list as the user writes it ("01,11a,velo"), in capitals, in the order given, each
// once.
std::vector<std::string> SepararCodigos(std::string_view lista);
bool ExisteCodigo(std::string_view codigo);

// The codes that the selection dialog offers for a declaration. Error 3021 when it does not exist.
std::vector<std::string> CodigosOferecidos(BancoDados& banco, std::int32_t NumeroDRQ);

constexpr bool PrecisaDeContribuinte(std::string_view codigo) {
    return codigo != CodigoVELO;
}
constexpr bool PrecisaDeDeclaracao(std::string_view codigo) {
    return codigo != "01" && codigo != CodigoVELO;
}

struct Alvo {
    std::string IE;
    std::int32_t NumeroDRQ = 0;
};

// The built report of that code (one that exists). The report's own errors reach the
// caller. What ambiente points to outlives it.
std::unique_ptr<Relatorio> ConstruirRelatorio(std::string_view codigo, BancoDados& banco,
                                              const Alvo& alvo, const Ambiente& ambiente);

// Where the command writes its files, and as what.
struct SaidaEmArquivos {
    std::filesystem::path pasta;
    const FormatoDeSaida* formato = nullptr;
    OpcoesDeSaida opcoes;
};

// "10-RelatorioApuracaoOpProp": the name of a report's files without their ending.
std::string NomeDoArquivo(std::string_view codigo);

DocumentoDeSaida DocumentoDe(const Relatorio& relatorio);

// Writes a built report (see Gravar).
ResultadoDaSaida GravarRelatorio(std::string_view codigo, const Relatorio& relatorio,
                                 const SaidaEmArquivos& saida);

}  // namespace tarvo::host
