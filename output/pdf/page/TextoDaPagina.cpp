#include <algorithm>

#include "output/pdf/page/PaginaPDF.h"
#include "output/pdf/text/TextoUnicode.h"

// The texts of a page: each is set, fitted to its box and placed in it by its alignment codes.
namespace tarvo::pdf {

namespace {

Centesimos Escalar(std::int64_t milesimos, Centesimos corpo, int condensacao = Inteiro) {
    return Arredondar(static_cast<double>(milesimos) * corpo * condensacao / (1000.0 * Inteiro));
}

// Distance of something from the box's left or top edge, by alignment code.
Centesimos Alinhar(int codigo, Centesimos caixa, Centesimos extensao) {
    return codigo == 0 ? 0 : codigo == 1 ? (caixa - extensao) / 2 : caixa - extensao;
}

}  // namespace

void PaginaPDF::Desenhar(const Texto& texto) {
    if (texto.texto.empty()) {
        return;
    }
    const std::string_view conteudo = Substituir(texto.texto, *substituicoes_, substituido_);
    const Letra letra{.fonte = &FonteDe(texto),
                      .corpo = DePontos(texto.tamanho),
                      .condensacao = Inteiro,
                      .cor = SoRGB(texto.cor)};
    if (!texto.multilinha && !texto.sublinhado && EscreverSimples(texto, letra, conteudo)) {
        return;
    }
    const auto compor = texto.multilinha ? ComporBloco : ComporLinha;
    const TextoComposto composto = compor(letra.fonte->fonte, Decodificar(conteudo), letra.corpo,
                                          DeCm(texto.caixa.largura), DeCm(texto.caixa.altura));
    if (composto.cortado) {
        cortados_->push_back({0, texto.caixa, std::string(conteudo)});
    }
    EscreverComposto(texto, letra, composto);
}

FonteDoArquivo& PaginaPDF::FonteDe(const Texto& texto) {
    const auto estilo = (texto.negrito ? 1U : 0U) | (texto.italico ? 2U : 0U);
    auto*& fonte = fontes_.at(texto.fonte * 4U + estilo);
    if (fonte == nullptr) {
        fonte =
            &recursos_.fontes.Obter(conteudo_.fontes[texto.fonte], texto.negrito, texto.italico);
    }
    return *fonte;
}

// The common case, one line of Latin text that fits; false when it is not.
bool PaginaPDF::EscreverSimples(const Texto& texto, const Letra& letra, std::string_view conteudo) {
    Fonte& fonte = letra.fonte->fonte;
    codigos_.clear();
    if (!fonte.Codificar(conteudo, codigos_)) {
        return false;
    }
    const Centesimos largura = DeCm(texto.caixa.largura);
    const Centesimos altura = DeCm(texto.caixa.altura);
    const Centesimos ocupada = Escalar(fonte.LarguraCodigos(codigos_), letra.corpo);
    bool cortado = false;
    if (ocupada > largura || CorpoParaAltura(fonte, letra.corpo, altura, cortado) != letra.corpo) {
        return false;
    }
    const auto& m = fonte.Metricas();
    const Centesimos x = X(texto.caixa.x) + Alinhar(texto.horizontal, largura, ocupada);
    const Centesimos topo =
        Y(texto.caixa.y) - Alinhar(texto.vertical, altura, Escalar(m.AlturaLinha(), letra.corpo));
    const Centesimos y = topo - Escalar(m.ascendente, letra.corpo);
    escrita_.Linha(letra, x, y, codigos_);
    PenderTexto(letra, x, y, ocupada);
    return true;
}

void PaginaPDF::EscreverComposto(const Texto& texto, const Letra& letra,
                                 const TextoComposto& composto) {
    Letra usada = letra;
    usada.corpo = composto.corpo;
    usada.condensacao = composto.condensacao;
    const auto& m = letra.fonte->fonte.Metricas();
    const auto alturaDe = [&](std::size_t linhas) {
        return Escalar(static_cast<std::int64_t>(linhas) * m.AlturaLinha(), usada.corpo);
    };
    const Centesimos topo = Y(texto.caixa.y) - Alinhar(texto.vertical, DeCm(texto.caixa.altura),
                                                       alturaDe(composto.linhas.size()));
    for (std::size_t i = 0; i < composto.linhas.size(); ++i) {
        const auto& linha = composto.linhas[i];
        if (linha.texto.empty()) {
            continue;
        }
        const Centesimos ocupada = Escalar(linha.largura, usada.corpo, usada.condensacao);
        const Centesimos x =
            X(texto.caixa.x) + Alinhar(texto.horizontal, DeCm(texto.caixa.largura), ocupada);
        const Centesimos y = topo - alturaDe(i) - Escalar(m.ascendente, usada.corpo);
        if (linha.codigos.empty()) {
            escrita_.Linha(usada, x, y, std::u32string_view(linha.texto));
        } else {
            escrita_.Linha(usada, x, y, std::string_view(linha.codigos));
        }
        if (texto.sublinhado) {
            escrita_.Sublinhado(usada, x, y, ocupada);
        }
        PenderTexto(usada, x, y, ocupada);
    }
}

void PaginaPDF::PenderTexto(const Letra& letra, Centesimos x, Centesimos y, Centesimos largura) {
    // Slanted and accented letters reach beyond their widths, but never that far.
    constexpr int Saliencia = 250;
    const auto& m = letra.fonte->fonte.Metricas();
    const Centesimos saliencia = Escalar(Saliencia, letra.corpo);
    Pender({x - saliencia, y + Escalar(m.yMinimo, letra.corpo), x + largura + saliencia,
            y + Escalar(m.yMaximo, letra.corpo)},
           letra.cor);
}

}  // namespace tarvo::pdf
