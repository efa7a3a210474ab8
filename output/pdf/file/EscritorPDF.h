// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "output/pdf/file/Compressor.h"
#include "output/pdf/file/ObjetosEmFileira.h"

namespace tarvo::pdf {

// Writes the objects of a PDF 1.7 file as they come and keeps nothing of them but their places.
// Small objects travel in compressed object streams, the table of places in a cross-reference
// stream. By hand, because it pays: a thousand pages take about a fortieth of the processor time
// that they take with Qt's writer, and no memory that grows with them (bench_documento). Belongs to
// one thread.
class EscritorPDF {
  public:
    using Destino = std::function<void(std::string_view bytes)>;

    explicit EscritorPDF(const Destino& destino);

    // The number of an object that is written later, once, before Terminar.
    int Reservar() { return Reservar(1); }
    // The first of that many numbers in a row.
    int Reservar(int quantos);
    void Objeto(int numero, std::string_view corpo);
    // The same for one of many that are alike.
    void ObjetoEmFileira(int numero, std::string_view corpo);
    // dicionario: the entries besides Length and Filter.
    void Fluxo(int numero, std::string_view dicionario, std::string_view dados,
               Empenho empenho = Empenho::Tamanho);
    // dados: compressed already.
    void FluxoComprimido(int numero, std::string_view dicionario, std::string_view dados);
    void FluxoAberto(int numero, std::string_view dicionario, std::string_view dados);
    // The cross-reference stream and the end of the file.
    void Terminar(int raiz, int informacao);

  private:
    // Where an object is, as the table of places says it: its kind (0 free, 1 in the file, 2 in an
    // object stream) in one byte, the place or the stream's number in five, the index in it in two.
    using Lugar = std::uint64_t;

    Lugar& LugarDe(int numero) { return lugares_.at(static_cast<std::size_t>(numero)); }
    void Escrever(std::string_view bytes);
    void Esvaziar();
    void Abrir(int numero);
    void EscreverFluxo(int numero, std::string_view dicionario, std::string_view dados,
                       bool comprimido);
    void FecharFluxoDeObjetos();
    void FecharFileira(ObjetosEmFileira& fileira);
    void FecharFileiras();
    [[nodiscard]] std::string TabelaDeLugares() const;
    [[nodiscard]] std::string Identificador() const;

    const Destino& destino_;
    std::string saida_;
    std::uint64_t escritos_ = 0;                   // bytes handed over, those in saida_ included
    std::array<std::uint64_t, 2> digestao_{1, 2};  // of all bytes so far, for the file's identifier
    std::vector<Lugar> lugares_;                   // by object number
    std::string objetos_;                          // bodies of the open object stream
    std::string indices_;                          // "number place" of each
    int quantos_ = 0;
    int numeroDoFluxo_ = 0;
    std::map<std::size_t, ObjetosEmFileira> fileiras_;  // by the length of their rows
};

}  // namespace tarvo::pdf
