// SPDX-License-Identifier: MIT
#include "desktop/preview/LeituraDoDocumento.h"

#include <QStringList>
#include <algorithm>
#include <limits>

#include "desktop/preview/DocumentoPronto.h"

namespace tarvo {

namespace {

constexpr auto SemTexto = std::numeric_limits<std::size_t>::max();

// By element: what it is read as a part of, or itself. A label is read with its value, a cell with
// all that it holds.
std::vector<std::uint32_t> LidosEm(const std::vector<Elemento>& elementos) {
    std::vector<std::uint32_t> lidosEm(elementos.size());
    for (std::uint32_t i = 1; i < elementos.size(); ++i) {
        const auto doPai = lidosEm[elementos[i].pai];
        const auto tipo = elementos[doPai].tipo;
        lidosEm[i] = ECelula(tipo) || tipo == TipoElemento::Campo ? doPai : i;
    }
    return lidosEm;
}

}  // namespace

LeituraDoDocumento::LeituraDoDocumento(const DocumentoPronto& documento)
    : documento_(documento),
      lidosEm_(LidosEm(documento.elementos)),
      colunas_(documento.elementos.size()),
      linhas_(documento.elementos.size()),
      tituloDaLinha_(documento.elementos.size(), Estrutura::Decoracao),
      primeiraCelula_(documento.elementos.size(), SemTexto) {
    const auto& celulas = documento_.celulas;
    for (std::size_t i = celulas.Primeira(Paginas()); i-- > 0;) {
        if (const auto dono = QueSeLe(i)) {
            primeiraCelula_[*dono] = i;
        }
    }
    Dispor();
}

std::optional<std::uint32_t> LeituraDoDocumento::QueSeLe(std::size_t celula) const {
    const auto dono = documento_.celulas.Dono(celula);
    return dono < lidosEm_.size() ? std::optional(lidosEm_[dono]) : std::nullopt;
}

int LeituraDoDocumento::Paginas() const {
    return documento_.celulas.Paginas();
}

// --- the grid of the tables

void LeituraDoDocumento::Dispor() {
    const auto& elementos = documento_.elementos;
    for (std::uint32_t i = 1; i < elementos.size(); ++i) {
        if (elementos[i].tipo == TipoElemento::LinhaDeTabela) {
            auto& linhas = tabelas_[elementos[i].pai].linhas;
            linhas_[i] = static_cast<std::uint32_t>(linhas.size());
            linhas.push_back(i);
        } else if (ECelula(elementos[i].tipo)) {
            DisporCelula(i);
        }
    }
}

// A cell stands in the first column that no cell of its row, or of one above, reaches into.
void LeituraDoDocumento::DisporCelula(std::uint32_t celula) {
    const auto& elemento = documento_.elementos[celula];
    const auto linha = elemento.pai;
    auto& tabela = tabelas_[documento_.elementos[linha].pai];
    const int ordem = static_cast<int>(linhas_[linha]);
    auto& ocupada = tabela.ocupada;
    std::size_t coluna = 0;
    while (coluna < ocupada.size() && ocupada[coluna] > ordem) {
        ++coluna;
    }
    colunas_[celula] = static_cast<std::uint16_t>(coluna);
    ocupada.resize(std::max(ocupada.size(), coluna + elemento.colunas));
    std::fill_n(ocupada.begin() + static_cast<std::ptrdiff_t>(coluna), elemento.colunas,
                ordem + std::max<int>(1, elemento.linhas));
    if (elemento.tipo == TipoElemento::CelulaDeTitulo && elemento.escopo == Escopo::Coluna) {
        tabela.titulos.push_back(celula);
    } else if (coluna == 0 || elemento.tipo == TipoElemento::CelulaDeTitulo) {
        tituloDaLinha_[linha] = celula;
    }
}

int LeituraDoDocumento::Largura(std::uint32_t celula) const {
    return std::max<int>(1, documento_.elementos[celula].colunas);
}

int LeituraDoDocumento::Colunas(std::uint32_t tabela) const {
    const auto achada = tabelas_.find(tabela);
    return achada == tabelas_.end() ? 0 : static_cast<int>(achada->second.ocupada.size());
}

std::vector<std::uint32_t> LeituraDoDocumento::TitulosDaColuna(std::uint32_t tabela,
                                                               int coluna) const {
    std::vector<std::uint32_t> titulos;
    if (const auto achada = tabelas_.find(tabela); achada != tabelas_.end()) {
        for (const auto titulo : achada->second.titulos) {
            if (coluna >= Coluna(titulo) && coluna < Coluna(titulo) + Largura(titulo)) {
                titulos.push_back(titulo);
            }
        }
    }
    return titulos;
}

QString LeituraDoDocumento::TituloDaColuna(std::uint32_t tabela, int coluna) const {
    QStringList partes;
    for (const auto titulo : TitulosDaColuna(tabela, coluna)) {
        partes << TextoDo(titulo);
    }
    partes.removeAll(QString());
    return partes.join(QStringLiteral(", "));
}

std::optional<std::uint32_t> LeituraDoDocumento::QueIntitula(std::uint32_t linha) const {
    const auto titulo = tituloDaLinha_.at(linha);
    return titulo == Estrutura::Decoracao ? std::nullopt : std::optional(titulo);
}

QString LeituraDoDocumento::TituloDaLinha(std::uint32_t linha) const {
    const auto titulo = QueIntitula(linha);
    return titulo ? TextoDo(*titulo) : QString();
}

bool LeituraDoDocumento::IntitulaLinha(std::uint32_t celula) const {
    return tituloDaLinha_.at(documento_.elementos[celula].pai) == celula;
}

std::optional<LugarDeLeitura> LeituraDoDocumento::OndeEsta(std::uint32_t elemento) {
    const auto celula = primeiraCelula_.at(elemento);
    if (celula == SemTexto) {
        return std::nullopt;
    }
    const int pagina = documento_.celulas.PaginaDa(celula);
    const auto& nos = Pagina(pagina);
    const auto no =
        std::find_if(nos.begin(), nos.end(), [&](const No& um) { return um.elemento == elemento; });
    return no == nos.end()
               ? std::nullopt
               : std::optional(LugarDeLeitura{pagina, static_cast<int>(no - nos.begin())});
}

// What follows on the same page belongs to it too.
QString LeituraDoDocumento::TextoDo(std::uint32_t elemento) const {
    const auto& celulas = documento_.celulas;
    const auto primeira = primeiraCelula_.at(elemento);
    if (primeira == SemTexto) {
        return {};
    }
    const int pagina = celulas.PaginaDa(primeira);
    QStringList textos;
    for (auto i = primeira; i < celulas.Primeira(pagina + 1) && QueSeLe(i) == elemento; ++i) {
        textos << celulas.TextoDa(i, pagina);
    }
    return textos.join(u' ');
}

// --- a page

std::map<std::uint32_t, LeituraDoDocumento::No> LeituraDoDocumento::Mostrados(int pagina) const {
    const auto& celulas = documento_.celulas;
    std::map<std::uint32_t, No> mostrados;
    const auto mostrar = [&](std::uint32_t elemento, const QString& texto, const QRectF& lugar) {
        auto& no = mostrados[elemento];
        no.texto += (no.texto.isEmpty() ? QString() : QString(u' ')) + texto;
        no.lugar |= lugar;
    };
    for (auto i = celulas.Primeira(pagina); i < celulas.Primeira(pagina + 1); ++i) {
        if (const auto dono = QueSeLe(i)) {
            mostrar(*dono, celulas.TextoDa(i, pagina), celulas.Lugar(i));
        }
    }
    for (const auto& figura : celulas.Figuras()) {
        if (figura.pagina == pagina) {
            mostrar(lidosEm_.at(figura.dono), figura.descricao, figura.lugar);
        }
    }
    return mostrados;
}

const std::vector<LeituraDoDocumento::No>& LeituraDoDocumento::Pagina(int pagina) {
    const auto [achada, nova] = paginas_.try_emplace(pagina);
    auto& nos = achada->second;
    if (!nova) {
        return nos;
    }
    const auto& elementos = documento_.elementos;
    auto presentes = Mostrados(pagina);
    for (const auto& [e, no] : presentes) {
        for (auto pai = elementos[e].pai; pai != Estrutura::Raiz; pai = elementos[pai].pai) {
            presentes.try_emplace(pai);
        }
    }
    // An empty cell between others has its place in the row.
    for (const auto& [e, no] : presentes) {
        if (elementos[e].tipo == TipoElemento::LinhaDeTabela) {
            for (auto c = e + 1; c < elementos.size() && elementos[c].pai == e; ++c) {
                presentes.try_emplace(c);
            }
        }
    }
    nos.emplace_back();
    std::map<std::uint32_t, int> indices{{Estrutura::Raiz, 0}};
    for (auto& [e, no] : presentes) {
        const int indice = static_cast<int>(nos.size());
        no.tipo = elementos[e].tipo;
        no.elemento = e;
        no.pai = indices.at(elementos[e].pai);
        nos[static_cast<std::size_t>(no.pai)].filhos.push_back(indice);
        indices.emplace(e, indice);
        nos.push_back(std::move(no));
    }
    for (auto i = nos.size(); i-- > 1;) {
        nos[static_cast<std::size_t>(nos[i].pai)].lugar |= nos[i].lugar;
    }
    return nos;
}

}  // namespace tarvo
