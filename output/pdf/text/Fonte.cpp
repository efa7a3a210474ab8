#include "output/pdf/text/Fonte.h"

#include "output/pdf/text/Lingua.h"
#include "output/pdf/text/TextoUnicode.h"

namespace tarvo::pdf {

Fonte::Fonte(std::shared_ptr<const Face> face)
    : face_(std::move(face)), buffer_(hb_buffer_create()) {}

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

int Fonte::Largura(char32_t c) const {
    if (const auto codigo = Codigo(c); codigo != 0) {
        return face_->Avanco(codigo);
    }
    hb_codepoint_t glifo = 0;
    hb_font_get_nominal_glyph(face_->HbFonte(), c, &glifo);
    return EhMarcaCombinante(c) ? 0 : face_->AvancoGlifo(glifo);
}

std::vector<Fonte::Glifo> Fonte::Formar(std::u32string_view texto) {
    std::u32string conhecidos(texto);
    for (auto& c : conhecidos) {
        hb_codepoint_t glifo = 0;
        if (hb_font_get_nominal_glyph(face_->HbFonte(), c, &glifo) == 0) {
            c = hb_font_get_nominal_glyph(face_->HbFonte(), Substituto, &glifo) != 0 ? Substituto
                                                                                     : U'?';
        }
    }
    hb_buffer_clear_contents(buffer_.get());
    hb_buffer_add_utf32(buffer_.get(), reinterpret_cast<const std::uint32_t*>(conhecidos.data()),
                        static_cast<int>(conhecidos.size()), 0, -1);
    hb_buffer_set_language(buffer_.get(), Lingua());
    hb_buffer_guess_segment_properties(buffer_.get());
    hb_shape(face_->HbFonte(), buffer_.get(), nullptr, 0);
    unsigned quantos = 0;
    const auto* const infos = hb_buffer_get_glyph_infos(buffer_.get(), &quantos);
    const auto* const posicoes = hb_buffer_get_glyph_positions(buffer_.get(), nullptr);
    std::vector<Glifo> glifos;
    glifos.reserve(quantos);
    for (unsigned i = 0; i < quantos; ++i) {
        const bool primeiro = i == 0 || infos[i].cluster != infos[i - 1].cluster;
        glifos.push_back({infos[i].codepoint, primeiro ? conhecidos[infos[i].cluster] : U'\0',
                          face_->Milesimos(posicoes[i].x_advance),
                          face_->Milesimos(posicoes[i].x_offset),
                          face_->Milesimos(posicoes[i].y_offset)});
    }
    return glifos;
}

}  // namespace tarvo::pdf
