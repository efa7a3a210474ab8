// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "databases/mdb/protocol/Emissor.h"
#include "databases/mdb/reader/Decodificador.h"
#include "databases/mdb/reader/TabelaMdb.h"

namespace tarvo::mdb {

// A table that is wanted, and of it the columns.
struct Pedido {
    std::string tabela;
    std::vector<std::string> colunas;
};

// An open file: finds the tables that are wanted and sends their rows. Names are compared without
// regard to case. Raises Recusado.
class LeituraDoArquivo {
  public:
    // bytes: the whole file, mapped; it and the decoder outlive this object.
    LeituraDoArquivo(std::span<unsigned char> bytes, const Decodificador& decodificador);

    void Enviar(std::span<const Pedido> pedidos, Emissor& emissor);

  private:
    // One that is sent: which column of the table, where it stands in the request.
    struct Coluna {
        std::size_t indice;
        std::uint8_t pedida;
    };
    void ConferirProtecao() const;
    // The definition's page of each table that is wanted, by its place among them.
    std::map<std::uint16_t, std::uint32_t> LerCatalogo(std::span<const Pedido> pedidos);
    void EnviarValor(TabelaMdb& tabela, std::size_t indice, Emissor& emissor);
    void EnviarTexto(std::span<const unsigned char> bytes, Emissor& emissor);
    bool Decodificar(std::span<const unsigned char> bytes, std::string& utf8) const;

    const Decodificador& decodificador_;
    ObjetoDeC<mdb_close> mdb_;
    std::span<unsigned char> bytes_;
    std::uint32_t linhasEnviadas_ = 0;
    std::uint32_t ilegiveis_ = 0;  // texts of the current table
    std::string texto_;
};

}  // namespace tarvo::mdb
