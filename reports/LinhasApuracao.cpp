// SPDX-License-Identifier: MIT
#include "reports/LinhasApuracao.h"

#include "data/CodigosDeErros.h"
#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"

namespace tarvo {

namespace {

// Columns that a line leaves empty stay Null.
std::optional<std::string_view> NuloSeVazio(std::string_view texto) {
    return texto.empty() ? std::nullopt : std::optional(texto);
}

}  // namespace

LinhasApuracao::LinhasApuracao(BancoDados& banco, std::string_view tabela, bool opProprias,
                               std::int32_t NumeroDRQ)
    : banco_(banco),
      opProprias_(opProprias),
      numeroDRQ_(NumeroDRQ),
      tabela_(banco, tabela, NumeroDRQ) {}

void LinhasApuracao::Rotulo(std::string_view campo, std::string_view rotulo) {
    tabela_.Acrescentar({{"Campo", NuloSeVazio(campo)}, {"Linha", rotulo}});
}

void LinhasApuracao::Componente(std::string_view rotulo, std::string_view valor) {
    tabela_.Acrescentar({{"Linha", rotulo}, {"CódigoSubitem", NuloSeVazio(valor)}});
}

void LinhasApuracao::Item(std::string_view item, std::string_view rotulo) {
    Rotulo(item, rotulo);
    ListarSubitens(item, "ORDER BY CódSubitem");
}

Moeda LinhasApuracao::Total(std::string_view campo, std::string_view rotulo, std::string_view total,
                            Moeda valor) {
    tabela_.Acrescentar({{"Campo", NuloSeVazio(campo)},
                         {"Linha", NuloSeVazio(rotulo)},
                         {"Total", total},
                         {"Valor", FormatarValor(valor)}});
    return valor;
}

Valor LinhasApuracao::DaDeclaracao(std::string_view campo) {
    const auto declaracao =
        banco_.OpenRecordset(ConsultaDaDeclaracao("tblDRQ", numeroDRQ_), TipoRecordset::Dynaset);
    return declaracao->Fields(campo);
}

Moeda LinhasApuracao::ExigirDaDeclaracao(std::string_view campo) {
    const Valor valor = DaDeclaracao(campo);
    if (EhNulo(valor)) {
        LancarUsoInvalidoDeNull("a declaração não tem " + std::string(campo));
    }
    return MoedaCampo(valor);
}

void LinhasApuracao::ListarSubitens(std::string_view item, std::string_view ordem) {
    const auto subitens = banco_.OpenRecordset(
        "SELECT * FROM tblOcorrências WHERE ((NroDRQ=" + std::to_string(numeroDRQ_) +
            ") AND (OpPróprias=" + (opProprias_ ? "True" : "False") +
            ") AND (Left(CódSubitem, 3)=" + TextoSql(item) + "))" + std::string(ordem),
        TipoRecordset::Dynaset);
    for (; !subitens->EOF_(); subitens->MoveNext()) {
        const Valor valor = subitens->Fields("Valor");
        Componente(std::string(12, ' ') + TextoCampo(subitens->Fields("CódSubItem")),
                   EhNulo(valor) ? "" : FormatarValor(MoedaCampo(valor)));
    }
}

}  // namespace tarvo
