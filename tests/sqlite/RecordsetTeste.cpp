#include "tests/sqlite/BancoDeTeste.h"

namespace tarvo {

namespace {

using RecordsetDoBanco = BancoDeTeste;

TEST_F(RecordsetDoBanco, AddNewEUpdateAcrescentamNaOrdemDasLinhas) {
    auto trabalho = Abrir("SELECT * FROM tblApuraçãoOperaçõesPróprias", TipoRecordset::Dynaset);
    for (const char* linha : {"z", "a", "m"}) {
        trabalho->AddNew();
        trabalho->Fields("NroDRQ") = std::int32_t{7};
        trabalho->Fields("linha") = std::string(linha);
        trabalho->Update();
    }
    trabalho->Close();
    const auto lidas = Abrir("select * from tblApuraçãoOperaçõesPróprias where NroDRQ = 7");
    EXPECT_EQ(Linhas(*lidas, {"Linha", "Campo"}), "z|Null\na|Null\nm|Null");
}

}  // namespace

}  // namespace tarvo
