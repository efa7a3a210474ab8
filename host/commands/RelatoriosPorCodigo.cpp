// SPDX-License-Identifier: MIT
#include "host/commands/RelatoriosPorCodigo.h"

#include <algorithm>

#include "data/Procura.h"
#include "data/Textos.h"
#include "dispatch/Catalogo.h"
#include "dispatch/Relatorios.h"
#include "slip/RelatorioVELO.h"

namespace tarvo::host {

namespace {

constexpr std::string_view ClasseVELO = "RelatorioVELO";

// nullptr for the slip and for what is no code.
const EntradaCatalogo* Procurar(std::string_view codigo) {
    return Achar(Catalogo(), codigo, &EntradaCatalogo::codigo);
}

std::string EmMaiusculas(std::string_view texto) {
    std::string maiusculas(texto);
    std::ranges::transform(maiusculas, maiusculas.begin(), [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    });
    return maiusculas;
}

}  // namespace

std::vector<std::string> LerCodigos(std::string_view lista) {
    std::vector<std::string> codigos;
    for (std::size_t inicio = 0; inicio <= lista.size();) {
        const std::size_t virgula = std::min(lista.find(',', inicio), lista.size());
        const std::string digitado(SemBrancos(lista.substr(inicio, virgula - inicio)));
        const std::string codigo = EmMaiusculas(digitado);
        if (!Contem(codigos, codigo)) {
            codigos.push_back(codigo == "TODOS" || ExisteCodigo(codigo) ? codigo : digitado);
        }
        inicio = virgula + 1;
    }
    return codigos;
}

bool ExisteCodigo(std::string_view codigo) {
    return codigo == CodigoVELO || Procurar(codigo) != nullptr;
}

std::vector<std::string> CodigosOferecidos(BancoDados& banco, std::int32_t NumeroDRQ) {
    const int ano = Relatorios::Referencia(banco, NumeroDRQ).Ano();
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

DocumentoDeSaida DocumentoDe(const Relatorio& relatorio) {
    const Conteudo& conteudo = relatorio.Documento();
    return {relatorio.Identidade().classe, &conteudo, conteudo.titulo};
}

std::string NomeDoArquivo(std::string_view codigo) {
    const EntradaCatalogo* entrada = Procurar(codigo);
    return std::string(codigo).append("-").append(entrada != nullptr ? entrada->classe
                                                                     : ClasseVELO);
}

}  // namespace tarvo::host
