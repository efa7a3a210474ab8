// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "output/pdf/RenderizadorPDF.h"
#include "system/files/Arquivos.h"

// The table of what a recorded document can be written as. It stands above the writers and below
// the command, and outside the installed libraries: PNG pages are drawn by poppler, whose licence
// (GPL) does not go with theirs. A library that offers formats names their writers itself.
namespace tarvo {

// One document of those that are written together.
struct DocumentoDeSaida {
    std::string_view classe;  // of its report
    const Conteudo* conteudo = nullptr;
    std::string marcador;    // its entry in an outline
    std::string folha = {};  // its sheet's name in a workbook, where 31 characters stay
};

// Whether writing returns only once the file would outlast a power failure.
enum class Espera { PeloDisco, Nenhuma };

// Each format takes what concerns it.
struct OpcoesDeSaida {
    int dpi = 150;  // pixels an inch, of pictures
    OpcoesPDF pdf = {};
    Espera espera = Espera::PeloDisco;
    std::filesystem::path pastaDeEspera = {};  // see GravacaoSegura
};

struct ResultadoDaSaida {
    std::vector<ArquivoGravado> arquivos;  // none when the bytes went elsewhere
    std::size_t paginas = 0;
    std::vector<TextoCortado> cortados;  // in the order of the pages
};

struct FormatoDeSaida {
    std::string_view nome;            // "pdf": as users ask for it, and the files' ending
    std::string_view descricao = {};  // what of it a user does not guess from the name
    bool reune = false;               // one file takes several documents; else one alone
    bool comEstrutura = false;        // unless the options leave it out
    // Writes the one file, in order; nullptr: each page is a file of its own.
    ResultadoDaSaida (*escrever)(std::span<const DocumentoDeSaida> documentos,
                                 const OpcoesDeSaida& opcoes, const DestinoPDF& destino) = nullptr;
};

std::span<const FormatoDeSaida> FormatosDeSaida();

// By its name, without regard to case; nullptr when there is none.
const FormatoDeSaida* ProcurarFormato(std::string_view nome);

// What of the options changes the bytes that the format writes, in words; empty for none.
std::string OpcoesQueContam(const FormatoDeSaida& formato, const OpcoesDeSaida& opcoes);

// "pdf, png (um arquivo por página) ou json"
std::string ListaDeFormatos();

// The names of the files that Gravar writes: "10-RelatorioApuracaoOpProp.pdf", or of each page
// "10-RelatorioApuracaoOpProp-001.png" and on.
std::vector<std::string> NomesDosArquivos(const FormatoDeSaida& formato, std::string_view nome,
                                          std::size_t paginas);

// Writes documents into a folder, which is made when it is missing; nome: of the file without its
// ending. On an error no new file is left and one of an earlier run stays as it was. Pages of an
// earlier run that the document no longer has are removed. Errors: those of the format's writer
// and of Arquivos.h.
ResultadoDaSaida Gravar(std::span<const DocumentoDeSaida> documentos, const FormatoDeSaida& formato,
                        const std::filesystem::path& pasta, std::string_view nome,
                        const OpcoesDeSaida& opcoes);

}  // namespace tarvo
