// SPDX-License-Identifier: MIT
#include "output/pdf/page/PaginaPDF.h"

#include <algorithm>

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

const std::string& PaginaPDF::Desenhar(const Pagina& pagina, std::span<const std::uint32_t> donos,
                                       const Substituicoes& substituicoes) {
    saida_ = IniciarTraco;
    operadores_.Reiniciar();
    textos_.IniciarPagina(substituicoes);
    for (std::size_t i = 0; i < pagina.size(); ++i) {
        marcas_.Pertencer(i < donos.size() ? donos[i] : Estrutura::Decoracao);
        std::visit([this](const auto& p) { Desenhar(p); }, pagina[i]);
    }
    EncerrarCamada();
    return saida_;
}

void PaginaPDF::Acrescentar(const Forma& forma) {
    if (ocupadas_.TemCobertaPor(forma)) {
        EncerrarCamada();
    }
    // Two cells in one place draw one frame twice, which would only make it look thicker.
    if (formas_.empty() || formas_.back() != forma) {
        formas_.push_back(forma);
    }
}

void PaginaPDF::EncerrarCamada() {
    if (!formas_.empty()) {
        marcas_.AbrirDecoracao(saida_);
        EscreverFormas();
        marcas_.FecharDecoracao(saida_);
    }
    operadores_.Entregar(saida_);
    formas_.clear();
    ocupadas_.Limpar();
}

void PaginaPDF::EscreverFormas() {
    constexpr std::size_t MenorPagina = 8;
    if (formas_.size() >= MenorPagina) {
        if (const auto formulario = recursos_.paginas.Procurar(formas_, 0, 0);
            !formulario.empty()) {
            saida_.append("/").append(formulario).append(" Do\n");
            return;
        }
    }
    saida_ += "q\n";
    std::span<const Forma> resto = formas_;
    while (!resto.empty()) {
        // A row: shapes one after the other that stand on one line.
        const auto fim = std::find_if(resto.begin(), resto.end(), [&](const Forma& f) {
            return f.y != resto.front().y || f.altura != resto.front().altura;
        });
        const auto quantas = static_cast<std::size_t>(fim - resto.begin());
        EscreverFileira(resto.first(quantas));
        resto = resto.subspan(quantas);
    }
    saida_ += "Q\n";
}

void PaginaPDF::EscreverFileira(std::span<const Forma> formas) {
    const auto& primeira = formas.front();
    // A form pays for what is longer than its name and place.
    constexpr std::size_t MenorFileira = 3;
    if (formas.size() >= MenorFileira || primeira.tipo == TipoForma::Arredondado) {
        const auto formulario = recursos_.fileiras.Procurar(formas, primeira.x, primeira.y);
        if (!formulario.empty()) {
            saida_ += "q 1 0 0 1 ";
            AnexarOperandos(saida_, primeira.x, primeira.y);
            saida_.append("cm/").append(formulario).append(" Do Q\n");
            return;
        }
    }
    AnexarFormas(saida_, formas, 0, 0);
}

void PaginaPDF::Desenhar(const Figura& figura) {
    const auto& imagem = *figura.imagem;
    const auto [x, topo, largura, altura] = papel_.LugarDe(figura);
    const Centesimos y = topo - altura;
    const Area area{std::min(x, x + largura), std::min(y, topo), std::max(x, x + largura),
                    std::max(y, topo)};
    if (imagem.descricao.empty()) {
        marcas_.Pertencer(Estrutura::Decoracao);  // there is nothing to say of it
    }
    marcas_.Retratar({area.x0, area.y0, area.x1, area.y1}, imagem.descricao);
    operadores_.DesenharFigura(recursos_.figuras.Obter(imagem), x, y, largura, altura);
    ocupadas_.Ocupar(area, AreasOcupadas::VariasCores);
}

}  // namespace tarvo::pdf
