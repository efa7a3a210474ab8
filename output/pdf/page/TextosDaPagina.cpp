// SPDX-License-Identifier: MIT
#include "output/pdf/page/TextosDaPagina.h"

#include <algorithm>

#include "output/pdf/page/Cor.h"
#include "output/pdf/text/TextoUnicode.h"

namespace tarvo::pdf {

namespace {

Centesimos Escalar(std::int64_t milesimos, Centesimos corpo, int condensacao = CemPorCento) {
    return Arredondar(static_cast<double>(milesimos) * corpo * condensacao /
                      (1000.0 * CemPorCento));
}

// Distance of something from the box's left or top edge, by alignment code.
Centesimos Alinhar(int codigo, Centesimos caixa, Centesimos extensao) {
    return codigo == 0 ? 0 : codigo == 1 ? (caixa - extensao) / 2 : caixa - extensao;
}

// Upper edge of a text of so many lines in its box.
Centesimos Topo(const Texto& texto, const Lugar& lugar, const MetricasFonte& m, Centesimos corpo,
                std::size_t linhas) {
    // A text that stands on its box's lower edge keeps clear of the frame drawn there.
    constexpr Centesimos Elevacao = 40;
    // By how much the ascent of the reports' main face exceeds its descent. Faces of one size that
    // stand in the middle of one row share that one's baseline.
    constexpr int Excesso = 693;
    const Centesimos livre =
        Alinhar(texto.vertical, lugar.altura,
                Escalar(static_cast<std::int64_t>(linhas) * m.AlturaLinha(), corpo));
    switch (texto.vertical) {
        case 1:
            return lugar.topo - livre -
                   Escalar(Excesso - (m.ascendente - m.descendente), corpo) / 2;
        case 2:
            return lugar.topo - livre + Elevacao;
        default:
            return lugar.topo;
    }
}

}  // namespace

void TextosDaPagina::IniciarPagina(const Substituicoes& substituicoes) {
    substituicoes_ = &substituicoes;
    cortes_.clear();
    anterior_ = nullptr;
}

void TextosDaPagina::Escrever(const Texto& texto) {
    if (texto.texto.empty()) {
        return;
    }
    const std::string_view conteudo = Substituir(texto.texto, *substituicoes_, substituido_);
    const EstadoDeTexto estado{.fonte = &FonteDe(texto),
                               .corpo = DePontos(texto.tamanho),
                               .condensacao = CemPorCento,
                               .cor = SoRGB(texto.cor)};
    const Lugar lugar = LugarDe(texto);
    if (!texto.multilinha && !texto.sublinhado && EscreverSimples(texto, lugar, estado, conteudo)) {
        return;
    }
    const auto compor = texto.multilinha ? ComporBloco : ComporLinha;
    const std::u32string caracteres = Decodificar(conteudo);
    const TextoComposto composto =
        compor(estado.fonte->fonte, caracteres, estado.corpo, lugar.largura, lugar.altura);
    if (composto.cortado) {
        cortes_.push_back({texto.caixa, std::string(conteudo)});
    }
    // Whoever searches or copies finds the whole, and what only its font knows to draw.
    const bool outro = composto.cortado || composto.condensacao != CemPorCento ||
                       std::ranges::any_of(caracteres, EhDeUsoPrivado);
    if (outro) {
        operadores_.AbrirTextoReal(conteudo);
    }
    EscreverComposto(texto, lugar, estado, composto, outro);
}

// The box of a text, without the side that the text before it takes when both stand in one box.
Lugar TextosDaPagina::LugarDe(const Texto& texto) const {
    constexpr Centesimos Distancia = 400;
    Lugar lugar = papel_.LugarDe(texto);
    if (anterior_ != nullptr && anterior_->caixa == texto.caixa &&
        anterior_->vertical == texto.vertical && anterior_->horizontal + texto.horizontal == 2 &&
        texto.horizontal != 1) {
        const Centesimos livre = std::max(lugar.largura - larguraAnterior_ - Distancia, 0);
        lugar.x += texto.horizontal == 2 ? lugar.largura - livre : 0;
        lugar.largura = livre;
    }
    return lugar;
}

FonteDoArquivo& TextosDaPagina::FonteDe(const Texto& texto) {
    const auto estilo = (texto.negrito ? 1U : 0U) | (texto.italico ? 2U : 0U);
    auto*& fonte = fontesUsadas_.at(texto.fonte * 4U + estilo);
    if (fonte == nullptr) {
        fonte = &fontes_.Obter(conteudo_.fontes[texto.fonte], texto.negrito, texto.italico);
    }
    return *fonte;
}

// The common case, one line of Latin text that fits; false when it is not.
bool TextosDaPagina::EscreverSimples(const Texto& texto, const Lugar& lugar,
                                     const EstadoDeTexto& estado, std::string_view conteudo) {
    Fonte& fonte = estado.fonte->fonte;
    codigos_.clear();
    if (!fonte.Codificar(conteudo, codigos_)) {
        return false;
    }
    const Centesimos ocupada = Escalar(fonte.LarguraCodigos(codigos_), estado.corpo);
    bool cortado = false;
    if (ocupada > lugar.largura ||
        CorpoParaAltura(fonte, estado.corpo, lugar.altura, cortado) != estado.corpo) {
        return false;
    }
    const auto& m = fonte.Metricas();
    const Centesimos x = lugar.x + Alinhar(texto.horizontal, lugar.largura, ocupada);
    const Centesimos y =
        Topo(texto, lugar, m, estado.corpo, 1) - Escalar(m.ascendente, estado.corpo);
    operadores_.EscreverCodigos(estado, x, y, codigos_);
    Ocupar(estado, x, y, ocupada);
    anterior_ = &texto;
    larguraAnterior_ = ocupada;
    return true;
}

void TextosDaPagina::EscreverComposto(const Texto& texto, const Lugar& lugar,
                                      const EstadoDeTexto& estado, const TextoComposto& composto,
                                      bool comTextoReal) {
    EstadoDeTexto usado = estado;
    usado.corpo = composto.corpo;
    usado.condensacao = composto.condensacao;
    const auto& m = estado.fonte->fonte.Metricas();
    const Centesimos topo = Topo(texto, lugar, m, usado.corpo, composto.linhas.size());
    anterior_ = texto.multilinha ? nullptr : &texto;
    struct Trilho {
        Centesimos x = 0;
        Centesimos y = 0;
        Centesimos largura = 0;
    };
    std::vector<Trilho> trilhos;
    for (std::size_t i = 0; i < composto.linhas.size(); ++i) {
        const auto& linha = composto.linhas[i];
        if (linha.texto.empty()) {
            continue;
        }
        const Centesimos ocupada = Escalar(linha.largura, usado.corpo, usado.condensacao);
        larguraAnterior_ = ocupada;
        const Centesimos x = lugar.x + Alinhar(texto.horizontal, lugar.largura, ocupada);
        const Centesimos y =
            topo -
            Escalar(static_cast<std::int64_t>(i) * m.AlturaLinha() + m.ascendente, usado.corpo);
        // The blank at which a line was broken stays for those who read without seeing the lines.
        if (linha.codigos.empty()) {
            operadores_.EscreverTexto(usado, x, y, linha.texto + (linha.separada ? U" " : U""));
        } else {
            operadores_.EscreverCodigos(usado, x, y, linha.codigos + (linha.separada ? " " : ""));
        }
        Ocupar(usado, x, y, ocupada);
        trilhos.push_back({x, y, ocupada});
    }
    if (comTextoReal) {
        operadores_.FecharTextoReal();
    }
    if (texto.sublinhado) {
        for (const auto& [x, y, largura] : trilhos) {
            operadores_.Sublinhar(usado, x, y, largura);
        }
    }
}

void TextosDaPagina::Ocupar(const EstadoDeTexto& estado, Centesimos x, Centesimos y,
                            Centesimos largura) {
    // Slanted and accented letters reach beyond their widths, but never that far.
    constexpr int Saliencia = 250;
    const auto& m = estado.fonte->fonte.Metricas();
    const Centesimos saliencia = Escalar(Saliencia, estado.corpo);
    ocupadas_.Ocupar({x - saliencia, y + Escalar(m.yMinimo, estado.corpo), x + largura + saliencia,
                      y + Escalar(m.yMaximo, estado.corpo)},
                     estado.cor);
}

}  // namespace tarvo::pdf
