#include "output/png/PaginasPNG.h"

#include <poppler-document.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>
#include <unistd.h>

#include <cstdlib>
#include <limits>
#include <memory>
#include <mutex>
#include <string>
#include <system_error>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"
#include "output/png/CodificadorPNG.h"
#include "system/files/Arquivos.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

// Where the pages wait until all of them are there; removed at the end with what is left in it.
class PastaDeEspera {
  public:
    PastaDeEspera(const fs::path& pasta, std::string_view nome)
        : caminho_(pasta / (std::string(nome) + "." + std::to_string(::getpid()) + ".tmp")) {
        std::error_code erro;
        if (!fs::create_directory(caminho_, erro) && erro) {
            LancarErroDeArquivo(caminho_, erro.value());
        }
    }
    ~PastaDeEspera() {
        std::error_code ignorado;
        fs::remove_all(caminho_, ignorado);
    }
    PastaDeEspera(const PastaDeEspera&) = delete;
    PastaDeEspera& operator=(const PastaDeEspera&) = delete;

    [[nodiscard]] const fs::path& Caminho() const { return caminho_; }

  private:
    fs::path caminho_;
};

std::unique_ptr<poppler::document> Abrir(std::string_view pdf) {
    std::unique_ptr<poppler::document> documento;
    if (pdf.size() <= static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        documento.reset(
            poppler::document::load_from_raw_data(pdf.data(), static_cast<int>(pdf.size())));
    }
    if (documento == nullptr) {
        throw Erro(NumeroErro::ChamadaInvalida, "O documento não é um PDF legível.");
    }
    return documento;
}

constexpr int MenorResolucao = 10;
constexpr int MaiorResolucao = 2400;

poppler::image Desenhar(const poppler::document& documento, int pagina, int dpi) {
    const std::unique_ptr<poppler::page> folha(documento.create_page(pagina));
    poppler::page_renderer renderizador;
    renderizador.set_render_hints(poppler::page_renderer::antialiasing |
                                  poppler::page_renderer::text_antialiasing);
    renderizador.set_image_format(poppler::image::format_rgb24);
    poppler::image imagem =
        folha == nullptr ? poppler::image() : renderizador.render_page(folha.get(), dpi, dpi);
    if (!imagem.is_valid()) {
        throw Erro(NumeroErro::ErroDispositivo,
                   "A página " + std::to_string(pagina + 1) + " não pôde ser desenhada.");
    }
    return imagem;
}

// The first page that poppler draws in a process makes its colour profiles, without a lock: that
// one is drawn alone.
void PrepararCores(const poppler::document& documento) {
    static std::once_flag feito;
    std::call_once(feito, [&] { Desenhar(documento, 0, MenorResolucao); });
}

std::string Fotografar(const poppler::document& documento, int pagina, int dpi) {
    PrepararCores(documento);
    const poppler::image imagem = Desenhar(documento, pagina, dpi);
    const auto largura = static_cast<std::size_t>(imagem.width());
    const auto altura = static_cast<std::size_t>(imagem.height());
    // Rows come padded to words.
    std::vector<unsigned char> rgb;
    rgb.reserve(3 * largura * altura);
    for (std::size_t y = 0; y < altura; ++y) {
        const char* const linha =
            imagem.const_data() + y * static_cast<std::size_t>(imagem.bytes_per_row());
        rgb.insert(rgb.end(), linha, linha + 3 * largura);
    }
    return CodificarPNG(rgb, largura, altura, dpi);
}

// Pages that an earlier, longer document left.
void RemoverPaginasAlem(const fs::path& pasta, std::string_view nome, std::size_t paginas) {
    const std::string prefixo = std::string(nome) + "-";
    for (const auto& item : fs::directory_iterator(pasta)) {
        const std::string arquivo = item.path().filename().string();
        if (arquivo.starts_with(prefixo) && arquivo.ends_with(".png") &&
            std::strtoull(arquivo.c_str() + prefixo.size(), nullptr, 10) > paginas) {
            fs::remove(item.path());
        }
    }
}

}  // namespace

std::string NomeDaPaginaPNG(std::string_view nome, std::size_t pagina) {
    return std::string(nome) + "-" + ComZeros(static_cast<std::int64_t>(pagina), 3) + ".png";
}

std::vector<ArquivoGravado> GravarPNG(std::string_view pdf, const fs::path& pasta,
                                      std::string_view nome, int dpi) {
    if (dpi < MenorResolucao || dpi > MaiorResolucao) {
        throw Erro(NumeroErro::ChamadaInvalida,
                   "A resolução de " + std::to_string(dpi) + " dpi está fora de 10 a 2400.");
    }
    const auto documento = Abrir(pdf);
    const PastaDeEspera espera(pasta, nome);
    std::vector<ArquivoGravado> arquivos;
    for (int pagina = 0; pagina < documento->pages(); ++pagina) {
        const auto arquivo = NomeDaPaginaPNG(nome, static_cast<std::size_t>(pagina) + 1);
        const std::string png = Fotografar(*documento, pagina, dpi);
        GravarArquivo(espera.Caminho() / arquivo, png);
        arquivos.push_back({.caminho = pasta / arquivo, .bytes = png.size()});
    }
    for (const auto& arquivo : arquivos) {
        std::error_code erro;
        fs::rename(espera.Caminho() / arquivo.caminho.filename(), arquivo.caminho, erro);
        if (erro) {
            LancarErroDeArquivo(arquivo.caminho, erro.value());
        }
    }
    RemoverPaginasAlem(pasta, nome, arquivos.size());
    return arquivos;
}

}  // namespace tarvo
