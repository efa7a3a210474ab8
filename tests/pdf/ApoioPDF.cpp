#include "tests/pdf/ApoioPDF.h"

#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace tarvo {

namespace {

constexpr int PixelsPorCm = 100;

std::string SoAPagina(int pagina) {
    const std::string n = std::to_string(pagina);
    return " -f " + n + " -l " + n;
}

}  // namespace

Saida Executar(const std::string& comando) {
    FILE* const cano = ::popen(("{ " + comando + "; } 2>&1").c_str(), "r");
    Saida saida;
    std::array<char, 4096> bloco{};
    for (std::size_t n = 0; (n = std::fread(bloco.data(), 1, bloco.size(), cano)) > 0;) {
        saida.texto.append(bloco.data(), n);
    }
    saida.estado = WEXITSTATUS(::pclose(cano));
    return saida;
}

std::string Conteudos(const std::filesystem::path& arquivo) {
    std::ostringstream texto;
    texto << std::ifstream(arquivo, std::ios::binary).rdbuf();
    return texto.str();
}

std::ptrdiff_t Entradas(const std::filesystem::path& pasta) {
    using Percurso = std::filesystem::directory_iterator;
    return std::distance(Percurso(pasta), Percurso());
}

void Escrever(DocumentoRelatorio& doc, const Escrito& escrito) {
    const auto& [c, texto, e] = escrito;
    const auto escrever = e.multilinha ? &DocumentoRelatorio::EscreverTextoMultilinha
                                       : &DocumentoRelatorio::EscreverTexto;
    (doc.*escrever)(c.x, c.y, c.largura, c.altura, texto, e.horizontal, e.vertical, e.fonte,
                    e.tamanho, false, false, false, e.cor);
}

Conteudo Paginas(int quantas, const std::function<void(DocumentoRelatorio&, int)>& desenhar) {
    DocumentoRelatorio doc;
    doc.Iniciar();
    doc.DefinirTitulo("Relatório de Teste");
    doc.DefinirMargens(Margem, Margem, Margem, Margem);
    for (int pagina = 0; pagina < quantas; ++pagina) {
        if (pagina > 0) {
            doc.NovaPagina();
        }
        desenhar(doc, pagina);
    }
    return doc.Registrado();
}

Conteudo Documento(const std::function<void(DocumentoRelatorio&)>& desenhar) {
    return Paginas(1, [&](DocumentoRelatorio& doc, int) { desenhar(doc); });
}

Conteudo Textos(std::initializer_list<Escrito> escritos) {
    return Documento([&](DocumentoRelatorio& doc) {
        for (const Escrito& escrito : escritos) {
            Escrever(doc, escrito);
        }
    });
}

std::string Renderizar(const Conteudo& conteudo) {
    std::string bytes;
    RenderizarPDF(conteudo, bytes);
    return bytes;
}

ArquivoPDF::ArquivoPDF(const Conteudo& conteudo) : resultado_(GravarPDF(conteudo, arquivo_)) {}

ArquivoPDF::ArquivoPDF(std::span<const SecaoPDF> secoes)
    : resultado_(GravarPDF(secoes, arquivo_)) {}

std::string ArquivoPDF::Dito(const std::string& programa, const char* resto) const {
    return Executar(programa + " " + arquivo_.string() + " " + resto).texto;
}

void ArquivoPDF::EsperarSemFaltas() const {
    const Saida verificacao = Executar("qpdf --check " + arquivo_.string());
    EXPECT_EQ(verificacao.estado, 0) << verificacao.texto;
    EXPECT_EQ(Dito("pdftoppm -r 10", ">/dev/null"), "");
}

std::string ArquivoPDF::Texto(int pagina) const {
    return Dito("pdftotext -layout" + SoAPagina(pagina), "-");
}

std::vector<Palavra> ArquivoPDF::Palavras(int pagina, std::size_t quantas) const {
    std::istringstream linhas(Dito("pdftotext -bbox" + SoAPagina(pagina), "-"));
    std::vector<Palavra> palavras;
    for (std::string linha; std::getline(linhas, linha);) {
        Palavra p;
        int inicio = 0;
        if (std::sscanf(linha.c_str(),
                        " <word xMin=\"%lf\" yMin=\"%lf\" xMax=\"%lf\" yMax=\"%lf\">%n", &p.x0,
                        &p.y0, &p.x1, &p.y1, &inicio) == 4) {
            p.texto = linha.substr(static_cast<std::size_t>(inicio));
            p.texto.resize(p.texto.find("</word>"));
            palavras.push_back(p);
        }
    }
    if (palavras.empty() || (quantas != 0 && palavras.size() != quantas)) {
        throw std::runtime_error(std::to_string(palavras.size()) + " words");
    }
    return palavras;
}

const nlohmann::json& ArquivoPDF::Objetos() const {
    if (objetos_.is_null()) {
        objetos_ = nlohmann::json::parse(Dito("qpdf --json"))["qpdf"][1];
    }
    return objetos_;
}

const nlohmann::json& ArquivoPDF::Objeto(const std::string& referencia) const {
    return Objetos().at("obj:" + referencia);
}

const std::string& ArquivoPDF::Pixels(int pagina) const {
    auto& pixels = pixels_[pagina];
    if (pixels.empty()) {
        pixels = Dito("pdftoppm -r 254" + SoAPagina(pagina));
    }
    return pixels;
}

CorRGB ArquivoPDF::Cor(int pagina, double x, double y) const {
    const std::string& ppm = Pixels(pagina);
    std::size_t largura = 0;
    int inicio = 0;
    EXPECT_EQ(std::sscanf(ppm.c_str(), "P6 %zu %*u 255%n", &largura, &inicio), 1);
    const auto coluna = static_cast<std::size_t>((Margem + x) * PixelsPorCm);
    const auto linha = static_cast<std::size_t>((Margem + y) * PixelsPorCm);
    const auto byte = [&](std::size_t i) {
        const auto primeiro = static_cast<std::size_t>(inicio) + 1;
        return int{
            static_cast<unsigned char>(ppm.at(primeiro + 3 * (linha * largura + coluna) + i))};
    };
    return {byte(0), byte(1), byte(2)};
}

}  // namespace tarvo
