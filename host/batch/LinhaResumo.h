// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The lines of a batch's summary as text: semicolons, UTF-8 with a byte-order mark.
namespace tarvo::host {

// One produced file of a batch (its pages, where each is a file), or the reason why there is none.
struct LinhaResumo {
    std::string IE;
    std::int32_t NroDRQ = 0;
    std::string referencia;
    std::string relatorio;     // code, or CodigoUnico
    std::string arquivo;       // relative to the batch's folder; empty when there is none
    std::uintmax_t bytes = 0;  // of all pages
    std::size_t paginas = 0;
    std::size_t cortados = 0;  // texts that did not fit
    int erro = 0;              // 0: produced
    std::string descricao;     // of the error, or the findings about what was produced
    std::string refAtual;      // the month that the reports asked the settings for; mostly empty
    std::string opcoes;        // what else of the call changes the file
    std::string dados;         // hash of what the database held for it
    std::string conteudo;      // hash of the file

    // Adds what the other line produced.
    void Somar(const LinhaResumo& outra) {
        bytes += outra.bytes;
        paginas += outra.paginas;
    }
};

// Stands for the report where one file has all of a declaration's.
constexpr const char* CodigoUnico = "todos";
// Stands for it in the line that says what the batch was made from: its database in descricao, in
// dados the hash of what all declarations share, in arquivo the folder for what is temporary and in
// NroDRQ how many declarations it has. Once all are done it has Concluido in conteudo and the sums
// of all lines, so that a summary that has lost some does not pass as whole.
constexpr const char* CodigoLote = "lote";
constexpr const char* Concluido = "concluído";
// Stands for it in the line that says that a declaration is done, in the summary of a batch that is
// not.
constexpr const char* CodigoFim = "fim";

// With its line end. No cell begins as a spreadsheet's formulas do, none has a line break.
std::string Escrita(const LinhaResumo& linha);
// Nothing for what is no line of a summary. Takes either line end.
std::optional<LinhaResumo> Lida(std::string_view registro);

// The first line of a summary, with its byte-order mark and line end.
std::string Cabecalho();
// Error 5 when that is the first line of something else, or of a version that could not tell what
// its files were made from.
void ExigirCabecalho(std::string_view registro, const std::filesystem::path& arquivo);

// The cells of a line, which may be quoted.
std::vector<std::string> SepararCelulas(std::string_view registro);

// Reads records one after the other: lines, of which quoted cells may hold line breaks. A quote
// that is never closed ends with its line.
class LeitorDeRegistros {
  public:
    // entrada outlives this object.
    explicit LeitorDeRegistros(std::istream& entrada) : entrada_(entrada) {}

    // False at the end. The last record may lack its line end.
    bool Proximo(std::string& registro);
    // Where the last record began, and where it ended.
    [[nodiscard]] std::uint64_t Inicio() const { return inicio_; }
    [[nodiscard]] std::uint64_t Fim() const { return fim_; }

  private:
    int Ler();

    std::istream& entrada_;
    std::string devolvidos_;  // read, but of the next records
    std::size_t usados_ = 0;  // of these
    std::uint64_t inicio_ = 0;
    std::uint64_t fim_ = 0;
};

}  // namespace tarvo::host
