// SPDX-License-Identifier: MIT
#include "output/pdf/page/OperadoresDePagina.h"

#include "output/pdf/file/Sintaxe.h"
#include "output/pdf/page/Cor.h"
#include "output/pdf/text/Composicao.h"

namespace tarvo::pdf {

void OperadoresDePagina::Reiniciar() {
    operadores_.clear();
    marcas_.Reiniciar();
    aberto_ = false;
    fonte_ = nullptr;
    condensacao_ = CemPorCento;
    cor_ = 0;
}

void OperadoresDePagina::EscreverCodigos(const EstadoDeTexto& estado, Centesimos x, Centesimos y,
                                         std::string_view codigos) {
    Posicionar(estado, x, y);
    EscolherFonte(estado, Modo::Codigos);
    AnexarCodigos(*estado.fonte, codigos);
}

void OperadoresDePagina::EscreverTexto(const EstadoDeTexto& estado, Centesimos x, Centesimos y,
                                       std::u32string_view texto) {
    Posicionar(estado, x, y);
    Fonte& fonte = estado.fonte->fonte;
    for (const auto& trecho : DividirEmTrechos(fonte, texto)) {
        if (trecho.face != nullptr) {
            EstadoDeTexto usado = estado;
            usado.fonte =
                trecho.face == fonte.FacePropria() ? estado.fonte : &fontes_.Obter(trecho.face);
            EscolherFonte(usado, Modo::Glifos);
            AnexarGlifos(*usado.fonte, usado.corpo, trecho.texto);
            continue;
        }
        codigos_.clear();
        for (const char32_t c : trecho.texto) {
            codigos_.push_back(static_cast<char>(fonte.Codigo(c)));
        }
        EscolherFonte(estado, Modo::Codigos);
        AnexarCodigos(*estado.fonte, codigos_);
    }
}

void OperadoresDePagina::AbrirTextoReal(std::string_view texto) {
    AbrirTexto();
    operadores_ += "/Span<</ActualText";
    AnexarTexto(operadores_, texto);
    operadores_ += ">>BDC\n";
}

void OperadoresDePagina::FecharTextoReal() {
    operadores_ += "EMC\n";
}

void OperadoresDePagina::Sublinhar(const EstadoDeTexto& estado, Centesimos x, Centesimos y,
                                   Centesimos largura) {
    const auto& m = estado.fonte->fonte.Metricas();
    const double milesimo = estado.corpo / 1000.0;
    const Centesimos espessura = Arredondar(m.espessuraSublinhado * milesimo);
    const Centesimos topo = y + Arredondar(m.posicaoSublinhado * milesimo);
    Fechar();
    marcas_.AbrirDecoracao(operadores_);
    EscolherCor(estado.cor);
    AnexarOperandos(operadores_, x, topo - espessura, largura, espessura);
    operadores_ += "re f\n";
    marcas_.FecharDecoracao(operadores_);
}

void OperadoresDePagina::DesenharFigura(std::string_view nome, Centesimos x, Centesimos y,
                                        Centesimos largura, Centesimos altura) {
    Fechar();
    marcas_.Abrir(operadores_);
    operadores_ += "q ";
    AnexarCentesimos(operadores_, largura);
    operadores_ += " 0 0 ";
    AnexarOperandos(operadores_, altura, x, y);
    operadores_.append("cm/").append(nome).append(" Do Q\n");
    marcas_.Fechar(operadores_);
}

void OperadoresDePagina::Entregar(std::string& saida) {
    Fechar();
    saida += operadores_;
    operadores_.clear();
}

void OperadoresDePagina::Fechar() {
    if (aberto_) {
        marcas_.Fechar(operadores_);
        operadores_ += "ET\n";
        aberto_ = false;
    }
}

void OperadoresDePagina::AbrirTexto() {
    if (!aberto_) {
        operadores_ += "BT\n";
        aberto_ = true;
        x_ = 0;
        y_ = 0;
    }
    marcas_.Abrir(operadores_);
}

void OperadoresDePagina::Posicionar(const EstadoDeTexto& estado, Centesimos x, Centesimos y) {
    AbrirTexto();
    EscolherCor(estado.cor);
    if (condensacao_ != estado.condensacao) {
        AnexarOperandos(operadores_, estado.condensacao);
        operadores_ += "Tz\n";
        condensacao_ = estado.condensacao;
    }
    AnexarOperandos(operadores_, x - x_, y - y_);
    operadores_ += "Td";
    x_ = x;
    y_ = y;
}

void OperadoresDePagina::EscolherCor(std::int32_t cor) {
    if (cor_ != cor) {
        AnexarCor(operadores_, cor, false);
        cor_ = cor;
    }
}

void OperadoresDePagina::EscolherFonte(const EstadoDeTexto& estado, Modo modo) {
    if (fonte_ == estado.fonte && modo_ == modo && corpo_ == estado.corpo) {
        return;
    }
    operadores_ += modo == Modo::Codigos ? "/F" : "/G";
    AnexarInteiro(operadores_, estado.fonte->numero);
    operadores_ += ' ';
    AnexarCentesimos(operadores_, estado.corpo);
    operadores_ += " Tf";
    fonte_ = estado.fonte;
    modo_ = modo;
    corpo_ = estado.corpo;
}

// "(text)Tj", or with kerning "[(te)12(xt)]TJ".
void OperadoresDePagina::AnexarCodigos(FonteDoArquivo& fonte, std::string_view codigos) {
    const Face& face = fonte.fonte.FaceUsada();
    const std::size_t inicio = operadores_.size();
    bool comKern = false;
    operadores_ += "[(";
    std::uint8_t anterior = 0;
    for (const char c : codigos) {
        const auto codigo = static_cast<std::uint8_t>(c);
        fonte.uso.codigos.set(codigo);
        const int kern = face.Kern(anterior, codigo);
        if (kern != 0) {
            comKern = true;
            operadores_ += ')';
            AnexarInteiro(operadores_, -kern);
            operadores_ += '(';
        }
        if (c == '(' || c == ')' || c == '\\') {
            operadores_ += '\\';
        }
        operadores_ += c;
        anterior = codigo;
    }
    if (comKern) {
        operadores_ += ")]TJ\n";
    } else {
        operadores_.erase(inicio, 1);
        operadores_ += ")Tj\n";
    }
}

// Shaped glyphs: what shaping moves is written as an adjustment before the glyph, together with
// what takes back that of the glyph before it, and as a rise of the baseline.
void OperadoresDePagina::AnexarGlifos(FonteDoArquivo& fonte, Centesimos corpo,
                                      std::u32string_view texto) {
    const Face& face = fonte.fonte.FaceUsada();
    int ajuste = 0;
    const auto ajustar = [&] {
        if (ajuste != 0) {
            AnexarInteiro(operadores_, -ajuste);
        }
        ajuste = 0;
    };
    int elevacao = 0;
    operadores_ += '[';
    for (const auto& g : fonte.fonte.Formar(texto, face)) {
        if (g.dy != elevacao) {
            ajustar();
            operadores_ += "]TJ ";
            AnexarOperandos(operadores_, Arredondar(g.dy * corpo / 1000.0));
            operadores_ += "Ts[";
            elevacao = g.dy;
        }
        ajuste += g.dx;
        ajustar();
        operadores_ += '<';
        AnexarHex(operadores_, g.glifo, 4);
        operadores_ += '>';
        ajuste = g.avanco - g.dx - face.AvancoGlifo(g.glifo);
        auto& unicode = fonte.uso.glifos[g.glifo];
        unicode = unicode != 0 ? unicode : g.unicode;
    }
    ajustar();
    operadores_ += elevacao != 0 ? "]TJ 0 Ts\n" : "]TJ\n";
}

}  // namespace tarvo::pdf
