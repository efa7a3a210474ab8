// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "databases/postgresql/Sessao.h"

namespace tarvo::postgresql {

// A server that is read from again and again: its connection is made anew when it was lost.
class Servidor {
  public:
    // Connects. quem: see Sessao.
    Servidor(std::string endereco, Acompanhante* const& quem);

    // Runs ler, anew on a new connection when that may help: for a connection that has gone, for
    // some time while the server does not come back, the one who accompanies being asked; at once
    // without prepared statements, where others share our connection. aoMudar: called before ler is
    // tried again because the tables are no longer what they were.
    void Insistir(const std::function<void(Sessao& sessao)>& ler,
                  const std::function<void(Sessao& sessao)>& aoMudar);

    // Whether statements can be prepared; see Sessao::Ler.
    [[nodiscard]] bool Prepara() const { return prepara_; }

  private:
    void EsperarQueVolte(std::chrono::steady_clock::time_point inicio);

    std::string endereco_;
    Acompanhante* const& quem_;
    std::unique_ptr<Sessao> sessao_;
    bool prepara_ = true;
};

}  // namespace tarvo::postgresql
