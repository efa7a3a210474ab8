// SPDX-License-Identifier: MIT
#include "databases/sqlite/Esquema.h"

#include <sqlite3.h>

#include "data/Consultas.h"
#include "databases/sqlite/Alfabeto.h"

namespace tarvo::sqlite {

Esquema::Esquema(std::shared_ptr<Conexao> conexao) : conexao_(std::move(conexao)) {}

std::shared_ptr<const Tabela> Esquema::Procurar(std::string_view nome) {
    Atualizar();
    const auto achada = tabelas_.find(SemCaixa(nome));
    if (achada == tabelas_.end()) {
        return nullptr;
    }
    if (achada->second->colunas.empty()) {
        achada->second = LerTabela(*achada->second);
    }
    return achada->second;
}

void Esquema::Atualizar() {
    if (!lerVersao_) {
        lerVersao_ = std::make_unique<Instrucao>(conexao_, "PRAGMA main.schema_version");
    }
    lerVersao_->Passo();
    const std::int64_t versao = sqlite3_column_int64(lerVersao_->Ponteiro(), 0);
    lerVersao_->Reiniciar();
    if (versao != versao_) {
        tabelas_.clear();
        LerNomes("temp");
        LerNomes("main");
        versao_ = versao;
        ++leituras_;
    }
}

void Esquema::LerNomes(const std::string& esquema) {
    Instrucao nomes(conexao_, "SELECT name FROM " + NomeSql(esquema) +
                                  ".sqlite_master WHERE type IN ('table', 'view')");
    while (nomes.Passo()) {
        Tabela tabela;
        tabela.esquema = esquema;
        tabela.nome = LerCelula(nomes.Ponteiro(), 0).texto;
        tabela.nomeSemCaixa = SemCaixa(tabela.nome);
        const std::string chave = tabela.nomeSemCaixa;
        tabelas_.try_emplace(chave, std::make_shared<const Tabela>(std::move(tabela)));
    }
}

std::shared_ptr<const Tabela> Esquema::LerTabela(const Tabela& nomes) const {
    auto tabela = std::make_shared<Tabela>(nomes);
    // Of the hidden columns those count that are computed from others (2 and 3).
    Instrucao colunas(conexao_, "SELECT name, type, hidden FROM pragma_table_xinfo(" +
                                    TextoSql(nomes.nome) + ", " + TextoSql(nomes.esquema) +
                                    ") WHERE hidden <> 1");
    const auto comparacao = [&](const std::string& coluna) -> std::string_view {
        const char* ordem = nullptr;
        const int resultado = sqlite3_table_column_metadata(
            conexao_->Db(), nomes.esquema.c_str(), nomes.nome.c_str(), coluna.c_str(), nullptr,
            &ordem, nullptr, nullptr, nullptr);
        if (resultado == SQLITE_ERROR) {
            return "";  // no such column, or a view's
        }
        conexao_->Conferir(resultado);
        return ordem != nullptr ? ordem : "";
    };
    while (colunas.Passo()) {
        Coluna coluna;
        coluna.nome = LerCelula(colunas.Ponteiro(), 0).texto;
        coluna.nomeSemCaixa = SemCaixa(coluna.nome);
        coluna.tipo = TipoDeclarado(LerCelula(colunas.Ponteiro(), 1).texto);
        const std::string_view ordem = comparacao(coluna.nome);
        coluna.comparacaoSimples = ordem == "BINARY" || ordem == "NOCASE";
        coluna.gerada = LerCelula(colunas.Ponteiro(), 2).inteiro != 0;
        tabela->colunas.push_back(std::move(coluna));
    }
    tabela->temRowid = !comparacao("rowid").empty();
    return tabela;
}

}  // namespace tarvo::sqlite
