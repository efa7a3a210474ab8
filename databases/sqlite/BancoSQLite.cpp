// SPDX-License-Identifier: MIT
#include "databases/sqlite/BancoSQLite.h"

#include <sqlite3.h>

#include <algorithm>
#include <set>
#include <vector>

#include "data/CodigosDeErros.h"
#include "databases/sqlite/Abertura.h"
#include "databases/sqlite/Conexao.h"
#include "databases/sqlite/ConsultasProntas.h"
#include "databases/sqlite/Esquema.h"
#include "databases/sqlite/Gramatica.h"
#include "databases/sqlite/RecordsetSQLite.h"
#include "databases/sqlite/Tabelas.h"
#include "databases/sqlite/Tradutor.h"
#include "databases/sqlite/Transacao.h"

namespace tarvo {

namespace {

using namespace sqlite;

// Errors after which what was written cannot be relied on.
bool EhDoArmazenamento(NumeroErro numero) {
    return numero == NumeroErro::DiscoCheio || numero == NumeroErro::ErroDispositivo ||
           numero == NumeroErro::BancoIrreconhecivel || numero == NumeroErro::BancoOcupado;
}

// What SQLite's integrity check says, for a user.
std::string_view TipoDoDano(std::string_view dano) {
    struct Tipo {
        std::string_view trecho;
        std::string_view descricao;
    };
    constexpr Tipo Tipos[] = {
        {"missing from index", "um índice não tem todas as linhas da sua tabela"},
        {"entries in index", "um índice não tem tantas linhas quanto a sua tabela"},
        {"non-unique entry in index", "um índice tem chaves repetidas"},
        {"values differ from index", "um índice tem outros valores do que a sua tabela"},
        {"out of order", "linhas fora da ordem da sua tabela"},
        {"value in ", "um valor que a sua coluna não pode ter"},
    };
    const auto* const tipo = std::ranges::find_if(
        Tipos, [&](const Tipo& t) { return dano.find(t.trecho) != std::string_view::npos; });
    return tipo != std::end(Tipos) ? tipo->descricao : "uma parte do arquivo não pode ser lida";
}

class ConsultaDeExclusao final : public QueryDef {
  public:
    ConsultaDeExclusao(std::shared_ptr<Conexao> conexao, std::shared_ptr<Esquema> esquema,
                       std::string_view consulta)
        : conexao_(std::move(conexao)), esquema_(std::move(esquema)), lida_(Analisar(consulta)) {}

    void Execute() override {
        const auto* exclusao = std::get_if<Exclusao>(&lida_);
        if (exclusao == nullptr) {
            throw Erro(NumeroErro::OperacaoInvalida,
                       "Não é possível executar uma consulta que devolve registros.");
        }
        const ExclusaoSql traduzida = Traduzir(*exclusao, *esquema_);
        conexao_->ExigirEscrita(traduzida.esquema);
        Instrucao(conexao_, traduzida.sql).Executar();
    }

  private:
    std::shared_ptr<Conexao> conexao_;
    std::shared_ptr<Esquema> esquema_;
    Consulta lida_;
};

class Banco final : public BancoSQLite {
  public:
    Banco(std::shared_ptr<Conexao> conexao, TabelasDeTrabalho tabelasDeTrabalho)
        : conexao_(std::move(conexao)),
          esquema_(std::make_shared<Esquema>(conexao_)),
          consultas_(conexao_, esquema_) {
        if (tabelasDeTrabalho == TabelasDeTrabalho::Privadas) {
            for (const TabelaDoBanco& tabela : TabelasRefeitas()) {
                conexao_->CriarTemporaria(std::string(tabela.nome),
                                          Definicao(tabela, tabela.Colunas()));
            }
        }
    }

    std::unique_ptr<Recordset> OpenRecordset(std::string_view consulta,
                                             TipoRecordset tipo) override {
        return std::make_unique<RecordsetSQLite>(conexao_, consultas_.Abrir(consulta), tipo);
    }

