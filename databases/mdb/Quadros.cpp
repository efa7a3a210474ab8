// SPDX-License-Identifier: MIT
#include "databases/mdb/Quadros.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "data/CodigosDeErros.h"
#include "data/Utf8.h"

namespace tarvo::mdb {

namespace {

constexpr std::size_t Bloco = 64UL * 1024;

// Never a text: no column of a declaration takes it.
const std::string Binario = "\xFF";

// Exactly, or as the text that it is where it is no amount of money.
Valor LerDecimal(std::string_view texto) {
    std::string numero(texto);
    std::ranges::replace(numero, '.', ',');
    try {
        return Moeda::DeTexto(numero);
    } catch (const Erro&) {
        return numero;
    }
}

// A day that the calendar does not have stays a number.
Valor LerData(double dias) {
    try {
        return Data::DeSerial(dias);
    } catch (const Erro&) {
        return std::isfinite(dias) ? Valor(dias) : Valor(Binario);
    }
}

}  // namespace

void Conteudo::Exigir(std::size_t quantos) const {
    if (bytes_.size() < quantos) {
        throw ErroDeProtocolo();
    }
}

void Conteudo::Terminar() const {
    if (!bytes_.empty()) {
        throw ErroDeProtocolo();
    }
}

std::string_view Conteudo::TomarTexto() {
    const auto tamanho = Tomar<std::uint32_t>();
    Exigir(tamanho);
    const std::string_view texto = bytes_.substr(0, tamanho);
    bytes_.remove_prefix(tamanho);
    if (!EhUtf8(texto)) {
        throw ErroDeProtocolo();
    }
    return texto;
}

Valor Conteudo::TomarValor() {
    switch (Tomar<Tipo>()) {
        case Tipo::Nulo:
            return Nulo{};
        case Tipo::Longo:
            return Tomar<std::int32_t>();
        case Tipo::Moeda:
            return Moeda::DeDecimosMilesimos(Tomar<std::int64_t>());
        case Tipo::Data:
            return LerData(Tomar<double>());
        case Tipo::Duplo: {
            const auto numero = Tomar<double>();
            return std::isfinite(numero) ? Valor(numero) : Valor(Binario);
        }
        case Tipo::Decimal:
            return LerDecimal(TomarTexto());
        case Tipo::Texto:
            return std::string(TomarTexto());
        case Tipo::Booleano:
            return Tomar<std::uint8_t>() != 0;
        case Tipo::Binario:
            return Binario;
    }
    throw ErroDeProtocolo();
}

void Quadros::Juntar(std::size_t bytes) {
    if (fim_ - inicio_ >= bytes) {
        return;
    }
    bloco_.erase(bloco_.begin(), bloco_.begin() + static_cast<std::ptrdiff_t>(inicio_));
    fim_ -= inicio_;
    inicio_ = 0;
    bloco_.resize(std::max({bloco_.size(), bytes, Bloco}));
    while (fim_ < bytes) {
        const std::size_t lidos = leitor_.Ler(std::span(bloco_).subspan(fim_));
        if (lidos == 0 || lidos > limite_) {
            throw ErroDeProtocolo();
        }
        limite_ -= lidos;
        fim_ += lidos;
    }
}

Quadros::Lido Quadros::Proximo() {
    constexpr std::size_t Cabecalho = sizeof(Quadro) + sizeof(std::uint32_t);
    Juntar(Cabecalho);
    Conteudo cabecalho(std::string_view(bloco_.data() + inicio_, Cabecalho));
    const auto quadro = cabecalho.Tomar<Quadro>();
    const auto tamanho = cabecalho.Tomar<std::uint32_t>();
    if (tamanho > limite_ + fim_) {
        throw ErroDeProtocolo();
    }
    Juntar(Cabecalho + tamanho);
    const Conteudo conteudo(std::string_view(bloco_.data() + inicio_ + Cabecalho, tamanho));
    inicio_ += Cabecalho + tamanho;
    return {quadro, conteudo};
}

void Quadros::Terminar() {
    char sobra = 0;
    if (inicio_ != fim_ || leitor_.Ler({&sobra, 1}) != 0) {
        throw ErroDeProtocolo();
    }
}

}  // namespace tarvo::mdb
