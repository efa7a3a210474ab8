// SPDX-License-Identifier: MIT
#include <map>
#include <set>

#include "data/CodigosDeErros.h"
#include "data/LeitoresDeCampo.h"
#include "data/Procura.h"
#include "data/TabelasDoBanco.h"
#include "review/Achados.h"
#include "review/Leitura.h"
#include "review/Revisao.h"

namespace tarvo {

namespace {

using namespace revisao;

constexpr std::string_view Declaracoes = "tblDRQ";
constexpr std::string_view ColunaDono = "IE";  // of theirs, which others' databases may lack

// Reads as the reports do. The error of a value that is not of that type ends it.
std::string LerComo(TipoDaColuna tipo, const Valor& valor) {
    switch (tipo) {
        case TipoDaColuna::Texto:
        case TipoDaColuna::Codigo:
            return TextoCampo(valor);
        case TipoDaColuna::Longo:
            return std::to_string(LongCampo(valor));
        case TipoDaColuna::Moeda:
            (void)MoedaCampo(valor);
            break;
        case TipoDaColuna::Data:
            (void)DataCampo(valor);
            break;
        case TipoDaColuna::Booleano:
            return BooleanoCampo(valor) ? "-1" : "0";
    }
    return "";
}

bool EhDeConversao(NumeroErro numero) {
    return numero == NumeroErro::ConversaoDeDado || numero == NumeroErro::TipoIncompativel ||
           numero == NumeroErro::Estouro;
}

// Goes through all rows of all tables once.
class RevisaoDoBanco {
  public:
    explicit RevisaoDoBanco(BancoDados& banco) : banco_(banco) {}

    std::vector<Achado> Revisar() && {
        for (const TabelaDoBanco& tabela : TabelasDoBanco()) {
            RevisarTabela(tabela, true);
        }
        for (const TabelaDoBanco& tabela : TabelasRefeitas()) {
            RevisarTabela(tabela, false);
        }
        if (!temDono_ && chaves_["tblContribuinte"].size() > 1) {
            achados_.Frase(
                "",
                "tblDRQ não tem a coluna IE e há mais de um contribuinte: as declarações "
                "não dizem de quem são");
        }
        return std::move(achados_).Entregar();
    }

  private:
    // The values of a row by column; a column that is missing, Null or not of its type is not
    // there.
    using LinhaLida = std::map<std::string_view, std::string>;

    // Without its rows only the table's form counts.
    void RevisarTabela(const TabelaDoBanco& tabela, bool comLinhas) {
        std::unique_ptr<Recordset> linhas;
        try {
            linhas = banco_.OpenRecordset("SELECT * FROM " + std::string(tabela.nome),
                                          TipoRecordset::ForwardOnly);
        } catch (const Erro& erro) {
            if (erro.Numero() != NumeroErro::TabelaInexistente) {
                throw;
            }
            achados_.Frase("", "falta a tabela " + std::string(tabela.nome));
            return;
        }
        chaves_[tabela.nome];
        const std::vector<ColunaDoBanco> colunas = ColunasQueTem(tabela, *linhas);
        const bool declaracoes = tabela.nome == Declaracoes;
        temDono_ = temDono_ || (declaracoes && Contem(colunas, ColunaDono, &ColunaDoBanco::nome));
        auto chave = tabela.Colunas();
        std::erase_if(chave, [](const ColunaDoBanco& coluna) { return !coluna.chave; });
        for (; comLinhas && !linhas->EOF_(); linhas->MoveNext()) {
            const LinhaLida linha = LerLinha(tabela, *linhas, colunas);
            RevisarChave(tabela, chave, linha);
            RevisarReferencia(tabela, linha);
            if (declaracoes && temDono_) {
                RevisarDono(linha);
            }
        }
    }

