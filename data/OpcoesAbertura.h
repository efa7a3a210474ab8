// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "data/Acompanhante.h"

// How a declaration database is opened, whatever kind it is.
namespace tarvo {

enum class ModoAbertura { LeituraEscrita, SomenteLeitura };

// Where the work tables that some reports refill live.
enum class TabelasDeTrabalho {
    NoBanco,   // in the database, visible to everyone who opens it
    Privadas,  // temporary tables of this connection that shadow the database's: the file is never
               // written, so that read-only files and several builds at once work
};

struct OpcoesAbertura {
    ModoAbertura modo = ModoAbertura::LeituraEscrita;
    TabelasDeTrabalho tabelasDeTrabalho = TabelasDeTrabalho::NoBanco;
    // The code page of the texts in the oldest files of the desktop engine: a number, or a name as
    // iconv knows it. All other databases hold Unicode.
    std::string codificacao = "1252";
    // Asked while a database is read into a copy or a server is connected with, by whichever thread
    // opens it; outlives that. False ends it with error 18.
    Acompanhante* acompanhante = nullptr;
};

}  // namespace tarvo
