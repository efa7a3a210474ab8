// SPDX-License-Identifier: MIT
#include "data/TabelasDoBanco.h"

#include <algorithm>

namespace tarvo {

namespace {

constexpr TabelaDoBanco Tabelas[] = {
    {"tblContribuinte", Dono::Contribuinte,
     "IE C*, RazãoSocial T, CNPJ T, DataCadastro D, Localização T, Número T, Complemento T, "
     "Bairro T, Município T, CEP T, UF T, Telefone T, FAX T, Email T, HomePage T, Contato T, "
     "Observação T"},
    {"tblDRQ", Dono::Declaracao,
     "NroDRQ L*, IE C, Ref1 D, Ref2 D, Tipo L, RegTrib T, Consistente B, Autenticação T, "
     "SaldoCredAntDig M, ICMSFixPerRES M, OutrasRES M, DeduçõesRPA M, SaldoCredAntDigST M, "
     "DeduçõesST M"},
    {"tblDetalhesCFOPs", Dono::Declaracao,
     "NroDRQ L, CFOP C, ValorContábil M, BaseCálculo M, Imposto M, IsentasNãoTrib M, Outras M, "
     "ImpostoRetidoST M, ImpRetSubstitutoST M, ImpRetSubstituido M, OutrosImpostos M"},
    {"tblDetalhesInterUFs", Dono::Declaracao,
     "NroDRQ L, CFOP C, UF C, ValorContábil_1 M, ValorContábil_2 M, BaseCálculo_1 M, "
     "BaseCálculo_2 M, Imposto M, Outras M, PetróleoEnergia M, OutrosProdutos M, ICMSCobradoST M"},
    {"tblZFM_ALC", Dono::Declaracao,
     "NroDRQ L, CFOP C, NF T, Data D, MunicípioDest C, CNPJDest T, Valor M"},
    {"tblOcorrências", Dono::Declaracao,
     "NroDRQ L, CódSubItem C, Código L*, Valor M, OpPróprias B"},
    {"tblIEsRemetente", Dono::Subitem, "Código L, IERemetente T, Valor M"},
    {"tblRecibosCredito", Dono::Subitem, "Código L, CodAutorização T, Valor M"},
    {"tblIESubstituido", Dono::Subitem, "Código L, IESubstituido T, NF T, Valor M"},
    {"tblIESubstituto", Dono::Subitem,
     "Código L, IESubstituto T, NF T, DataInicio D, DataFim D, Valor M"},
    {"tblMIDAX", Dono::Declaracao, "NroDRQ L, CódMIDAX C, Município C, Valor M"},
    {"tblRegistroExportação", Dono::Declaracao, "NroDRQ L, RE T"},
    {"tblPagamento", Dono::Declaracao, "NroDRQ L, OpPróprias B, Data D, Valor M"},
    {"tblQuadroOcorrências", Dono::Todos, "CódSubItem C*, OpPróprias B*, Ocorrência T, FLegal T"},
    {"tblEstados", Dono::Todos, "Código C*, UF T, Estado T"},
    {"tblMunicípiosZFM_ALC", Dono::Todos, "CódMunicípio C*, Município T, UF T"},
    {"tblMunicípios", Dono::Todos, "CódMunicípio C*, Município T"},
    {"tblCódigosMIDAX", Dono::Todos, "Código C*, Descrição T, Cabeçalho T"},
    {"tblVELO", Dono::Todos,
     "Contribuinte T, Endereço T, Município T, UF T, Telefone T, Observações T, DataVencimento T, "
     "CódigoReceita T, IE T, CPF_CNPJ T, InscriçãoDívidaAtiva T, Referência T, "
     "NroAIIM_DI_PARCEL T, ValorReceita T, JurosMora T, MultaMora_Infração T, "
     "AcréscimoFinanceiro T, HonoráriosAdvocatícios T, ValorTotal T"},
};

constexpr std::string_view Resumo =
    "NroDRQ L, Linha T, CFOP T, ValorContábil T, BaseCálculo T, Imposto T, IsentasNãoTrib T, "
    "Outras T, ImpostoRetidoST T, ImpRetSubstitutoST T, ImpRetSubstituido T, OutrosImpostos T";
constexpr std::string_view Apuracao =
    "NroDRQ L, Campo T, Linha T, CódigoSubitem T, Total T, Valor T";

// They hold one declaration at a time.
constexpr TabelaDoBanco Refeitas[] = {
    {"tblResumoCFOPsEntradas", Dono::Todos, Resumo},
    {"tblResumoCFOPsSaídas", Dono::Todos, Resumo},
    {"tblApuraçãoOperaçõesPróprias", Dono::Todos, Apuracao},
    {"tblApuraçãoSubstituiçãoTributária", Dono::Todos, Apuracao},
};

}  // namespace

std::vector<ColunaDoBanco> TabelaDoBanco::Colunas() const {
    std::vector<ColunaDoBanco> colunas;
    for (std::string_view resto = definicao; !resto.empty();) {
        const std::string_view uma = resto.substr(0, resto.find(", "));
        const auto branco = uma.find(' ');
        colunas.push_back({uma.substr(0, branco), static_cast<TipoDaColuna>(uma[branco + 1]),
                           uma.ends_with('*')});
        resto.remove_prefix(std::min(uma.size() + 2, resto.size()));
    }
    return colunas;
}

std::string_view TabelaDoBanco::Indice() const {
    switch (dono) {
        case Dono::Declaracao:
            return nome == "tblDRQ" ? "IE" : "NroDRQ";
        case Dono::Subitem:
            return "Código";
        default:
            return "";
    }
}

std::span<const TabelaDoBanco> TabelasDoBanco() {
    return Tabelas;
}

std::span<const TabelaDoBanco> TabelasRefeitas() {
    return Refeitas;
}

}  // namespace tarvo
