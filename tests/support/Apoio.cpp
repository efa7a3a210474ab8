// SPDX-License-Identifier: MIT
#include "tests/support/Apoio.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "data/LeitoresDeCampo.h"

namespace tarvo::apoio {

PastaTemporaria::PastaTemporaria() {
    std::string modelo = (std::filesystem::temp_directory_path() / "tarvo-XXXXXX").string();
    if (mkdtemp(modelo.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    caminho_ = modelo;
}

PastaTemporaria::~PastaTemporaria() {
    std::error_code ignorado;
    std::filesystem::remove_all(caminho_, ignorado);
}

std::string BytesDe(const std::filesystem::path& arquivo) {
    std::ifstream leitura(arquivo, std::ios::binary);
    return {std::istreambuf_iterator<char>(leitura), {}};
}

std::string SaidaDe(const std::string& comando) {
    FILE* const cano = popen(("{ " + comando + "; } 2>&1").c_str(), "r");
    std::string saida;
    std::array<char, 4096> bloco{};
    while (const auto lidos = fread(bloco.data(), 1, bloco.size(), cano)) {
        saida.append(bloco.data(), lidos);
    }
    EXPECT_EQ(pclose(cano), 0) << comando << "\n" << saida;
    return saida;
}

BancoDeTeste::BancoDeTeste(std::string_view script) {
    CriarBanco(Arquivo(), script);
    banco_ = BancoSQLite::Abrir(Arquivo());
}

std::vector<std::string> Linhas(BancoDados& banco, std::string_view consulta, int colunas) {
    std::vector<std::string> linhas;
    const auto rs = banco.OpenRecordset(consulta, TipoRecordset::ForwardOnly);
    for (; !rs->EOF_(); rs->MoveNext()) {
        std::string linha;
        for (int i = 0; i < colunas; ++i) {
            const Valor valor = rs->Fields(i);
            linha += (i == 0 ? "" : "|") + (EhNulo(valor) ? "(nulo)" : TextoCampo(valor));
        }
        linhas.push_back(linha);
    }
    return linhas;
}

std::vector<std::string> Textos(const Conteudo& conteudo, std::size_t pagina) {
    std::vector<std::string> textos;
    for (const Primitiva& primitiva : conteudo.paginas.at(pagina)) {
        if (const auto* texto = std::get_if<Texto>(&primitiva)) {
            textos.push_back(texto->texto);
        }
    }
    return textos;
}

std::string ConfiguracaoFixa::Ler(std::string_view aplicacao, std::string_view secao,
                                  std::string_view chave, std::string_view padrao) const {
    const bool conhecida = aplicacao == "Tarvo" && secao == "pRef" && chave == "RefAtual";
    return conhecida ? refAtual_ : std::string(padrao);
}

namespace {

class VisualizadorAnotado : public Visualizador {
  public:
    explicit VisualizadorAnotado(std::vector<std::string>& diario) : diario_(diario) {}
    ~VisualizadorAnotado() override { diario_.push_back("Fechar" + titulo_); }
    void Exibir(const Conteudo& conteudo) override { Anotar("Exibir", conteudo); }
    void Ocultar() override { diario_.push_back("Ocultar" + titulo_); }
    void Imprimir(const Conteudo& conteudo, bool perguntar) override {
        Anotar("Imprimir", conteudo);
        diario_.back() += perguntar ? " perguntando" : "";
    }

  private:
    void Anotar(const char* pedido, const Conteudo& conteudo) {
        titulo_ = " " + conteudo.titulo;
        diario_.push_back(pedido + titulo_);
    }
    std::vector<std::string>& diario_;
    std::string titulo_;
};

}  // namespace

std::unique_ptr<Visualizador> VisualizadoresAnotados::Criar() {
    return std::make_unique<VisualizadorAnotado>(diario_);
}

}  // namespace tarvo::apoio
