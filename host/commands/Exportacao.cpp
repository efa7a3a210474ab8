#include "host/commands/Exportacao.h"

#include <algorithm>
#include <cctype>

#include "dispatch/Catalogo.h"
#include "dispatch/Relatorios.h"
#include "slip/RelatorioVELO.h"

namespace tarvo::host {

namespace {

constexpr std::string_view ClasseVELO = "RelatorioVELO";

const EntradaCatalogo* Procurar(std::string_view codigo) {
    for (const auto& entrada : Catalogo()) {
        if (entrada.codigo == codigo) {
            return &entrada;
        }
    }
    return nullptr;
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
    const int ano = Relatorios::AnoDaReferencia(banco, NumeroDRQ);
    std::vector<std::string> codigos;
    for (const auto& entrada : Catalogo()) {
        if (entrada.desde <= ano) {
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

std::string NomeDoArquivo(std::string_view codigo) {
    const EntradaCatalogo* entrada = Procurar(codigo);
    return std::string(codigo).append("-").append(entrada != nullptr ? entrada->classe
                                                                     : ClasseVELO);
}

DocumentoDeSaida DocumentoDe(const Relatorio& relatorio) {
    const Conteudo& conteudo = relatorio.Documento();
    return {relatorio.Identidade().classe, &conteudo, conteudo.titulo};
}

ResultadoDaSaida GravarRelatorio(std::string_view codigo, const Relatorio& relatorio,
                                 const SaidaEmArquivos& saida) {
    const DocumentoDeSaida documento = DocumentoDe(relatorio);
    return Gravar({&documento, 1}, *saida.formato, saida.pasta, NomeDoArquivo(codigo),
                  saida.opcoes);
}

}  // namespace tarvo::host
