// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "data/BancoDados.h"
#include "databases/postgresql/Esquema.h"
#include "databases/postgresql/Servidor.h"

namespace tarvo::postgresql {

enum class ColunaDaLista {
    RazaoSocial,
    IE,
    CNPJ,
    Numero,
    Referencia,
    Regime,
    TipoDeDRQ,
    Consistencia
};

// How codes are shown, and so searched and sorted: code, text.
struct TextosDaLista {
    std::vector<std::pair<std::string, std::string>> regimes;
    std::vector<std::pair<std::string, std::string>> tipos;
    std::string consistida;
    std::string naoConsistida;
};

struct PedidoDaLista {
    std::vector<std::string> padroes;  // regular expressions; each is found in a row's texts
    ColunaDaLista ordem = ColunaDaLista::RazaoSocial;
    bool decrescente = false;
};

// A row: a declaration, or a taxpayer without one.
struct ChaveDaLista {
    std::string IE;                      // empty: nobody knows whose it is
    std::optional<std::int32_t> NroDRQ;  // absent without a declaration
};

struct LinhasAchadas {
    std::vector<ChaveDaLista> chaves;  // in the order that was asked for, Maximo at the most
    std::int64_t declaracoes = 0;      // on the server, found or not
    bool haMais = false;               // than Maximo
};

// The declarations of a server with their taxpayers as a list that the server searches and sorts,
// over a connection of its own. One thread at a time; errors: see Abrir, and 18.
class ListaNoServidor {
  public:
    static constexpr std::size_t Maximo = 200'000;

    // Connects with the first call.
    ListaNoServidor(std::string endereco, TextosDaLista textos);

    // quem: asked while the server works, nullptr for nobody.
    LinhasAchadas Procurar(const PedidoDaLista& pedido, Acompanhante* quem);
    // Those rows of tblDRQ and tblContribuinte, in a database of their own.
    std::unique_ptr<BancoDados> Ler(std::span<const ChaveDaLista> chaves, Acompanhante* quem);

  private:
    void Com(Acompanhante* quem, const std::function<void(Sessao& sessao)>& ler);
    void Conhecer(Sessao& sessao);
    [[nodiscard]] bool TemIE() const;
    [[nodiscard]] std::string Consulta(const PedidoDaLista& pedido, const Sessao& sessao) const;

    std::string endereco_;
    TextosDaLista textos_;
    Acompanhante* quem_ = nullptr;
    std::optional<Servidor> servidor_;
    std::optional<Esquema> esquema_;
    std::string alfabeto_;  // the Portuguese collation as SQL names it; empty: the server has none
};

}  // namespace tarvo::postgresql
