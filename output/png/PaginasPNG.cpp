// SPDX-License-Identifier: MIT
#include "output/png/PaginasPNG.h"

#include <poppler-document.h>
#include <poppler-page-renderer.h>
#include <poppler-page.h>

#include <array>
#include <fstream>
#include <limits>
#include <memory>
#include <mutex>
#include <string>
#include <system_error>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"
#include "output/png/CodificadorPNG.h"
#include "system/files/Arquivos.h"
#include "system/files/GravacaoSegura.h"

namespace tarvo {

namespace {

namespace fs = std::filesystem;

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

bool EhPNG(const fs::path& arquivo) {
    constexpr std::string_view Assinatura = "\x89PNG\r\n\x1A\n";
    std::error_code ignorado;
    std::array<char, Assinatura.size()> comeco{};
    return fs::is_regular_file(fs::symlink_status(arquivo, ignorado)) &&
           std::ifstream(arquivo, std::ios::binary).read(comeco.data(), comeco.size()) &&
           std::string_view(comeco.data(), comeco.size()) == Assinatura;
}

// Pages that an earlier, longer document left: pictures that follow the last page without a gap.
void RemoverPaginasAlem(const fs::path& pasta, std::string_view nome, std::size_t paginas) {
    std::error_code ignorado;
    for (std::size_t pagina = paginas + 1;; ++pagina) {
        const fs::path arquivo = pasta / NomeDaPaginaPNG(nome, pagina);
        if (!EhPNG(arquivo) || !fs::remove(arquivo, ignorado)) {
            return;
        }
    }
}

}  // namespace

std::string NomeDaPaginaPNG(std::string_view nome, std::size_t pagina) {
    return std::string(nome) + "-" + ComZeros(static_cast<std::int64_t>(pagina), 3) + ".png";
}

std::vector<ArquivoGravado> GravarPNG(std::string_view pdf, const fs::path& pasta,
                                      std::string_view nome, int dpi,
                                      const fs::path& pastaDeEspera) {
    if (dpi < MenorResolucao || dpi > MaiorResolucao) {
        throw Erro(NumeroErro::ChamadaInvalida,
                   "A resolução de " + std::to_string(dpi) + " dpi está fora de 10 a 2400.");
    }
    const auto documento = Abrir(pdf);
    std::vector<ArquivoGravado> arquivos(static_cast<std::size_t>(documento->pages()));
    for (std::size_t i = 0; i < arquivos.size(); ++i) {
        arquivos[i].caminho = pasta / NomeDaPaginaPNG(nome, i + 1);
        ConferirSubstituicao(arquivos[i].caminho);
    }
    // No page gets its name before the last is written.
    std::vector<std::unique_ptr<GravacaoSegura>> gravacoes;
    for (int pagina = 0; auto& arquivo : arquivos) {
        const std::string png = Fotografar(*documento, pagina++, dpi);
        gravacoes.push_back(std::make_unique<GravacaoSegura>(arquivo.caminho, pastaDeEspera));
        gravacoes.back()->Escrever(png);
        arquivo.bytes = png.size();
    }
    for (const auto& gravacao : gravacoes) {
        gravacao->Confirmar();
    }
    RemoverPaginasAlem(pasta, nome, arquivos.size());
    return arquivos;
}

}  // namespace tarvo
