// SPDX-License-Identifier: MIT
#include "output/FormatoDeSaida.h"

#include <algorithm>
#include <sstream>

#include "data/Textos.h"
#include "output/json/DocumentoJSON.h"
#include "output/png/PaginasPNG.h"
#include "output/tables/PlanilhaXLSX.h"
#include "output/tables/TabelasCSV.h"
#include "system/files/GravacaoSegura.h"

namespace tarvo {

namespace {

ResultadoDaSaida EscreverComoPDF(std::span<const DocumentoDeSaida> documentos,
                                 const OpcoesDeSaida& opcoes, const DestinoPDF& destino) {
    std::vector<SecaoPDF> secoes;
    for (const auto& documento : documentos) {
        secoes.push_back({documento.conteudo, documento.marcador});
    }
    ResultadoPDF pdf = RenderizarPDF(secoes, destino, opcoes.pdf);
    return {.arquivos = {}, .paginas = pdf.paginas, .cortados = std::move(pdf.cortados)};
}

// What a format writes to a stream.
template <class Escrever>
ResultadoDaSaida PorFluxo(std::span<const DocumentoDeSaida> documentos, const DestinoPDF& destino,
                          Escrever escrever) {
    std::ostringstream fluxo;
    escrever(fluxo);
    destino(fluxo.view());
    ResultadoDaSaida resultado;
    for (const auto& documento : documentos) {
        resultado.paginas += documento.conteudo->paginas.size();
    }
    return resultado;
}

ResultadoDaSaida EscreverComoJSON(std::span<const DocumentoDeSaida> documentos,
                                  const OpcoesDeSaida& /*opcoes*/, const DestinoPDF& destino) {
    const auto& documento = documentos.front();
    return PorFluxo(documentos, destino, [&](std::ostream& json) {
        EscreverJSON(documento.classe, *documento.conteudo, json);
    });
}

ResultadoDaSaida EscreverComoCSV(std::span<const DocumentoDeSaida> documentos,
                                 const OpcoesDeSaida& /*opcoes*/, const DestinoPDF& destino) {
    return PorFluxo(documentos, destino, [&](std::ostream& csv) {
        EscreverCSV(TabelasDoDocumento(*documentos.front().conteudo), csv);
    });
}

ResultadoDaSaida EscreverComoXLSX(std::span<const DocumentoDeSaida> documentos,
                                  const OpcoesDeSaida& /*opcoes*/, const DestinoPDF& destino) {
    std::vector<SecaoDaPlanilha> secoes;
    for (const auto& documento : documentos) {
        secoes.push_back({.nome = documentos.size() > 1 ? documento.folha : "",
                          .tabelas = TabelasDoDocumento(*documento.conteudo)});
    }
    return PorFluxo(documentos, destino, [&](std::ostream& xlsx) { EscreverXLSX(secoes, xlsx); });
}

constexpr FormatoDeSaida Formatos[] = {
    {.nome = "pdf", .reune = true, .comEstrutura = true, .escrever = EscreverComoPDF},
    {.nome = "png", .descricao = "um arquivo por página"},
    {.nome = "csv", .escrever = EscreverComoCSV},
    {.nome = "xlsx", .reune = true, .escrever = EscreverComoXLSX},
    {.nome = "json", .escrever = EscreverComoJSON},
};

ResultadoDaSaida GravarPaginas(std::span<const DocumentoDeSaida> documentos,
                               const std::filesystem::path& pasta, std::string_view nome,
                               const OpcoesDeSaida& opcoes) {
    std::string pdf;
    auto resultado = EscreverComoPDF(documentos, {.pdf = {.semEstrutura = true, .dpi = opcoes.dpi}},
                                     [&](std::string_view bytes) { pdf += bytes; });
    resultado.arquivos = GravarPNG(pdf, pasta, nome, opcoes.dpi, opcoes.pastaDeEspera);
    return resultado;
}

ResultadoDaSaida GravarUmArquivo(std::span<const DocumentoDeSaida> documentos,
                                 const FormatoDeSaida& formato,
                                 const std::filesystem::path& arquivo,
                                 const OpcoesDeSaida& opcoes) {
    GravacaoSegura gravacao(arquivo, opcoes.pastaDeEspera);
    std::uintmax_t tamanho = 0;
    auto resultado = formato.escrever(documentos, opcoes, [&](std::string_view bytes) {
        gravacao.Escrever(bytes);
        tamanho += bytes.size();
    });
    if (opcoes.espera == Espera::PeloDisco) {
        gravacao.Confirmar();
    } else {
        gravacao.ConfirmarSemEsperar();
    }
    resultado.arquivos = {{.caminho = arquivo, .bytes = tamanho}};
    return resultado;
}

}  // namespace

std::span<const FormatoDeSaida> FormatosDeSaida() {
    return Formatos;
}

const FormatoDeSaida* ProcurarFormato(std::string_view nome) {
    const auto* const achado = std::ranges::find_if(Formatos, [&](const FormatoDeSaida& formato) {
        return std::ranges::equal(formato.nome, nome, {}, {}, Minuscula);
    });
    return achado != std::end(Formatos) ? achado : nullptr;
}

std::string OpcoesQueContam(const FormatoDeSaida& formato, const OpcoesDeSaida& opcoes) {
    if (formato.escrever == nullptr) {
        return std::to_string(opcoes.dpi) + " dpi";
    }
    return formato.comEstrutura && !opcoes.pdf.semEstrutura ? "com estrutura" : "";
}

std::string ListaDeFormatos() {
    std::string lista;
    for (const auto& formato : Formatos) {
        const bool ultimo = &formato == std::end(Formatos) - 1;
        lista += lista.empty() ? "" : ultimo ? " ou " : ", ";
        lista += formato.nome;
        if (!formato.descricao.empty()) {
            lista.append(" (").append(formato.descricao).append(")");
        }
    }
    return lista;
}

std::vector<std::string> NomesDosArquivos(const FormatoDeSaida& formato, std::string_view nome,
                                          std::size_t paginas) {
    if (formato.escrever != nullptr) {
        return {std::string(nome).append(".").append(formato.nome)};
    }
    std::vector<std::string> nomes;
    for (std::size_t pagina = 1; pagina <= paginas; ++pagina) {
        nomes.push_back(NomeDaPaginaPNG(nome, pagina));
    }
    return nomes;
}

ResultadoDaSaida Gravar(std::span<const DocumentoDeSaida> documentos, const FormatoDeSaida& formato,
                        const std::filesystem::path& pasta, std::string_view nome,
                        const OpcoesDeSaida& opcoes) {
    CriarPasta(pasta);
    return formato.escrever == nullptr
               ? GravarPaginas(documentos, pasta, nome, opcoes)
               : GravarUmArquivo(documentos, formato,
                                 pasta / NomesDosArquivos(formato, nome, 1).front(), opcoes);
}

}  // namespace tarvo
