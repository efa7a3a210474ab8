#include "output/pdf/page/PaginaPDF.h"

#include <algorithm>

namespace tarvo::pdf {

namespace {
constexpr std::int32_t SemCor = -1;
}  // namespace

const std::string& PaginaPDF::Desenhar(const Pagina& pagina, const Substituicoes& substituicoes,
                                       std::vector<TextoCortado>& cortados) {
    substituicoes_ = &substituicoes;
    cortados_ = &cortados;
    saida_ = IniciarTraco;
    escrita_.Reiniciar();
    for (const auto& primitiva : pagina) {
        std::visit([this](const auto& p) { Desenhar(p); }, primitiva);
    }
    EncerrarCamada();
    return saida_;
}

void PaginaPDF::Acrescentar(const Forma& forma) {
    if (CobreAlgo(forma)) {
        EncerrarCamada();
    }
    // Two cells in one place draw one frame twice, which would only make it look thicker.
    if (formas_.empty() || formas_.back() != forma) {
        formas_.push_back(forma);
    }
}

bool PaginaPDF::CobreAlgo(const Forma& forma) const {
    const auto cobre = [&forma](const Pendente& p) {
        // In one and the same colour the order makes no difference.
        return !forma.SoPinta(p.cor) && forma.Pinta(p.area);
    };
    return std::any_of(porCor_.begin(), porCor_.end(), cobre) &&
           std::any_of(pendentes_.begin(), pendentes_.end(), cobre);
}

void PaginaPDF::Pender(const Retangular& area, std::int32_t cor) {
    pendentes_.push_back({area, cor});
    const auto mesma = std::find_if(porCor_.begin(), porCor_.end(),
                                    [cor](const Pendente& p) { return p.cor == cor; });
    if (mesma == porCor_.end()) {
        porCor_.push_back({area, cor});
    } else {
        mesma->area.Unir(area);
    }
}

void PaginaPDF::EncerrarCamada() {
    EscreverFormas();
    escrita_.Entregar(saida_);
    formas_.clear();
    pendentes_.clear();
    porCor_.clear();
}

void PaginaPDF::EscreverFormas() {
    if (formas_.empty()) {
        return;
    }
    constexpr std::size_t MenorPagina = 8;
    if (formas_.size() >= MenorPagina) {
        if (const auto molde = recursos_.paginas.Procurar(formas_, 0, 0); !molde.empty()) {
            saida_.append("/").append(molde).append(" Do\n");
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
        EscreverLinhaDeFormas(resto.first(quantas));
        resto = resto.subspan(quantas);
    }
    saida_ += "Q\n";
}

void PaginaPDF::EscreverLinhaDeFormas(std::span<const Forma> formas) {
    const auto& primeira = formas.front();
    // A form pays for what is longer than its name and place.
    constexpr std::size_t MenorLinha = 3;
    if (formas.size() >= MenorLinha || primeira.tipo == TipoForma::Arredondado) {
        const auto molde = recursos_.linhas.Procurar(formas, primeira.x, primeira.y);
        if (!molde.empty()) {
            saida_ += "q 1 0 0 1 ";
            AnexarOperandos(saida_, primeira.x, primeira.y);
            saida_.append("cm/").append(molde).append(" Do Q\n");
            return;
        }
    }
    AnexarFormas(saida_, formas, 0, 0);
}

void PaginaPDF::Desenhar(const Figura& figura) {
    const auto& imagem = *figura.imagem;
    Caixa caixa = figura.caixa;
    if (figura.proporcional) {
        const double escala =
            std::min(caixa.largura / imagem.largura, caixa.altura / imagem.altura);
        const double largura = imagem.largura * escala;
        const double altura = imagem.altura * escala;
        caixa = {caixa.x + (caixa.largura - largura) / 2, caixa.y + (caixa.altura - altura) / 2,
                 largura, altura};
    }
    const Centesimos x = X(caixa.x);
    const Centesimos y = Y(caixa.y + caixa.altura);
    const Centesimos largura = DeCm(caixa.largura);
    const Centesimos altura = DeCm(caixa.altura);
    escrita_.Figura(recursos_.figuras.Obter(imagem), x, y, largura, altura);
    Pender({std::min(x, x + largura), std::min(y, y + altura), std::max(x, x + largura),
            std::max(y, y + altura)},
           SemCor);
}

}  // namespace tarvo::pdf
