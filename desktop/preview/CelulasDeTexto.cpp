#include "desktop/preview/CelulasDeTexto.h"

#include <algorithm>
#include <cmath>

#include "data/Formatos.h"
#include "desktop/ApoioQt.h"
#include "document/Momento.h"
#include "document/Substituicoes.h"

namespace tarvo {

namespace {

constexpr double PontosPorCm = 72.0 / 2.54;

}  // namespace

CelulasDeTexto::CelulasDeTexto(const Conteudo& conteudo) {
    const auto agora = Data::DeCivil(Momento::Agora().civil);
    data_ = FormatarData(agora);
    hora_ = FormatarHora(agora);
    const auto ponto = [](double cm) { return static_cast<float>(cm * PontosPorCm); };
    paginas_.reserve(conteudo.paginas.size() + 1);
    for (const auto& pagina : conteudo.paginas) {
        paginas_.push_back(celulas_.size());
        for (const auto& primitiva : pagina) {
            if (const auto* t = std::get_if<Texto>(&primitiva); t != nullptr && !t->texto.empty()) {
                celulas_.push_back({ponto(t->caixa.x + conteudo.margens.esquerda),
                                    ponto(t->caixa.y + conteudo.margens.superior),
                                    ponto(t->caixa.largura), ponto(t->caixa.altura),
                                    textos_.size()});
                textos_.append(t->texto).push_back('\0');
            }
        }
    }
    paginas_.push_back(celulas_.size());
}

std::vector<std::size_t> CelulasDeTexto::Tocadas(int pagina, const QRectF& area) const {
    std::vector<std::size_t> tocadas;
    const auto indice = static_cast<std::size_t>(pagina);
    if (pagina < 0 || indice + 1 >= paginas_.size()) {
        return tocadas;
    }
    for (std::size_t i = paginas_[indice]; i < paginas_[indice + 1]; ++i) {
        const auto& c = celulas_[i];
        if (area.intersects(QRectF(c.x, c.y, c.largura, c.altura))) {
            tocadas.push_back(i);
        }
    }
    return tocadas;
}

std::vector<QRectF> CelulasDeTexto::Caixas(int pagina, const QRectF& area) const {
    std::vector<QRectF> caixas;
    for (const auto i : Tocadas(pagina, area)) {
        const auto& c = celulas_[i];
        caixas.emplace_back(c.x, c.y, c.largura, c.altura);
    }
    return caixas;
}

QString CelulasDeTexto::Copiar(int pagina, const QRectF& area) const {
    auto tocadas = Tocadas(pagina, area);
    const auto meio = [this](std::size_t i) { return celulas_[i].y + celulas_[i].altura / 2; };
    std::stable_sort(tocadas.begin(), tocadas.end(),
                     [&](auto a, auto b) { return meio(a) < meio(b); });
    // Cells whose middles are a hair apart stand in one row; within it the order is by x.
    constexpr float MesmaLinha = 2.0F;  // points
    QString texto;
    for (auto linha = tocadas.begin(); linha != tocadas.end();) {
        const auto fim = std::find_if(linha, tocadas.end(),
                                      [&](auto i) { return meio(i) - meio(*linha) > MesmaLinha; });
        std::stable_sort(linha, fim, [&](auto a, auto b) { return celulas_[a].x < celulas_[b].x; });
        texto += texto.isEmpty() ? QString() : QString(u'\n');
        for (auto i = linha; i != fim; ++i) {
            texto += (i == linha ? QString() : QString(u'\t')) + TextoDa(*i, pagina);
        }
        linha = fim;
    }
    return texto;
}

QString CelulasDeTexto::TextoDa(std::size_t celula, int pagina) const {
    const Substituicoes por{.data = data_,
                            .hora = hora_,
                            .pagina = std::to_string(pagina + 1),
                            .paginas = std::to_string(paginas_.size() - 1)};
    std::string espaco;
    // A cell with line breaks stays one cell.
    return ParaQt(Substituir(textos_.c_str() + celulas_[celula].inicio, por, espaco)).simplified();
}

}  // namespace tarvo
