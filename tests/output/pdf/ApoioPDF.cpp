// SPDX-License-Identifier: MIT
#include "tests/output/pdf/ApoioPDF.h"

#include <sstream>
#include <stdexcept>

#include "tests/support/MarcasDoPDF.h"

namespace tarvo {

namespace {

constexpr int PixelsPorCm = 100;

std::string SoAPagina(int pagina) {
    const std::string n = std::to_string(pagina);
    return " -f " + n + " -l " + n;
}

}  // namespace

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

std::string Renderizar(const Conteudo& conteudo, const OpcoesPDF& opcoes) {
    std::string bytes;
    RenderizarPDF(conteudo, bytes, opcoes);
    return bytes;
}

ArquivoPDF::ArquivoPDF(const Conteudo& conteudo, const OpcoesPDF& opcoes)
    : resultado_(GravarPDF(conteudo, arquivo_, opcoes)) {}

ArquivoPDF::ArquivoPDF(std::span<const SecaoPDF> secoes)
    : resultado_(GravarPDF(secoes, arquivo_)) {}

std::string ArquivoPDF::Dito(const std::string& programa, const char* resto) const {
    return apoio::SaidaDe(programa + " " + arquivo_.string() + " " + resto);
}

void ArquivoPDF::EsperarSemFaltas() const {
    EXPECT_THAT(Dito("qpdf --check"),
                testing::AllOf(testing::HasSubstr("No syntax or stream encoding errors found"),
                               testing::Not(testing::HasSubstr("WARNING"))));
    EXPECT_EQ(Dito("pdftoppm -r 10", ">/dev/null"), "");
}

std::vector<std::string> ArquivoPDF::FaltasDasMarcas() const {
    return apoio::FaltasDasMarcas(arquivo_);
}

std::string ArquivoPDF::Texto(int pagina) const {
    return Dito("pdftotext -layout" + SoAPagina(pagina), "-");
}

std::string ArquivoPDF::TextoVisto(int pagina) const {
    return DitoDoVisto("pdftotext -layout" + SoAPagina(pagina));
}

// The file with every text that another one stands for under a name that no program knows.
std::string ArquivoPDF::DitoDoVisto(const std::string& programa) const {
    const std::string visto = (pasta_ / "visto.pdf").string();
    if (!std::filesystem::exists(visto)) {
        EXPECT_EQ(apoio::SaidaDe("qpdf --qdf --object-streams=disable " + arquivo_.string() + " " +
                                 visto + " && sed -i s/ActualText/Substituto/ " + visto),
                  "");
    }
    return apoio::SaidaDe(programa + " " + visto + " -");
}

std::vector<Palavra> ArquivoPDF::Palavras(int pagina, std::size_t quantas) const {
    std::istringstream linhas(DitoDoVisto("pdftotext -bbox" + SoAPagina(pagina)));
    std::vector<Palavra> palavras;
    for (std::string linha; std::getline(linhas, linha);) {
        // <word xMin="1" yMin="2" xMax="3" yMax="4">text</word>
        const auto depoisDe = [&](const std::string& marca) {
            return linha.substr(linha.find(marca) + marca.size());
        };
        if (linha.find("<word ") != std::string::npos) {
            const std::string texto = depoisDe("\">");
            palavras.push_back({texto.substr(0, texto.find("</word>")),
                                std::stod(depoisDe("xMin=\"")), std::stod(depoisDe("yMin=\"")),
                                std::stod(depoisDe("xMax=\"")), std::stod(depoisDe("yMax=\""))});
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
    // "P6", the width and the height, the largest value of a byte.
    const std::size_t largura = std::stoul(ppm.substr(3, 8));
    const std::size_t inicio = ppm.find("\n255\n") + 5;
    const auto coluna = static_cast<std::size_t>((Margem + x) * PixelsPorCm);
    const auto linha = static_cast<std::size_t>((Margem + y) * PixelsPorCm);
    const auto byte = [&](std::size_t i) {
        return int{static_cast<unsigned char>(ppm.at(inicio + 3 * (linha * largura + coluna) + i))};
    };
    return {byte(0), byte(1), byte(2)};
}

}  // namespace tarvo
