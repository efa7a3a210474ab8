// SPDX-License-Identifier: MIT
#include "document/Relatorio.h"

namespace tarvo {

Relatorio::~Relatorio() = default;
RelatorioDeclaracao::~RelatorioDeclaracao() = default;

void Relatorio::Descartar() {
    documento_.Ocultar();
    documento_.Iniciar();
}

void Relatorio::IniciarDocumento() {
    documento_.Iniciar();
    documento_.DefinirTitulo(identidade_.titulo);
    documento_.DefinirTituloResumido(identidade_.tituloResumido);
    documento_.DefinirIcone(*identidade_.icone);
    documento_.DefinirOrientacao(identidade_.orientacao);
    const Margens& m = identidade_.margens;
    documento_.DefinirMargens(m.esquerda, m.direita, m.superior, m.inferior);
}

void Relatorio::Rever(BancoDados& banco, const std::string& IE,
                      std::optional<std::int32_t> NumeroDRQ) {
    if (ambiente_.revisor != nullptr) {
        documento_.DefinirAvisos(
            ambiente_.revisor->Rever(banco, identidade_.classe, IE, NumeroDRQ));
    }
}

void RelatorioDeclaracao::Construir(BancoDados& banco, const std::string& IE,
                                    std::int32_t NumeroDRQ) {
    const Acompanhamento acompanhamento(banco, AmbienteDoRelatorio().andamento);
    const LeituraMantida leitura(banco, IE, NumeroDRQ);
    Desenhar(banco, IE, NumeroDRQ);
    Rever(banco, IE, NumeroDRQ);
}

void RelatorioDeclaracao::Imprimir() {
    bool perguntar = false;
    Desenho().Imprimir(perguntar);
}

}  // namespace tarvo
