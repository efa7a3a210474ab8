// SPDX-License-Identifier: MIT
#include "output/pdf/file/EscritorPDF.h"

#include <cstring>

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

namespace {

constexpr std::size_t TamanhoSaida = std::size_t{256} * 1024;
constexpr int ObjetosPorFluxo = 200;
constexpr std::size_t ColunasTabela = 8;  // type 1, place 5, index 2 bytes

// A mixing of 64-bit words, good enough to tell files apart.
std::uint64_t Misturar(std::uint64_t estado, std::uint64_t palavra) {
    estado = (estado ^ palavra) * 0x9E3779B97F4A7C15U;
    return estado ^ (estado >> 29U);
}

void AnexarGrande(std::string& saida, std::uint64_t valor, int bytes) {
    for (int i = bytes - 1; i >= 0; --i) {
        saida.push_back(static_cast<char>(valor >> static_cast<unsigned>(8 * i)));
    }
}

}  // namespace

EscritorPDF::EscritorPDF(const Destino& destino) : destino_(destino), lugares_(1) {
    saida_.reserve(TamanhoSaida + TamanhoSaida / 4);
    // The comment of four high bytes marks the file as binary.
    Escrever("%PDF-1.7\n%\xE2\xE3\xCF\xD3\n");
}

int EscritorPDF::Reservar(int quantos) {
    const auto primeiro = lugares_.size();
    lugares_.resize(primeiro + static_cast<std::size_t>(quantos));
    return static_cast<int>(primeiro);
}

void EscritorPDF::Objeto(int numero, std::string_view corpo) {
    if (quantos_ == 0) {
        numeroDoFluxo_ = Reservar();
    }
    auto& lugar = lugares_.at(static_cast<std::size_t>(numero));
    lugar = {static_cast<std::uint64_t>(numeroDoFluxo_), static_cast<std::uint16_t>(quantos_), 2};
    AnexarInteiro(indices_, numero);
    indices_.push_back(' ');
    AnexarInteiro(indices_, static_cast<std::int64_t>(objetos_.size()));
    indices_.push_back(' ');
    objetos_.append(corpo).push_back('\n');
    if (++quantos_ == ObjetosPorFluxo) {
        FecharFluxoDeObjetos();
    }
}

void EscritorPDF::ObjetoEmFileira(int numero, std::string_view corpo) {
    const std::size_t largura = ObjetosEmFileira::LarguraPara(corpo.size());
    if (largura == 0) {
        Objeto(numero, corpo);
        return;
    }
    auto& fileira = fileiras_.try_emplace(largura, largura).first->second;
    fileira.Acrescentar(numero, corpo);
    if (fileira.Numeros().size() == ObjetosEmFileira::Maximo) {
        FecharFileira(fileira);
    }
}

void EscritorPDF::FecharFileira(ObjetosEmFileira& fileira) {
    const int fluxo = Reservar();
    std::uint16_t indice = 0;
    for (const int numero : fileira.Numeros()) {
        lugares_.at(static_cast<std::size_t>(numero)) = {static_cast<std::uint64_t>(fluxo),
                                                         indice++, 2};
    }
    const bool muitos = fileira.Numeros().size() == ObjetosEmFileira::Maximo;
    Fluxo(fluxo, fileira.Dicionario(), fileira.Dados(), muitos ? Empenho::Tempo : Empenho::Tamanho);
    fileira.Esvaziar();
}

void EscritorPDF::FecharFileiras() {
    constexpr std::size_t MenorFileira = 30;  // fewer do not pay for a stream of their own
    for (auto& [largura, fileira] : fileiras_) {
        const auto& numeros = fileira.Numeros();
        if (numeros.size() >= MenorFileira) {
            FecharFileira(fileira);
            continue;
        }
        for (std::size_t i = 0; i < numeros.size(); ++i) {
            const auto corpo = fileira.Corpo(i);
            Objeto(numeros[i], corpo.substr(0, corpo.find_last_not_of(' ') + 1));
        }
    }
}

void EscritorPDF::FecharFluxoDeObjetos() {
    if (quantos_ == 0) {
        return;
    }
    const std::string dicionario =
        "/Type/ObjStm/N " + std::to_string(quantos_) + "/First " + std::to_string(indices_.size());
    indices_ += objetos_;
    Fluxo(numeroDoFluxo_, dicionario, indices_);
    indices_.clear();
    objetos_.clear();
    quantos_ = 0;
}

