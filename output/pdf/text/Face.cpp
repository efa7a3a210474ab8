// SPDX-License-Identifier: MIT
#include "output/pdf/text/Face.h"

#include <hb-ot.h>

#include <algorithm>
#include <limits>
#include <map>
#include <mutex>
#include <tuple>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"
#include "output/pdf/text/Comprimentos.h"
#include "output/pdf/text/Haste.h"
#include "output/pdf/text/TabelaOS2.h"
#include "output/pdf/text/TextoUnicode.h"
#include "system/files/Arquivos.h"

namespace tarvo::pdf {

namespace {

constexpr std::int16_t KernDesconhecido = std::numeric_limits<std::int16_t>::min();
constexpr std::size_t Codigos = 256;

constexpr bool EhDigito(std::uint8_t c) {
    return c >= '0' && c <= '9';
}

int Inteiro16(const char* p) {
    return static_cast<std::int16_t>((static_cast<unsigned char>(p[0]) << 8U) |
                                     static_cast<unsigned char>(p[1]));
}

}  // namespace

std::shared_ptr<const Face> Face::Obter(std::string_view nome, bool negrito, bool italico) {
    static std::mutex mutex;
    static std::map<std::tuple<std::string, bool, bool>, std::shared_ptr<const Face>> lidas;
    const std::lock_guard trava(mutex);
    auto& face = lidas[{std::string(nome), negrito, italico}];
    if (face == nullptr) {
        face = std::make_shared<Face>(LocalizarFonte(nome, negrito, italico));
    }
    return face;
}

std::shared_ptr<const Face> Face::ObterCom(char32_t c, std::string_view nome, bool negrito,
                                           bool italico) {
    static std::mutex mutex;
    static std::map<std::pair<std::string, unsigned>, std::shared_ptr<const Face>> lidas;
    const auto arquivo = LocalizarFonteCom(c, nome, negrito, italico);
    if (!arquivo) {
        return nullptr;
    }
    const std::lock_guard trava(mutex);
    auto& face = lidas[{arquivo->caminho, arquivo->indice}];
    if (face == nullptr) {
        face = std::make_shared<Face>(*arquivo);
    }
    return face;
}

bool Face::Tem(char32_t c) const {
    hb_codepoint_t glifo = 0;
    if (hb_font_get_nominal_glyph(fonte_.get(), c, &glifo) != 0) {
        return true;
    }
    hb_codepoint_t letra = 0;
    hb_codepoint_t acento = 0;
    return hb_unicode_decompose(hb_unicode_funcs_get_default(), c, &letra, &acento) != 0 &&
           Tem(letra) && (acento == 0 || Tem(acento));
}

void Face::ObterHabituais() {
    for (const auto nome : FontesHabituais) {
        for (const unsigned estilo : {0U, 1U, 2U, 3U}) {
            try {
                Obter(nome, (estilo & 1U) != 0, (estilo & 2U) != 0);
            } catch (const Erro&) {
                continue;
            }
        }
    }
}

Face::Face(const ArquivoFonte& arquivo) {
    ExigirDescritores(arquivo.caminho, 1);
    const ObjetoDeC<hb_blob_destroy> blob(
        hb_blob_create_from_file_or_fail(arquivo.caminho.c_str()));
    if (blob == nullptr) {
        throw Erro(NumeroErro::FonteAusente,
                   "Não foi possível ler a fonte " + arquivo.caminho + ".");
    }
    face_.reset(hb_face_create(blob.get(), arquivo.indice));
    hb_face_make_immutable(face_.get());
    fonte_.reset(hb_font_create(face_.get()));
    hb_font_make_immutable(fonte_.get());
    unidades_ = static_cast<int>(hb_face_get_upem(face_.get()));
    LerMetricas();
    LerAvancos();
}

int Face::Milesimos(int unidades) const {
    return Arredondar(unidades * 1000.0 / unidades_);
}

void Face::LerMetricas() {
    hb_font_extents_t linha{};
    hb_font_get_h_extents(fonte_.get(), &linha);
    metricas_.ascendente = Milesimos(linha.ascender);
    metricas_.descendente = Milesimos(-linha.descender);
    const auto medida = [this](hb_ot_metrics_tag_t tag) {
        hb_position_t valor = 0;
        hb_ot_metrics_get_position_with_fallback(fonte_.get(), tag, &valor);
        return Milesimos(valor);
    };
    metricas_.maiuscula = medida(HB_OT_METRICS_TAG_CAP_HEIGHT);
    metricas_.posicaoSublinhado = medida(HB_OT_METRICS_TAG_UNDERLINE_OFFSET);
    metricas_.espessuraSublinhado = medida(HB_OT_METRICS_TAG_UNDERLINE_SIZE);
    metricas_.inclinacao =
        static_cast<int>(hb_style_get_value(fonte_.get(), HB_STYLE_TAG_SLANT_ANGLE));
    metricas_.haste = Milesimos(MedirHaste(fonte_.get()));
    const TabelaOS2 os2(face_.get());
    metricas_.serifas = os2.TemSerifas();
    metricas_.manuscrita = os2.Manuscrita();

    const ObjetoDeC<hb_blob_destroy> head(
        hb_face_reference_table(face_.get(), HB_TAG('h', 'e', 'a', 'd')));
    unsigned tamanho = 0;
    const char* const dados = hb_blob_get_data(head.get(), &tamanho);
    constexpr unsigned CaixaEmHead = 36;
    if (tamanho >= CaixaEmHead + 8) {
        metricas_.xMinimo = Milesimos(Inteiro16(dados + CaixaEmHead));
        metricas_.yMinimo = Milesimos(Inteiro16(dados + CaixaEmHead + 2));
        metricas_.xMaximo = Milesimos(Inteiro16(dados + CaixaEmHead + 4));
        metricas_.yMaximo = Milesimos(Inteiro16(dados + CaixaEmHead + 6));
    }
}

void Face::LerAvancos() {
    avancos_.fill(-1);
    int menor = std::numeric_limits<int>::max();
    int maior = 0;
    for (std::size_t codigo = 0; codigo < Codigos; ++codigo) {
        const char32_t c = UnicodeDeWinAnsi(static_cast<std::uint8_t>(codigo));
        hb_codepoint_t glifo = 0;
        if (c != 0 && hb_font_get_nominal_glyph(fonte_.get(), c, &glifo) != 0) {
            const int avanco = AvancoGlifo(glifo);
            avancos_[codigo] = static_cast<std::int16_t>(avanco);
            menor = std::min(menor, avanco);
            maior = std::max(maior, avanco);
        }
    }
    metricas_.larguraUnica = menor == maior;
    if (!metricas_.larguraUnica) {
        kern_ = std::vector<std::atomic<std::int16_t>>(Codigos * Codigos);
        for (auto& par : kern_) {
            par.store(KernDesconhecido, std::memory_order_relaxed);
        }
    }
}

int Face::AvancoGlifo(hb_codepoint_t glifo) const {
    return Milesimos(hb_font_get_glyph_h_advance(fonte_.get(), glifo));
}

int Face::KernDoPar(std::uint8_t a, std::uint8_t b) const {
    auto& par = kern_[static_cast<std::size_t>(a) * Codigos + b];
    auto kern = par.load(std::memory_order_relaxed);
    if (kern == KernDesconhecido) {
        // Figures keep their equal widths, so that columns of amounts stand digit under digit.
        const bool figuras = EhDigito(a) || EhDigito(b);
        kern = static_cast<std::int16_t>(figuras ? 0 : MedirKern(a, b));
        par.store(kern, std::memory_order_relaxed);
    }
    return kern;
}

int Face::MedirKern(std::uint8_t a, std::uint8_t b) const {
    const hb_feature_t semLigaduras[] = {
        {HB_TAG('l', 'i', 'g', 'a'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
        {HB_TAG('c', 'l', 'i', 'g'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END}};
    const std::uint32_t par[] = {UnicodeDeWinAnsi(a), UnicodeDeWinAnsi(b)};
    const ObjetoDeC<hb_buffer_destroy> buffer(hb_buffer_create());
    hb_buffer_add_utf32(buffer.get(), par, 2, 0, 2);
    hb_buffer_set_direction(buffer.get(), HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer.get(), HB_SCRIPT_LATIN);
    hb_buffer_set_language(buffer.get(), Lingua());
    hb_shape(fonte_.get(), buffer.get(), semLigaduras, 2);
    unsigned quantos = 0;
    const auto* const posicoes = hb_buffer_get_glyph_positions(buffer.get(), &quantos);
    const auto* const glifos = hb_buffer_get_glyph_infos(buffer.get(), nullptr);
    if (quantos != 2) {
        return 0;
    }
    // Some faces move the first one's end, others half of it and half of the second one's place.
    int kern = 0;
    for (const int i : {0, 1}) {
        kern +=
            posicoes[i].x_advance - hb_font_get_glyph_h_advance(fonte_.get(), glifos[i].codepoint);
    }
    return Milesimos(kern);
}

std::string Face::NomePostScript() const {
    char nome[128];
    unsigned tamanho = sizeof nome;
    hb_ot_name_get_utf8(face_.get(), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &tamanho,
                        nome);
    std::string limpo;
    std::copy_if(nome, nome + tamanho, std::back_inserter(limpo),
                 [](char c) { return EhLetraOuDigito(c) || c == '-'; });
    return limpo.empty() ? "Fonte" : limpo;
}

}  // namespace tarvo::pdf
