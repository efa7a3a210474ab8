#include "tests/pdf/ApoioPDF.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace tarvo {

namespace {

constexpr int PontosDeImagemPorCm = 100;

double Atributo(const std::string& linha, const std::string& nome) {
    const auto inicio = linha.find(nome + "=\"");
    return inicio == std::string::npos ? -1 : std::stod(linha.substr(inicio + nome.size() + 2));
}

}  // namespace

Saida Executar(const std::string& comando) {
    FILE* const cano = ::popen(comando.c_str(), "r");
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

Conteudo Documento(const std::function<void(DocumentoRelatorio&)>& desenhar) {
    DocumentoRelatorio doc;
    doc.Iniciar();
    doc.DefinirTitulo("Relatório de Teste");
    doc.DefinirMargens(Margem, Margem, Margem, Margem);
    desenhar(doc);
    return doc.Registrado();
}

void Escrever(DocumentoRelatorio& doc, const Caixa& c, std::string_view texto, const Escrita& e) {
    const auto escrever = e.multilinha ? &DocumentoRelatorio::EscreverTextoMultilinha
                                       : &DocumentoRelatorio::EscreverTexto;
    (doc.*escrever)(c.x, c.y, c.largura, c.altura, texto, e.horizontal, e.vertical, e.fonte,
                    e.tamanho, false, false, false, e.cor);
}

ArquivoPDF::ArquivoPDF(const Conteudo& conteudo) : arquivo_(pasta_ / "teste.pdf") {
    resultado_ = GravarPDF(conteudo, arquivo_);
}

ArquivoPDF::ArquivoPDF(std::span<const SecaoPDF> secoes) : arquivo_(pasta_ / "teste.pdf") {
    resultado_ = GravarPDF(secoes, arquivo_);
}

std::string ArquivoPDF::Texto(int pagina) const {
    const std::string n = std::to_string(pagina);
    return Executar("pdftotext -layout -f " + n + " -l " + n + " " + Nome() + " -").texto;
}

std::vector<Palavra> ArquivoPDF::Palavras(int pagina) const {
    const std::string n = std::to_string(pagina);
    std::istringstream linhas(
        Executar("pdftotext -bbox -f " + n + " -l " + n + " " + Nome() + " -").texto);
    std::vector<Palavra> palavras;
    for (std::string linha; std::getline(linhas, linha);) {
        const auto inicio = linha.find("\">");
        if (linha.find("<word ") != std::string::npos && inicio != std::string::npos) {
            palavras.push_back({linha.substr(inicio + 2, linha.find("</word>") - inicio - 2),
                                Atributo(linha, "xMin"), Atributo(linha, "yMin"),
                                Atributo(linha, "xMax"), Atributo(linha, "yMax")});
        }
    }
    return palavras;
}

const nlohmann::json& ArquivoPDF::Objetos() const {
    if (objetos_.is_null()) {
        objetos_ = nlohmann::json::parse(Executar("qpdf --json " + Nome()).texto)["qpdf"][1];
    }
    return objetos_;
}

nlohmann::json ArquivoPDF::Catalogo() const {
    const std::string raiz = Objetos()["trailer"]["value"]["/Root"];
    return Objetos()["obj:" + raiz]["value"];
}

const std::string& ArquivoPDF::Pontos(int pagina) const {
    auto& pontos = pontos_[pagina];
    if (pontos.empty()) {
        const std::string n = std::to_string(pagina);
        pontos = Executar("pdftoppm -r 254 -f " + n + " -l " + n + " " + Nome()).texto;
    }
    return pontos;
}

CorRGB ArquivoPDF::Cor(int pagina, double x, double y) const {
    const std::string& ppm = Pontos(pagina);
    std::istringstream cabecalho(ppm.substr(0, 64));
    std::string formato;
    std::size_t largura = 0;
    std::size_t altura = 0;
    int maximo = 0;
    cabecalho >> formato >> largura >> altura >> maximo;
    const auto inicio = static_cast<std::size_t>(cabecalho.tellg()) + 1;
    const auto coluna = static_cast<std::size_t>((Margem + x) * PontosDeImagemPorCm);
    const auto linha = static_cast<std::size_t>((Margem + y) * PontosDeImagemPorCm);
    const auto byte = [&](std::size_t i) {
        return static_cast<int>(
            static_cast<unsigned char>(ppm.at(inicio + 3 * (linha * largura + coluna) + i)));
    };
    return {byte(0), byte(1), byte(2)};
}

Ambiental::Ambiental(const char* nome, const char* valor) : nome_(nome) {
    ::setenv(nome, valor, 1);
}

Ambiental::~Ambiental() {
    ::unsetenv(nome_);
}

}  // namespace tarvo
