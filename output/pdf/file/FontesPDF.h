// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "output/pdf/file/EscritorPDF.h"
#include "output/pdf/file/FonteReduzida.h"
#include "output/pdf/text/Fonte.h"

namespace tarvo::pdf {

// A face of the file with its number, which gives its names in content streams: "F" for one-byte
// text, "G" for text by glyph number; and what of it the file has used so far, which is embedded.
struct FonteDoArquivo {
    explicit FonteDoArquivo(Fonte f) : fonte(std::move(f)) {}

    Fonte fonte;
    int numero = 0;
    int objetoCodigos = 0;
    int objetoGlifos = 0;
    UsoDaFonte uso;
};

// The faces of one file: loaded on first use, embedded at the end as subsets of what was used.
class FontesPDF {
  public:
    explicit FontesPDF(EscritorPDF& escritor) : escritor_(escritor) {}

    FonteDoArquivo& Obter(std::string_view nome, bool negrito, bool italico);
    // For a face that draws what the font that was asked for lacks.
    FonteDoArquivo& Obter(const std::shared_ptr<const Face>& face);
    // Writes all faces; returns the entries of a resource dictionary's Font.
    std::string Embutir();

  private:
    FonteDoArquivo& Acrescentar(Fonte fonte);
    void EmbutirFace(const FonteDoArquivo& f, std::string& recursos);
    void EmbutirCodigos(const FonteDoArquivo& f, const FonteReduzida& reduzida,
                        const std::string& nome, int descritor);
    void EmbutirGlifos(const FonteDoArquivo& f, const FonteReduzida& reduzida,
                       const std::string& nome, int descritor);

    EscritorPDF& escritor_;
    std::vector<std::unique_ptr<FonteDoArquivo>> fontes_;
    std::map<std::string, FonteDoArquivo*> porNome_;
    std::map<const Face*, FonteDoArquivo*> porFace_;
};

}  // namespace tarvo::pdf
