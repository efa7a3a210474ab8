// SPDX-License-Identifier: MIT
#include "databases/postgresql/BancoPostgreSQL.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>
#include <vector>

#include "databases/postgresql/Alcance.h"
#include "databases/postgresql/Espelho.h"
#include "databases/postgresql/LeituraInteira.h"
#include "databases/postgresql/Servidor.h"
#include "databases/sqlite/Abertura.h"
#include "databases/sqlite/Alfabeto.h"

namespace tarvo::postgresql {

namespace {

// Condition of the entries' rows, of the entries that a condition on tblOcorrências leaves.
std::string DosSubitens(const Esquema& esquema, const std::string& condicao) {
    const TabelaDoServidor* const ocorrencias = esquema.Procurar("tblOcorrências");
    return ocorrencias == nullptr || ocorrencias->Coluna("Código") == nullptr
               ? "FALSE"
               : "\"Código\" IN (SELECT \"Código\" FROM \"tblOcorrências\" WHERE " + condicao + ")";
}

// The table with the columns that the query names; with all where it names none.
TabelaDoServidor SoAsPedidas(TabelaDoServidor tabela, const Alcance& alcance) {
    const auto pedida = [&](const ColunaDoServidor& coluna) {
        return !alcance.colunas || alcance.colunas->contains(sqlite::SemCaixa(coluna.nome));
    };
    if (std::ranges::any_of(tabela.colunas, pedida)) {
        std::erase_if(tabela.colunas, std::not_fn(pedida));
    }
    return tabela;
}

class Banco final : public BancoDados {
  public:
    Banco(const std::string& endereco, Acompanhante* quem)
        : quem_(quem), servidor_(endereco, quem_) {
        servidor_.Insistir([this](Sessao& sessao) { Recomecar(sessao); }, {});
    }

    std::unique_ptr<Recordset> OpenRecordset(std::string_view consulta,
                                             TipoRecordset tipo) override {
        const Alcance alcance = AlcanceDe(consulta);
        if (!CabeNoEspelho(alcance)) {
            return AbrirInteiras(alcance)->OpenRecordset(consulta, tipo);
        }
        if (!alcance.tabelas.empty()) {
            Atualizar(alcance);
        }
        return espelho_->Banco().OpenRecordset(consulta, tipo);
    }

    std::unique_ptr<QueryDef> CreateQueryDef(std::string_view nome,
                                             std::string_view consulta) override {
        return espelho_->Banco().CreateQueryDef(nome, consulta);
    }

    void RefazerTabela(std::string_view tabela, const std::function<void()>& refazer) override {
        const auto espelho = espelho_;
        try {
            espelho->Banco().RefazerTabela(tabela, refazer);
        } catch (...) {
            Esquecer();  // rows that came meanwhile may have gone again
            throw;
        }
    }

    void ManterLeitura(std::string_view IE, std::int32_t NroDRQ) override {
        if (leituras_.empty() || leituras_.back().NroDRQ != NroDRQ) {
            Esquecer();
        }
        conferirComuns_ = conferirComuns_ || leituras_.empty();
        leituras_.push_back({std::string(IE), NroDRQ});
    }

    void SoltarLeitura() noexcept override { leituras_.pop_back(); }

    Acompanhante* Acompanhar(Acompanhante* quem) override {
        espelho_->Acompanhar(quem);
        std::erase_if(inteiras_, [&](const auto& fraca) {
            const auto viva = fraca.lock();
            return !viva || (viva->Acompanhar(quem), false);
        });
        return std::exchange(quem_, quem);
    }

  private:
    struct Leitura {
        std::string IE;
        std::int32_t NroDRQ;
    };
    struct Carga {
        std::optional<std::int32_t> NroDRQ;
        std::optional<std::string> IE;
    };

    void Esquecer() {
        NroDRQ_.reset();
        contribuintes_.clear();
    }

    [[nodiscard]] bool CabeNoEspelho(const Alcance& a) const {
        const bool codigosConhecidos =
            !leituras_.empty() && NroDRQ_ && !a.codigos.empty() &&
            std::ranges::all_of(a.codigos, [&](auto codigo) { return codigos_.contains(codigo); });
        return (!a.Tem(Dono::Contribuinte) || a.IE) && (!a.Tem(Dono::Declaracao) || a.NroDRQ) &&
               (!a.Tem(Dono::Subitem) || a.Tem(Dono::Declaracao) || codigosConhecidos);
    }

    // Has the rows come that a query is about, and with them what is known to be asked for next.
    void Atualizar(const Alcance& alcance) {
        Carga carga;
        if (alcance.Tem(Dono::Declaracao)) {
            carga.NroDRQ = alcance.NroDRQ;
        }
        if (alcance.Tem(Dono::Contribuinte)) {
            carga.IE = alcance.IE;
        }
        if (leituras_.empty()) {
            conferirComuns_ = true;
            Esquecer();
            return Carregar(carga);
        }
        const auto& [IE, NroDRQ] = leituras_.back();
        if (carga.NroDRQ.value_or(NroDRQ) == NroDRQ && carga.IE.value_or(IE) == IE) {
            carga.NroDRQ = NroDRQ != 0 ? std::optional(NroDRQ) : std::nullopt;
            carga.IE = !IE.empty() ? std::optional(IE) : std::nullopt;
        }
        if (carga.NroDRQ == NroDRQ_) {
            carga.NroDRQ.reset();
        }
        if (carga.IE && contribuintes_.contains(sqlite::SemCaixa(*carga.IE))) {
            carga.IE.reset();
        }
        if (carga.NroDRQ || carga.IE || conferirComuns_) {
            Carregar(carga);
        }
    }

