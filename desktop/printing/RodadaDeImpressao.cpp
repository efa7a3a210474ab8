// SPDX-License-Identifier: MIT
#include "desktop/printing/RodadaDeImpressao.h"

#include "desktop/ApoioQt.h"
#include "desktop/Mensagens.h"

namespace tarvo {

using namespace Qt::StringLiterals;

void RodadaDeImpressao::Comecar() {
    *this = {};
    emCurso_ = true;
}

void RodadaDeImpressao::Imprimir(QWidget* janela, const DocumentoImpresso& documento,
                                 Pergunta pergunta) {
    std::optional<OpcoesDeImpressao> daqui;
    auto& opcoes = emCurso_ && pergunta != Pergunta::Sempre ? opcoes_ : daqui;
    ImpressaoQt::ImprimirEEsperar(janela, documento, pergunta, opcoes);
    impressos_ << u"%1 (%2)"_s.arg(ParaQt(documento.titulo), ParaQt(opcoes->impressora));
}

void RodadaDeImpressao::Concluir(QWidget* janela, bool dizer) {
    if (dizer && emCurso_ && !impressos_.isEmpty()) {
        Dizer(janela, u"Enviado à impressora:\n"_s + impressos_.join(u'\n'));
    }
    *this = {};
}

}  // namespace tarvo
