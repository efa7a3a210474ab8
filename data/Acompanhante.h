// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

#include "data/Publico.h"

namespace tarvo {

// Who is asked, again and again, whether a database is to go on, and so learns that it takes long.
class TARVO_PUBLICO Acompanhante {
  public:
    virtual ~Acompanhante() = default;
    // Called some twenty times a second while a query runs, with zero, and while the database waits
    // for its turn to write, with how long it has been waiting. False ends what it is doing with
    // error 18. Must not use that database. What it throws reaches the caller of the operation.
    virtual bool Continuar(std::chrono::milliseconds aguardando) = 0;
};

}  // namespace tarvo
