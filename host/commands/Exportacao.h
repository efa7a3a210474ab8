#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/BancoDados.h"
#include "document/Relatorio.h"
#include "output/pdf/RenderizadorPDF.h"

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

enum class Formato { PDF, PNG, JSON };
std::optional<Formato> LerFormato(std::string_view nome);

// Whether writing returns only once the file would outlast a power failure.
enum class Espera { PeloDisco, Nenhuma };

struct Destino {
    std::filesystem::path pasta;
    Formato formato = Formato::PDF;
    int dpi = 150;  // of PNG pages
    Espera espera = Espera::PeloDisco;
};

// "pdf"
std::string_view Extensao(Formato formato);

// "10-RelatorioApuracaoOpProp": the name of a report's files without their ending.
std::string NomeDoArquivo(std::string_view codigo);

// Writes a built report into the folder, which is made when it is missing. On an error no new file
// is left, and a file of an earlier run stays as it was. Pages of an earlier run that the document
// no longer has are removed.
ResultadoPDF Gravar(std::string_view codigo, const Relatorio& relatorio, const Destino& destino);

// Writes several documents as one PDF with an outline.
ResultadoPDF GravarSecoes(std::span<const SecaoPDF> secoes, const std::filesystem::path& arquivo,
                          Espera espera);

}  // namespace tarvo::host
