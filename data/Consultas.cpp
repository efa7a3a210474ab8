// SPDX-License-Identifier: MIT
#include "data/Consultas.h"

#include "data/Textos.h"

namespace tarvo {

std::string TextoSql(std::string_view valor) {
    return EntreAspas(valor, '\'');
}

std::string ConsultaContribuinte(std::string_view IE) {
    return "select tblContribuinte.* from tblContribuinte where IE = " + TextoSql(IE);
}

std::string ConsultaIdentificacao(std::string_view IE, std::int32_t NumeroDRQ) {
    return "select tblContribuinte.*, tblDRQ.* from tblContribuinte, tblDRQ "
           "where tblContribuinte.IE = " +
           TextoSql(IE) + " And tblDRQ.NroDRQ = " + std::to_string(NumeroDRQ);
}

std::string ConsultaDaDeclaracao(std::string_view tabela, std::int32_t NumeroDRQ) {
    return "select * from " + std::string(tabela) + " where NroDRQ = " + std::to_string(NumeroDRQ);
}

std::string ConsultaRef1(std::int32_t NumeroDRQ) {
    return "select Ref1 from tblDRQ where NroDRQ = " + std::to_string(NumeroDRQ);
}

}  // namespace tarvo
