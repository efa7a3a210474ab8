#include "reports/TabelaDeTrabalho.h"

#include "data/Consultas.h"

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
        if (!texto.empty()) {
            linhas_->Fields(nome) = std::string(texto);
        }
    }
    linhas_->Update();
}

std::unique_ptr<Recordset> TabelaDeTrabalho::Ler(BancoDados& banco, std::string_view nome,
                                                 std::int32_t NumeroDRQ) {
    return banco.OpenRecordset(ConsultaDaDeclaracao(nome, NumeroDRQ), TipoRecordset::ForwardOnly);
}

}  // namespace tarvo
