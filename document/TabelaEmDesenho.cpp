// SPDX-License-Identifier: MIT
#include "document/TabelaEmDesenho.h"

#include <cmath>

namespace tarvo {

TabelaEmDesenho::TabelaEmDesenho(DocumentoRelatorio& doc)
    : doc_(doc), tabela_(doc, {.tipo = TipoElemento::Tabela}) {}

void TabelaEmDesenho::ComecarTitulos(int linhas, double y, double alturaLinha) {
    if (titulos_ != Estrutura::Raiz) {
        titulos_ = Estrutura::Decoracao;
        return;
    }
    linhas_ = linhas;
    y_ = y;
    alturaLinha_ = alturaLinha;
    titulos_ = Trecho(doc_, LinhaDe(FuncaoDaLinha::Titulos)).Indice();
    for (int i = 1; i < linhas; ++i) {
        const Trecho linha(doc_, LinhaDe(FuncaoDaLinha::Titulos));
    }
}

void TabelaEmDesenho::Titulo(const EstiloTexto& estilo, double x, double y, double largura,
                             double altura, std::string_view texto, int colunas) {
    int nivel = 0;
    int linhas = 1;
    if (linhas_ > 1) {
        nivel = static_cast<int>(std::lround((y - y_) / alturaLinha_));
        linhas = static_cast<int>(std::lround(altura / alturaLinha_));
    }
    const Trecho linha(doc_, LinhaDeTitulos(nivel));
    Celula(doc_, TituloDeColuna(colunas, linhas), estilo, x, y, largura, altura, texto);
}

void TabelaEmDesenho::Caixa(const EstiloCampo& estilo, double x, double y, double largura,
                            double altura, std::string_view rotulo, std::string_view valor,
                            Elemento celula) {
    DesenharMoldura(doc_, x, y, largura, altura);
    {
        const Trecho linha(doc_, LinhaDeTitulos(0));
        const Trecho titulo(doc_, TituloDeColuna(celula.colunas));
        EscreverEmCaixa(doc_, estilo.rotulo, x, y, largura, altura, rotulo);
    }
    const Trecho trecho(doc_, celula);
    EscreverEmCaixa(doc_, estilo.valor, x, y, largura, altura, valor);
}

// Heading rows follow each other, so that the first one's index gives the others'.
std::uint32_t TabelaEmDesenho::LinhaDeTitulos(int nivel) const {
    return titulos_ == Estrutura::Decoracao ? titulos_
                                            : titulos_ + static_cast<std::uint32_t>(nivel);
}

}  // namespace tarvo
