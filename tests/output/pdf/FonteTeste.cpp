// SPDX-License-Identifier: MIT
#include "output/pdf/text/Fonte.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <optional>

#include "data/ObjetoDeC.h"
#include "output/pdf/text/TabelaOS2.h"
#include "tests/output/pdf/ApoioPDF.h"

namespace tarvo::pdf {
namespace {

// The face with one of its tables replaced.
void GravarFaceCom(const std::filesystem::path& arquivo, hb_face_t* face, hb_tag_t mudada,
                   const std::string& bytes) {
    std::vector<hb_tag_t> tags(hb_face_get_table_tags(face, 0, nullptr, nullptr));
    auto quantas = static_cast<unsigned>(tags.size());
    hb_face_get_table_tags(face, 0, &quantas, tags.data());
    // Tables that could stand against the new one stay away.
    std::erase_if(tags, [mudada](hb_tag_t tag) {
        return tag == mudada ||
               (mudada == HB_TAG('k', 'e', 'r', 'n') && tag == HB_TAG('G', 'P', 'O', 'S'));
    });
    const ObjetoDeC<hb_face_destroy> nova(hb_face_builder_create());
    for (const auto tag : tags) {
        const ObjetoDeC<hb_blob_destroy> dados(hb_face_reference_table(face, tag));
        hb_face_builder_add_table(nova.get(), tag, dados.get());
    }
    const ObjetoDeC<hb_blob_destroy> tabela(
        hb_blob_create(bytes.data(), static_cast<unsigned>(bytes.size()), HB_MEMORY_MODE_DUPLICATE,
                       nullptr, nullptr));
    hb_face_builder_add_table(nova.get(), mudada, tabela.get());
    const ObjetoDeC<hb_blob_destroy> inteira(hb_face_reference_blob(nova.get()));
    unsigned tamanho = 0;
    const char* const inicio = hb_blob_get_data(inteira.get(), &tamanho);
    std::ofstream(arquivo, std::ios::binary).write(inicio, tamanho);
}

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
    GravarFaceCom(pasta / "kern.ttf", face.Hb(), HB_TAG('k', 'e', 'r', 'n'), kern);
    return pasta / "kern.ttf";
}

// Makes the file of a face with these licence bits.
void GravarFaceComLicenca(const std::filesystem::path& arquivo, const Face& face, unsigned bits) {
    const auto os2 = HB_TAG('O', 'S', '/', '2');
    const ObjetoDeC<hb_blob_destroy> antes(hb_face_reference_table(face.Hb(), os2));
    unsigned tamanho = 0;
    const char* const dados = hb_blob_get_data(antes.get(), &tamanho);
    std::string tabela(dados, tamanho);
    tabela.at(8) = static_cast<char>(bits >> 8U);
    tabela.at(9) = static_cast<char>(bits);
    GravarFaceCom(arquivo, face.Hb(), os2, tabela);
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

TEST(Fonte, OnlyALicenceThatLetsASubsetGoOutLetsAFaceBeEmbedded) {
    const apoio::PastaTemporaria pasta;
    const auto face = Face::Obter("Arial", false, false);
    // Installable, restricted, for print and preview, editable, both of old tables, whole faces
    // only, bitmaps only.
    const std::pair<unsigned, bool> casos[] = {{0, true},      {2, false},    {4, true},
                                               {8, true},      {2 + 8, true}, {0x100, false},
                                               {0x200, false}, {0x108, false}};
    for (const auto& [bits, permite] : casos) {
        GravarFaceComLicenca(pasta / "face.ttf", *face, bits);
        const Face nova(ArquivoFonte{(pasta / "face.ttf").string()});
        EXPECT_EQ(TabelaOS2(nova.Hb()).PermiteSubconjunto(), permite) << bits;
    }
}

TEST(Fonte, AFaceThatMustNotBeEmbeddedGivesWayToAnotherOneOrIsAnErrorThatSaysWhy) {
    // In a process of its own, whose machine has these fonts: one with the snowman that is not
    // free, and another one that is.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const apoio::PastaTemporaria pasta;
    std::optional<Ambiental> fontes;
    if (std::getenv("FONTCONFIG_FILE") == nullptr) {
        GravarFaceComLicenca(pasta / "presa.ttf", *Face::Obter("DejaVu Sans", false, false), 2);
        GravarFaceComLicenca(pasta / "livre.ttf", *Face::Obter("DejaVu Sans Mono", false, false),
                             0);
        std::ofstream(pasta / "fonts.conf")
            << "<fontconfig><dir>" << pasta.Caminho().string() << "</dir></fontconfig>";
        fontes.emplace("FONTCONFIG_FILE", (pasta / "fonts.conf").c_str());
    }
    EXPECT_EXIT(
        {
            const auto outra = LocalizarFonteCom(U'☃', "DejaVu Sans", false, false);
            const auto erro = apoio::ErroDe([] { LocalizarFonte("DejaVu Sans", false, false); });
            std::fputs((outra.value_or(ArquivoFonte{}).caminho + erro.what()).c_str(), stderr);
            std::_Exit(static_cast<int>(erro.Numero()) - 20000);
        },
        testing::ExitedWithCode(5), "livre.ttf.*DejaVu Sans.*licença");
}

TEST(Fonte, MeasuresTellOneWidthSerifsAndStemsOfEachFace) {
    const auto medidas = [](const char* nome, bool negrito) {
        return Face::Obter(nome, negrito, false)->Metricas();
    };
    const auto arial = medidas("Arial", false);
    EXPECT_FALSE(arial.larguraUnica || arial.serifas);
    EXPECT_TRUE(medidas("Courier New", false).larguraUnica);
    EXPECT_TRUE(medidas("Times New Roman", false).serifas);
    // The "l" of this face is its stem: 180 of 2,048 units.
    EXPECT_EQ(arial.haste, 88);
    EXPECT_EQ(medidas("Arial", true).haste, 137);
}

}  // namespace
}  // namespace tarvo::pdf
