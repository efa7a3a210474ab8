// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/Acompanhante.h"
#include "data/Publico.h"
#include "data/Valor.h"

// The declaration database as the library sees it: the operations that the reports use and no
// others. An engine implements these classes; the host owns the open database and keeps it open
// while a report is built. Queries are in the desktop engine's dialect (see databases/sqlite).
//
// Threads: a database and its recordsets belong to one thread at a time.
namespace tarvo {

// How a recordset is opened; the numbers are the engine's own.
enum class TipoRecordset : int { Dynaset = 2, ForwardOnly = 8 };

class Recordset;

// One column of the current row: reads and writes through its recordset, so that it must not
// outlive it.
class TARVO_PUBLICO Field {
  public:
    Field(Recordset& recordset, std::size_t coluna) : recordset_(&recordset), coluna_(coluna) {}

    // The current row's value. Error 3021 when there is no current row, 3421 when what is stored
    // does not fit the column's declared type.
    [[nodiscard]] Valor Value() const;
    operator Valor() const { return Value(); }  // NOLINT: a field stands for its value
    // Sets the column of the row begun with AddNew. Error 3020 without AddNew, 3421 when the
    // value does not convert to the column's type.
    Field& operator=(const Valor& valor);

    Field(const Field&) = default;
    Field& operator=(const Field&) = delete;

  private:
    Recordset* recordset_;
    std::size_t coluna_;
};

// The rows of a query. Destroying it closes it. After Close every operation but Close is error
// 3420.
class TARVO_PUBLICO Recordset {
  public:
    virtual ~Recordset() = default;

    // True before the first row: for a recordset just opened, True means that it is empty.
    [[nodiscard]] virtual bool BOF() const = 0;
    // True after the last row. (EOF without the underscore is a macro of the C library.)
    [[nodiscard]] virtual bool EOF_() const = 0;
    // Error 3021 at the end.
    virtual void MoveNext() = 0;

    // The column of that name, without regard to case, qualified by its table
    // ("tblContribuinte.IE") where two tables of the query have it. Error 3265 when the query has
    // no such column, or when an unqualified name fits two.
    [[nodiscard]] Field Fields(std::string_view nome) { return {*this, Coluna(nome)}; }
    // The column at that position, from 0. Error 3265 outside the query's columns.
    [[nodiscard]] Field Fields(int posicao) { return {*this, Coluna(posicao)}; }

    // Begins a new row, all Null; Update writes it to the table at once. For recordsets opened as
    // Dynaset on "SELECT * FROM table"; others raise error 3219, read-only databases 3027.
    virtual void AddNew() = 0;
    virtual void Update() = 0;

    virtual void Close() = 0;

  private:
    friend class Field;
    [[nodiscard]] virtual std::size_t Coluna(std::string_view nome) const = 0;
    [[nodiscard]] virtual std::size_t Coluna(int posicao) const = 0;
    [[nodiscard]] virtual Valor Ler(std::size_t coluna) const = 0;
    virtual void Escrever(std::size_t coluna, const Valor& valor) = 0;
};

inline Valor Field::Value() const {
    return recordset_->Ler(coluna_);
}
inline Field& Field::operator=(const Valor& valor) {
    recordset_->Escrever(coluna_, valor);
    return *this;
}

// A temporary query that changes data.
class TARVO_PUBLICO QueryDef {
  public:
    virtual ~QueryDef() = default;
    // Runs the query; its changes take effect at once.
    virtual void Execute() = 0;
};

// The open database.
class TARVO_PUBLICO BancoDados {
  public:
    virtual ~BancoDados() = default;

    // Errors: 3075 for a text outside the dialect (with the place), 3078 for a missing table,
    // 3061 for an unknown column (both name it).
    virtual std::unique_ptr<Recordset> OpenRecordset(std::string_view consulta,
                                                     TipoRecordset tipo) = 0;
    // nome is empty: the query is temporary and stored nowhere.
    virtual std::unique_ptr<QueryDef> CreateQueryDef(std::string_view nome,
                                                     std::string_view consulta) = 0;

    // Runs refazer, which empties a work table, refills it and reads it back, as one step: no other
    // build comes between. Waits for its turn; error 3260 when that takes too long. What refazer
    // throws is thrown again, and the lines up to there stay in the table, unless the database
    // itself failed (a full disk, a damaged page), which leaves the lines of the build before.
    // An engine that does not override it lets builds of several processes mix their lines.
    virtual void RefazerTabela(std::string_view /*tabela*/, const std::function<void()>& refazer) {
        refazer();
    }

    // What is damaged in the database's own store, one text each; it reads everything. An engine
    // that does not override it finds nothing.
    virtual std::vector<std::string> Danos() { return {}; }

    // Between these two calls, which nest, queries may be about that declaration of that taxpayer,
    // and all that is read of it is of one moment, as is what all declarations share. An engine
    // that fetches from afar reads each once. One that does not override them sees every change at
    // once.
    virtual void ManterLeitura(std::string_view /*IE*/, std::int32_t /*NroDRQ*/) {}
    virtual void SoltarLeitura() noexcept {}

    // Who is asked from now on whether to go on, nullptr for nobody; returns who was asked before.
    // An engine that does not override it runs every query to its end.
    virtual Acompanhante* Acompanhar(Acompanhante* /*quem*/) { return nullptr; }
};

// Has a database keep what it reads for the lifetime of this object.
class TARVO_PUBLICO LeituraMantida {
  public:
    LeituraMantida(BancoDados& banco, std::string_view IE, std::int32_t NroDRQ) : banco_(banco) {
        banco.ManterLeitura(IE, NroDRQ);
    }
    ~LeituraMantida() { banco_.SoltarLeitura(); }
    LeituraMantida(const LeituraMantida&) = delete;
    LeituraMantida& operator=(const LeituraMantida&) = delete;

  private:
    BancoDados& banco_;
};

// Has a database ask quem for the lifetime of this object, or whom it asked before for nullptr.
class TARVO_PUBLICO Acompanhamento {
  public:
    Acompanhamento(BancoDados& banco, Acompanhante* quem)
        : banco_(quem == nullptr ? nullptr : &banco),
          anterior_(quem == nullptr ? nullptr : banco.Acompanhar(quem)) {}
    ~Acompanhamento() {
        if (banco_ != nullptr) {
            banco_->Acompanhar(anterior_);
        }
    }
    Acompanhamento(const Acompanhamento&) = delete;
    Acompanhamento& operator=(const Acompanhamento&) = delete;

  private:
    BancoDados* banco_;
    Acompanhante* anterior_;
};

}  // namespace tarvo
