// SPDX-License-Identifier: MIT
#pragma once

// Before the library's header, which includes it inside extern "C".
#include <glib.h>

#include <mdbtools.h>

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "data/ObjetoDeC.h"
#include "databases/mdb/protocol/Protocolo.h"

namespace tarvo::mdb {

// Ends the reading: the file is refused for that reason.
struct Recusado {
    Motivo motivo;
    std::uint16_t tabela = 0;  // of those that are wanted, where it is about one
};

// A table of an open file and its rows, in the order in which the file holds them.
class TabelaMdb {
  public:
    // pagina: where its definition stands. Raises Recusado for a definition that cannot be.
    TabelaMdb(MdbHandle& mdb, std::uint32_t pagina);

    // How many rows the definition says there are.
    [[nodiscard]] std::uint32_t LinhasDeclaradas() const { return tabela_->num_rows; }
    [[nodiscard]] std::span<MdbColumn* const> Colunas() const;
    // Calls visitar with each row that is not deleted, and returns how many there were. Within that
    // call Bytes reads the row's values.
    std::uint32_t Percorrer(const std::function<void()>& visitar);

    // True for Null (a Boolean is never Null: this is its False).
    [[nodiscard]] bool Nulo(std::size_t coluna) const { return campos_[coluna].is_null != 0; }
    // A value as it is stored; of a memo what its header leads to. Stays valid until the next call.
    std::span<const unsigned char> Bytes(std::size_t coluna);
    // Where the value begins on its page, for what the library itself converts.
    [[nodiscard]] int Inicio(std::size_t coluna) const { return campos_[coluna].start; }

  private:
    bool LerLinha(unsigned linha);
    void LerLinhaMudada(std::uint32_t ponteiro);
    void Separar(int inicio, std::size_t tamanho);
    std::span<const unsigned char> Memo(std::span<const unsigned char> cabecalho);

    MdbHandle& mdb_;
    MdbCatalogEntry entrada_{};
    ObjetoDeC<mdb_free_tabledef> tabela_;
    std::vector<MdbField> campos_;
    bool mudada_ = false;  // the current row was read from another page than its own
    std::vector<unsigned char> memo_;
};

}  // namespace tarvo::mdb
