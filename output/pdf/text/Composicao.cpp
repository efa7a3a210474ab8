// SPDX-License-Identifier: MIT
#include "output/pdf/text/Composicao.h"

#include <algorithm>
#include <cstdint>

namespace tarvo::pdf {

namespace {

// Rounding of lengths must not make a text that fits exactly look too long.
constexpr Centesimos Folga = 2;
// Longer than any word of the language: such a thing is broken rather than the block set smaller.
constexpr std::size_t MaiorPalavra = 30;
constexpr int PassoReducao = 200;  // hundredths of a per cent
// A block is not set smaller than can be read.
constexpr Centesimos MenorCorpoDeBloco = 450;

Centesimos Reduzir(Centesimos tamanho, int escala) {
    return static_cast<Centesimos>(static_cast<std::int64_t>(tamanho) * escala / CemPorCento);
}

// Width of a box in thousandths of a font size.
int Limite(Centesimos largura, Centesimos corpo, int condensacao) {
    const auto milesimos = (static_cast<std::int64_t>(largura) + Folga) * 1000 * CemPorCento /
                           (static_cast<std::int64_t>(std::max(corpo, 1)) * condensacao);
    return static_cast<int>(std::clamp<std::int64_t>(milesimos, 0, 100'000'000));
}

// What so many lines need at least: the first one's capitals, the last one's descenders.
std::int64_t AlturaDe(const Fonte& fonte, std::size_t linhas, Centesimos corpo) {
    const auto& m = fonte.Metricas();
    const auto milesimos =
        static_cast<std::int64_t>(linhas - 1) * m.AlturaLinha() + m.AlturaMinima();
    return milesimos * corpo / 1000;
}

struct Parte {
    std::size_t inicio = 0;
    std::size_t fim = 0;
};

struct Quebra {
    std::vector<Parte> linhas;
    bool partiuPalavra = false;
};

// Breaks a text into lines, one after the other and no more than are wanted, so that the time is
// that of what is seen and not of what is there.
class Quebrador {
  public:
    Quebrador(const Regua& regua, int limite) : regua_(regua), limite_(limite) {}

    Quebra Quebrar(std::size_t maximo) {
        const auto texto = regua_.Texto();
        for (std::size_t inicio = 0; inicio <= texto.size() && quebra_.linhas.size() < maximo;) {
            const auto fim = std::min(texto.find(U'\n', inicio), texto.size());
            QuebrarParagrafo({inicio, fim}, maximo);
            inicio = fim + 1;
        }
        return std::move(quebra_);
    }

  private:
    // One paragraph into lines, at blanks; those at a line's end vanish.
    void QuebrarParagrafo(Parte paragrafo, std::size_t maximo) {
        const auto texto = regua_.Texto().substr(0, paragrafo.fim);
        bool vazio = true;
        while (quebra_.linhas.size() < maximo &&
               texto.find_first_not_of(U' ', paragrafo.inicio) != std::u32string_view::npos) {
            const auto fim = FimDaLinha(paragrafo);
            quebra_.linhas.push_back({paragrafo.inicio, fim});
            paragrafo.inicio = std::min(texto.find_first_not_of(U' ', fim), texto.size());
            vazio = false;
        }
        if (vazio) {
            quebra_.linhas.push_back({paragrafo.inicio, paragrafo.inicio});
        }
    }

    // The end of the line that begins at inicio: as many words as fit, or as much as fits of the
    // first.
    std::size_t FimDaLinha(Parte paragrafo) {
        const auto texto = regua_.Texto().substr(0, paragrafo.fim);
        std::size_t fim = paragrafo.inicio;
        for (;;) {
            const auto palavra = texto.find_first_not_of(U' ', fim);
            if (palavra == std::u32string_view::npos) {
                return fim;
            }
            // A word that goes on over several lines is not looked through again for each.
            if (palavra >= fimPalavra_) {
                fimPalavra_ = std::min(texto.find(U' ', palavra), texto.size());
            }
            if (regua_.Largura(paragrafo.inicio, fimPalavra_) > limite_) {
                if (fim > paragrafo.inicio) {
                    return fim;
                }
                quebra_.partiuPalavra =
                    quebra_.partiuPalavra || fimPalavra_ - palavra <= MaiorPalavra;
                return regua_.OndeCabe(paragrafo.inicio, fimPalavra_, limite_);
            }
            fim = fimPalavra_;
        }
    }