    struct Pedido {
        std::vector<Comando> comandos;
        std::vector<const TabelaDoServidor*> tabelas;  // of the commands
    };

    [[nodiscard]] Pedido PedidoDe(const Carga& carga) const {
        Pedido pedido;
        const auto pedir = [&](const TabelaDoServidor& tabela, const std::string& condicao,
                               const std::string& parametro) {
            pedido.comandos.push_back({tabela.Selecao(condicao), {parametro}});
            pedido.tabelas.push_back(&tabela);
        };
        for (const TabelaDoServidor& tabela : esquema_->Tabelas()) {
            const Dono dono = tabela.definicao->dono;
            if (dono == Dono::Contribuinte && carga.IE) {
                pedir(tabela, tabela.DeIE("$1"), *carga.IE);
            } else if (dono == Dono::Declaracao && carga.NroDRQ) {
                pedir(tabela, tabela.Da("NroDRQ", "$1"), std::to_string(*carga.NroDRQ));
            } else if (dono == Dono::Subitem && carga.NroDRQ) {
                pedir(tabela, DosSubitens(*esquema_, DasOcorrencias("$1")),
                      std::to_string(*carga.NroDRQ));
            }
        }
        return pedido;
    }

    [[nodiscard]] std::string DasOcorrencias(const std::string& valor) const {
        const TabelaDoServidor* const ocorrencias = esquema_->Procurar("tblOcorrências");
        return ocorrencias == nullptr ? "FALSE" : ocorrencias->Da("NroDRQ", valor);
    }

    void Carregar(const Carga& carga) {
        servidor_.Insistir(
            [&](Sessao& sessao) {
                Pedido pedido = PedidoDe(carga);
                if (conferirComuns_) {
                    pedido.comandos.push_back({esquema_->ResumoDosComuns()});
                }
                auto linhas = sessao.Ler(pedido.comandos, servidor_.Prepara());
                if (conferirComuns_ && PQgetvalue(linhas.back().get(), 0, 0) != resumo_) {
                    LerComuns(sessao);
                    linhas = sessao.Ler(pedido.comandos, servidor_.Prepara());
                }
                conferirComuns_ = false;
                Guardar(carga, pedido.tabelas, linhas);
            },
            [this](Sessao& sessao) { Recomecar(sessao); });
    }

    void Guardar(const Carga& carga, const std::vector<const TabelaDoServidor*>& tabelas,
                 const std::vector<Resultado>& linhas) {
        const bool outra = carga.NroDRQ.has_value();
        const bool sai = outra || contribuintes_.empty();
        if (sai && espelho_->EmLeitura()) {
            Esquecer();
            espelho_ = std::make_shared<Espelho>(*modelo_, *esquema_, quem_);
        }
        espelho_->Comecar();
        if (contribuintes_.empty()) {
            espelho_->Esvaziar(Dono::Contribuinte);
        }
        if (outra) {
            NroDRQ_.reset();
            espelho_->Esvaziar(Dono::Declaracao);
            espelho_->Esvaziar(Dono::Subitem);
        }
        for (std::size_t i = 0; i < tabelas.size(); ++i) {
            espelho_->Encher(*tabelas[i], linhas[i]);
        }
        espelho_->Terminar();
        if (carga.IE) {
            contribuintes_.insert(sqlite::SemCaixa(*carga.IE));
        }
        if (outra) {
            NroDRQ_ = carga.NroDRQ;
            codigos_ = espelho_->Codigos();
        }
    }

    // What the server has, from the beginning.
    void Recomecar(Sessao& sessao) {
        esquema_ = std::make_shared<const Esquema>(sessao);
        LerComuns(sessao);
    }

    void LerComuns(Sessao& sessao) {
        std::vector<Comando> comandos;
        for (const TabelaDoServidor& tabela : esquema_->Tabelas()) {
            if (tabela.definicao->dono == Dono::Todos) {
                comandos.push_back({tabela.Selecao("")});
            }
        }
        comandos.push_back({esquema_->ResumoDosComuns()});
        const auto linhas = sessao.Ler(comandos, false);
        modelo_ = Modelo(*esquema_, std::span(linhas).first(linhas.size() - 1));
        resumo_ = PQgetvalue(linhas.back().get(), 0, 0);
        espelho_ = std::make_shared<Espelho>(*modelo_, *esquema_, quem_);
        Esquecer();
    }

