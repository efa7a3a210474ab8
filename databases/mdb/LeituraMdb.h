// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "databases/sqlite/CopiaPrivada.h"

// Files of the desktop engine (.mdb, .accdb).
namespace tarvo::mdb {

// True for a file that begins as they do.
bool EhArquivoMdb(const std::filesystem::path& arquivo);

struct Leitura {
    std::shared_ptr<const sqlite::CopiaPrivada> copia;
    // What a reader of the reports should know, a sentence each.
    std::vector<std::string> avisos;
};

// Reads the file's declaration tables into a private copy, in a process without rights. The file
// is not written. codificacao: code page of the oldest files' texts ("1252").
//
// Errors: 3024 no such file, 70 no permission, 3343 damaged, or of a version that is not known,
// 3031 encrypted or with a password, 3219 a linked table, 3260 the file changed meanwhile, 5 no
// such code page, 7 no memory, 61 no space for the copy, 445 the reader is not installed; 18 when
// quem, who may be null, does not want to go on.
Leitura LerArquivoMdb(const std::filesystem::path& arquivo, const std::string& codificacao,
                      Acompanhante* quem = nullptr);

}  // namespace tarvo::mdb
