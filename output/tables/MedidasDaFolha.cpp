// SPDX-License-Identifier: MIT
#include "output/tables/MedidasDaFolha.h"

#include <algorithm>

#include "data/Textos.h"

namespace tarvo {

namespace {

// What a column may hold in a line: of rows, of titles of groups, of headings.
constexpr std::size_t Menor = 8;
constexpr std::size_t Maior = 60;
constexpr std::size_t MaiorDeGrupo = 40;
constexpr std::size_t MaiorDeTitulo = 20;

template <class Ver>
void ParaCadaLinha(std::string_view texto, Ver ver) {
    while (!texto.empty()) {
        const auto fim = std::min(texto.find('\n'), texto.size());
        ver(Caracteres(texto.substr(0, fim)));
        texto.remove_prefix(std::min(fim + 1, texto.size()));
    }
}

std::size_t MaisLonga(std::string_view texto) {
    std::size_t maior = 0;
    ParaCadaLinha(texto, [&](std::size_t linha) { maior = std::max(maior, linha); });
    return maior;
}

bool TituloSozinho(const MedidasDaFolha::Linha& linha) {
    return linha.funcao == FuncaoDaLinha::TituloDeGrupo &&
           std::ranges::count_if(linha.celulas, [](const auto& c) { return !c.texto.empty(); }) < 2;
}

double Pontos(std::size_t linhas) {
    constexpr double DeUmaLinha = 15;
    constexpr double DeUmaFileira = 409;  // the most that a row can have
    return linhas > 1 ? std::min(static_cast<double>(linhas) * DeUmaLinha, DeUmaFileira) : 0;
}

}  // namespace

MedidasDaFolha::MedidasDaFolha(const TabelaDoDocumento& tabela) {
    for (const auto& titulo : tabela.titulos) {
        caracteres_.push_back(std::clamp(MaisLonga(titulo), Menor, MaiorDeTitulo));
    }
    for (const auto& linha : tabela.linhas) {
        if (TituloSozinho(linha)) {
            continue;
        }
        const bool grupo = linha.funcao == FuncaoDaLinha::TituloDeGrupo;
        for (std::size_t i = 0; i < caracteres_.size(); ++i) {
            const auto caracteres = MaisLonga(linha.celulas[i].texto);
            caracteres_[i] =
                std::max(caracteres_[i], std::min(caracteres, grupo ? MaiorDeGrupo : Maior));
        }
    }
}

double MedidasDaFolha::Largura(std::size_t coluna) const {
    constexpr double Folga = 2;
    return static_cast<double>(caracteres_[coluna]) + Folga;
}

bool MedidasDaFolha::Quebra(const Linha& linha, std::size_t coluna) const {
    return !TituloSozinho(linha) && Linhas(linha.celulas[coluna].texto, coluna) > 1;
}

double MedidasDaFolha::Altura(const Linha& linha) const {
    std::size_t linhas = 1;
    for (std::size_t i = 0; i < linha.celulas.size(); ++i) {
        linhas = std::max(linhas, Quebra(linha, i) ? Linhas(linha.celulas[i].texto, i) : 1);
    }
    return Pontos(linhas);
}

double MedidasDaFolha::AlturaDosTitulos(const TabelaDoDocumento& tabela) const {
    std::size_t linhas = 1;
    for (std::size_t i = 0; i < caracteres_.size(); ++i) {
        linhas = std::max(linhas, Linhas(tabela.titulos[i], i));
    }
    return Pontos(linhas);
}

// Words do not fill lines to their end.
std::size_t MedidasDaFolha::Linhas(std::string_view texto, std::size_t coluna) const {
    std::size_t linhas = 0;
    ParaCadaLinha(texto, [&](std::size_t caracteres) {
        const bool cabe = caracteres <= caracteres_[coluna];
        linhas += cabe ? 1 : caracteres * 5 / (caracteres_[coluna] * 4) + 1;
    });
    return linhas;
}

}  // namespace tarvo
