// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "document/Conteudo.h"
#include "output/pdf/file/EscritorPDF.h"
#include "output/pdf/structure/Etiquetas.h"
#include "output/pdf/structure/Fileiras.h"
#include "output/pdf/text/Comprimentos.h"

namespace tarvo::pdf {

// What of a page is the content of elements, in the order in which it is drawn.
struct ConteudoMarcado {
    struct Retrato {
        std::uint32_t dono = 0;
        std::array<Centesimos, 4> caixa{};  // left, lower, right, upper edge
        std::string_view descricao;         // outlives the document's rendering
    };
    std::vector<std::uint32_t> donos;  // of the marked parts, by their numbers from 0
    std::vector<Retrato> retratos;     // the pictures
};

// The structure tree of a file: what its pages show, in the order in which it is read. One object
// for each element; attributes that elements share are said once, as classes.
class ArvoreDeEstrutura {
  public:
    // sozinho: of a file of one document; several are its parts.
    ArvoreDeEstrutura(EscritorPDF& escritor, bool sozinho)
        : escritor_(escritor),
          sozinho_(sozinho),
          raiz_(escritor.Reservar()),
          documento_(escritor.Reservar()) {}

    void IniciarDocumento(const Conteudo& conteudo);
    // Places of the elements of this document.
    [[nodiscard]] const std::vector<Colocacao>& Colocados() const { return colocados_; }
    // objeto: the page's. Returns the page's key in the structure.
    std::size_t AcrescentarPagina(int objeto, const ConteudoMarcado& marcado);
    // Writes the elements of the document.
    void EncerrarDocumento();
    // Writes the root and returns its object number.
    int Terminar();

  private:
    static constexpr std::uint32_t Nada = Estrutura::Decoracao;

    // A document of thousands of pages has millions of these two.
    struct No {
        int numero = 0;                 // of its object
        std::uint32_t filho = Nada;     // the first that is written
        std::uint32_t irmao = Nada;     // the next that is; of a list's, written, the list's number
        std::uint32_t conteudo = Nada;  // its first marked part
    };
    struct Parte {
        std::uint32_t dono = 0;
        std::uint32_t seguinte = Nada;  // of the same element
    };
    struct PaginaMarcada {
        int objeto = 0;
        std::size_t primeira = 0;  // of its parts
    };

    void Ligar();
    void Numerar();
    void IgualarTabela(std::uint32_t tabela);
    [[nodiscard]] std::size_t Tipo(std::size_t i) const {
        return static_cast<std::size_t>(colocados_[i].etiqueta);
    }
    void Escrever(std::uint32_t i);
    void AnexarFilhos(std::uint32_t i);
    [[nodiscard]] int NumeroDoPai(std::uint32_t i) const;
    [[nodiscard]] std::size_t PaginaDe(std::uint32_t parte);
    void AnexarParte(std::uint32_t primeira, std::uint32_t parte);
    int EscreverLista(std::uint32_t& item, int pai);
    void AnexarAtributos(std::uint32_t i, Etiqueta etiqueta);
    const std::string& Classe(Etiqueta etiqueta, std::uint32_t celula);
    void EscreverPais();

    EscritorPDF& escritor_;
    bool sozinho_;
    int raiz_;
    int documento_;
    std::string filhosDaRaiz_;  // the documents, where there are several
    std::string pais_;          // entries of the parent tree
    std::size_t paginasAnteriores_ = 0;
    std::map<std::array<int, 3>, std::string> classes_;  // names by what they say
    std::string atributos_;                              // entries of the class map

    // Of the document:
    const Conteudo* conteudo_ = nullptr;
    std::vector<Colocacao> colocados_;
    std::vector<No> nos_;
    std::vector<PaginaMarcada> paginas_;
    std::size_t ultima_ = 0;  // of the pages, that was asked for
    std::vector<Parte> partes_;
    std::map<std::uint32_t, ConteudoMarcado::Retrato> retratos_;
    std::map<std::uint32_t, Vao> vaos_;  // of cells that cover other than was recorded
    bool temTitulo_ = false;
    std::string corpo_;  // of the object that is being written
    std::string filhos_;
};

}  // namespace tarvo::pdf
