#include "platform/pdf/Composicao.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "platform/pdf/TextoUnicode.h"

namespace tarvo::pdf {

namespace {

// Rounding of lengths must not make a text that fits exactly look too long.
constexpr Centesimos Folga = 2;
// Longer than any word of the language: such a thing is broken rather than the block set smaller.
constexpr std::size_t MaiorPalavra = 30;
constexpr int PassoReducao = 500;  // hundredths of a per cent

// Width of a box in thousandths of a font size.
int Limite(Centesimos largura, Centesimos corpo, int condensacao) {
    const auto milesimos = (static_cast<std::int64_t>(largura) + Folga) * 1000 * Inteiro /
                           (static_cast<std::int64_t>(std::max(corpo, 1)) * condensacao);
    return static_cast<int>(std::clamp<std::int64_t>(milesimos, 0, 100'000'000));
}

void ApararFim(std::u32string& texto) {
    while (!texto.empty() && texto.back() == U' ') {
        texto.pop_back();
    }
}

// The most leading characters that fit, at least one; a letter keeps its accents.
std::size_t QuantosCabem(Fonte& fonte, std::u32string_view texto, int limite) {
    std::int64_t largura = 0;
    std::size_t n = 0;
    while (n < texto.size()) {
        largura += fonte.Largura(texto[n]);
        if (largura > limite) {
            break;
        }
        ++n;
    }
    n = std::max<std::size_t>(n, 1);
    while (n < texto.size() && EhMarcaCombinante(texto[n])) {
        ++n;
    }
    return n;
}

LinhaComposta Cortar(Fonte& fonte, std::u32string texto, int limite) {
    const int sobra = limite - fonte.Largura(Reticencias);
    texto.resize(sobra > 0 && !texto.empty() ? QuantosCabem(fonte, texto, sobra) : 0);
    for (;;) {
        ApararFim(texto);
        const std::u32string cortado = texto + Reticencias;
        const int largura = Largura(fonte, cortado);
        if (largura <= limite || texto.empty()) {
            return {cortado, largura};
        }
        texto.pop_back();
    }
}

struct Quebra {
    std::vector<std::u32string_view> linhas;
    bool partiuPalavra = false;
};

// One paragraph into lines, at blanks; those at a line's end vanish.
void QuebrarParagrafo(Fonte& fonte, std::u32string_view texto, int limite, Quebra& quebra) {
    if (texto.find_first_not_of(U' ') == std::u32string_view::npos) {
        quebra.linhas.emplace_back();
        return;
    }
    std::size_t inicio = 0;
    while (inicio < texto.size()) {
        std::size_t fim = inicio;  // of the line, as far as it is known to fit
        for (std::size_t busca = inicio;;) {
            const auto palavra = texto.find_first_not_of(U' ', busca);
            if (palavra == std::u32string_view::npos) {
                break;
            }
            const auto fimPalavra = std::min(texto.find(U' ', palavra), texto.size());
            const bool longa = fimPalavra - palavra > MaiorPalavra;
            const auto candidata = texto.substr(inicio, fimPalavra - inicio);
            const bool cabe =
                !(longa && QuantosCabem(fonte, candidata, limite) < candidata.size()) &&
                Largura(fonte, candidata) <= limite;
            if (!cabe) {
                if (fim == inicio) {
                    fim = inicio + QuantosCabem(fonte, candidata, limite);
                    quebra.partiuPalavra = quebra.partiuPalavra || !longa;
                }
                break;
            }
            fim = busca = fimPalavra;
        }
        if (fim == inicio) {
            break;  // only blanks are left
        }
        quebra.linhas.push_back(texto.substr(inicio, fim - inicio));
        inicio = std::min(texto.find_first_not_of(U' ', fim), texto.size());
    }
}

Quebra Quebrar(Fonte& fonte, std::u32string_view texto, int limite) {
    Quebra quebra;
    for (std::size_t inicio = 0; inicio <= texto.size();) {
        const auto fim = std::min(texto.find(U'\n', inicio), texto.size());
        QuebrarParagrafo(fonte, texto.substr(inicio, fim - inicio), limite, quebra);
        inicio = fim + 1;
    }
    return quebra;
}

std::int64_t AlturaDe(const Fonte& fonte, std::size_t linhas, Centesimos corpo) {
    const auto& m = fonte.Metricas();
    const auto milesimos =
        static_cast<std::int64_t>(linhas - 1) * m.AlturaLinha() + m.AlturaMinima();
    return milesimos * corpo / 1000;
}

}  // namespace

std::vector<Trecho> DividirEmTrechos(const Fonte& fonte, std::u32string_view texto) {
    constexpr std::size_t MaiorTrecho = 1000;
    std::vector<Trecho> trechos;
    std::size_t inicio = 0;
    const auto porCodigo = [&](std::size_t i) {
        // A letter goes with the accents that stand over it.
        const bool acentuada = i + 1 < texto.size() && EhMarcaCombinante(texto[i + 1]);
        return !acentuada && fonte.Codigo(texto[i]) != 0;
    };
    for (std::size_t i = 0; i < texto.size(); i = inicio) {
        const bool tipo = porCodigo(i);
        do {
            ++i;
        } while (i < texto.size() && porCodigo(i) == tipo && i - inicio < MaiorTrecho);
        trechos.push_back({texto.substr(inicio, i - inicio), tipo});
        inicio = i;
    }
    return trechos;
}

int Largura(Fonte& fonte, std::u32string_view texto) {
    std::int64_t largura = 0;
    std::string codigos;
    for (const auto& trecho : DividirEmTrechos(fonte, texto)) {
        if (trecho.porCodigo) {
            codigos.clear();
            for (const char32_t c : trecho.texto) {
                codigos.push_back(static_cast<char>(fonte.Codigo(c)));
            }
            largura += fonte.LarguraCodigos(codigos);
        } else {
            for (const auto& glifo : fonte.Formar(trecho.texto)) {
                largura += glifo.avanco;
            }
        }
    }
    return static_cast<int>(std::min<std::int64_t>(largura, std::numeric_limits<int>::max()));
}

Centesimos CorpoParaAltura(const Fonte& fonte, Centesimos tamanho, Centesimos altura,
                           bool& cortado) {
    const auto minima = AlturaDe(fonte, 1, tamanho);
    if (minima <= altura + Folga) {
        return tamanho;
    }
    const auto menor =
        static_cast<Centesimos>(static_cast<std::int64_t>(tamanho) * MenorCondensacao / Inteiro);
    const auto cabe =
        static_cast<Centesimos>(static_cast<std::int64_t>(tamanho) * std::max(altura, 0) /
                                std::max<std::int64_t>(minima, 1));
    cortado = cortado || cabe < menor;
    return std::max(cabe, menor);
}

TextoComposto ComporLinha(Fonte& fonte, std::u32string_view linha, Centesimos tamanho,
                          Centesimos largura, Centesimos altura) {
    TextoComposto composto;
    std::u32string texto(linha);
    std::replace(texto.begin(), texto.end(), U'\n', U' ');
    composto.corpo = CorpoParaAltura(fonte, tamanho, altura, composto.cortado);
    const int natural = Largura(fonte, texto);
    const int limite = Limite(largura, composto.corpo, Inteiro);
    if (natural > limite) {
        composto.condensacao =
            std::max(static_cast<int>(static_cast<std::int64_t>(limite) * Inteiro / natural),
                     MenorCondensacao);
    }
    const int condensado = Limite(largura, composto.corpo, composto.condensacao);
    if (natural > condensado) {
        composto.cortado = true;
        composto.linhas.push_back(Cortar(fonte, std::move(texto), condensado));
    } else {
        composto.linhas.push_back({std::move(texto), natural});
    }
    return composto;
}

TextoComposto ComporBloco(Fonte& fonte, std::u32string_view texto, Centesimos tamanho,
                          Centesimos largura, Centesimos altura) {
    TextoComposto composto;
    const auto ultimo = texto.find_last_not_of(U" \n");
    texto = texto.substr(0, ultimo == std::u32string_view::npos ? 0 : ultimo + 1);
    Quebra quebra;
    int limite = 0;
    const auto cabeEm = [&](int escala, bool partindo) {
        composto.corpo =
            static_cast<Centesimos>(static_cast<std::int64_t>(tamanho) * escala / Inteiro);
        limite = Limite(largura, composto.corpo, Inteiro);
        quebra = Quebrar(fonte, texto, limite);
        return (partindo || !quebra.partiuPalavra) &&
               AlturaDe(fonte, quebra.linhas.size(), composto.corpo) <= altura + Folga;
    };
    // Rather smaller than with a word broken; but where a word is too long at any size, as large
    // as can be.
    bool cabe = false;
    for (const bool partindo : {false, true}) {
        for (int escala = Inteiro; !cabe && escala >= MenorCondensacao; escala -= PassoReducao) {
            cabe = cabeEm(escala, partindo);
        }
    }
    auto linhas = quebra.linhas.size();
    while (linhas > 1 && AlturaDe(fonte, linhas, composto.corpo) > altura + Folga) {
        --linhas;
    }
    composto.cortado =
        linhas < quebra.linhas.size() || AlturaDe(fonte, linhas, composto.corpo) > altura + Folga;
    for (std::size_t i = 0; i < linhas; ++i) {
        LinhaComposta linha{std::u32string(quebra.linhas[i]), Largura(fonte, quebra.linhas[i])};
        if (i + 1 == linhas && linhas < quebra.linhas.size()) {
            linha = Cortar(fonte, std::move(linha.texto), limite);
        }
        composto.cortado = composto.cortado || linha.largura > limite;
        composto.linhas.push_back(std::move(linha));
    }
    return composto;
}

}  // namespace tarvo::pdf
