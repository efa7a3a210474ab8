// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

// Files of the desktop engine's format of 2000 to 2003, for tests: tables and rows in the order in
// which they are given, no indexes.
namespace tarvo::mdb {

enum class TipoMdb : std::uint8_t {
    Booleano = 1,
    Byte = 2,
    Inteiro = 3,
    Longo = 4,
    Moeda = 5,
    Simples = 6,
    Duplo = 7,
    Data = 8,
    Texto = 10,
    Memo = 12,
    Decimal = 16,  // four decimals
};

struct ColunaMdb {
    std::string nome;
    TipoMdb tipo;
};

using CelulaMdb = std::variant<std::monostate, bool, std::int64_t, double, std::string>;

// How a row lies on its page.
enum class LinhaMdb { NoLugar, Apagada, Mudada };  // Mudada: on another page, with a pointer to it

class EscritorMdb {
  public:
    EscritorMdb();
    void Tabela(const std::string& nome, std::vector<ColunaMdb> colunas);
    // Of the last table. Texts are UTF-8; amounts and decimals are ten-thousandths.
    void Linha(const std::vector<CelulaMdb>& celulas, LinhaMdb como = LinhaMdb::NoLugar);
    // A table that stands in another file.
    void Vinculada(const std::string& nome);
    std::string Bytes();

    // Of the header, in the clear: a key of encryption, a password's first byte.
    std::uint32_t chave = 0;
    std::uint8_t senha = 0;
    // Added to the row count that the last table's definition tells.
    std::int32_t linhasAMais = 0;

  private:
    struct Definicao {
        std::uint32_t pagina;
        std::vector<ColunaMdb> colunas;
        std::uint32_t linhas = 0;
        std::vector<std::uint32_t> paginas;  // with its rows
    };
    std::uint32_t NovaPagina(std::uint8_t tipo);
    std::uint32_t NovaPaginaDeDados(std::uint32_t dono);
    void EscreverCabecalho();
    void EscreverDefinicao(const Definicao& tabela, std::uint32_t lugarDoMapa);
    // The row's pointer: page and number.
    std::uint32_t Acrescentar(std::uint32_t pagina, const std::string& linha, int marcas = 0);
    [[nodiscard]] std::size_t Livres(std::uint32_t pagina) const;
    std::string Montar(const std::vector<ColunaMdb>& colunas,
                       const std::vector<CelulaMdb>& celulas);
    std::string Guardar(const std::string& memo);
    std::string& Da(std::uint32_t pagina) { return paginas_[pagina]; }

    std::vector<std::string> paginas_;
    std::vector<Definicao> tabelas_;  // the catalogue first
    std::uint32_t memos_ = 0;         // page of long values with room
};

}  // namespace tarvo::mdb
