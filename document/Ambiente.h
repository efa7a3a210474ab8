// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Acompanhante.h"
#include "data/Publico.h"

// What a host hands to the library once: the pieces of the user's desktop that documents and
// reports need from outside. Each may be absent; an operation that needs an absent one raises
// error 445.
namespace tarvo {

class BancoDados;
struct Conteudo;

// The preview window and the way to the printer of one document, which outlives it. Destroying it
// closes the window.
class TARVO_PUBLICO Visualizador {
  public:
    virtual ~Visualizador() = default;
    // Opens a modeless preview of the document as it is now, or shows it anew at its first page.
    virtual void Exibir(const Conteudo& conteudo) = 0;
    virtual void Ocultar() = 0;
    // Prints all pages; perguntar asks the user for the printer first.
    virtual void Imprimir(const Conteudo& conteudo, bool perguntar) = 0;
};

// Makes the Visualizador of each document. It outlives the documents.
class TARVO_PUBLICO FabricaVisualizadores {
  public:
    virtual ~FabricaVisualizadores() = default;
    virtual std::unique_ptr<Visualizador> Criar() = 0;
};

// The per-user settings store of the host.
class TARVO_PUBLICO Configuracoes {
  public:
    virtual ~Configuracoes() = default;
    // The setting's text, or padrao when it is absent.
    [[nodiscard]] virtual std::string Ler(std::string_view aplicacao, std::string_view secao,
                                          std::string_view chave,
                                          std::string_view padrao) const = 0;
};

// Told of each finished page while a document is built, so that a long build can show progress, and
// asked by the database while a query runs or waits for its turn.
class TARVO_PUBLICO Andamento : public Acompanhante {
  public:
    // False cancels the build, which ends with error 18.
    virtual bool PaginaConcluida(std::size_t paginas) = 0;
    // The same; never cancels unless overridden.
    bool Continuar(std::chrono::milliseconds /*aguardando*/) override { return true; }
};

// Knows what the pages of a report do not show as their reader expects.
class TARVO_PUBLICO RevisorDePaginas {
  public:
    virtual ~RevisorDePaginas() = default;
    // A sentence each, of the report of that class ("RelatorioPagamentos") just built. The slip has
    // neither taxpayer nor declaration.
    virtual std::vector<std::string> Rever(BancoDados& banco, std::string_view classe,
                                           const std::string& IE,
                                           std::optional<std::int32_t> NumeroDRQ) = 0;
};

// All of them; the objects outlive every report object made with them.
struct Ambiente {
    FabricaVisualizadores* visualizadores = nullptr;
    const Configuracoes* configuracoes = nullptr;
    Andamento* andamento = nullptr;
    // Asked after each build, so that previews can say it; null: nobody is.
    RevisorDePaginas* revisor = nullptr;
};

}  // namespace tarvo
