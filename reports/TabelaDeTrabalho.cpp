// SPDX-License-Identifier: MIT
#include "reports/TabelaDeTrabalho.h"

namespace tarvo {

TabelaDeTrabalho::TabelaDeTrabalho(BancoDados& banco, std::string_view nome, std::int32_t NumeroDRQ)
    : numeroDRQ_(NumeroDRQ) {
    banco.CreateQueryDef("", "DELETE * FROM " + std::string(nome))->Execute();
    linhas_ = banco.OpenRecordset("SELECT * FROM " + std::string(nome), TipoRecordset::Dynaset);
}

void TabelaDeTrabalho::Acrescentar(std::span<const ColunaTexto> colunas) {
    linhas_->AddNew();
    linhas_->Fields("NroDRQ") = numeroDRQ_;
    for (const auto& [nome, texto] : colunas) {
        if (texto) {
            linhas_->Fields(nome) = std::string(*texto);
        }
    }
    linhas_->Update();
}

}  // namespace tarvo
