#include "output/pdf/page/TextosDaPagina.h"

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

}  // namespace

void TextosDaPagina::IniciarPagina(const Substituicoes& substituicoes) {
    substituicoes_ = &substituicoes;
    cortes_.clear();
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
    if (!texto.multilinha && !texto.sublinhado && EscreverSimples(texto, estado, conteudo)) {
        return;
    }
    const auto compor = texto.multilinha ? ComporBloco : ComporLinha;
    const TextoComposto composto = compor(estado.fonte->fonte, Decodificar(conteudo), estado.corpo,
                                          DeCm(texto.caixa.largura), DeCm(texto.caixa.altura));
    if (composto.cortado) {
        cortes_.push_back({texto.caixa, std::string(conteudo)});
    }
    EscreverComposto(texto, estado, composto);
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
bool TextosDaPagina::EscreverSimples(const Texto& texto, const EstadoDeTexto& estado,
                                     std::string_view conteudo) {
    Fonte& fonte = estado.fonte->fonte;
    codigos_.clear();
    if (!fonte.Codificar(conteudo, codigos_)) {
        return false;
    }
    const Centesimos largura = DeCm(texto.caixa.largura);
    const Centesimos altura = DeCm(texto.caixa.altura);
    const Centesimos ocupada = Escalar(fonte.LarguraCodigos(codigos_), estado.corpo);
    bool cortado = false;
    if (ocupada > largura ||
        CorpoParaAltura(fonte, estado.corpo, altura, cortado) != estado.corpo) {
        return false;
    }
    const auto& m = fonte.Metricas();
    const Centesimos x = papel_.X(texto.caixa.x) + Alinhar(texto.horizontal, largura, ocupada);
    const Centesimos topo = papel_.Y(texto.caixa.y) -
                            Alinhar(texto.vertical, altura, Escalar(m.AlturaLinha(), estado.corpo));
    const Centesimos y = topo - Escalar(m.ascendente, estado.corpo);
    operadores_.EscreverCodigos(estado, x, y, codigos_);
    Ocupar(estado, x, y, ocupada);
    return true;
}

void TextosDaPagina::EscreverComposto(const Texto& texto, const EstadoDeTexto& estado,
                                      const TextoComposto& composto) {
    EstadoDeTexto usado = estado;
    usado.corpo = composto.corpo;
    usado.condensacao = composto.condensacao;
    const auto& m = estado.fonte->fonte.Metricas();
    const auto alturaDe = [&](std::size_t linhas) {
        return Escalar(static_cast<std::int64_t>(linhas) * m.AlturaLinha(), usado.corpo);
    };
    const Centesimos topo =
        papel_.Y(texto.caixa.y) -
        Alinhar(texto.vertical, DeCm(texto.caixa.altura), alturaDe(composto.linhas.size()));
    for (std::size_t i = 0; i < composto.linhas.size(); ++i) {
        const auto& linha = composto.linhas[i];
        if (linha.texto.empty()) {
            continue;
        }
        const Centesimos ocupada = Escalar(linha.largura, usado.corpo, usado.condensacao);
        const Centesimos x =
            papel_.X(texto.caixa.x) + Alinhar(texto.horizontal, DeCm(texto.caixa.largura), ocupada);
        const Centesimos y = topo - alturaDe(i) - Escalar(m.ascendente, usado.corpo);
        if (linha.codigos.empty()) {
            operadores_.EscreverTexto(usado, x, y, linha.texto);
        } else {
            operadores_.EscreverCodigos(usado, x, y, linha.codigos);
        }
        if (texto.sublinhado) {
            operadores_.Sublinhar(usado, x, y, ocupada);
        }
        Ocupar(usado, x, y, ocupada);
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
