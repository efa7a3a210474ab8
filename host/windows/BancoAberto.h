// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>
#include <memory>

#include "databases/OrigemBanco.h"
#include "host/windows/FonteDaLista.h"

namespace tarvo::host {

// The database that the host's window shows, with what is told of it.
class BancoAberto {
  public:
    // Opens it; errors as AbrirBanco. acompanhante, which may be null, is asked while it is read
    // and queried, and outlives the object.
    BancoAberto(std::filesystem::path endereco, Acompanhante* acompanhante);

    [[nodiscard]] BancoDados& Banco() { return *banco_; }
    [[nodiscard]] const std::filesystem::path& Endereco() const { return endereco_; }
    // Its declarations; the object outlives the list's use.
    [[nodiscard]] std::unique_ptr<FonteDaLista> Lista();
    // False for a copy of what has not changed since.
    [[nodiscard]] bool TemNovidade() const;

    // For the window's caption, without a server's password.
    [[nodiscard]] QString Nome() const;
    // By which it is opened again, from wherever.
    [[nodiscard]] QString Recente() const;
    // Of when what is shown is, "dados de 10:47, F5 relê"; empty where it is no copy.
    [[nodiscard]] QString Situacao() const;
    // What a reader of the reports should know of it, a sentence each.
    [[nodiscard]] QStringList Avisos() const;

  private:
    std::filesystem::path endereco_;
    OrigemBanco origem_;
    std::unique_ptr<BancoDados> banco_;
    bool noServidor_;
};

}  // namespace tarvo::host
