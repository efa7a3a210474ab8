// SPDX-License-Identifier: MIT
#include "databases/sqlite/Tabelas.h"

#include <algorithm>
#include <array>

namespace tarvo::sqlite {

namespace {

// Codes and keys compare without regard to case, so that the indexes on them serve the queries,
// which do. INTEGER PRIMARY KEY DESC is the one form of an integer key that SQLite keeps apart
// from the rowid: the rowid must go on telling the order in which rows were added.
constexpr std::array Cadastros{
    DefinicaoTabela{"tblContribuinte", R"("IE" TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
        "RazãoSocial" TEXT, "CNPJ" TEXT, "DataCadastro" DATETIME, "Localização" TEXT,
        "Número" TEXT, "Complemento" TEXT, "Bairro" TEXT, "Município" TEXT, "CEP" TEXT,
        "UF" TEXT, "Telefone" TEXT, "FAX" TEXT, "Email" TEXT, "HomePage" TEXT, "Contato" TEXT,
        "Observação" TEXT)",
                    ""},
    DefinicaoTabela{"tblDRQ", R"("NroDRQ" INTEGER PRIMARY KEY DESC NOT NULL,
        "IE" TEXT COLLATE NOCASE, "Ref1" DATETIME, "Ref2" DATETIME, "Tipo" INTEGER,
        "RegTrib" TEXT, "Consistente" BOOLEAN, "Autenticação" TEXT, "SaldoCredAntDig" CURRENCY,
        "ICMSFixPerRES" CURRENCY, "OutrasRES" CURRENCY, "DeduçõesRPA" CURRENCY,
        "SaldoCredAntDigST" CURRENCY, "DeduçõesST" CURRENCY)",
                    "IE"},
    DefinicaoTabela{"tblDetalhesCFOPs", R"("NroDRQ" INTEGER, "CFOP" TEXT COLLATE NOCASE,
        "ValorContábil" CURRENCY, "BaseCálculo" CURRENCY, "Imposto" CURRENCY,
        "IsentasNãoTrib" CURRENCY, "Outras" CURRENCY, "ImpostoRetidoST" CURRENCY,
        "ImpRetSubstitutoST" CURRENCY, "ImpRetSubstituido" CURRENCY, "OutrosImpostos" CURRENCY)",
                    "NroDRQ"},
    DefinicaoTabela{"tblDetalhesInterUFs", R"("NroDRQ" INTEGER, "CFOP" TEXT COLLATE NOCASE,
        "UF" TEXT COLLATE NOCASE, "ValorContábil_1" CURRENCY, "ValorContábil_2" CURRENCY,
        "BaseCálculo_1" CURRENCY, "BaseCálculo_2" CURRENCY, "Imposto" CURRENCY,
        "Outras" CURRENCY, "PetróleoEnergia" CURRENCY, "OutrosProdutos" CURRENCY,
        "ICMSCobradoST" CURRENCY)",
                    "NroDRQ"},
    DefinicaoTabela{"tblZFM_ALC", R"("NroDRQ" INTEGER, "CFOP" TEXT COLLATE NOCASE, "NF" TEXT,
        "Data" DATETIME, "MunicípioDest" TEXT COLLATE NOCASE, "CNPJDest" TEXT,
        "Valor" CURRENCY)",
                    "NroDRQ"},
    DefinicaoTabela{"tblOcorrências", R"("NroDRQ" INTEGER, "CódSubItem" TEXT COLLATE NOCASE,
        "Código" INTEGER PRIMARY KEY DESC NOT NULL, "Valor" CURRENCY, "OpPróprias" BOOLEAN)",
                    "NroDRQ"},
    DefinicaoTabela{"tblIEsRemetente", R"("Código" INTEGER, "IERemetente" TEXT, "Valor" CURRENCY)",
                    "Código"},
    DefinicaoTabela{"tblRecibosCredito",
                    R"("Código" INTEGER, "CodAutorização" TEXT, "Valor" CURRENCY)", "Código"},
    DefinicaoTabela{"tblIESubstituido",
                    R"("Código" INTEGER, "IESubstituido" TEXT, "NF" TEXT, "Valor" CURRENCY)",
                    "Código"},
    DefinicaoTabela{"tblIESubstituto", R"("Código" INTEGER, "IESubstituto" TEXT, "NF" TEXT,
        "DataInicio" DATETIME, "DataFim" DATETIME, "Valor" CURRENCY)",
                    "Código"},
    DefinicaoTabela{"tblMIDAX", R"("NroDRQ" INTEGER, "CódMIDAX" TEXT COLLATE NOCASE,
        "Município" TEXT COLLATE NOCASE, "Valor" CURRENCY)",
                    "NroDRQ"},
    DefinicaoTabela{"tblRegistroExportação", R"("NroDRQ" INTEGER, "RE" TEXT)", "NroDRQ"},
    DefinicaoTabela{"tblPagamento", R"("NroDRQ" INTEGER, "OpPróprias" BOOLEAN, "Data" DATETIME,
        "Valor" CURRENCY)",
                    "NroDRQ"},
    DefinicaoTabela{"tblQuadroOcorrências", R"("CódSubItem" TEXT COLLATE NOCASE NOT NULL,
        "OpPróprias" BOOLEAN NOT NULL, "Ocorrência" TEXT, "FLegal" TEXT,
        PRIMARY KEY ("CódSubItem", "OpPróprias"))",
                    ""},
    DefinicaoTabela{"tblEstados", R"("Código" TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
        "UF" TEXT, "Estado" TEXT)",
                    ""},
    DefinicaoTabela{"tblMunicípiosZFM_ALC", R"("CódMunicípio" TEXT COLLATE NOCASE NOT NULL
        PRIMARY KEY, "Município" TEXT, "UF" TEXT)",
                    ""},
    DefinicaoTabela{"tblMunicípios", R"("CódMunicípio" TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
        "Município" TEXT)",
                    ""},
    DefinicaoTabela{"tblCódigosMIDAX", R"("Código" TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
        "Descrição" TEXT, "Cabeçalho" TEXT)",
                    ""},
    DefinicaoTabela{"tblVELO", R"("Contribuinte" TEXT, "Endereço" TEXT, "Município" TEXT,
        "UF" TEXT, "Telefone" TEXT, "Observações" TEXT, "DataVencimento" TEXT,
        "CódigoReceita" TEXT, "IE" TEXT, "CPF_CNPJ" TEXT, "InscriçãoDívidaAtiva" TEXT,
        "Referência" TEXT, "NroAIIM_DI_PARCEL" TEXT, "ValorReceita" TEXT, "JurosMora" TEXT,
        "MultaMora_Infração" TEXT, "AcréscimoFinanceiro" TEXT, "HonoráriosAdvocatícios" TEXT,
        "ValorTotal" TEXT)",
                    ""},
};