    const Regua& regua_;
    int limite_;
    Quebra quebra_;
    std::size_t fimPalavra_ = 0;  // of the word looked at last
};

}  // namespace

Centesimos CorpoParaAltura(const Fonte& fonte, Centesimos tamanho, Centesimos altura,
                           bool& cortado) {
    const auto minima = AlturaDe(fonte, 1, tamanho);
    const Centesimos disponivel = std::max(altura, 0);
    if (minima <= disponivel + Folga) {
        return tamanho;
    }
    const auto menor = Reduzir(tamanho, MenorCondensacao);
    const auto cabe =
        static_cast<Centesimos>(static_cast<std::int64_t>(tamanho) * disponivel / minima);
    cortado = cortado || cabe < menor;
    return std::max(cabe, menor);
}

TextoComposto ComporLinha(Fonte& fonte, std::u32string_view linha, Centesimos tamanho,
                          Centesimos largura, Centesimos altura) {
    TextoComposto composto;
    std::u32string texto(linha);
    std::replace(texto.begin(), texto.end(), U'\n', U' ');
    const Regua regua(fonte, texto);
    composto.cortado = regua.FaltaCaractere();
    composto.corpo = CorpoParaAltura(fonte, tamanho, altura, composto.cortado);
    const auto natural = regua.Largura(0, texto.size());
    const int limite = Limite(largura, composto.corpo, CemPorCento);
    if (natural > limite) {
        const auto precisa = static_cast<std::int64_t>(limite) * CemPorCento / natural;
        composto.condensacao = std::max(static_cast<int>(precisa), MenorCondensacao);
    }
    const int condensado = Limite(largura, composto.corpo, composto.condensacao);
    if (natural > condensado) {
        composto.cortado = true;
        composto.linhas.push_back(regua.LinhaCortada(0, texto.size(), condensado));
    } else {
        composto.linhas.push_back(regua.Linha(0, texto.size()));
    }
    return composto;
}

TextoComposto ComporBloco(Fonte& fonte, std::u32string_view texto, Centesimos tamanho,
                          Centesimos largura, Centesimos altura) {
    TextoComposto composto;
    // Blank lines at the end take no room.
    const auto ultimo = texto.find_last_not_of(U" \n");
    const Regua regua(fonte, texto.substr(0, ultimo == std::u32string_view::npos ? 0 : ultimo + 1));
    Quebra quebra;
    int limite = 0;
    const auto cabem = [&](std::size_t linhas) {
        return AlturaDe(fonte, linhas, composto.corpo) <= altura + Folga;
    };
    // One line more than fits says that there is more.
    const auto maximo = [&] {
        std::size_t linhas = 1;
        while (linhas <= texto.size() && cabem(linhas)) {
            ++linhas;
        }
        return linhas + 1;
    };
    // Rather smaller than with a word broken; but where a word is too long at any size, as large
    // as can be.
    const Centesimos menor =
        std::min(tamanho, std::max(Reduzir(tamanho, MenorCondensacao), MenorCorpoDeBloco));
    const Centesimos passo = std::max(Reduzir(tamanho, PassoReducao), 1);
    bool cabe = false;
    for (const bool partindo : {false, true}) {
        for (Centesimos corpo = tamanho + passo; !cabe && corpo > menor;) {
            corpo = std::max(corpo - passo, menor);
            composto.corpo = corpo;
            limite = Limite(largura, composto.corpo, CemPorCento);
            quebra = Quebrador(regua, limite).Quebrar(maximo());
            cabe = (partindo || !quebra.partiuPalavra) && cabem(quebra.linhas.size());
        }
    }
    auto linhas = quebra.linhas.size();
    while (linhas > 1 && !cabem(linhas)) {
        --linhas;
    }
    composto.cortado = regua.FaltaCaractere() || linhas < quebra.linhas.size() || !cabem(linhas);
    for (std::size_t i = 0; i < linhas; ++i) {
        const auto [inicio, fim] = quebra.linhas[i];
        const bool ultima = i + 1 == linhas && linhas < quebra.linhas.size();
        composto.linhas.push_back(ultima ? regua.LinhaCortada(inicio, fim, limite)
                                         : regua.Linha(inicio, fim));
        composto.cortado = composto.cortado || composto.linhas.back().largura > limite;
        composto.linhas.back().separada = i + 1 < linhas && quebra.linhas[i + 1].inicio > fim;
    }
    return composto;
}

}  // namespace tarvo::pdf
