// SPDX-License-Identifier: MIT
#include "review/Esquema.h"

namespace tarvo::revisao {

namespace {

constexpr std::string_view Resumo =
    "NroDRQ L, Linha T, CFOP T, ValorContábil T, BaseCálculo T, Imposto T, IsentasNãoTrib T, "
    "Outras T, "
    "ImpostoRetidoST T, ImpRetSubstitutoST T, ImpRetSubstituido T, OutrosImpostos T";
constexpr std::string_view Apuracao =
    "NroDRQ L, Campo T, Linha T, CódigoSubitem T, Total T, Valor T";

constexpr TabelaDoEsquema Tabelas[] = {
    {"tblContribuinte",
     "IE T, RazãoSocial T, CNPJ T, DataCadastro D, Localização T, Número T, Complemento T, Bairro "
     "T, "
     "Município T, CEP T, UF T, Telefone T, FAX T, Email T, HomePage T, Contato T, Observação T",
     {"IE"}},
    {"tblDRQ",
     "NroDRQ L, Ref1 D, Ref2 D, Tipo L, RegTrib T, Consistente B, Autenticação T, SaldoCredAntDig "
     "M, "
     "ICMSFixPerRES M, OutrasRES M, DeduçõesRPA M, SaldoCredAntDigST M, DeduçõesST M",
     {"NroDRQ"}},
    {"tblDetalhesCFOPs",
     "NroDRQ L, CFOP T, ValorContábil M, BaseCálculo M, Imposto M, IsentasNãoTrib M, Outras M, "
     "ImpostoRetidoST M, ImpRetSubstitutoST M, ImpRetSubstituido M, OutrosImpostos M",
     {},
     Referencia::Declaracao},
    {"tblDetalhesInterUFs",
     "NroDRQ L, CFOP T, UF T, ValorContábil_1 M, ValorContábil_2 M, BaseCálculo_1 M, BaseCálculo_2 "
     "M, "
     "Imposto M, Outras M, PetróleoEnergia M, OutrosProdutos M, ICMSCobradoST M",
     {},
     Referencia::Declaracao},
    {"tblZFM_ALC",
     "NroDRQ L, CFOP T, NF T, Data D, MunicípioDest T, CNPJDest T, Valor M",
     {},
     Referencia::Declaracao},
    {"tblOcorrências",
     "NroDRQ L, CódSubItem T, Código L, Valor M, OpPróprias B",
     {"Código"},
     Referencia::Declaracao},
    {"tblIEsRemetente", "Código L, IERemetente T, Valor M", {}, Referencia::Subitem},
    {"tblRecibosCredito", "Código L, CodAutorização T, Valor M", {}, Referencia::Subitem},
    {"tblIESubstituido", "Código L, IESubstituido T, NF T, Valor M", {}, Referencia::Subitem},
    {"tblIESubstituto",
     "Código L, IESubstituto T, NF T, DataInicio D, DataFim D, Valor M",
     {},
     Referencia::Subitem},
    {"tblMIDAX", "NroDRQ L, CódMIDAX T, Município T, Valor M", {}, Referencia::Declaracao},
    {"tblRegistroExportação", "NroDRQ L, RE T", {}, Referencia::Declaracao},
    {"tblPagamento", "NroDRQ L, OpPróprias B, Data D, Valor M", {}, Referencia::Declaracao},
    {"tblQuadroOcorrências",
     "CódSubItem T, OpPróprias B, Ocorrência T, FLegal T",
     {"CódSubItem", "OpPróprias"}},
    {"tblEstados", "Código T, UF T, Estado T", {"Código"}},
    {"tblMunicípiosZFM_ALC", "CódMunicípio T, Município T, UF T", {"CódMunicípio"}},
    {"tblMunicípios", "CódMunicípio T, Município T", {"CódMunicípio"}},
    {"tblCódigosMIDAX", "Código T, Descrição T, Cabeçalho T", {"Código"}},
    {"tblVELO",
     "Contribuinte T, Endereço T, Município T, UF T, Telefone T, Observações T, DataVencimento T, "
     "CódigoReceita T, IE T, CPF_CNPJ T, InscriçãoDívidaAtiva T, Referência T, NroAIIM_DI_PARCEL "
     "T, "
     "ValorReceita T, JurosMora T, MultaMora_Infração T, AcréscimoFinanceiro T, "
     "HonoráriosAdvocatícios T, ValorTotal T"},
    {"tblResumoCFOPsEntradas", Resumo, {}, Referencia::Nenhuma, true},
    {"tblResumoCFOPsSaídas", Resumo, {}, Referencia::Nenhuma, true},
    {"tblApuraçãoOperaçõesPróprias", Apuracao, {}, Referencia::Nenhuma, true},
    {"tblApuraçãoSubstituiçãoTributária", Apuracao, {}, Referencia::Nenhuma, true},
};

}  // namespace

std::vector<ColunaDoEsquema> TabelaDoEsquema::Colunas() const {
    std::vector<ColunaDoEsquema> colunas;
    for (std::string_view resto = definicao; !resto.empty();) {
        const auto fim = resto.find(", ");
        const std::string_view uma = resto.substr(0, fim);
        colunas.push_back({uma.substr(0, uma.size() - 2), static_cast<TipoDeColuna>(uma.back())});
        resto = fim == std::string_view::npos ? std::string_view() : resto.substr(fim + 2);
    }
    return colunas;
}

std::span<const TabelaDoEsquema> TabelasDoEsquema() {
    return Tabelas;
}

}  // namespace tarvo::revisao
