// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>

#include "data/BancoDados.h"
#include "data/OpcoesAbertura.h"
#include "data/Publico.h"

namespace tarvo {

// Opens the declaration database that stands at an address: a SQLite file, a file of the desktop
// engine (.mdb, .accdb), which of them is told by what stands there, never by its name; or a
// server's (postgresql://SERVER/DATABASE, as libpq knows it; the password may stand in it, but
// is better in the password file). Nothing is ever created. A file of the desktop engine is read
// whole into a private copy and never written: its work tables are private whatever the options
// say, and the copy shows the file as it was. From a server a declaration comes when it is asked
// for, anew with each report (see LeituraMantida), and nothing is written to it either. Who opens
// one several times, or asks what should be known of it, makes an OrigemBanco.
//
// Errors: those of BancoSQLite::Abrir (3024, 70, 3343, 3260); of a file of the desktop engine also
// 3031 encrypted or with a password, 3219 a linked table, 3260 changed while it was read, 5 no such
// code page, 61 no space for the copy, 18 cancelled, 445 its reader is not installed; of a server
// 3029 the user or the password is not accepted, 3151 no answer, 3024 no such database, 3078 no
// table of declarations, 3061 tables without "ordem", 3112 no permission, 5 no address, and when it
// is read also 3146 the server gave up. No error's text repeats a password.
TARVO_PUBLICO std::unique_ptr<BancoDados> AbrirBanco(const std::string& endereco,
                                                     const OpcoesAbertura& opcoes = {});

}  // namespace tarvo
