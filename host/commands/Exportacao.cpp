#include "host/commands/Exportacao.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>

#include "dispatch/Catalogo.h"
#include "dispatch/Relatorios.h"
#include "output/json/DocumentoJSON.h"
#include "output/png/PaginasPNG.h"
#include "slip/RelatorioVELO.h"
#include "system/files/Arquivos.h"
#include "system/files/GravacaoSegura.h"

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

void Confirmar(GravacaoSegura& gravacao, Espera espera) {
    if (espera == Espera::PeloDisco) {
        gravacao.Confirmar();
    } else {
        gravacao.ConfirmarSemEsperar();
    }
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

std::string EmMaiusculas(std::string_view texto) {
    std::string maiusculas(texto);
    std::transform(maiusculas.begin(), maiusculas.end(), maiusculas.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return maiusculas;
}

std::vector<std::string> SepararCodigos(std::string_view lista) {
    std::vector<std::string> codigos;
    for (std::size_t inicio = 0; inicio <= lista.size();) {
        const std::size_t virgula = std::min(lista.find(',', inicio), lista.size());
        const std::string codigo = EmMaiusculas(lista.substr(inicio, virgula - inicio));
        if (std::find(codigos.begin(), codigos.end(), codigo) == codigos.end()) {
            codigos.push_back(codigo);
        }
        inicio = virgula + 1;
    }
    return codigos;
}

bool ExisteCodigo(std::string_view codigo) {
    return codigo == CodigoVELO || Procurar(codigo) != nullptr;
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
    static const auto nomes = [] {
        std::map<std::string, std::string, std::less<>> lista;
        const auto acrescentar = [&](std::string_view um, const Relatorio& relatorio) {
            lista[std::string(um)] =
                std::string(um) + "-" + std::string(relatorio.Identidade().classe);
        };
        for (const auto& entrada : Catalogo()) {
            acrescentar(entrada.codigo, *entrada.criar({}));
        }
        acrescentar(CodigoVELO, RelatorioVELO());
        return lista;
    }();
    return nomes.find(codigo)->second;
}

ResultadoPDF GravarSecoes(std::span<const SecaoPDF> secoes, const std::filesystem::path& arquivo,
                          Espera espera) {
    GravacaoSegura gravacao(arquivo);
    ResultadoPDF resultado =
        RenderizarPDF(secoes, [&](std::string_view bytes) { gravacao.Escrever(bytes); });
    Confirmar(gravacao, espera);
    return resultado;
}

ResultadoPDF Gravar(std::string_view codigo, const Relatorio& relatorio, const Destino& destino) {
    CriarPasta(destino.pasta);
    const Conteudo& conteudo = relatorio.Documento();
    const std::string nome = NomeDoArquivo(codigo);
    switch (destino.formato) {
        case Formato::PDF: {
            const SecaoPDF secao{.conteudo = &conteudo, .marcador = conteudo.titulo};
            return GravarSecoes({&secao, 1}, destino.pasta / (nome + ".pdf"), destino.espera);
        }
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
            GravacaoSegura gravacao(destino.pasta / (nome + ".json"));
            gravacao.Escrever(json.view());
            Confirmar(gravacao, destino.espera);
            return {.paginas = conteudo.paginas.size(), .cortados = {}};
        }
    }
    return {};
}

}  // namespace tarvo::host
