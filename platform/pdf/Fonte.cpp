#include "platform/pdf/Fonte.h"

#include <hb-ot.h>

#include <algorithm>
#include <limits>

#include "data/CodigosDeErros.h"
#include "platform/pdf/Numeros.h"
#include "platform/pdf/TextoUnicode.h"

namespace tarvo::pdf {

namespace {

// Of every text, whatever the process's locale; looked up once for all threads.
hb_language_t Lingua() {
    static const hb_language_t lingua = hb_language_from_string("pt", -1);
    return lingua;
}

constexpr std::int16_t KernDesconhecido = std::numeric_limits<std::int16_t>::min();

constexpr bool EhDigito(std::uint8_t c) {
    return c >= '0' && c <= '9';
}

int Inteiro16(const char* p) {
    return static_cast<std::int16_t>((static_cast<unsigned char>(p[0]) << 8U) |
                                     static_cast<unsigned char>(p[1]));
}

}  // namespace

Fonte::Fonte(const ArquivoFonte& arquivo) {
    hb_blob_t* const blob = hb_blob_create_from_file_or_fail(arquivo.caminho.c_str());
    if (blob == nullptr) {
        throw Erro(NumeroErro::FonteAusente,
                   "Não foi possível ler a fonte " + arquivo.caminho + ".");
    }
    face_.reset(hb_face_create(blob, arquivo.indice));
    hb_blob_destroy(blob);
    fonte_.reset(hb_font_create(face_.get()));
    buffer_.reset(hb_buffer_create());
    unidades_ = static_cast<int>(hb_face_get_upem(face_.get()));
    LerMetricas();
    LerAvancos();
}

int Fonte::Milesimos(int unidades) const {
    return Arredondar(unidades * 1000.0 / unidades_);
}

void Fonte::LerMetricas() {
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

    hb_blob_t* const head = hb_face_reference_table(face_.get(), HB_TAG('h', 'e', 'a', 'd'));
    unsigned tamanho = 0;
    const char* const dados = hb_blob_get_data(head, &tamanho);
    constexpr unsigned CaixaEmHead = 36;
    if (tamanho >= CaixaEmHead + 8) {
        metricas_.xMinimo = Milesimos(Inteiro16(dados + CaixaEmHead));
        metricas_.yMinimo = Milesimos(Inteiro16(dados + CaixaEmHead + 2));
        metricas_.xMaximo = Milesimos(Inteiro16(dados + CaixaEmHead + 4));
        metricas_.yMaximo = Milesimos(Inteiro16(dados + CaixaEmHead + 6));
    }
    hb_blob_destroy(head);
}

void Fonte::LerAvancos() {
    avancos_.fill(-1);
    int menor = std::numeric_limits<int>::max();
    int maior = 0;
    for (int codigo = 0; codigo < 256; ++codigo) {
        const char32_t c = UnicodeDeWinAnsi(static_cast<std::uint8_t>(codigo));
        hb_codepoint_t glifo = 0;
        if (c != 0 && hb_font_get_nominal_glyph(fonte_.get(), c, &glifo) != 0) {
            const int avanco = AvancoGlifo(glifo);
            avancos_[static_cast<std::size_t>(codigo)] = static_cast<std::int16_t>(avanco);
            menor = std::min(menor, avanco);
            maior = std::max(maior, avanco);
        }
    }
    larguraFixa_ = menor == maior;
    if (!larguraFixa_) {
        kern_.assign(std::size_t{256} * 256, KernDesconhecido);
    }
}

int Fonte::AvancoGlifo(hb_codepoint_t glifo) {
    return Milesimos(hb_font_get_glyph_h_advance(fonte_.get(), glifo));
}

std::uint8_t Fonte::Codigo(char32_t c) const {
    const auto codigo = CodigoWinAnsi(c);
    return avancos_[codigo] >= 0 ? codigo : std::uint8_t{0};
}

bool Fonte::Codificar(std::string_view texto, std::string& codigos) const {
    for (std::size_t i = 0; i < texto.size();) {
        auto codigo = static_cast<std::uint8_t>(texto[i]);
        if (codigo < 0x80) {
            ++i;
        } else {
            codigo = Codigo(LerCaractere(texto, i));
        }
        if (avancos_[codigo] < 0) {
            return false;
        }
        codigos.push_back(static_cast<char>(codigo));
    }
    return true;
}

int Fonte::Kern(std::uint8_t a, std::uint8_t b) {
    auto& kern = kern_[static_cast<std::size_t>(a) * 256 + b];
    if (kern == KernDesconhecido) {
        // Figures keep their equal widths, so that columns of amounts stand digit under digit.
        const bool figuras = EhDigito(a) || EhDigito(b);
        kern = static_cast<std::int16_t>(figuras ? 0 : MedirKern(a, b));
    }
    return kern;
}

int Fonte::MedirKern(std::uint8_t a, std::uint8_t b) {
    const hb_feature_t semLigaduras[] = {
        {HB_TAG('l', 'i', 'g', 'a'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END},
        {HB_TAG('c', 'l', 'i', 'g'), 0, HB_FEATURE_GLOBAL_START, HB_FEATURE_GLOBAL_END}};
    const std::uint32_t par[] = {UnicodeDeWinAnsi(a), UnicodeDeWinAnsi(b)};
    hb_buffer_clear_contents(buffer_.get());
    hb_buffer_add_utf32(buffer_.get(), par, 2, 0, 2);
    hb_buffer_set_direction(buffer_.get(), HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer_.get(), HB_SCRIPT_LATIN);
    hb_buffer_set_language(buffer_.get(), Lingua());
    hb_shape(fonte_.get(), buffer_.get(), semLigaduras, 2);
    unsigned quantos = 0;
    const auto* const posicoes = hb_buffer_get_glyph_positions(buffer_.get(), &quantos);
    const auto* const glifos = hb_buffer_get_glyph_infos(buffer_.get(), nullptr);
    if (quantos != 2) {
        return 0;
    }
    return Milesimos(posicoes[0].x_advance -
                     hb_font_get_glyph_h_advance(fonte_.get(), glifos[0].codepoint));
}

int Fonte::LarguraCodigos(std::string_view codigos) {
    int largura = 0;
    std::uint8_t anterior = 0;
    for (const char c : codigos) {
        const auto codigo = static_cast<std::uint8_t>(c);
        largura += AvancoDepoisDe(anterior, codigo);
        anterior = codigo;
    }
    return largura;
}

void Fonte::AnexarCodigos(std::string& saida, std::string_view codigos) {
    const std::size_t inicio = saida.size();
    bool comKern = false;
    saida += "[(";
    std::uint8_t anterior = 0;
    for (const char c : codigos) {
        const auto codigo = static_cast<std::uint8_t>(c);
        usados_.set(codigo);
        const int kern = larguraFixa_ || anterior == 0 ? 0 : Kern(anterior, codigo);
        if (kern != 0) {
            comKern = true;
            saida += ')';
            AnexarInteiro(saida, -kern);
            saida += '(';
        }
        if (c == '(' || c == ')' || c == '\\') {
            saida += '\\';
        }
        saida += c;
        anterior = codigo;
    }
    if (comKern) {
        saida += ")]TJ\n";
    } else {
        saida.erase(inicio, 1);
        saida += ")Tj\n";
    }
}

int Fonte::Largura(char32_t c) {
    if (const auto codigo = Codigo(c); codigo != 0) {
        return avancos_[codigo];
    }
    hb_codepoint_t glifo = 0;
    hb_font_get_nominal_glyph(fonte_.get(), c, &glifo);
    return EhMarcaCombinante(c) ? 0 : AvancoGlifo(glifo);
}

std::vector<Fonte::Glifo> Fonte::Formar(std::u32string_view texto) {
    std::u32string conhecidos(texto);
    for (auto& c : conhecidos) {
        hb_codepoint_t glifo = 0;
        if (hb_font_get_nominal_glyph(fonte_.get(), c, &glifo) == 0) {
            c = hb_font_get_nominal_glyph(fonte_.get(), Substituto, &glifo) != 0 ? Substituto
                                                                                 : U'?';
        }
    }
    hb_buffer_clear_contents(buffer_.get());
    hb_buffer_add_utf32(buffer_.get(), reinterpret_cast<const std::uint32_t*>(conhecidos.data()),
                        static_cast<int>(conhecidos.size()), 0, -1);
    hb_buffer_set_language(buffer_.get(), Lingua());
    hb_buffer_guess_segment_properties(buffer_.get());
    hb_shape(fonte_.get(), buffer_.get(), nullptr, 0);
    unsigned quantos = 0;
    const auto* const infos = hb_buffer_get_glyph_infos(buffer_.get(), &quantos);
    const auto* const posicoes = hb_buffer_get_glyph_positions(buffer_.get(), nullptr);
    std::vector<Glifo> glifos;
    glifos.reserve(quantos);
    for (unsigned i = 0; i < quantos; ++i) {
        const bool primeiro = i == 0 || infos[i].cluster != infos[i - 1].cluster;
        glifos.push_back({infos[i].codepoint, primeiro ? conhecidos[infos[i].cluster] : U'\0',
                          Milesimos(posicoes[i].x_advance), Milesimos(posicoes[i].x_offset),
                          Milesimos(posicoes[i].y_offset)});
    }
    return glifos;
}

void Fonte::MarcarGlifo(const Glifo& g) {
    auto& unicode = glifos_[g.glifo];
    if (unicode == 0) {
        unicode = g.unicode;
    }
}

std::string Fonte::NomePostScript() const {
    char nome[128];
    unsigned tamanho = sizeof nome;
    hb_ot_name_get_utf8(face_.get(), HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &tamanho,
                        nome);
    std::string limpo;
    std::copy_if(nome, nome + tamanho, std::back_inserter(limpo), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
               c == '-';
    });
    return limpo.empty() ? "Fonte" : limpo;
}

}  // namespace tarvo::pdf
