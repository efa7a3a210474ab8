// SPDX-License-Identifier: MIT
#include "output/pdf/text/Regua.h"

#include <algorithm>

#include "output/pdf/text/TextoUnicode.h"

namespace tarvo::pdf {

namespace {

// The end of the character at i with the accents that stand over it.
std::size_t FimDaLetra(std::u32string_view texto, std::size_t i) {
    do {
        ++i;
    } while (i < texto.size() && EhMarcaCombinante(texto[i]));
    return i;
}

// The face of a letter with its accents: one that has them all, or else the font's own.
const std::shared_ptr<const Face>& FaceDaLetra(Fonte& fonte, std::u32string_view letra) {
    for (const char32_t c : letra) {
        const auto& face = fonte.FaceDe(c);
        if (face != nullptr && std::ranges::all_of(letra, [&](auto l) { return face->Tem(l); })) {
            return face;
        }
    }
    return fonte.FacePropria();
}

}  // namespace

std::vector<Trecho> DividirEmTrechos(Fonte& fonte, std::u32string_view texto) {
    constexpr std::size_t MaiorTrecho = 1000;
    std::vector<Trecho> trechos;
    for (std::size_t i = 0; i < texto.size();) {
        const auto fim = FimDaLetra(texto, i);
        const auto letra = texto.substr(i, fim - i);
        const bool porCodigo = letra.size() == 1 && fonte.Codigo(letra.front()) != 0;
        const auto face = porCodigo ? nullptr : FaceDaLetra(fonte, letra);
        if (!trechos.empty() && trechos.back().face == face &&
            trechos.back().texto.size() < MaiorTrecho) {
            auto& ultimo = trechos.back().texto;
            ultimo = {ultimo.data(), ultimo.size() + letra.size()};
        } else {
            trechos.push_back({letra, face});
        }
        i = fim;
    }
    return trechos;
}

Regua::Regua(Fonte& fonte, std::u32string_view texto) : fonte_(fonte), texto_(texto) {
    propria_.reserve(texto.size());
    soma_.reserve(texto.size() + 1);
    soma_.push_back(0);
    if (!MedirCodigos()) {
        MedirTrechos();
    }
}

// False when some character has no code.
bool Regua::MedirCodigos() {
    for (const char32_t c : texto_) {
        const bool quebra = c == U'\n';
        const std::uint8_t codigo = quebra ? std::uint8_t{' '} : fonte_.Codigo(c);
        if (codigo == 0) {
            codigos_.clear();
            propria_.clear();
            soma_.resize(1);
            return false;
        }
        const auto anterior =
            codigos_.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(codigos_.back());
        codigos_.push_back(static_cast<char>(codigo));
        propria_.push_back(quebra ? 0 : fonte_.AvancoDepoisDe(0, codigo));
        soma_.push_back(soma_.back() + (quebra ? 0 : fonte_.AvancoDepoisDe(anterior, codigo)));
    }
    return true;
}

void Regua::MedirTrechos() {
    std::vector<int> kern(texto_.size() + 1);  // of each character with the one before
    propria_.assign(texto_.size(), 0);
    for (std::size_t i = 0; i < texto_.size();) {
        const auto fim = std::min(texto_.find(U'\n', i), texto_.size());
        for (const auto& trecho : DividirEmTrechos(fonte_, texto_.substr(i, fim - i))) {
            MedirGlifos(trecho, i, kern);
            i += trecho.texto.size();
        }
        i = fim + 1;
    }
    for (std::size_t i = 0; i < texto_.size(); ++i) {
        soma_.push_back(soma_.back() + kern[i] + propria_[i]);
    }
    falta_ = std::ranges::any_of(
        texto_, [this](char32_t c) { return c != U'\n' && fonte_.FaceDe(c) == nullptr; });
}

void Regua::MedirGlifos(const Trecho& trecho, std::size_t inicio, std::vector<int>& kern) {
    if (trecho.face == nullptr) {
        std::uint8_t anterior = 0;
        for (std::size_t i = 0; i < trecho.texto.size(); ++i) {
            const auto codigo = fonte_.Codigo(trecho.texto[i]);
            propria_[inicio + i] = fonte_.AvancoDepoisDe(0, codigo);
            kern[inicio + i] = fonte_.AvancoDepoisDe(anterior, codigo) - propria_[inicio + i];
            anterior = codigo;
        }
        return;
    }
    for (const auto& glifo : fonte_.Formar(trecho.texto, *trecho.face)) {
        // Shaping takes the kerning of a pair from its first glyph, which may stand at a line's
        // end; a mark's whole advance is taken away for good.
        const int sozinho = glifo.avanco == 0 ? 0 : trecho.face->AvancoGlifo(glifo.glifo);
        propria_[inicio + glifo.lugar] += sozinho;
        if (glifo.avanco != sozinho) {
            kern[inicio + FimDaLetra(trecho.texto, glifo.lugar)] += glifo.avanco - sozinho;
        }
    }
}

std::int64_t Regua::Largura(std::size_t inicio, std::size_t fim) const {
    // The first character stands without the kerning that it has after the one before it.
    return inicio == fim ? 0 : propria_[inicio] + soma_[fim] - soma_[inicio + 1];
}

std::size_t Regua::OndeCabe(std::size_t inicio, std::size_t fim, int limite) const {
    const auto demais = std::partition_point(
        soma_.begin() + static_cast<std::ptrdiff_t>(inicio) + 1,
        soma_.begin() + static_cast<std::ptrdiff_t>(fim) + 1, [&](const std::int64_t& soma) {
            return Largura(inicio, static_cast<std::size_t>(&soma - soma_.data())) <= limite;
        });
    auto n = static_cast<std::size_t>(demais - soma_.begin()) - 1;
    n = std::max(n, std::min(inicio + 1, fim));
    while (n < fim && EhMarcaCombinante(texto_[n])) {
        ++n;
    }
    return n;
}

LinhaComposta Regua::Linha(std::size_t inicio, std::size_t fim) const {
    return {std::u32string(texto_.substr(inicio, fim - inicio)),
            codigos_.empty() ? std::string() : codigos_.substr(inicio, fim - inicio),
            Largura(inicio, fim)};
}

LinhaComposta Regua::LinhaCortada(std::size_t inicio, std::size_t fim, int limite) const {
    const int sobra = limite - fonte_.Largura(Reticencias);
    std::size_t n = sobra > 0 ? OndeCabe(inicio, fim, sobra) : inicio;
    for (;;) {
        while (n > inicio && texto_[n - 1] == U' ') {
            --n;
        }
        const std::u32string cortado =
            std::u32string(texto_.substr(inicio, n - inicio)) + Reticencias;
        const Regua regua(fonte_, cortado);
        if (n == inicio || regua.Largura(0, cortado.size()) <= limite) {
            return regua.Linha(0, cortado.size());
        }
        // A letter goes with its accents.
        do {
            --n;
        } while (n > inicio && EhMarcaCombinante(texto_[n]));
    }
}

}  // namespace tarvo::pdf