    // For one query about rows of more than one declaration.
    std::unique_ptr<BancoSQLite> AbrirInteiras(const Alcance& alcance) {
        std::shared_ptr<sqlite::Conexao> conexao;
        servidor_.Insistir(
            [&](Sessao& sessao) {
                std::vector<LinhasDaTabela> linhas;
                for (const auto* definicao : alcance.tabelas) {
                    if (const auto* tabela = esquema_->Procurar(definicao->nome)) {
                        linhas.emplace_back(SoAsPedidas(*tabela, alcance),
                                            CondicaoDe(alcance, *tabela, sessao));
                    }
                }
                conexao = LerInteiras(sessao, linhas);
            },
            [this](Sessao& sessao) { Recomecar(sessao); });
        conexao->Acompanhar(quem_);
        inteiras_.push_back(conexao);
        return sqlite::AbrirSobre(std::move(conexao), TabelasDeTrabalho::Privadas);
    }

    [[nodiscard]] std::string CondicaoDe(const Alcance& alcance, const TabelaDoServidor& tabela,
                                         const Sessao& sessao) const {
        const std::string numero = std::to_string(alcance.NroDRQ.value_or(0));
        switch (tabela.definicao->dono) {
            case Dono::Contribuinte:
                return alcance.IE ? tabela.DeIE(sessao.Texto(*alcance.IE)) : "";
            case Dono::Declaracao:
                return alcance.NroDRQ ? tabela.Da("NroDRQ", numero) : "";
            case Dono::Subitem: {
                std::string condicao;
                for (const auto codigo : alcance.codigos) {
                    condicao += (condicao.empty() ? "" : " OR ") +
                                tabela.Da("Código", std::to_string(codigo));
                }
                return condicao.empty() && alcance.NroDRQ
                           ? DosSubitens(*esquema_, DasOcorrencias(numero))
                           : condicao;
            }
            default:
                return "";
        }
    }

    Acompanhante* quem_;
    Servidor servidor_;
    std::shared_ptr<const Esquema> esquema_;
    std::shared_ptr<const sqlite::CopiaPrivada> modelo_;
    std::string resumo_;  // of what all declarations share
    std::shared_ptr<Espelho> espelho_;
    // What of the mirror may be used: what came since the reading began.
    std::optional<std::int32_t> NroDRQ_;
    std::set<std::string> contribuintes_;
    std::set<std::int32_t> codigos_;
    bool conferirComuns_ = false;
    std::vector<Leitura> leituras_;
    std::vector<std::weak_ptr<sqlite::Conexao>> inteiras_;
};

std::string DasEscolhidas(const Esquema& esquema, const Sessao& sessao,
                          const std::optional<std::string>& IE,
                          const std::optional<std::int32_t>& NroDRQ, const char* coluna) {
    const TabelaDoServidor* const declaracoes = esquema.Procurar("tblDRQ");
    if (declaracoes == nullptr || declaracoes->Coluna(coluna) == nullptr) {
        return "";
    }
    std::string sql = Sessao::Nome(coluna) + " IN (SELECT " + Sessao::Nome(coluna) +
                      " FROM \"tblDRQ\" WHERE TRUE";
    if (NroDRQ) {
        sql += " AND " + declaracoes->Da("NroDRQ", std::to_string(*NroDRQ));
    }
    if (IE && declaracoes->Coluna("IE") != nullptr) {
        sql += " AND " + declaracoes->DeIE(sessao.Texto(*IE));
    }
    return sql + ")";
}

}  // namespace

std::unique_ptr<BancoDados> Abrir(const std::string& endereco, Acompanhante* quem) {
    auto banco = std::make_unique<Banco>(endereco, quem);
    banco->Acompanhar(nullptr);
    return banco;
}

std::shared_ptr<sqlite::Conexao> LerTudo(const std::string& endereco,
                                         const std::optional<std::string>& IE,
                                         const std::optional<std::int32_t>& NroDRQ,
                                         Acompanhante* quem) {
    Sessao sessao(endereco, quem);
    const Esquema esquema(sessao);
    std::string numeros;
    std::string contribuintes;
    if (IE || NroDRQ) {
        numeros = DasEscolhidas(esquema, sessao, IE, NroDRQ, "NroDRQ");
        contribuintes = DasEscolhidas(esquema, sessao, IE, NroDRQ, "IE");
    }
    std::vector<LinhasDaTabela> linhas;
    for (const TabelaDoServidor& tabela : esquema.Tabelas()) {
        std::string condicao;
        switch (tabela.definicao->dono) {
            case Dono::Contribuinte:
                condicao = IE ? tabela.DeIE(sessao.Texto(*IE)) : contribuintes;
                break;
            case Dono::Declaracao:
                condicao = tabela.Coluna("NroDRQ") == nullptr ? "" : numeros;
                break;
            case Dono::Subitem:
                condicao = numeros.empty() ? "" : DosSubitens(esquema, numeros);
                break;
            case Dono::Todos:
                break;
        }
        linhas.emplace_back(tabela, condicao);
    }
    return LerInteiras(sessao, linhas);
}

}  // namespace tarvo::postgresql
