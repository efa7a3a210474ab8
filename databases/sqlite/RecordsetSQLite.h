// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <memory>
#include <optional>
#include <vector>

#include "data/BancoDados.h"
#include "data/ObjetoDeC.h"
#include "databases/sqlite/Conexao.h"
#include "databases/sqlite/ConsultasProntas.h"

namespace tarvo::sqlite {

// The rows of one translated query. A forward-only recordset reads them from its statement as it
// goes; a dynaset takes them all when it is opened and holds no lock on the database afterwards,
// so that tables can be rewritten while it is open. Rows added are seen by later recordsets.
class RecordsetSQLite final : public Recordset {
  public:
    RecordsetSQLite(std::shared_ptr<Conexao> conexao, ConsultaAberta consulta, TipoRecordset tipo);
    ~RecordsetSQLite() override;
    RecordsetSQLite(const RecordsetSQLite&) = delete;
    RecordsetSQLite& operator=(const RecordsetSQLite&) = delete;

    [[nodiscard]] bool BOF() const override;
    [[nodiscard]] bool EOF_() const override;
    void MoveNext() override;
    void AddNew() override;
    void Update() override;
    void Close() override;

  private:
    using Registro = std::vector<ObjetoDeC<sqlite3_value_free>>;

    [[nodiscard]] std::size_t Coluna(std::string_view nome) const override;
    [[nodiscard]] std::size_t Coluna(int posicao) const override;
    [[nodiscard]] Valor Ler(std::size_t coluna) const override;
    void Escrever(std::size_t coluna, const Valor& valor) override;

    void ExigirAberto() const;
    void LerTodas();
    void PrepararInsercao();
    // Gives the statement back.
    void FecharLeitura();
    [[nodiscard]] const SelecaoSql& Consulta() const { return pronta_->selecao; }
    [[nodiscard]] std::size_t Procurar(std::string_view nome) const;

    std::shared_ptr<Conexao> conexao_;  // empty once closed
    std::shared_ptr<ConsultaPronta> pronta_;
    TipoRecordset tipo_;
    std::unique_ptr<Instrucao> leitura_;  // forward-only
    std::vector<Registro> registros_;     // dynaset
    std::size_t atual_ = 0;               // row number
    bool fim_ = false;
    std::unique_ptr<Instrucao> insercao_;
    std::optional<std::vector<Valor>> nova_;
};

}  // namespace tarvo::sqlite
