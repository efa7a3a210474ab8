#include "output/pdf/file/Sumario.h"

#include "output/pdf/file/Metadados.h"
#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

int EscreverSumario(EscritorPDF& escritor, const std::vector<Marcador>& marcadores) {
    const int raiz = escritor.Reservar();
    std::vector<int> itens(marcadores.size());
    for (auto& item : itens) {
        item = escritor.Reservar();
    }
    for (std::size_t i = 0; i < itens.size(); ++i) {
        std::string item = "<</Title" + TextoDeObjeto(marcadores[i].titulo) + "/Parent " +
                           Referencia(raiz) + "/Dest[" + Referencia(marcadores[i].pagina) +
                           "/XYZ null null null]";
        if (i > 0) {
            item += "/Prev " + Referencia(itens[i - 1]);
        }
        if (i + 1 < itens.size()) {
            item += "/Next " + Referencia(itens[i + 1]);
        }
        escritor.Objeto(itens[i], item + ">>");
    }
    escritor.Objeto(raiz, "<</Type/Outlines/First " + Referencia(itens.front()) + "/Last " +
                              Referencia(itens.back()) + "/Count " + std::to_string(itens.size()) +
                              ">>");
    return raiz;
}

}  // namespace tarvo::pdf