void EscritorPDF::Fluxo(int numero, std::string_view dicionario, std::string_view dados,
                        Empenho empenho) {
    EscreverFluxo(numero, dicionario, Compressor::DoFio(empenho).Comprimir(dados), true);
}

void EscritorPDF::FluxoComprimido(int numero, std::string_view dicionario, std::string_view dados) {
    EscreverFluxo(numero, dicionario, dados, true);
}

void EscritorPDF::FluxoAberto(int numero, std::string_view dicionario, std::string_view dados) {
    EscreverFluxo(numero, dicionario, dados, false);
}

void EscritorPDF::EscreverFluxo(int numero, std::string_view dicionario, std::string_view dados,
                                bool comprimido) {
    Abrir(numero);
    std::string cabeca = "<<";
    cabeca += dicionario;
    cabeca += comprimido ? "/Filter/FlateDecode/Length " : "/Length ";
    AnexarInteiro(cabeca, static_cast<std::int64_t>(dados.size()));
    cabeca += ">>\nstream\n";
    Escrever(cabeca);
    Escrever(dados);
    Escrever("\nendstream\nendobj\n");
}

void EscritorPDF::Abrir(int numero) {
    lugares_.at(static_cast<std::size_t>(numero)) = {escritos_, 0, 1};
    std::string cabeca;
    AnexarInteiro(cabeca, numero);
    Escrever(cabeca += " 0 obj\n");
}

void EscritorPDF::Terminar(int raiz, int informacao) {
    FecharFileiras();
    FecharFluxoDeObjetos();
    const int numero = Reservar();
    const auto inicio = escritos_;
    lugares_.back() = {inicio, 0, 1};
    const std::string identificador = Identificador();
    std::string dicionario = "/Type/XRef/Size " + std::to_string(lugares_.size()) + "/W[1 5 2]" +
                             "/DecodeParms<</Predictor 12/Columns " +
                             std::to_string(ColunasTabela) + ">>";
    dicionario += "/Root " + Referencia(raiz) + "/Info " + Referencia(informacao);
    dicionario += "/ID[<" + identificador + "><" + identificador + ">]";
    constexpr std::size_t MuitosObjetos = 10'000;
    Fluxo(numero, dicionario, TabelaDeLugares(),
          lugares_.size() < MuitosObjetos ? Empenho::Tamanho : Empenho::Tempo);
    Escrever("startxref\n" + std::to_string(inicio) + "\n%%EOF\n");
    Esvaziar();
}

// Rows as differences to the row above (predictor "up"), which compress to next to nothing.
std::string EscritorPDF::TabelaDeLugares() const {
    std::string tabela;
    tabela.reserve(lugares_.size() * (ColunasTabela + 1));
    std::string anterior(ColunasTabela, '\0');
    std::string linha;
    for (const auto& lugar : lugares_) {
        linha.clear();
        AnexarGrande(linha, lugar.tipo, 1);
        AnexarGrande(linha, lugar.lugar, 5);
        AnexarGrande(linha, lugar.indice, 2);
        tabela.push_back(2);
        for (std::size_t i = 0; i < ColunasTabela; ++i) {
            tabela.push_back(static_cast<char>(linha[i] - anterior[i]));
        }
        anterior.swap(linha);
    }
    return tabela;
}

std::string EscritorPDF::Identificador() const {
    std::string texto;
    AnexarHex(texto, digestao_[0], 16);
    AnexarHex(texto, digestao_[1], 16);
    return texto;
}

void EscritorPDF::Escrever(std::string_view bytes) {
    escritos_ += bytes.size();
    std::size_t i = 0;
    for (std::uint64_t palavra = 0; i + sizeof palavra <= bytes.size(); i += sizeof palavra) {
        std::memcpy(&palavra, bytes.data() + i, sizeof palavra);
        digestao_[0] = Misturar(digestao_[0], palavra);
        digestao_[1] = Misturar(digestao_[1], palavra + 0x632BE59BD9B4E019U);
    }
    std::uint64_t resto = bytes.size();
    for (; i < bytes.size(); ++i) {
        resto = (resto << 8U) | static_cast<unsigned char>(bytes[i]);
    }
    digestao_[0] = Misturar(digestao_[0], resto);
    digestao_[1] = Misturar(digestao_[1], ~resto);
    saida_ += bytes;
    if (saida_.size() >= TamanhoSaida) {
        Esvaziar();
    }
}

void EscritorPDF::Esvaziar() {
    destino_(saida_);
    saida_.clear();
}

}  // namespace tarvo::pdf
