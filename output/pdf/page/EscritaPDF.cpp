#include "output/pdf/page/EscritaPDF.h"

#include "output/pdf/text/Composicao.h"

namespace tarvo::pdf {

void EscritaPDF::Reiniciar() {
    operadores_.clear();
    aberto_ = false;
    fonte_ = nullptr;
    condensacao_ = Inteiro;
    cor_ = 0;
}

void EscritaPDF::Linha(const Letra& letra, Centesimos x, Centesimos y, std::string_view codigos) {
    Posicionar(letra, x, y);
    EscolherFonte(letra, Modo::Codigos);
    letra.fonte->fonte.AnexarCodigos(operadores_, codigos);
}

void EscritaPDF::Linha(const Letra& letra, Centesimos x, Centesimos y, std::u32string_view texto) {
    Posicionar(letra, x, y);
    Fonte& fonte = letra.fonte->fonte;
    for (const auto& trecho : DividirEmTrechos(fonte, texto)) {
        if (!trecho.porCodigo) {
            EscolherFonte(letra, Modo::Glifos);
            Glifos(fonte, letra.corpo, trecho.texto);
            continue;
        }
        codigos_.clear();
        for (const char32_t c : trecho.texto) {
            codigos_.push_back(static_cast<char>(fonte.Codigo(c)));
        }
        EscolherFonte(letra, Modo::Codigos);
        fonte.AnexarCodigos(operadores_, codigos_);
    }
}

void EscritaPDF::Sublinhado(const Letra& letra, Centesimos x, Centesimos y, Centesimos largura) {
    const auto& m = letra.fonte->fonte.Metricas();
    const double milesimo = letra.corpo / 1000.0;
    const Centesimos espessura = Arredondar(m.espessuraSublinhado * milesimo);
    const Centesimos meio = Arredondar(m.posicaoSublinhado * milesimo);
    Fechar();
    EscolherCor(letra.cor);
    AnexarOperandos(operadores_, x, y + meio - espessura / 2, largura, espessura);
    operadores_ += "re f\n";
}

void EscritaPDF::Figura(std::string_view nome, Centesimos x, Centesimos y, Centesimos largura,
                        Centesimos altura) {
    Fechar();
    operadores_ += "q ";
    AnexarCentesimos(operadores_, largura);
    operadores_ += " 0 0 ";
    AnexarOperandos(operadores_, altura, x, y);
    operadores_.append("cm/").append(nome).append(" Do Q\n");
}

void EscritaPDF::Entregar(std::string& saida) {
    Fechar();
    saida += operadores_;
    operadores_.clear();
}

void EscritaPDF::Fechar() {
    if (aberto_) {
        operadores_ += "ET\n";
        aberto_ = false;
    }
}

void EscritaPDF::Posicionar(const Letra& letra, Centesimos x, Centesimos y) {
    if (!aberto_) {
        operadores_ += "BT\n";
        aberto_ = true;
        x_ = 0;
        y_ = 0;
    }
    EscolherCor(letra.cor);
    if (condensacao_ != letra.condensacao) {
        AnexarOperandos(operadores_, letra.condensacao);
        operadores_ += "Tz\n";
        condensacao_ = letra.condensacao;
    }
    AnexarOperandos(operadores_, x - x_, y - y_);
    operadores_ += "Td";
    x_ = x;
    y_ = y;
}

void EscritaPDF::EscolherCor(std::int32_t cor) {
    if (cor_ != cor) {
        AnexarCor(operadores_, cor, false);
        cor_ = cor;
    }
}

void EscritaPDF::EscolherFonte(const Letra& letra, Modo modo) {
    if (fonte_ == letra.fonte && modo_ == modo && corpo_ == letra.corpo) {
        return;
    }
    operadores_ += modo == Modo::Codigos ? "/F" : "/G";
    AnexarInteiro(operadores_, letra.fonte->numero);
    operadores_ += ' ';
    AnexarCentesimos(operadores_, letra.corpo);
    operadores_ += " Tf";
    fonte_ = letra.fonte;
    modo_ = modo;
    corpo_ = letra.corpo;
}

// Shaped glyphs: what shaping moves is written as an adjustment before the glyph and taken back
// after it, and as a rise of the baseline.
void EscritaPDF::Glifos(Fonte& fonte, Centesimos corpo, std::u32string_view texto) {
    const auto ajustar = [this](int milesimos) {
        if (milesimos != 0) {
            AnexarInteiro(operadores_, -milesimos);
        }
    };
    int elevacao = 0;
    operadores_ += '[';
    for (const auto& g : fonte.Formar(texto)) {
        if (g.dy != elevacao) {
            operadores_ += "]TJ ";
            AnexarOperandos(operadores_, Arredondar(g.dy * corpo / 1000.0));
            operadores_ += "Ts[";
            elevacao = g.dy;
        }
        ajustar(g.dx);
        operadores_ += '<';
        AnexarHex(operadores_, g.glifo, 4);
        operadores_ += '>';
        ajustar(g.avanco - g.dx - fonte.AFace().AvancoGlifo(g.glifo));
        fonte.MarcarGlifo(g);
    }
    operadores_ += elevacao != 0 ? "]TJ 0 Ts\n" : "]TJ\n";
}

}  // namespace tarvo::pdf
