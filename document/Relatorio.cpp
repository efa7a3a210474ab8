#include "document/Relatorio.h"

#include "document/Imagens.h"

namespace tarvo {

void Relatorio::Imprimir() {
    bool perguntar = false;
    documento_.Imprimir(perguntar);
}

void Relatorio::IniciarDocumento() {
    documento_.Iniciar();
    documento_.DefinirTitulo(identidade_.titulo);
    documento_.DefinirTituloResumido(identidade_.tituloResumido);
    documento_.DefinirIcone(frmFiguras::imgIconeR);
    documento_.DefinirOrientacao(identidade_.orientacao);
    documento_.DefinirMargens(2.0, 2.0, 2.0, 2.0);
}

}  // namespace tarvo
