#pragma once

#include <memory>
#include <string>

#include "data/BancoDados.h"
#include "data/OpcoesAbertura.h"
#include "data/Publico.h"

namespace tarvo {

// Opens the declaration database that stands at an address: a SQLite file, or a file of the desktop
// engine (.mdb, .accdb). Which of them it is is told by what stands there, never by its name.
// Nothing is ever created. A file of the desktop engine is read whole into a private copy and never
// written: its work tables are private whatever the options say, and the copy shows the file as it
// was. Who opens one several times, or asks what should be known of it, makes an OrigemBanco.
//
// Errors: those of BancoSQLite::Abrir (3024, 70, 3343, 3260); of a file of the desktop engine also
// 3031 encrypted or with a password, 3219 a linked table, 3260 changed while it was read, 5 no such
// code page, 61 no space for the copy, 18 cancelled; 445 for a kind of database that this
// installation does not read (a server's address, for now, among them).
TARVO_PUBLICO std::unique_ptr<BancoDados> AbrirBanco(const std::string& endereco,
                                                     const OpcoesAbertura& opcoes = {});

}  // namespace tarvo
