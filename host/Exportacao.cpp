#include "host/Exportacao.h"

#include <algorithm>
#include <cctype>
#include <sstream>

#include "dispatch/Catalogo.h"
#include "dispatch/Relatorios.h"
#include "platform/arquivo/Arquivos.h"
#include "platform/json/DocumentoJSON.h"
#include "platform/png/PaginasPNG.h"
#include "slip/RelatorioVELO.h"

namespace tarvo::host {

namespace {

const EntradaCatalogo* Procurar(std::string_view codigo) {
    for (const auto& entrada : Catalogo()) {
        if (entrada.codigo == codigo) {
            return &entrada;
        }
    }
    return nullptr;
}

std::string EmMaiusculas(std::string_view texto) {
    std::string maiusculas(texto);
    std::transform(maiusculas.begin(), maiusculas.end(), maiusculas.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return maiusculas;
}

// PNG pages that an earlier, longer document left.
void RemoverPaginasAlem(const std::filesystem::path& pasta, const std::string& nome,
                        std::size_t paginas) {
    const std::string prefixo = nome + "-";
    for (const auto& item : std::filesystem::directory_iterator(pasta)) {
        const std::string arquivo = item.path().filename().string();
        if (arquivo.starts_with(prefixo) && arquivo.ends_with(".png") &&
            std::strtoull(arquivo.c_str() + prefixo.size(), nullptr, 10) > paginas) {
            std::filesystem::remove(item.path());
        }
    }
}

}  // namespace

std::vector<std::string> LerListaDeCodigos(std::string_view lista) {
    std::vector<std::string> codigos;
    while (!lista.empty()) {
        const auto virgula = std::min(lista.find(','), lista.size());
        const std::string codigo = EmMaiusculas(lista.substr(0, virgula));
        lista.remove_prefix(std::min(virgula + 1, lista.size()));
        if (codigo != CodigoVELO && Procurar(codigo) == nullptr) {
            return {};
        }
        if (std::find(codigos.begin(), codigos.end(), codigo) == codigos.end()) {
            codigos.push_back(codigo);
        }
    }
    return codigos;
}

std::vector<std::string> CodigosOferecidos(BancoDados& banco, std::int32_t NumeroDRQ) {
    const bool desde2002 = Relatorios::ReferenciaDesde2002(banco, NumeroDRQ);
    std::vector<std::string> codigos;
    for (const auto& entrada : Catalogo()) {
        if (desde2002 || &entrada != &Catalogo()[EntradaDesde2002]) {
            codigos.emplace_back(entrada.codigo);
        }
    }
    return codigos;
}

std::unique_ptr<Relatorio> ConstruirRelatorio(std::string_view codigo, BancoDados& banco,
                                              const Alvo& alvo, const Ambiente& ambiente) {
    if (codigo == CodigoVELO) {
        auto guia = std::make_unique<RelatorioVELO>(ambiente);
        guia->Construir(banco);
        return guia;
    }
    auto relatorio = Procurar(codigo)->criar(ambiente);
    relatorio->Construir(banco, alvo.IE, alvo.NumeroDRQ);
    return relatorio;
}

std::optional<Formato> LerFormato(std::string_view nome) {
    for (const Formato formato : {Formato::PDF, Formato::PNG, Formato::JSON}) {
        if (EmMaiusculas(nome) == EmMaiusculas(Extensao(formato))) {
            return formato;
        }
    }
    return std::nullopt;
}

std::string_view Extensao(Formato formato) {
    switch (formato) {
        case Formato::PDF:
            return "pdf";
        case Formato::PNG:
            return "png";
        case Formato::JSON:
            return "json";
    }
    return "";
}

std::string NomeDoArquivo(std::string_view codigo) {
    const std::string_view classe = codigo == CodigoVELO
                                        ? RelatorioVELO().Identidade().classe
                                        : Procurar(codigo)->criar({})->Identidade().classe;
    return std::string(codigo) + "-" + std::string(classe);
}

ResultadoPDF Gravar(std::string_view codigo, const Relatorio& relatorio, const Destino& destino) {
    CriarPasta(destino.pasta);
    const Conteudo& conteudo = relatorio.Documento();
    const std::string nome = NomeDoArquivo(codigo);
    switch (destino.formato) {
        case Formato::PDF:
            return GravarPDF(conteudo, destino.pasta / (nome + ".pdf"));
        case Formato::PNG: {
            std::string pdf;
            ResultadoPDF resultado = RenderizarPDF(conteudo, pdf);
            RemoverPaginasAlem(destino.pasta, nome,
                               GravarPNG(pdf, destino.pasta, nome, destino.dpi).size());
            return resultado;
        }
        case Formato::JSON: {
            std::ostringstream json;
            EscreverJSON(relatorio.Identidade().classe, conteudo, json);
            GravarArquivo(destino.pasta / (nome + ".json"), json.str());
            return {.paginas = conteudo.paginas.size(), .cortados = {}};
        }
    }
    return {};
}

}  // namespace tarvo::host
