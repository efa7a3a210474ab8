// SPDX-License-Identifier: MIT
#include "output/pdf/text/LocalizarFonte.h"

#include <fontconfig/fontconfig.h>
#include <hb.h>

#include <iterator>
#include <map>
#include <mutex>
#include <new>
#include <tuple>

#include "data/CodigosDeErros.h"
#include "data/ObjetoDeC.h"
#include "output/pdf/text/TabelaOS2.h"
#include "system/files/Arquivos.h"

namespace tarvo::pdf {

namespace {

// The metric twins of FontesHabituais.
constexpr const char* Gemeas[] = {"Liberation Sans", "Liberation Mono", "Liberation Serif"};
static_assert(std::size(Gemeas) == FontesHabituais.size());
constexpr const char* PacoteDasGemeas = "fonts-liberation";

using Padrao = ObjetoDeC<FcPatternDestroy>;

const FcChar8* Fc(const char* texto) {
    return reinterpret_cast<const FcChar8*>(texto);
}

template <class T>
T* Exigir(T* objeto) {
    if (objeto == nullptr) {
        throw std::bad_alloc();
    }
    return objeto;
}

// The machine's fonts, read once in a process; fontconfig's matching is thread-safe.
FcConfig* Configuracao() {
    constexpr std::size_t ArquivosAoMesmoTempo = 8;
    static const ObjetoDeC<FcConfigDestroy> configuracao([] {
        ExigirDescritores("fontes", ArquivosAoMesmoTempo);
        return FcInitLoadConfigAndFonts();
    }());
    return Exigir(configuracao.get());
}

bool TemFamilia(const FcPattern& padrao, const char* familia) {
    FcChar8* nome = nullptr;
    for (int i = 0; FcPatternGetString(&padrao, FC_FAMILY, i, &nome) == FcResultMatch; ++i) {
        if (FcStrCmpIgnoreCase(nome, Fc(familia)) == 0) {
            return true;
        }
    }
    return false;
}

Padrao PadraoDe(const char* familia, bool negrito, bool italico) {
    Padrao pedido(Exigir(FcPatternCreate()));
    FcPatternAddString(pedido.get(), FC_FAMILY, Fc(familia));
    FcPatternAddInteger(pedido.get(), FC_WEIGHT, negrito ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pedido.get(), FC_SLANT, italico ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pedido.get(), FC_VARIABLE, FcFalse);
    FcPatternAddString(pedido.get(), FC_FONTFORMAT, Fc("TrueType"));
    FcDefaultSubstitute(pedido.get());
    return pedido;
}

// None for a font that is not of outlines in the TrueType format.
std::optional<ArquivoFonte> ArquivoDe(const FcPattern& achado) {
    FcChar8* caminho = nullptr;
    FcChar8* formato = nullptr;
    FcBool contornos = FcTrue;
    int indice = 0;
    FcPatternGetBool(&achado, FC_OUTLINE, 0, &contornos);
    if (FcPatternGetString(&achado, FC_FONTFORMAT, 0, &formato) != FcResultMatch ||
        FcStrCmp(formato, Fc("TrueType")) != 0 || contornos == FcFalse ||
        FcPatternGetString(&achado, FC_FILE, 0, &caminho) != FcResultMatch) {
        return std::nullopt;
    }
    FcPatternGetInteger(&achado, FC_INDEX, 0, &indice);
    return ArquivoFonte{reinterpret_cast<const char*>(caminho),
                        static_cast<unsigned>(indice) & 0xFFFFU};
}

std::optional<ArquivoFonte> Procurar(const char* familia, bool negrito, bool italico) {
    const Padrao pedido = PadraoDe(familia, negrito, italico);
    FcResult resultado = FcResultNoMatch;
    const Padrao achado(FcFontMatch(Configuracao(), pedido.get(), &resultado));
    // The best match may be any font: only the family that was asked for will do.
    return achado != nullptr && TemFamilia(*achado, familia) ? ArquivoDe(*achado) : std::nullopt;
}

// Whether the font's licence lets files carry it. A file that cannot be read says nothing against
// it: the face that is made of it says so.
bool PodeEmbutir(const ArquivoFonte& arquivo) {
    const ObjetoDeC<hb_blob_destroy> blob(
        hb_blob_create_from_file_or_fail(arquivo.caminho.c_str()));
    if (blob == nullptr) {
        return true;
    }
    const ObjetoDeC<hb_face_destroy> face(hb_face_create(blob.get(), arquivo.indice));
    return TabelaOS2(face.get()).PermiteSubconjunto();
}

// The installed fonts, those first that are most like the one asked for.
using Parecidas = ObjetoDeC<FcFontSetDestroy>;

const FcFontSet& ParecidasCom(std::string_view nome, bool negrito, bool italico) {
    static std::map<std::tuple<std::string, bool, bool>, Parecidas> achadas;
    auto& parecidas = achadas[{std::string(nome), negrito, italico}];
    if (parecidas == nullptr) {
        const Padrao pedido = PadraoDe(std::string(nome).c_str(), negrito, italico);
        FcResult resultado = FcResultNoMatch;
        // All of them: one that must not be embedded may be followed by one with its characters.
        parecidas.reset(
            Exigir(FcFontSort(Configuracao(), pedido.get(), FcFalse, nullptr, &resultado)));
    }
    return *parecidas;
}

}  // namespace

ArquivoFonte LocalizarFonte(std::string_view nome, bool negrito, bool italico) {
    const std::string pedida(nome);
    std::string pacote;
    bool proibida = false;
    const auto procurar = [&](const char* familia) {
        auto arquivo = Procurar(familia, negrito, italico);
        if (arquivo && !PodeEmbutir(*arquivo)) {
            proibida = true;
            arquivo.reset();
        }
        return arquivo;
    };
    for (std::size_t i = 0; i < FontesHabituais.size(); ++i) {
        if (FcStrCmpIgnoreCase(Fc(pedida.c_str()), Fc(FontesHabituais[i].data())) == 0) {
            if (auto arquivo = procurar(Gemeas[i])) {
                return *std::move(arquivo);
            }
            pacote = PacoteDasGemeas;
        }
    }
    if (auto arquivo = procurar(pedida.c_str())) {
        return *std::move(arquivo);
    }
    throw Erro(NumeroErro::FonteAusente,
               "A fonte \"" + pedida + "\" " +
                   (proibida ? "tem uma licença que não permite embuti-la em arquivos"
                             : "não está instalada") +
                   (pacote.empty() ? "." : "; instale o pacote " + pacote + "."));
}

std::optional<ArquivoFonte> LocalizarFonteCom(char32_t c, std::string_view nome, bool negrito,
                                              bool italico) {
    static std::mutex mutex;
    const std::lock_guard trava(mutex);
    static std::map<std::pair<std::string, unsigned>, bool> permitidas;
    const auto permitida = [](const ArquivoFonte& arquivo) {
        const auto [lugar, nova] = permitidas.try_emplace({arquivo.caminho, arquivo.indice});
        if (nova) {
            lugar->second = PodeEmbutir(arquivo);
        }
        return lugar->second;
    };
    const FcFontSet& parecidas = ParecidasCom(nome, negrito, italico);
    for (int i = 0; i < parecidas.nfont; ++i) {
        const FcPattern& fonte = *parecidas.fonts[i];
        FcCharSet* caracteres = nullptr;
        FcBool colorida = FcFalse;
        FcPatternGetBool(&fonte, FC_COLOR, 0, &colorida);
        if (colorida == FcFalse &&
            FcPatternGetCharSet(&fonte, FC_CHARSET, 0, &caracteres) == FcResultMatch &&
            FcCharSetHasChar(caracteres, c) != FcFalse) {
            if (auto arquivo = ArquivoDe(fonte); arquivo && permitida(*arquivo)) {
                return arquivo;
            }
        }
    }
    return std::nullopt;
}

}  // namespace tarvo::pdf
