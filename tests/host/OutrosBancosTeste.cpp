// SPDX-License-Identifier: MIT
#include <fstream>

#include "databases/sqlite/Celula.h"
#include "databases/sqlite/Tabelas.h"
#include "tests/databases/mdb/EscritorMdb.h"
#include "tests/host/Programa.h"

namespace tarvo::host {
namespace {

using mdb::CelulaMdb;
using mdb::EscritorMdb;
using mdb::TipoMdb;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

TipoMdb TipoDe(const std::string& coluna, TipoDaColuna tipo) {
    switch (tipo) {
        case TipoDaColuna::Longo:
            return TipoMdb::Longo;
        case TipoDaColuna::Moeda:
            return TipoMdb::Moeda;
        case TipoDaColuna::Data:
            return TipoMdb::Data;
        case TipoDaColuna::Booleano:
            return TipoMdb::Booleano;
        default:
            return coluna == "Observação" || coluna == "FLegal" || coluna == "Ocorrência"
                       ? TipoMdb::Memo
                       : TipoMdb::Texto;
    }
}

CelulaMdb CelulaDe(const Valor& valor) {
    if (const auto* longo = std::get_if<std::int32_t>(&valor)) {
        return std::int64_t{*longo};
    }
    if (const auto* moeda = std::get_if<Moeda>(&valor)) {
        return moeda->DecimosMilesimos();
    }
    if (const auto* data = std::get_if<Data>(&valor)) {
        return data->Serial();
    }
    if (const auto* logico = std::get_if<bool>(&valor)) {
        return *logico;
    }
    const auto* texto = std::get_if<std::string>(&valor);
    return texto != nullptr && !texto->empty() ? CelulaMdb(*texto) : CelulaMdb();
}

class OutrosBancos : public ComExemplo {
  protected:
    // The example as a file of the desktop engine, without one column.
    std::string ComoMdb(const std::string& semColuna = "") {
        EscritorMdb escritor;
        const auto banco = BancoSQLite::Abrir(Banco());
        for (const auto& tabela : TabelasDoBanco()) {
            std::vector<mdb::ColunaMdb> colunas;
            for (const auto& coluna : tabela.Colunas()) {
                if (semColuna != std::string(tabela.nome).append(".").append(coluna.nome)) {
                    colunas.push_back(
                        {std::string(coluna.nome), TipoDe(std::string(coluna.nome), coluna.tipo)});
                }
            }
            escritor.Tabela(std::string(tabela.nome), colunas);
            const auto rs = banco->OpenRecordset("select * from [" + std::string(tabela.nome) + "]",
                                                 TipoRecordset::ForwardOnly);
            for (; !rs->EOF_(); rs->MoveNext()) {
                std::vector<CelulaMdb> celulas;
                celulas.reserve(colunas.size());
                for (const auto& coluna : colunas) {
                    celulas.push_back(CelulaDe(rs->Fields(coluna.nome)));
                }
                escritor.Linha(celulas);
            }
        }
        const auto arquivo = pasta / "exemplo.dados";
        std::ofstream(arquivo, std::ios::binary) << escritor.Bytes();
        return arquivo.string();
    }
    // All pages of all declarations as text, by file.
    std::vector<std::pair<std::string, std::string>> Paginas(const std::string& banco) {
        const std::string saida = Saida(std::to_string(vez_++));
        EXPECT_THAT(Rodar("lote " + banco + " --saida " + saida +
                          " --formato json --ref-atual 07/2003 --trabalhos 2"),
                    Termina(0));
        std::vector<std::pair<std::string, std::string>> paginas;
        for (const auto& nome : Arquivos(saida)) {
            if (nome.ends_with(".json")) {
                paginas.emplace_back(nome, apoio::BytesDe(fs::path(saida) / nome));
            }
        }
        EXPECT_GT(paginas.size(), 100U);
        return paginas;
    }

  private:
    int vez_ = 0;
};

TEST_F(OutrosBancos, GiveTheSamePagesAndCopyIntoAFileThatGivesThemToo) {
    const std::string arquivo = ComoMdb();
    const std::string bytes = apoio::BytesDe(arquivo);
    const auto esperadas = Paginas(Banco());
    EXPECT_TRUE(Paginas(arquivo) == esperadas);
    const std::string copia = (pasta / "copia.tarvo").string();
    EXPECT_THAT(Rodar("copiar " + arquivo + " " + copia), Termina(0));
    EXPECT_TRUE(Paginas(copia) == esperadas);
    EXPECT_THAT(Rodar("copiar " + arquivo + " " + copia), Termina(1, HasSubstr("erro 3204")));
    EXPECT_EQ(apoio::BytesDe(arquivo), bytes);
}

TEST_F(OutrosBancos, WithoutATaxpayerColumnBelongToTheOnlyTaxpayerOrToNobodyNamed) {
    EXPECT_THAT(Rodar("listar " + ComoMdb("tblDRQ.IE")).saida,
                HasSubstr("Contribuinte não informado (informe --ie)\n  DRQ "));
    EXPECT_THAT(Rodar("lote " + ComoMdb("tblDRQ.IE") + " --saida " + Saida("l")),
                Termina(2, HasSubstr("informe --ie")));
    Executar("DELETE FROM tblContribuinte WHERE IE <> '250114377019'");
    EXPECT_THAT(Rodar("listar " + ComoMdb("tblDRQ.IE")).saida,
                AllOf(HasSubstr("Dourada S.A.\n  DRQ "), Not(HasSubstr("não informado"))));
}

TEST_F(OutrosBancos, SayWhatShouldBeKnownAndTakeACodePage) {
    const std::string arquivo = ComoMdb();
    const std::ofstream trava(pasta / "exemplo.ldb");
    EXPECT_THAT(Rodar("listar --codificacao 850 " + arquivo),
                Termina(0, AllOf(HasSubstr("aviso: outro programa"), Not(HasSubstr("muda nada")))));
    EXPECT_THAT(Rodar("listar --codificacao 850 " + Banco()), Termina(0, HasSubstr("muda nada")));
    EXPECT_THAT(Rodar("listar --codificacao nenhuma " + arquivo), Termina(1, HasSubstr("erro 5")));
}

}  // namespace
}  // namespace tarvo::host
