// SPDX-License-Identifier: MIT
#include "output/tables/TabelasCSV.h"

#include <algorithm>
#include <ostream>
#include <string_view>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"

namespace tarvo {

namespace {

using Celula = TabelaDoDocumento::Celula;

constexpr std::string_view FimDaLinha = "\r\n";

// Spreadsheets take these, also the wide forms and after blanks, for the beginning of a formula.
bool ComecaFormula(std::string_view texto) {
    texto.remove_prefix(std::min(texto.find_first_not_of(" \n"), texto.size()));
    static constexpr std::string_view Sinais[] = {"=", "+", "-", "@", "＝", "＋", "－", "＠"};
    return std::ranges::any_of(Sinais, [&](auto sinal) { return texto.starts_with(sinal); });
}

std::string Escrita(const Celula& celula) {
    std::string texto = celula.texto;
    if (celula.Quantia()) {
        std::erase(texto, '.');
    } else if (ComecaFormula(texto) && !Celula{texto, Natureza::Quantia}.Quantia()) {
        texto.insert(0, "'");
    }
    return texto;
}

class Escritor {
  public:
    Escritor(std::ostream& saida, char separador) : saida_(saida), separador_(separador) {}

    template <class Celulas>
    void Linha(const Celulas& celulas) {
        bool primeira = true;
        for (const auto& celula : celulas) {
            if (!primeira) {
                saida_ << separador_;
            }
            primeira = false;
            Campo(Escrita(celula), celulas.size() == 1);
        }
        saida_ << FimDaLinha;
    }

  private:
    // An empty line stands between tables: a row of one empty cell is none.
    void Campo(const std::string& texto, bool unico) {
        const bool entreAspas = texto.find_first_of("\"\n") != std::string::npos ||
                                texto.find(separador_) != std::string::npos;
        if (entreAspas || (unico && texto.empty())) {
            saida_ << EntreAspas(texto, '"');
        } else {
            saida_ << texto;
        }
    }

    std::ostream& saida_;
    char separador_;
};

}  // namespace

void EscreverCSV(std::span<const TabelaDoDocumento> tabelas, std::ostream& saida,
                 const FormaDoCSV& forma) {
    Escritor escritor(saida, forma.separador);
    std::string_view antes = forma.marca ? "\uFEFF" : "";
    for (const auto& tabela : tabelas) {
        saida << antes;
        antes = FimDaLinha;
        if (tabela.TemTitulos()) {
            std::vector<Celula> titulos;
            for (const auto& titulo : tabela.titulos) {
                titulos.push_back({titulo});
            }
            escritor.Linha(titulos);
        }
        for (const auto& linha : tabela.linhas) {
            escritor.Linha(linha.celulas);
        }
    }
    if (tabelas.empty()) {
        saida << antes;
    }
    if (!saida.flush()) {
        throw Erro(NumeroErro::ErroDispositivo, "A gravação das tabelas em CSV falhou.");
    }
}

}  // namespace tarvo
