// SPDX-License-Identifier: MIT
#include "desktop/preview/CelulasDeTexto.h"

#include "data/Formatos.h"
#include "desktop/ApoioQt.h"
#include "document/Imagens.h"
#include "document/Momento.h"
#include "document/Substituicoes.h"

namespace tarvo {

namespace {

constexpr double PontosPorCm = 72.0 / 2.54;

// A document made by hand may have no structure.
std::uint32_t DonoDe(const Estrutura& estrutura, std::size_t pagina, std::size_t primitiva) {
    const bool tem = pagina < estrutura.donos.size() && primitiva < estrutura.donos[pagina].size();
    return tem ? estrutura.donos[pagina][primitiva] : Estrutura::Decoracao;
}

}  // namespace

CelulasDeTexto::CelulasDeTexto(const Conteudo& conteudo) : margens_(conteudo.margens) {
    const auto agora = Data::DeCivil(Momento::Agora().civil);
    data_ = FormatarData(agora);
    hora_ = FormatarHora(agora);
    paginas_.reserve(conteudo.paginas.size() + 1);
    for (std::size_t p = 0; p < conteudo.paginas.size(); ++p) {
        paginas_.push_back(celulas_.size());
        const auto& pagina = conteudo.paginas[p];
        for (std::size_t i = 0; i < pagina.size(); ++i) {
            if (const auto* t = std::get_if<Texto>(&pagina[i]); t != nullptr && !t->texto.empty()) {
                const QRectF lugar = NaPagina(t->caixa);
                celulas_.push_back({static_cast<float>(lugar.x()), static_cast<float>(lugar.y()),
                                    static_cast<float>(lugar.width()),
                                    static_cast<float>(lugar.height()),
                                    DonoDe(conteudo.estrutura, p, i), textos_.size()});
                textos_.append(t->texto).push_back('\0');
            } else if (const auto* figura = std::get_if<Figura>(&pagina[i])) {
                if (const auto dono = DonoDe(conteudo.estrutura, p, i);
                    dono != Estrutura::Decoracao && figura->imagem != nullptr) {
                    figuras_.push_back({static_cast<int>(p), dono, NaPagina(figura->caixa),
                                        ParaQt(figura->imagem->descricao)});
                }
            }
        }
    }
    paginas_.push_back(celulas_.size());
}

int CelulasDeTexto::PaginaDa(std::size_t celula) const {
    const auto depois = std::upper_bound(paginas_.begin(), paginas_.end(), celula);
    return static_cast<int>(depois - paginas_.begin()) - 1;
}

QRectF CelulasDeTexto::NaPagina(const Caixa& caixa) const {
    return {(caixa.x + margens_.esquerda) * PontosPorCm,
            (caixa.y + margens_.superior) * PontosPorCm, caixa.largura * PontosPorCm,
            caixa.altura * PontosPorCm};
}

QRectF CelulasDeTexto::Lugar(std::size_t celula) const {
    const auto& c = celulas_[celula];
    return {c.x, c.y, c.largura, c.altura};
}

std::vector<std::size_t> CelulasDeTexto::Tocadas(int pagina, const QRectF& area) const {
    std::vector<std::size_t> tocadas;
    const auto indice = static_cast<std::size_t>(pagina);
    if (pagina < 0 || indice + 1 >= paginas_.size()) {
        return tocadas;
    }
    for (std::size_t i = paginas_[indice]; i < paginas_[indice + 1]; ++i) {
        if (area.intersects(Lugar(i))) {
            tocadas.push_back(i);
        }
    }
    return tocadas;
}

std::vector<QRectF> CelulasDeTexto::Caixas(int pagina, const QRectF& area) const {
    std::vector<QRectF> caixas;
    for (const auto i : Tocadas(pagina, area)) {
        caixas.push_back(Lugar(i));
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
    return ParaQt(Substituir(TextoGravado(celula), por, espaco)).simplified();
}

}  // namespace tarvo
