// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "document/DocumentoRelatorio.h"
#include "output/pdf/RenderizadorPDF.h"
#include "tests/support/Apoio.h"

// What the tests of the rendering share: documents drawn by a few lines, and files looked at with
// programs that know nothing of this project.
namespace tarvo {

// The margins of every document of these tests, cm.
constexpr double Margem = 2;

// A place of the printable area (cm) in points from the paper's top left corner.
constexpr double Pontos(double cm) {
    return (Margem + cm) * 72 / 2.54;
}

// Height of a line of Liberation Sans for each point of its size.
constexpr double AlturaDaLinha = 1.117;

// How many entries a folder has.
std::ptrdiff_t Entradas(const std::filesystem::path& pasta);

// How a text is set, and a text in its box.
struct Escrita {
    int horizontal = 0;
    int vertical = 0;
    const char* fonte = "Arial";
    double tamanho = 8;
    bool multilinha = false;
    std::int32_t cor = 0;
};
struct Escrito {
    Caixa caixa;
    std::string texto;
    Escrita como = {};
};
void Escrever(DocumentoRelatorio& doc, const Escrito& escrito);

// Documents: of one page and of several (from 0) drawn by the caller, and of one page of texts.
Conteudo Documento(const std::function<void(DocumentoRelatorio&)>& desenhar);
Conteudo Paginas(int quantas, const std::function<void(DocumentoRelatorio&, int)>& desenhar);
Conteudo Textos(std::initializer_list<Escrito> escritos);

std::string Renderizar(const Conteudo& conteudo, const OpcoesPDF& opcoes = {});

// A word with its box, in points from the paper's top left corner.
struct Palavra {
    std::string texto;
    double x0 = 0;
    double y0 = 0;
    double x1 = 0;
    double y1 = 0;
    [[nodiscard]] double Largura() const { return x1 - x0; }
    [[nodiscard]] double Altura() const { return y1 - y0; }
};

using CorRGB = std::array<int, 3>;

// A rendered document as a file. Pages count from 1.
class ArquivoPDF {
  public:
    explicit ArquivoPDF(const Conteudo& conteudo, const OpcoesPDF& opcoes = {});
    explicit ArquivoPDF(std::span<const SecaoPDF> secoes);

    [[nodiscard]] const ResultadoPDF& Resultado() const { return resultado_; }
    // What a program tells of the file: its name stands between the options and the rest.
    [[nodiscard]] std::string Dito(const std::string& programa, const char* resto = "") const;
    void EsperarSemFaltas() const;
    [[nodiscard]] std::vector<std::string> FaltasDasMarcas() const;
    // The text of a page as search and copying find it, and as it is seen.
    [[nodiscard]] std::string Texto(int pagina) const;
    [[nodiscard]] std::string TextoVisto(int pagina) const;
    // Of what is seen. Throws unless there are so many, or at least one where the number is not
    // told.
    [[nodiscard]] std::vector<Palavra> Palavras(int pagina, std::size_t quantas = 0) const;
    // The objects by their names ("obj:7 0 R"), as qpdf sees them, and the trailer.
    [[nodiscard]] const nlohmann::json& Objetos() const;
    [[nodiscard]] const nlohmann::json& Objeto(const std::string& referencia) const;
    // The colour at a place, cm from the printable area's corner.
    [[nodiscard]] CorRGB Cor(int pagina, double x, double y) const;
    // All pixels of a page, 254 an inch.
    [[nodiscard]] const std::string& Pixels(int pagina) const;

  private:
    [[nodiscard]] std::string DitoDoVisto(const std::string& programa) const;

    apoio::PastaTemporaria pasta_;
    std::filesystem::path arquivo_ = pasta_ / "teste.pdf";
    ResultadoPDF resultado_;
    mutable nlohmann::json objetos_;
    mutable std::map<int, std::string> pixels_;
};

// Sets an environment variable until the end of its scope.
class Ambiental {
  public:
    Ambiental(const char* nome, const char* valor) : nome_(nome) { ::setenv(nome, valor, 1); }
    ~Ambiental() { ::unsetenv(nome_); }
    Ambiental(const Ambiental&) = delete;
    Ambiental& operator=(const Ambiental&) = delete;

  private:
    const char* nome_;
};

}  // namespace tarvo
