// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "data/Publico.h"
#include "document/Ambiente.h"
#include "document/Conteudo.h"

namespace tarvo {

// The report document on which every report draws: records pages of primitives (see Conteudo.h
// for units), shows them in a preview and prints them. There is always a current page, the last.
//
// Drawing refuses what no page can show with error 5: coordinates, sizes or radii that are not
// finite, alignment codes outside 0 to 2, a line style other than 0 and 2, a thickness of 0 or
// less, a picture that is no whole GIF (one whose pixels turn out damaged is error 5 of the
// rendering).
//
// What is drawn says what it is through Trecho (below). Frames and bars are decoration by
// themselves; a text or picture that nobody has spoken for is a paragraph or figure of its own, the
// empty text nothing.
class TARVO_PUBLICO DocumentoRelatorio {
  public:
    explicit DocumentoRelatorio(const Ambiente& ambiente = {});
    ~DocumentoRelatorio();
    DocumentoRelatorio(const DocumentoRelatorio&) = delete;
    DocumentoRelatorio& operator=(const DocumentoRelatorio&) = delete;

    // Discards all pages and settings: one empty page, portrait, no margins.
    void Iniciar();
    void DefinirTitulo(std::string_view titulo);
    void DefinirTituloResumido(std::string_view titulo);
    void DefinirIcone(const Imagem& figura);
    void DefinirIdentificacao(const Identificacao& identificacao);
    // What a preview says beside the pages (see Conteudo::avisos).
    void DefinirAvisos(std::vector<std::string> avisos) { conteudo_.avisos = std::move(avisos); }
    // Keeps the place of an operation of the interface that nothing calls.
    void Reservada() {}
    // 0 portrait, 1 landscape. Errors 20001 once something is drawn, 20002 for any other code,
    // 20003 when the margins leave nothing of the turned page.
    void DefinirOrientacao(std::int32_t orientacao);
    // cm. Errors 20001 once something is drawn, 20004 for margins that are negative, not finite or
    // leave no printable area.
    void DefinirMargens(double esquerda, double direita, double superior, double inferior);
    // Error 18 when the host's Andamento cancels.
    void NovaPagina();
    // estilo: 0 solid, 2 dotted; espessura: units of 0.5 pt.
    void DesenharLinha(double x, double y, double largura, double altura, std::int32_t reservado1,
                       std::int32_t reservado2, std::int32_t espessura, std::int16_t estilo);
    void DesenharRetangulo(double x, double y, double largura, double altura, bool preenchido,
                           std::int32_t corBorda, std::int32_t corPreenchimento,
                           std::int32_t espessura);
    // raio: cm.
    void DesenharRetanguloArredondado(double x, double y, double largura, double altura,
                                      bool preenchido, double raio, std::int32_t corBorda,
                                      std::int32_t corPreenchimento, std::int32_t espessura);
    // One line of text. tamanho: points. "%%D", "%%H", "%%p" and "%%P" in it stand for the date,
    // the time, the page's number and the number of pages.
    void EscreverTexto(double x, double y, double largura, double altura, std::string_view texto,
                       std::int32_t alinhamentoHorizontal, std::int32_t alinhamentoVertical,
                       std::string_view fonte, double tamanho, bool negrito, bool italico,
                       bool sublinhado, std::int32_t cor);
    // Text that wraps at word boundaries to the box's width and breaks at CR+LF.
    void EscreverTextoMultilinha(double x, double y, double largura, double altura,
                                 std::string_view texto, std::int32_t alinhamentoHorizontal,
                                 std::int32_t alinhamentoVertical, std::string_view fonte,
                                 double tamanho, bool negrito, bool italico, bool sublinhado,
                                 std::int32_t cor);
    // proporcional: True keeps the picture's proportions inside the box, False fills the box.
    void DesenharFigura(double x, double y, double largura, double altura, const Imagem& figura,
                        bool proporcional);
    // Error 445 for both without a FabricaVisualizadores.
    void Exibir();
    void Ocultar();
    void Imprimir(bool& perguntar);

    // What has been recorded so far; valid until the next call that draws or sets something.
    [[nodiscard]] const Conteudo& Registrado() const { return conteudo_; }

  private:
    friend class Trecho;

    Visualizador& ObterVisualizador();
    void RecusarSeDesenhado() const;
    template <class P>
    void Acrescentar(P&& primitiva, std::uint32_t dono = Estrutura::Decoracao);
    std::uint32_t DonoDoQueSeLe(TipoElemento padrao, bool vazio = false);
    void AcrescentarTexto(const Caixa& caixa, std::string_view texto, std::int32_t horizontal,
                          std::int32_t vertical, std::string_view fonte, double tamanho,
                          bool negrito, bool italico, bool sublinhado, std::int32_t cor,
                          bool multilinha);
    std::uint16_t IndiceDaFonte(std::string_view fonte);

    Ambiente ambiente_;
    Conteudo conteudo_;
    std::uint32_t aberto_ = Estrutura::Raiz;  // element that is open
    std::unique_ptr<Visualizador> visualizador_;
};

// While it lives, what is drawn is the content of one element, or decoration. They nest: the inner
// one's element is a child of the outer's; within decoration all is decoration.
class Trecho {
  public:
    // Begins a new element below the one that is open.
    Trecho(DocumentoRelatorio& documento, Elemento elemento)
        : documento_(documento), indice_(documento.aberto_), anterior_(documento.aberto_) {
        if (anterior_ != Estrutura::Decoracao) {
            auto& elementos = documento.conteudo_.estrutura.elementos;
            indice_ = static_cast<std::uint32_t>(elementos.size());
            elementos.push_back(elemento);
            elementos.back().pai = anterior_;
            documento.aberto_ = indice_;
        }
    }
    // Goes on with an element of that index begun before, or with Decoracao.
    Trecho(DocumentoRelatorio& documento, std::uint32_t elemento)
        : documento_(documento),
          indice_(documento.aberto_ == Estrutura::Decoracao ? Estrutura::Decoracao : elemento),
          anterior_(documento.aberto_) {
        documento.aberto_ = indice_;
    }
    ~Trecho() { documento_.aberto_ = anterior_; }
    Trecho(const Trecho&) = delete;
    Trecho& operator=(const Trecho&) = delete;

    // Index of the element, for going on with it later; Decoracao within decoration.
    [[nodiscard]] std::uint32_t Indice() const { return indice_; }

  private:
    DocumentoRelatorio& documento_;
    std::uint32_t indice_;
    std::uint32_t anterior_;
};

}  // namespace tarvo
