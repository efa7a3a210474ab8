// SPDX-License-Identifier: MIT
#include "output/pdf/page/Formas.h"

#include <algorithm>
#include <cstdlib>

#include "output/pdf/file/Sintaxe.h"
#include "output/pdf/page/Cor.h"

namespace tarvo::pdf {

namespace {

constexpr double PontosPorEspessura = 0.5;
// Distance of the control points of a Bézier quarter circle from its ends, in radii.
constexpr double Curvatura = 0.5522847498;

Centesimos Espessura(std::int32_t unidades) {
    return DePontos(PontosPorEspessura * std::max(unidades, 0));
}

template <class R>
Forma FazerRetangulo(const R& r, TipoForma tipo, const Lugar& lugar) {
    const auto [x, topo, largura, altura] = lugar;
    return {.tipo = tipo,
            .x = x + std::min(largura, 0),
            .y = topo - std::max(altura, 0),
            .largura = std::abs(largura),
            .altura = std::abs(altura),
            .corBorda = SoRGB(r.corBorda),
            .corPreenchimento = r.preenchido ? SoRGB(r.corPreenchimento) : Forma::SemPreenchimento,
            .espessura = Espessura(r.espessura)};
}

// What has been set so far in one run of shapes. Lines are solid with square ends before and after
// it, so that lines that meet in a corner close it.
class Pincel {
  public:
    explicit Pincel(std::string& saida) : saida_(saida) {}
    Pincel(const Pincel&) = delete;
    Pincel& operator=(const Pincel&) = delete;
    ~Pincel() { Tracejar(0); }

    void Preparar(const Forma& f) {
        if (espessura_ != f.espessura) {
            AnexarOperandos(saida_, f.espessura);
            saida_ += "w\n";
            espessura_ = f.espessura;
        }
        // Square dots, as long as the line is thick.
        constexpr Centesimos MenorPonto = 25;
        Tracejar(f.tipo == TipoForma::LinhaPontilhada ? std::max(f.espessura, MenorPonto) : 0);
        if (corBorda_ != f.corBorda) {
            AnexarCor(saida_, f.corBorda, true);
            corBorda_ = f.corBorda;
        }
        if (f.corPreenchimento != Forma::SemPreenchimento && cor_ != f.corPreenchimento) {
            AnexarCor(saida_, f.corPreenchimento, false);
            cor_ = f.corPreenchimento;
        }
    }

  private:
    void Tracejar(Centesimos ponto) {
        if (ponto_ == ponto) {
            return;
        }
        saida_ += '[';
        if (ponto > 0) {
            AnexarOperandos(saida_, ponto, 2 * ponto);
        }
        saida_ += ponto > 0 ? "]0 d 0 J\n" : "]0 d 2 J\n";
        ponto_ = ponto;
    }

    static constexpr std::int32_t Desconhecida = -1;
    std::string& saida_;
    Centesimos espessura_ = Desconhecida;
    std::int32_t corBorda_ = Desconhecida;
    std::int32_t cor_ = Desconhecida;
    Centesimos ponto_ = 0;
};

void AnexarArredondado(std::string& saida, Centesimos x, Centesimos y, Centesimos largura,
                       Centesimos altura, Centesimos raio) {
    const Centesimos c = raio - Arredondar(raio * Curvatura);
    const Centesimos x1 = x + largura;
    const Centesimos y1 = y + altura;
    const auto reta = [&](Centesimos px, Centesimos py) {
        AnexarOperandos(saida, px, py);
        saida += "l\n";
    };
    const auto curva = [&](auto... pontos) {
        AnexarOperandos(saida, pontos...);
        saida += "c\n";
    };
    AnexarOperandos(saida, x + raio, y);
    saida += "m\n";
    reta(x1 - raio, y);
    curva(x1 - c, y, x1, y + c, x1, y + raio);
    reta(x1, y1 - raio);
    curva(x1, y1 - c, x1 - c, y1, x1 - raio, y1);
    reta(x + raio, y1);
    curva(x + c, y1, x, y1 - c, x, y1 - raio);
    reta(x, y + raio);
    curva(x, y + c, x + c, y, x + raio, y);
    saida += "h ";
}

}  // namespace

void Area::Unir(const Area& r) {
    x0 = std::min(x0, r.x0);
    y0 = std::min(y0, r.y0);
    x1 = std::max(x1, r.x1);
    y1 = std::max(y1, r.y1);
}

Area Forma::Contorno() const {
    const Centesimos e = espessura / 2 + 1;
    return {std::min(x, x + largura) - e, std::min(y, y + altura) - e, std::max(x, x + largura) + e,
            std::max(y, y + altura) + e};
}

bool Forma::SoPinta(std::int32_t cor) const {
    return corBorda == cor && (corPreenchimento == SemPreenchimento || corPreenchimento == cor);
}

bool Forma::Pinta(const Area& r) const {
    if (!Contorno().Toca(r)) {
        return false;
    }
    if (tipo == TipoForma::Linha || tipo == TipoForma::LinhaPontilhada ||
        corPreenchimento != SemPreenchimento) {
        return true;
    }
    const Centesimos e = std::max(espessura / 2, raio) + 1;
    return r.x0 < x + e || r.x1 > x + largura - e || r.y0 < y + e || r.y1 > y + altura - e;
}

Forma FazerForma(const Linha& linha, const Lugar& lugar) {
    return {.tipo = linha.estilo == 2 ? TipoForma::LinhaPontilhada : TipoForma::Linha,
            .x = lugar.x,
            .y = lugar.topo,
            .largura = lugar.largura,
            .altura = -lugar.altura,
            .corPreenchimento = Forma::SemPreenchimento,
            .espessura = Espessura(linha.espessura)};
}

Forma FazerForma(const Retangulo& retangulo, const Lugar& lugar) {
    return FazerRetangulo(retangulo, TipoForma::Retangulo, lugar);
}

Forma FazerForma(const RetanguloArredondado& retangulo, const Lugar& lugar) {
    Forma forma = FazerRetangulo(retangulo, TipoForma::Arredondado, lugar);
    forma.raio = std::clamp(DeCm(retangulo.raio), 0, std::min(forma.largura, forma.altura) / 2);
    if (forma.raio == 0) {
        forma.tipo = TipoForma::Retangulo;
    }
    return forma;
}

void AnexarFormas(std::string& saida, std::span<const Forma> formas, Centesimos x0, Centesimos y0) {
    Pincel pincel(saida);
    for (const auto& f : formas) {
        pincel.Preparar(f);
        const Centesimos x = f.x - x0;
        const Centesimos y = f.y - y0;
        switch (f.tipo) {
            case TipoForma::Linha:
            case TipoForma::LinhaPontilhada:
                AnexarOperandos(saida, x, y);
                saida += "m ";
                AnexarOperandos(saida, x + f.largura, y + f.altura);
                saida += "l S\n";
                continue;
            case TipoForma::Retangulo:
                AnexarOperandos(saida, x, y, f.largura, f.altura);
                saida += "re ";
                break;
            case TipoForma::Arredondado:
                AnexarArredondado(saida, x, y, f.largura, f.altura, f.raio);
                break;
        }
        saida += f.corPreenchimento == Forma::SemPreenchimento ? "S\n" : "B\n";
    }
}

}  // namespace tarvo::pdf
