#include "output/pdf/text/Fonte.h"

#include <gtest/gtest.h>

#include <fstream>

#include "data/ObjetoDeC.h"
#include "tests/support/Apoio.h"

namespace tarvo::pdf {
namespace {

// The installed face with other kerning: all pairs of these two characters by half a letter.
std::filesystem::path FaceComKern(const apoio::PastaTemporaria& pasta, const Face& face, char32_t a,
                                  char32_t b) {
    std::vector<hb_codepoint_t> glifos(2);
    hb_font_get_nominal_glyph(face.HbFonte(), a, &glifos[0]);
    hb_font_get_nominal_glyph(face.HbFonte(), b, &glifos[1]);
    std::sort(glifos.begin(), glifos.end());
    // Version 0, one horizontal subtable of format 0.
    std::vector<unsigned> campos = {0, 1, 0, 14 + 4 * 6, 1, 4, 12, 1, 0};
    for (const auto esquerdo : glifos) {
        for (const auto direito : glifos) {
            campos.insert(campos.end(), {esquerdo, direito, 0x10000 - 1024});
        }
    }
    std::string kern;
    for (const auto campo : campos) {
        kern += {static_cast<char>(campo >> 8U), static_cast<char>(campo)};
    }
    const ObjetoDeC<hb_face_destroy> nova(hb_face_builder_create());
    for (const char* tabela : {"head", "hhea", "hmtx", "maxp", "cmap", "glyf", "loca", "OS/2"}) {
        const auto tag = hb_tag_from_string(tabela, 4);
        const ObjetoDeC<hb_blob_destroy> dados(hb_face_reference_table(face.Hb(), tag));
        hb_face_builder_add_table(nova.get(), tag, dados.get());
    }
    const ObjetoDeC<hb_blob_destroy> tabela(
        hb_blob_create(kern.data(), static_cast<unsigned>(kern.size()), HB_MEMORY_MODE_DUPLICATE,
                       nullptr, nullptr));
    hb_face_builder_add_table(nova.get(), HB_TAG('k', 'e', 'r', 'n'), tabela.get());
    const ObjetoDeC<hb_blob_destroy> bytes(hb_face_reference_blob(nova.get()));
    unsigned tamanho = 0;
    const char* const inicio = hb_blob_get_data(bytes.get(), &tamanho);
    std::ofstream(pasta / "kern.ttf").write(inicio, tamanho);
    return pasta / "kern.ttf";
}

TEST(Fonte, FiguresKeepTheirEqualWidthsInAFaceThatKernsThem) {
    const apoio::PastaTemporaria pasta;
    const auto face = Face::Obter("Arial", false, false);
    const auto arquivo = FaceComKern(pasta, *face, U'1', U'T');
    const Fonte fonte(std::make_shared<const Face>(ArquivoFonte{arquivo.string()}));
    EXPECT_EQ(fonte.LarguraCodigos("TT"), 2 * face->Avanco('T') - 500);
    EXPECT_EQ(fonte.LarguraCodigos("11"), 2 * face->Avanco('1'));
    EXPECT_EQ(fonte.LarguraCodigos("1T1"), 2 * face->Avanco('1') + face->Avanco('T'));
}

}  // namespace
}  // namespace tarvo::pdf
