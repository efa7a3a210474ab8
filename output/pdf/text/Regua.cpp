#include "output/pdf/text/Regua.h"

#include <algorithm>
#include <limits>

#include "output/pdf/text/TextoUnicode.h"

namespace tarvo::pdf {

namespace {

int LarguraPorTrechos(Fonte& fonte, std::u32string_view texto) {
    std::int64_t largura = 0;
    std::string codigos;
    for (const auto& trecho : DividirEmTrechos(fonte, texto)) {
        if (trecho.face == nullptr) {
            codigos.clear();
            for (const char32_t c : trecho.texto) {
                codigos.push_back(static_cast<char>(fonte.Codigo(c)));
            }
            largura += fonte.LarguraCodigos(codigos);
        } else {
            for (const auto& glifo : fonte.Formar(trecho.texto, *trecho.face)) {
                largura += glifo.avanco;
            }
        }
    }
    return static_cast<int>(std::min<std::int64_t>(largura, std::numeric_limits<int>::max()));
}

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
    soma_.reserve(texto.size() + 1);
    soma_.push_back(0);
    for (const char32_t c : texto) {
        const bool quebra = c == U'\n';
        const std::uint8_t codigo = quebra ? std::uint8_t{' '} : fonte.Codigo(c);
        if (codigo == 0) {
            codigos_.clear();
            falta_ = std::ranges::any_of(
                texto, [&fonte](char32_t l) { return l != U'\n' && fonte.FaceDe(l) == nullptr; });
            return;
        }
        const auto anterior =
            codigos_.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(codigos_.back());
        codigos_.push_back(static_cast<char>(codigo));
        soma_.push_back(soma_.back() + (quebra ? 0 : fonte.AvancoDepoisDe(anterior, codigo)));
    }
}

int Regua::Largura(std::size_t inicio, std::size_t fim) const {
    if (codigos_.empty()) {
        return LarguraPorTrechos(fonte_, texto_.substr(inicio, fim - inicio));
    }
    if (inicio == fim) {
        return 0;
    }
    // The first character stands without the kerning that it has after the one before it.
    return fonte_.AvancoDepoisDe(0, static_cast<std::uint8_t>(codigos_[inicio])) + soma_[fim] -
           soma_[inicio + 1];
}

std::size_t Regua::OndeCabe(std::size_t inicio, std::size_t fim, int limite) const {
    std::size_t n = inicio;
    if (codigos_.empty()) {
        std::int64_t largura = 0;
        while (n < fim && (largura += fonte_.Largura(texto_[n])) <= limite) {
            ++n;
        }
    } else {
        const auto demais = std::partition_point(
            soma_.begin() + static_cast<std::ptrdiff_t>(inicio) + 1,
            soma_.begin() + static_cast<std::ptrdiff_t>(fim) + 1, [&](const int& soma) {
                return Largura(inicio, static_cast<std::size_t>(&soma - soma_.data())) <= limite;
            });
        n = static_cast<std::size_t>(demais - soma_.begin()) - 1;
    }
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
