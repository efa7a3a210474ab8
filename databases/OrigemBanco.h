// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "data/BancoDados.h"
#include "data/OpcoesAbertura.h"
#include "data/Publico.h"

namespace tarvo {

namespace sqlite {
class Conexao;
}

// A declaration database found at an address, to be opened any number of times: by the threads of a
// batch, say. One that is not opened in its place (a file of the desktop engine) is read once, into
// a private copy that everything opened from here shares and that goes with the last of them.
// Abrir may be called by several threads at once.
class TARVO_PUBLICO OrigemBanco {
  public:
    // Errors: see AbrirBanco. A SQLite file is looked for when it is opened.
    explicit OrigemBanco(std::string endereco, OpcoesAbertura opcoes = {});
    ~OrigemBanco();
    OrigemBanco(OrigemBanco&&) noexcept;
    OrigemBanco& operator=(OrigemBanco&&) noexcept;

    [[nodiscard]] std::unique_ptr<BancoDados> Abrir() const;
    // What a reader of the reports should know of it, a sentence each: another program has the file
    // open, texts could not be read whole.
    [[nodiscard]] const std::vector<std::string>& Avisos() const;
    // When the copy was read; none for a database that is opened in its place.
    [[nodiscard]] std::optional<std::chrono::system_clock::time_point> LidaEm() const;
    // True when the file is no longer the one that was copied.
    [[nodiscard]] bool Mudou() const;

  private:
    friend struct ResumoDaCopia CopiarBanco(const OrigemBanco& origem,
                                            const std::filesystem::path& destino,
                                            const struct SelecaoDaCopia& selecao);
    [[nodiscard]] std::shared_ptr<sqlite::Conexao> Conectar(
        const struct SelecaoDaCopia& selecao) const;

    [[nodiscard]] Acompanhante* QuemAcompanha() const;

    struct Partes;
    std::unique_ptr<Partes> partes_;
};

}  // namespace tarvo
