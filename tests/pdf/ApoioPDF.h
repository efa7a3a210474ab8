#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "document/DocumentoRelatorio.h"
#include "platform/pdf/RenderizadorPDF.h"
#include "tests/apoio/Apoio.h"

// What the tests of the rendering share: documents drawn by a few lines, and files looked at with
// programs that know nothing of this project.
namespace tarvo {

// The margins of every document of these tests, cm.
constexpr double Margem = 2;
constexpr double PontosPorCm = 72 / 2.54;

// Runs a shell command; its standard output and its exit status.
struct Saida {
    std::string texto;
    int estado = 0;
};
Saida Executar(const std::string& comando);

// The bytes of a file.
std::string Conteudos(const std::filesystem::path& arquivo);

// A document of one or more pages, drawn by the caller.
Conteudo Documento(const std::function<void(DocumentoRelatorio&)>& desenhar);

// One line of text with the usual arguments.
struct Escrita {
    int horizontal = 0;
    int vertical = 0;
    const char* fonte = "Arial";
    double tamanho = 8;
    bool multilinha = false;
    std::int32_t cor = 0;
};
void Escrever(DocumentoRelatorio& doc, const Caixa& caixa, std::string_view texto,
              const Escrita& escrita = {});

// A word with its box, in points from the paper's top left corner.
struct Palavra {
    std::string texto;
    double x0 = 0;
    double y0 = 0;
    double x1 = 0;
    double y1 = 0;
};

using CorRGB = std::array<int, 3>;

// A rendered document as a file.
class ArquivoPDF {
  public:
    explicit ArquivoPDF(const Conteudo& conteudo);
    explicit ArquivoPDF(std::span<const SecaoPDF> secoes);

    [[nodiscard]] const ResultadoPDF& Resultado() const { return resultado_; }
    [[nodiscard]] std::string Nome() const { return arquivo_.string(); }
    // pagina: from 1.
    [[nodiscard]] std::string Texto(int pagina) const;
    [[nodiscard]] std::vector<Palavra> Palavras(int pagina) const;
    // The objects by their names ("obj:7 0 R"), as qpdf sees them, and the trailer.
    [[nodiscard]] const nlohmann::json& Objetos() const;
    [[nodiscard]] nlohmann::json Catalogo() const;
    // The colour at a place, cm from the printable area's corner.
    [[nodiscard]] CorRGB Cor(int pagina, double x, double y) const;
    // All pixels of a page, 254 an inch.
    [[nodiscard]] const std::string& Pontos(int pagina) const;

  private:
    apoio::PastaTemporaria pasta_;
    std::filesystem::path arquivo_;
    ResultadoPDF resultado_;
    mutable nlohmann::json objetos_;
    mutable std::map<int, std::string> pontos_;
};

// Sets an environment variable until the end of its scope.
class Ambiental {
  public:
    Ambiental(const char* nome, const char* valor);
    ~Ambiental();
    Ambiental(const Ambiental&) = delete;
    Ambiental& operator=(const Ambiental&) = delete;

  private:
    const char* nome_;
};

}  // namespace tarvo
