// SPDX-License-Identifier: MIT
#include "databases/BancoEmMemoria.h"

#include "databases/sqlite/Abertura.h"
#include "databases/sqlite/BancoSQLite.h"
#include "databases/sqlite/Preenchimento.h"

namespace tarvo {

struct BancoEmMemoria::Partes {
    std::shared_ptr<sqlite::Conexao> conexao = sqlite::AbrirEmMemoria();
    sqlite::Preenchimento preenchimento{conexao};
    std::unique_ptr<BancoSQLite> banco = sqlite::AbrirSobre(conexao, TabelasDeTrabalho::Privadas);
    bool indexado = true;
};

BancoEmMemoria::BancoEmMemoria() : partes_(std::make_unique<Partes>()) {}
BancoEmMemoria::~BancoEmMemoria() = default;

void BancoEmMemoria::Tabela(std::string_view nome, std::span<const std::string> colunas) {
    partes_->preenchimento.Tabela(nome, colunas);
    partes_->indexado = false;
}

void BancoEmMemoria::Linha(std::span<const Valor> valores) {
    partes_->preenchimento.Linha(valores);
}

std::unique_ptr<Recordset> BancoEmMemoria::OpenRecordset(std::string_view consulta,
                                                         TipoRecordset tipo) {
    // Made once the rows are there, they cost least.
    if (!partes_->indexado) {
        sqlite::CriarIndices(*partes_->conexao, sqlite::Indices::ComChaves);
        partes_->indexado = true;
    }
    return partes_->banco->OpenRecordset(consulta, tipo);
}

std::unique_ptr<QueryDef> BancoEmMemoria::CreateQueryDef(std::string_view nome,
                                                         std::string_view consulta) {
    return partes_->banco->CreateQueryDef(nome, consulta);
}

void BancoEmMemoria::RefazerTabela(std::string_view tabela, const std::function<void()>& refazer) {
    partes_->banco->RefazerTabela(tabela, refazer);
}

Acompanhante* BancoEmMemoria::Acompanhar(Acompanhante* quem) {
    return partes_->banco->Acompanhar(quem);
}

}  // namespace tarvo
