// SPDX-License-Identifier: MIT
#include "host/windows/MesDeReferencia.h"

#include <QApplication>
#include <QDate>
#include <QInputDialog>

#include "data/CodigosDeErros.h"
#include "data/Formatos.h"
#include "desktop/ApoioQt.h"
#include "dispatch/Relatorios.h"
#include "reports/ReferenciaAtual.h"
#include "system/settings/ConfiguracoesIni.h"

namespace tarvo::host {

using namespace Qt::StringLiterals;

std::optional<std::string> PerguntarMes(QWidget* pai, const QString& pergunta,
                                        const QString& proposta) {
    QString mes = proposta;
    bool aceito = true;
    do {
        mes = QInputDialog::getText(pai, u"Mês de referência atual"_s, pergunta, QLineEdit::Normal,
                                    mes, &aceito)
                  .trimmed();
    } while (aceito && !QDate::fromString(mes, u"MM/yyyy"_s).isValid());
    return aceito ? std::optional(mes.toStdString()) : std::nullopt;
}

std::string MesDaDeclaracao(BancoDados& banco, std::int32_t NumeroDRQ) {
    try {
        return FormatarMesAno(Relatorios::Referencia(banco, NumeroDRQ));
    } catch (const Erro&) {
        return {};
    }
}

std::string ConfiguracoesComPergunta::Ler(std::string_view aplicacao, std::string_view secao,
                                          std::string_view chave, std::string_view padrao) const {
    using namespace AjusteRefAtual;
    auto valor = daChamada_.Ler(aplicacao, secao, chave, padrao);
    if (!valor.empty() || secao != Secao || chave != Chave) {
        return valor;
    }
    const auto mes = PerguntarMes(QApplication::activeWindow(),
                                  u"O mês de referência atual ainda não foi definido. Os resumos "
                                  "dos CFOPs usam a tabela de códigos deste mês (MM/AAAA):"_s,
                                  ParaQt(proposta_));
    if (!mes) {
        throw Erro(NumeroErro::Cancelado, "Sem o mês de referência o resumo não foi feito.");
    }
    doUsuario_.Gravar(aplicacao, secao, chave, *mes);
    return *mes;
}

}  // namespace tarvo::host
