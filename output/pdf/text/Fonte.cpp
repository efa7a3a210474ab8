// SPDX-License-Identifier: MIT
#include "output/pdf/text/Fonte.h"

#include <algorithm>

#include "output/pdf/text/TextoUnicode.h"

namespace tarvo::pdf {

Fonte::Fonte(std::shared_ptr<const Face> face)
    : face_(std::move(face)), buffer_(hb_buffer_create()) {}

Fonte::Fonte(std::string_view nome, bool negrito, bool italico)
    : face_(Face::Obter(nome, negrito, italico)),
      nome_(nome),
      negrito_(negrito),
      italico_(italico),
      buffer_(hb_buffer_create()) {}

std::uint8_t Fonte::Codigo(char32_t c) const {
    const auto codigo = CodigoWinAnsi(c);
    return face_->Avanco(codigo) >= 0 ? codigo : std::uint8_t{0};
}

bool Fonte::Codificar(std::string_view texto, std::string& codigos) const {
    for (std::size_t i = 0; i < texto.size();) {
        auto codigo = static_cast<std::uint8_t>(texto[i]);
        if (codigo < 0x80) {
            ++i;
        } else {
            codigo = Codigo(LerCaractere(texto, i));
        }
        if (face_->Avanco(codigo) < 0) {
            return false;
        }
        codigos.push_back(static_cast<char>(codigo));
    }
    return true;
}

int Fonte::LarguraCodigos(std::string_view codigos) const {
    int largura = 0;
    std::uint8_t anterior = 0;
    for (const char c : codigos) {
        const auto codigo = static_cast<std::uint8_t>(c);
        largura += AvancoDepoisDe(anterior, codigo);
        anterior = codigo;
    }
    return largura;
}

const std::shared_ptr<const Face>& Fonte::FaceDe(char32_t c) {
    if (face_->Tem(c)) {
        return face_;
    }
    const auto [posicao, nova] = substitutas_.try_emplace(c);
    // What was no character of the text stays "?".
    if (nova && c != Substituto && !nome_.empty()) {
        posicao->second = Face::ObterCom(c, nome_, negrito_, italico_);
    }
    return posicao->second;
}

int Fonte::Largura(char32_t c) {
    if (const auto codigo = Codigo(c); codigo != 0) {
        return face_->Avanco(codigo);
    }
    const Face* const face = FaceDe(c).get();
    if (face == nullptr) {
        return face_->Avanco('?');
    }
    hb_codepoint_t glifo = 0;
    hb_font_get_nominal_glyph(face->HbFonte(), c, &glifo);
    return EhMarcaCombinante(c) ? 0 : face->AvancoGlifo(glifo);
}

std::vector<Fonte::Glifo> Fonte::Formar(std::u32string_view texto, const Face& face) {
    std::u32string conhecidos(texto);
    std::replace_if(
        conhecidos.begin(), conhecidos.end(), [&face](char32_t c) { return !face.Tem(c); }, U'?');
    hb_buffer_clear_contents(buffer_.get());
    hb_buffer_add_utf32(buffer_.get(), reinterpret_cast<const std::uint32_t*>(conhecidos.data()),
                        static_cast<int>(conhecidos.size()), 0, -1);
    hb_buffer_set_language(buffer_.get(), Lingua());
    hb_buffer_guess_segment_properties(buffer_.get());
    hb_shape(face.HbFonte(), buffer_.get(), nullptr, 0);
    unsigned quantos = 0;
    const auto* const infos = hb_buffer_get_glyph_infos(buffer_.get(), &quantos);
    const auto* const posicoes = hb_buffer_get_glyph_positions(buffer_.get(), nullptr);
    std::vector<Glifo> glifos;
    glifos.reserve(quantos);
    for (unsigned i = 0; i < quantos; ++i) {
        const bool primeiro = i == 0 || infos[i].cluster != infos[i - 1].cluster;
        glifos.push_back(
            {infos[i].codepoint, infos[i].cluster, primeiro ? conhecidos[infos[i].cluster] : U'\0',
             face.Milesimos(posicoes[i].x_advance), face.Milesimos(posicoes[i].x_offset),
             face.Milesimos(posicoes[i].y_offset)});
    }
    return glifos;
}

}  // namespace tarvo::pdf
