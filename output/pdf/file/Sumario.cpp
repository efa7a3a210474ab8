// SPDX-License-Identifier: MIT
#include "output/pdf/file/Sumario.h"

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

namespace {

// An entry, or the outline itself, and what stands next to it.
struct Item {
    int objeto = 0;
    std::size_t pai = 0;
    std::size_t anterior = 0;  // 0 for none, here and below
    std::size_t seguinte = 0;
    std::size_t primeiro = 0;
    std::size_t ultimo = 0;
    int filhos = 0;
};

// The outline, then the entries.
std::vector<Item> Ligar(EscritorPDF& escritor, const std::vector<Marcador>& marcadores) {
    std::vector<Item> itens(marcadores.size() + 1);
    std::size_t acima = 0;  // the last entry of the upper level
    for (std::size_t i = 0; i < itens.size(); ++i) {
        Item& item = itens[i];
        item.objeto = escritor.Reservar();
        if (i == 0) {
            continue;
        }
        item.pai = marcadores[i - 1].abaixo ? acima : 0;
        acima = marcadores[i - 1].abaixo ? acima : i;
        Item& pai = itens[item.pai];
        item.anterior = pai.ultimo;
        if (pai.ultimo != 0) {
            itens[pai.ultimo].seguinte = i;
        } else {
            pai.primeiro = i;
        }
        pai.ultimo = i;
        ++pai.filhos;
    }
    return itens;
}

}  // namespace

int EscreverSumario(EscritorPDF& escritor, const std::vector<Marcador>& marcadores) {
    const auto itens = Ligar(escritor, marcadores);
    for (std::size_t i = 0; i < itens.size(); ++i) {
        const Item& item = itens[i];
        std::string objeto = i == 0 ? "<</Type/Outlines" : "<<";
        const auto ligar = [&](const char* nome, std::size_t outro) {
            objeto += nome + Referencia(itens[outro].objeto);
        };
        if (i > 0) {
            const Marcador& marcador = marcadores[i - 1];
            objeto += "/Title";
            AnexarTexto(objeto, marcador.titulo);
            ligar("/Parent ", item.pai);
            objeto += "/Dest[" + Referencia(marcador.pagina) + "/XYZ null ";
            AnexarOperandos(objeto, marcador.topo);
            objeto += "null]";
        }
        if (item.anterior != 0) {
            ligar("/Prev ", item.anterior);
        }
        if (item.seguinte != 0) {
            ligar("/Next ", item.seguinte);
        }
        if (item.filhos != 0) {
            ligar("/First ", item.primeiro);
            ligar("/Last ", item.ultimo);
            // What stands below an entry is folded.
            objeto += "/Count " + std::to_string(i == 0 ? item.filhos : -item.filhos);
        }
        escritor.Objeto(item.objeto, objeto + ">>");
    }
    return itens.front().objeto;
}

}  // namespace tarvo::pdf