constexpr std::string_view ColunasResumo = R"("NroDRQ" INTEGER, "Linha" TEXT, "CFOP" TEXT,
        "ValorContábil" TEXT, "BaseCálculo" TEXT, "Imposto" TEXT, "IsentasNãoTrib" TEXT,
        "Outras" TEXT, "ImpostoRetidoST" TEXT, "ImpRetSubstitutoST" TEXT,
        "ImpRetSubstituido" TEXT, "OutrosImpostos" TEXT)";
constexpr std::string_view ColunasApuracao = R"("NroDRQ" INTEGER, "Campo" TEXT, "Linha" TEXT,
        "CódigoSubitem" TEXT, "Total" TEXT, "Valor" TEXT)";

// They hold one declaration at a time: an index would only slow the refill down.
constexpr std::array Refeitas{
    DefinicaoTabela{"tblResumoCFOPsEntradas", ColunasResumo, ""},
    DefinicaoTabela{"tblResumoCFOPsSaídas", ColunasResumo, ""},
    DefinicaoTabela{"tblApuraçãoOperaçõesPróprias", ColunasApuracao, ""},
    DefinicaoTabela{"tblApuraçãoSubstituiçãoTributária", ColunasApuracao, ""},
};

// The definitions between the commas; those inside parentheses separate nothing.
std::vector<std::string_view> Partes(std::string_view colunas) {
    std::vector<std::string_view> partes;
    int abertos = 0;
    std::size_t inicio = 0;
    for (std::size_t i = 0; i <= colunas.size(); ++i) {
        const char c = i < colunas.size() ? colunas[i] : ',';
        abertos += c == '(' ? 1 : (c == ')' ? -1 : 0);
        if (c == ',' && abertos == 0) {
            const std::string_view parte = colunas.substr(inicio, i - inicio);
            partes.push_back(parte.substr(parte.find_first_not_of(" \n")));
            inicio = i + 1;
        }
    }
    return partes;
}

// The first name in quotes.
std::string NomeEm(std::string_view parte) {
    const std::size_t inicio = parte.find('"') + 1;
    return std::string(parte.substr(inicio, parte.find('"', inicio) - inicio));
}

}  // namespace

std::vector<DefinicaoColuna> ColunasDe(const DefinicaoTabela& tabela) {
    std::vector<DefinicaoColuna> colunas;
    for (const std::string_view parte : Partes(tabela.colunas)) {
        const std::string nome = NomeEm(parte);
        const bool chave = parte.find("PRIMARY KEY") != std::string_view::npos;
        if (!parte.starts_with('"')) {  // a key of several columns
            std::ranges::find(colunas, nome, &DefinicaoColuna::nome)->chave = chave;
            continue;
        }
        const std::string_view resto = parte.substr(nome.size() + 3);
        colunas.push_back({nome, std::string(resto.substr(0, resto.find(' '))),
                           resto.find("COLLATE NOCASE") != std::string_view::npos, chave,
                           std::string(parte)});
    }
    return colunas;
}

std::span<const DefinicaoTabela> TabelasDoBanco() {
    return Cadastros;
}

Dono DonoDe(const DefinicaoTabela& tabela) {
    if (tabela.nome == "tblContribuinte") {
        return Dono::Contribuinte;
    }
    if (tabela.indice.empty()) {
        return Dono::Todos;
    }
    return tabela.indice == "Código" ? Dono::Subitem : Dono::Declaracao;
}

std::span<const DefinicaoTabela> TabelasRefeitas() {
    return Refeitas;
}

}  // namespace tarvo::sqlite
