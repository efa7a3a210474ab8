// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <array>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "data/BancoDados.h"
#include "databases/postgresql/ListaNoServidor.h"

namespace tarvo::host {

using postgresql::ChaveDaLista;
using postgresql::LinhasAchadas;

// A declaration with its taxpayer as the list shows it, or a taxpayer without declaration.
struct LinhaDaLista {
    enum Coluna { RazaoSocial, IE, CNPJ, Numero, Referencia, Regime, Tipo, Consistente, Colunas };

    std::array<QString, Colunas> textos;
    ChaveDaLista chave;
    double referencia = 0;  // date serial
};

// All of a database, in order of reference and number, taxpayers without declaration last.
std::vector<LinhaDaLista> LerLinhas(BancoDados& banco);

// What is wanted of a list: the rows that have every word, folded as BuscaTexto does, in any
// column; sorted by numbers, dates and the Portuguese alphabet.
struct BuscaNaLista {
    QStringList palavras;
    int coluna = LinhaDaLista::RazaoSocial;
    bool decrescente = false;
};

// Where a list comes from. One thread at a time.
class FonteDaLista {
  public:
    virtual ~FonteDaLista() = default;
    // Whether it answers at once, without anything to wait for.
    [[nodiscard]] virtual bool Imediata() const = 0;
    // quem: asked while it takes long.
    virtual LinhasAchadas Procurar(const BuscaNaLista& busca, Acompanhante* quem) = 0;
    // Those rows; one that has gone meanwhile has its key alone.
    virtual std::vector<LinhaDaLista> Ler(std::span<const ChaveDaLista> chaves,
                                          Acompanhante* quem) = 0;
};

// Of a database that is read whole at once.
std::unique_ptr<FonteDaLista> ListarNaMemoria(BancoDados& banco);
// Of a server's, which searches and sorts; connects with the first question.
std::unique_ptr<FonteDaLista> ListarNoServidor(const std::string& endereco);

}  // namespace tarvo::host
