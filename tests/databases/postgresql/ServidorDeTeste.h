// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <string>

#include "tests/support/Apoio.h"

namespace tarvo::apoio {

// A PostgreSQL server of our own in a temporary folder, reached through a socket there and nowhere
// else; it ends with this process, however that ends. User "dono" may do everything, "leitor" needs
// the password "segredo" and may do what a test grants him.
class ServidorDeTeste {
  public:
    // Started by the first test that asks for it.
    static ServidorDeTeste& Unico();
    ~ServidorDeTeste();
    ServidorDeTeste(const ServidorDeTeste&) = delete;
    ServidorDeTeste& operator=(const ServidorDeTeste&) = delete;

    void Iniciar();
    // As a power failure ends it.
    void Matar();
    // The address of a new database without tables.
    std::string BancoNovo();
    [[nodiscard]] std::string Endereco(const std::string& banco,
                                       const std::string& usuario = "dono") const;
    // Runs statements in the database of an address; what they give, as psql writes it.
    [[nodiscard]] static std::string Executar(const std::string& endereco, const std::string& sql);

  private:
    ServidorDeTeste();

    PastaTemporaria pasta_;
    std::string comando_;  // before the programs of the server: they refuse to run as root
    std::string programas_;
    pid_t processo_ = 0;
    int bancos_ = 0;
};

}  // namespace tarvo::apoio
