// SPDX-License-Identifier: MIT
#include "output/pdf/file/EscritorPDF.h"

#include <cstring>

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

namespace {

constexpr std::size_t TamanhoSaida = std::size_t{256} * 1024;
constexpr int ObjetosPorFluxo = 200;
constexpr std::size_t ColunasTabela = sizeof(std::uint64_t);

constexpr std::uint64_t NoArquivo(std::uint64_t lugar) {
    return (std::uint64_t{1} << 56U) | (lugar << 16U);
}
constexpr std::uint64_t NoFluxo(int fluxo, std::size_t indice) {
    return (std::uint64_t{2} << 56U) | (static_cast<std::uint64_t>(fluxo) << 16U) | indice;
}

// A mixing of 64-bit words, good enough to tell files apart.
std::uint64_t Misturar(std::uint64_t estado, std::uint64_t palavra) {
    estado = (estado ^ palavra) * 0x9E3779B97F4A7C15U;
    return estado ^ (estado >> 29U);
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
    LugarDe(numero) = NoFluxo(numeroDoFluxo_, static_cast<std::size_t>(quantos_));
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
    std::size_t indice = 0;
    for (const int numero : fileira.Numeros()) {
        LugarDe(numero) = NoFluxo(fluxo, indice++);
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
    LugarDe(numero) = NoArquivo(escritos_);
    std::string cabeca;
    AnexarInteiro(cabeca, numero);
    Escrever(cabeca += " 0 obj\n");
}

void EscritorPDF::Terminar(int raiz, int informacao) {
    FecharFileiras();
    FecharFluxoDeObjetos();
    const int numero = Reservar();
    const auto inicio = escritos_;
    LugarDe(numero) = NoArquivo(inicio);
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
    constexpr char Acima = 2;
    std::string tabela;
    tabela.reserve(lugares_.size() * (ColunasTabela + 1));
    Lugar anterior = 0;
    for (const Lugar lugar : lugares_) {
        tabela.push_back(Acima);
        for (unsigned bits = 64; bits > 0;) {
            bits -= 8;
            tabela.push_back(static_cast<char>((lugar >> bits) - (anterior >> bits)));
        }
        anterior = lugar;
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