    std::vector<ColunaDoBanco> ColunasQueTem(const TabelaDoBanco& tabela, Recordset& linhas) {
        std::vector<ColunaDoBanco> colunas = tabela.Colunas();
        std::string faltam;
        std::erase_if(colunas, [&](const ColunaDoBanco& coluna) {
            const bool falta = !TemColuna(linhas, coluna.nome);
            if (falta && !(tabela.nome == Declaracoes && coluna.nome == ColunaDono)) {
                faltam.append(faltam.empty() ? "" : ", ").append(coluna.nome);
            }
            return falta;
        });
        if (!faltam.empty()) {
            achados_.Frase("", "faltam colunas em " + std::string(tabela.nome) + ": " + faltam);
        }
        return colunas;
    }

    LinhaLida LerLinha(const TabelaDoBanco& tabela, Recordset& linhas,
                       const std::vector<ColunaDoBanco>& colunas) {
        LinhaLida lida;
        for (const auto& [nome, tipo, chave] : colunas) {
            try {
                if (const Valor valor = linhas.Fields(nome); !EhNulo(valor)) {
                    lida.emplace(nome, LerComo(tipo, valor));
                }
            } catch (const Erro& erro) {
                if (!EhDeConversao(erro.Numero())) {
                    throw;
                }
                achados_.Linha("", tabela.nome,
                               "valor que não é do tipo da coluna " + std::string(nome));
            }
        }
        return lida;
    }

    void RevisarChave(const TabelaDoBanco& tabela, const std::vector<ColunaDoBanco>& colunas,
                      const LinhaLida& linha) {
        std::string chave;
        for (const ColunaDoBanco& coluna : colunas) {
            const auto valor = linha.find(coluna.nome);
            if (valor == linha.end()) {
                achados_.Linha("", tabela.nome, "linha sem " + std::string(coluna.nome));
                return;
            }
            chave += (chave.empty() ? "" : " ") + valor->second;
        }
        if (!chave.empty() && !chaves_[tabela.nome].insert(SemCaixa(chave)).second) {
            achados_.Linha("", tabela.nome, "linha de chave repetida", chave);
        }
    }

    void RevisarReferencia(const TabelaDoBanco& tabela, const LinhaLida& linha) {
        const bool aDeclaracao = tabela.dono == Dono::Declaracao && tabela.nome != Declaracoes;
        if (!aDeclaracao && tabela.dono != Dono::Subitem) {
            return;
        }
        const auto valor = linha.find(aDeclaracao ? "NroDRQ" : "Código");
        const auto existentes = chaves_.find(aDeclaracao ? "tblDRQ" : "tblOcorrências");
        if (existentes == chaves_.end()) {
            return;
        }
        if (valor == linha.end()) {
            achados_.Linha("", tabela.nome,
                           aDeclaracao ? "linha sem NroDRQ – não sai em declaração alguma"
                                       : "linha sem Código – não sai em subitem algum");
        } else if (!existentes->second.contains(valor->second)) {
            achados_.Linha("", tabela.nome,
                           aDeclaracao ? "linha de declaração que não existe"
                                       : "linha de subitem que não existe",
                           valor->second);
        }
    }

    void RevisarDono(const LinhaLida& linha) {
        const auto numero = linha.find("NroDRQ");
        const auto dono = linha.find(ColunaDono);
        const std::string exemplo = numero == linha.end() ? "" : numero->second;
        if (dono == linha.end() || dono->second.empty()) {
            achados_.Linha("", "tblDRQ", "declaração que não diz de que contribuinte é", exemplo);
        } else if (!chaves_["tblContribuinte"].contains(SemCaixa(dono->second))) {
            achados_.Linha("", "tblDRQ", "declaração de contribuinte que não existe neste banco",
                           exemplo + " de " + dono->second);
        }
    }

    BancoDados& banco_;
    Achados achados_{"", std::nullopt};
    bool temDono_ = false;
    std::map<std::string_view, std::set<std::string>> chaves_;  // by table that there is
};

}  // namespace

std::vector<Achado> RevisarBanco(BancoDados& banco) {
    return RevisaoDoBanco(banco).Revisar();
}

}  // namespace tarvo
