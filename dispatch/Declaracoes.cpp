// SPDX-License-Identifier: MIT
#include "dispatch/Declaracoes.h"

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "document/QuadroPagina.h"

namespace tarvo {

namespace {

bool TemLinha(BancoDados& banco, const std::string& consulta) {
    return !banco.OpenRecordset(consulta, TipoRecordset::ForwardOnly)->EOF_();
}

}  // namespace

std::vector<Contribuinte> LerContribuintes(BancoDados& banco) {
    std::vector<Contribuinte> lista;
    const auto rs = banco.OpenRecordset(
        "select IE, RazãoSocial, CNPJ from tblContribuinte order by RazãoSocial, IE",
        TipoRecordset::ForwardOnly);
    for (; !rs->EOF_(); rs->MoveNext()) {
        lista.push_back({TextoCampo(rs->Fields("IE")), TextoCampo(rs->Fields("RazãoSocial")),
                         TextoCampo(rs->Fields("CNPJ"))});
    }
    return lista;
}

void PercorrerDeclaracoes(BancoDados& banco,
                          const std::function<void(const Declaracao& declaracao)>& visitar) {
    const bool temIE = TemColuna(
        *banco.OpenRecordset("select * from tblDRQ where NroDRQ = 0", TipoRecordset::ForwardOnly),
        "IE");
    // Hosts that keep a database for each taxpayer have no need of the column.
    std::optional<std::string> unico;
    if (!temIE) {
        const auto contribuintes = LerContribuintes(banco);
        if (contribuintes.size() == 1) {
            unico = contribuintes.front().IE;
        }
    }
    const auto rs = banco.OpenRecordset(
        std::string("select ") + (temIE ? "IE, " : "") +
            "NroDRQ, Ref1, RegTrib, Tipo, Consistente from tblDRQ order by Ref1, NroDRQ",
        TipoRecordset::ForwardOnly);
    for (; !rs->EOF_(); rs->MoveNext()) {
        Declaracao d;
        d.IE = unico;
        if (std::string IE = temIE ? TextoCampo(rs->Fields("IE")) : ""; !IE.empty()) {
            d.IE = std::move(IE);
        }
        d.NroDRQ = LongCampo(rs->Fields("NroDRQ"));
        d.ref1 = DataCampo(rs->Fields("Ref1"));
        d.referencia = EhNulo(rs->Fields("Ref1")) ? "" : FormatarMesAno(d.ref1);
        d.regime = TextoCampo(rs->Fields("RegTrib"));
        d.tipo = TipoDaDRQ(LongCampo(rs->Fields("Tipo")));
        d.consistente = BooleanoCampo(rs->Fields("Consistente"));
        visitar(d);
    }
}

std::vector<Declaracao> LerDeclaracoes(BancoDados& banco) {
    std::vector<Declaracao> lista;
    PercorrerDeclaracoes(banco, [&](const Declaracao& d) { lista.push_back(d); });
    return lista;
}

bool ExisteContribuinte(BancoDados& banco, const std::string& IE) {
    return TemLinha(banco, ConsultaContribuinte(IE));
}

bool ExisteDeclaracao(BancoDados& banco, std::int32_t NroDRQ) {
    return TemLinha(banco, ConsultaRef1(NroDRQ));
}

}  // namespace tarvo