    std::unique_ptr<QueryDef> CreateQueryDef(std::string_view nome,
                                             std::string_view consulta) override {
        if (!nome.empty()) {
            throw Erro(NumeroErro::ChamadaInvalida, "Só há consultas temporárias, sem nome.");
        }
        return std::make_unique<ConsultaDeExclusao>(conexao_, esquema_, consulta);
    }

    void RefazerTabela(std::string_view nome, const std::function<void()>& refazer) override {
        const auto tabela = esquema_->Procurar(nome);
        if (tabela == nullptr) {
            return refazer();  // its first query says what is missing
        }
        conexao_->ExigirEscrita(tabela->esquema);
        Transacao transacao(*conexao_, *tabela);
        try {
            refazer();
        } catch (const Erro& erro) {
            if (!EhDoArmazenamento(erro.Numero())) {
                transacao.Confirmar();
            }
            throw;
        }
        transacao.Confirmar();
    }

    // One of a kind, each with the engine's words behind it: a user needs to know what there is,
    // not how often.
    std::vector<std::string> Danos() override {
        std::vector<std::string> danos;
        std::set<std::string_view> ditos;
        try {
            Instrucao conferencia(conexao_, "PRAGMA main.integrity_check(20)");
            while (conferencia.Passo()) {
                const Celula celula = LerCelula(conferencia.Ponteiro(), 0);
                const std::string_view dano = TipoDoDano(celula.texto);
                if (celula.texto != "ok" && ditos.insert(dano).second) {
                    danos.push_back(std::string(dano) + " (" + std::string(celula.texto) + ")");
                }
            }
        } catch (const Erro& erro) {
            if (erro.Numero() == NumeroErro::Cancelado ||
                erro.Numero() == NumeroErro::BancoOcupado) {
                throw;
            }
            danos.push_back(erro.Descricao());
        }
        return danos;
    }

    // Without a declaration it may be for long, and one moment would grow old.
    void ManterLeitura(std::string_view /*IE*/, std::int32_t NroDRQ) override {
        leituras_.push_back(NroDRQ != 0 && conexao_->ComecarLeitura());
    }
    void SoltarLeitura() noexcept override {
        if (leituras_.back()) {
            conexao_->TerminarLeitura();
        }
        leituras_.pop_back();
    }

    Acompanhante* Acompanhar(Acompanhante* quem) override { return conexao_->Acompanhar(quem); }

    void ExecutarScript(std::string_view sql) override {
        conexao_->ExigirEscrita("main");
        Transacao transacao(*conexao_);
        conexao_->Executar(std::string(sql));
        transacao.Confirmar();
        esquema_->Esquecer();
    }

  private:
    std::shared_ptr<Conexao> conexao_;
    std::shared_ptr<Esquema> esquema_;
    ConsultasProntas consultas_;
    std::vector<bool> leituras_;  // of ManterLeitura: whether it began one
};

}  // namespace

void PrepararParaVariosFios() {
    // Refused, and not needed, where the process has used SQLite before.
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
}

std::unique_ptr<BancoSQLite> sqlite::AbrirSobre(std::shared_ptr<Conexao> conexao,
                                                TabelasDeTrabalho tabelasDeTrabalho) {
    return std::make_unique<Banco>(std::move(conexao), tabelasDeTrabalho);
}

std::unique_ptr<BancoSQLite> BancoSQLite::Abrir(const std::filesystem::path& arquivo,
                                                const OpcoesAbertura& opcoes) {
    return std::make_unique<Banco>(AbrirArquivo(arquivo, opcoes.modo), opcoes.tabelasDeTrabalho);
}

std::unique_ptr<BancoSQLite> BancoSQLite::Adotar(sqlite3* conexao,
                                                 TabelasDeTrabalho tabelasDeTrabalho) {
    if (conexao == nullptr) {
        throw Erro(NumeroErro::ObjetoNaoDefinido, "Falta a conexão com o banco de dados.");
    }
    return std::make_unique<Banco>(std::make_shared<Conexao>(conexao, Conexao::Posse::DoHospedeiro),
                                   tabelasDeTrabalho);
}

}  // namespace tarvo
