// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include "databases/BancoEmMemoria.h"
#include "interface/Objetos.h"

namespace tarvo::c {

// A database that its program fills.
class BancoPreenchido final : public Banco {
  public:
    BancoPreenchido() : BancoPreenchido(std::make_unique<BancoEmMemoria>()) {}

    void ComecarTabela(const std::string& nome, std::span<const std::string> colunas);
    void Acrescentar(std::span<const tarvo_valor> valores);

  private:
    explicit BancoPreenchido(std::unique_ptr<BancoEmMemoria> banco)
        : Banco(std::move(banco)), emMemoria_(static_cast<BancoEmMemoria&>(**this)) {}

    BancoEmMemoria& emMemoria_;
    std::size_t colunas_ = 0;  // of the table that was begun last
};

}  // namespace tarvo::c
