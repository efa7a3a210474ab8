// SPDX-License-Identifier: MIT
#include "output/pdf/page/FormulariosPDF.h"

#include <algorithm>
#include <bit>
#include <type_traits>

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

namespace {

static_assert(std::has_unique_object_representations_v<Forma> && sizeof(Forma) % 4 == 0);

Forma Deslocada(Forma f, Centesimos x0, Centesimos y0) {
    f.x -= x0;
    f.y -= y0;
    return f;
}

std::uint64_t Digerir(std::span<const Forma> formas, Centesimos x0, Centesimos y0) {
    std::uint64_t digestao = formas.size();
    for (const auto& forma : formas) {
        const auto palavras =
            std::bit_cast<std::array<std::uint32_t, sizeof(Forma) / 4>>(Deslocada(forma, x0, y0));
        for (std::size_t i = 0; i + 1 < palavras.size(); i += 2) {
            const auto par = palavras[i] | static_cast<std::uint64_t>(palavras[i + 1]) << 32U;
            digestao = (std::rotl(digestao, 23) ^ par) * 0x9E3779B97F4A7C15U;
        }
        digestao = (std::rotl(digestao, 23) ^ palavras.back()) * 0x9E3779B97F4A7C15U;
    }
    return digestao ^ (digestao >> 32U);
}

}  // namespace

std::string_view FormulariosPDF::Procurar(std::span<const Forma> formas, Centesimos x0,
                                          Centesimos y0) {
    const auto digestao = Digerir(formas, x0, y0);
    if (const auto achado = formularios_.find(digestao); achado != formularios_.end()) {
        const auto& formulario = achado->second;
        const bool iguais = std::equal(
            formas.begin(), formas.end(), formulario.formas.begin(), formulario.formas.end(),
            [&](const Forma& a, const Forma& b) { return Deslocada(a, x0, y0) == b; });
        return iguais ? std::string_view(formulario.nome) : std::string_view();
    }
    auto& visto = vistos_[digestao % vistos_.size()];
    if (visto != digestao || formularios_.size() >= maximo_) {
        visto = digestao;
        return {};
    }
    return Criar(digestao, formas, x0, y0);
}

std::string_view FormulariosPDF::Criar(std::uint64_t digestao, std::span<const Forma> formas,
                                       Centesimos x0, Centesimos y0) {
    Formulario formulario;
    formulario.nome = prefixo_ + std::to_string(formularios_.size());
    Area caixa = Deslocada(formas.front(), x0, y0).Contorno();
    for (const auto& forma : formas) {
        formulario.formas.push_back(Deslocada(forma, x0, y0));
        caixa.Unir(formulario.formas.back().Contorno());
    }
    std::string conteudo;
    AnexarFormas(conteudo, formulario.formas, 0, 0);
    const int objeto = escritor_.Reservar();
    std::string dicionario = "/Type/XObject/Subtype/Form/Resources<<>>/BBox[";
    AnexarOperandos(dicionario, caixa.x0, caixa.y0, caixa.x1, caixa.y1);
    escritor_.Fluxo(objeto, dicionario + "]", conteudo);
    recursos_ += "/" + formulario.nome + " " + Referencia(objeto);
    return formularios_.emplace(digestao, std::move(formulario)).first->second.nome;
}

}  // namespace tarvo::pdf
