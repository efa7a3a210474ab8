// SPDX-License-Identifier: MIT
#include "tests/support/Esboco.h"

#include <array>

#include "document/Imagens.h"

namespace tarvo::apoio {

namespace {

constexpr std::array<const char*, 5> Funcoes{"Titulos", "Dados", "Grupo", "Subtotal", "Total"};

class Esbocador {
  public:
    explicit Esbocador(const Conteudo& conteudo)
        : elementos_(conteudo.estrutura.elementos),
          filhos_(elementos_.size()),
          textos_(elementos_.size()) {
        for (std::uint32_t i = 1; i < elementos_.size(); ++i) {
            filhos_[elementos_[i].pai].push_back(i);
        }
        for (std::size_t p = 0; p < conteudo.paginas.size(); ++p) {
            for (std::size_t i = 0; i < conteudo.paginas[p].size(); ++i) {
                if (const auto dono = conteudo.estrutura.donos[p][i]; dono < textos_.size()) {
                    Juntar(textos_[dono], Dito(conteudo.paginas[p][i]), " ");
                }
            }
        }
        Descer(Estrutura::Raiz);
    }

    std::vector<std::string> linhas;

  private:
    static std::string Dito(const Primitiva& primitiva) {
        if (const auto* figura = std::get_if<Figura>(&primitiva)) {
            return "[" + std::string(figura->imagem->descricao) + "]";
        }
        const auto* texto = std::get_if<Texto>(&primitiva);
        return texto != nullptr ? texto->texto : "";
    }

    static void Juntar(std::string& texto, const std::string& outro, const char* entre) {
        if (outro.find_first_not_of(' ') != std::string::npos) {
            texto.append(texto.empty() ? "" : entre).append(outro);
        }
    }

    std::string ComFilhos(std::uint32_t e) {
        std::string texto = textos_[e];
        for (const auto filho : filhos_[e]) {
            Juntar(texto, textos_[filho], ": ");
        }
        return texto;
    }

    std::string Linha(std::uint32_t e) {
        std::string linha = Funcoes[static_cast<std::size_t>(elementos_[e].funcao)];
        for (const auto filho : filhos_[e]) {
            const Elemento& celula = elementos_[filho];
            linha += " |";
            if (celula.colunas > 1 || celula.linhas > 1) {
                linha += std::to_string(celula.colunas) + "x" + std::to_string(celula.linhas);
            }
            const char* estrela = celula.tipo == TipoElemento::CelulaDeTitulo ? "*" : "";
            linha += " " + (estrela + ComFilhos(filho)) + estrela;
        }
        return linha;
    }

    void Descer(std::uint32_t e) {
        switch (elementos_[e].tipo) {
            case TipoElemento::Documento:
            case TipoElemento::Tabela:
                for (const auto filho : filhos_[e]) {
                    Descer(filho);
                }
                break;
            case TipoElemento::LinhaDeTabela:
                linhas.push_back(Linha(e));
                break;
            case TipoElemento::Titulo:
                linhas.push_back("# " + textos_[e]);
                break;
            case TipoElemento::Secao:
                linhas.push_back("## " + textos_[e]);
                break;
            default:
                linhas.push_back(ComFilhos(e));
        }
    }

    const std::vector<Elemento>& elementos_;
    std::vector<std::vector<std::uint32_t>> filhos_;
    std::vector<std::string> textos_;
};

}  // namespace

std::vector<std::string> Esboco(const Conteudo& conteudo) {
    return Esbocador(conteudo).linhas;
}

}  // namespace tarvo::apoio
