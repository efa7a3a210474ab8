// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "data/Publico.h"
#include "document/Ambiente.h"

namespace tarvo {

// The per-user settings: one file "<aplicacao>.ini" per application in the user's configuration
// folder, UTF-8, sections and keys without regard to case. Every call goes to the file, so that
// other programs' changes are seen. A link in the file's place stays one. Errors: 76 no such
// folder, 75 something else bears the name, 70 no permission, 67 too many open files, 61 no space,
// 57 anything else that the file system refuses.
class TARVO_PUBLICO ConfiguracoesIni final : public Configuracoes {
  public:
    // $XDG_CONFIG_HOME, or ~/.config when that is unset or not absolute.
    static std::filesystem::path PastaDoUsuario();

    explicit ConfiguracoesIni(std::filesystem::path pasta = PastaDoUsuario())
        : pasta_(std::move(pasta)) {}

    [[nodiscard]] std::string Ler(std::string_view aplicacao, std::string_view secao,
                                  std::string_view chave, std::string_view padrao) const override;
    // Sets one key and leaves every other line, comments included, as it stands; makes folder and
    // file when they are missing. The old file stays whole until the new one is. Error 5 for a
    // name or value that a line cannot hold (line breaks, "=" in the key, "]" in the section).
    void Gravar(std::string_view aplicacao, std::string_view secao, std::string_view chave,
                std::string_view valor);

  private:
    [[nodiscard]] std::filesystem::path Arquivo(std::string_view aplicacao) const;

    std::filesystem::path pasta_;
};

}  // namespace tarvo
