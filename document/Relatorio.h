// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "data/BancoDados.h"
#include "data/Publico.h"
#include "document/DocumentoRelatorio.h"
#include "document/Imagens.h"

namespace tarvo {

// What a report class says of its document; constant data of the class.
struct IdentidadeRelatorio {
    std::string_view classe;          // "RelatorioCadastro"
    std::string_view titulo;          // full title: preview caption, PDF title
    std::string_view tituloResumido;  // at most 30 characters: print-job name
    std::int32_t orientacao = 0;      // 0 portrait, 1 landscape
    const Imagem* icone = &frmFiguras::imgIconeR;
    Margens margens = {2.0, 2.0, 2.0, 2.0};  // cm
};

// A report object: a document, and the protocol by which callers drive it: Construir (each class
// has its own), then any number of Exibir and Ocultar; the reports of the selection list also have
// Imprimir. An error in Construir leaves what was drawn so far. Belongs to one thread at a time.
class TARVO_PUBLICO Relatorio {
  public:
    virtual ~Relatorio();
    Relatorio(const Relatorio&) = delete;
    Relatorio& operator=(const Relatorio&) = delete;

    void Exibir() { documento_.Exibir(); }
    void Ocultar() { documento_.Ocultar(); }

    // Forgets the document, which may be large, and hides its preview.
    void Descartar();

    [[nodiscard]] const IdentidadeRelatorio& Identidade() const { return identidade_; }
    // The document as last built; valid until the next Construir.
    [[nodiscard]] const Conteudo& Documento() const { return documento_.Registrado(); }

  protected:
    Relatorio(const IdentidadeRelatorio& identidade, const Ambiente& ambiente)
        : identidade_(identidade), ambiente_(ambiente), documento_(ambiente) {}

    // Iniciar, titles, icon, orientation and margins, all from the identity.
    void IniciarDocumento();

    // After a build: what the environment's RevisorDePaginas finds is shown with the document.
    void Rever(BancoDados& banco, const std::string& IE, std::optional<std::int32_t> NumeroDRQ);

    [[nodiscard]] const Ambiente& AmbienteDoRelatorio() const { return ambiente_; }
    [[nodiscard]] DocumentoRelatorio& Desenho() { return documento_; }

  private:
    const IdentidadeRelatorio& identidade_;
    Ambiente ambiente_;
    DocumentoRelatorio documento_;
};

// A report of the selection list: built from one declaration of one taxpayer.
class TARVO_PUBLICO RelatorioDeclaracao : public Relatorio {
  public:
    ~RelatorioDeclaracao() override;

    // Reads the declaration from the open database and draws the whole document anew. A missing
    // taxpayer or declaration gives a document of one empty page, unless the class says otherwise.
    // Database and conversion errors reach the caller; error 18 when the environment's Andamento
    // cancels, be it between two pages or in the middle of a query.
    void Construir(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ);

    // Prints at once on the chosen or the user's default printer.
    void Imprimir();

  protected:
    using Relatorio::Relatorio;

  private:
    virtual void Desenhar(BancoDados& banco, const std::string& IE, std::int32_t NumeroDRQ) = 0;
};

}  // namespace tarvo
