// SPDX-License-Identifier: MIT
#include "output/pdf/file/FonteReduzida.h"

#include <hb-subset.h>

#include <algorithm>
#include <list>
#include <mutex>
#include <new>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "data/CodigosDeErros.h"
#include "data/ObjetoDeC.h"
#include "output/pdf/file/Compressor.h"
#include "output/pdf/file/Sintaxe.h"
#include "output/pdf/text/TextoUnicode.h"

namespace tarvo::pdf {

namespace {

struct CodigoUnicode {
    unsigned codigo = 0;
    char32_t unicode = 0;
};

// Codes have the given number of hexadecimal digits.
std::string MapaUnicode(const std::vector<CodigoUnicode>& pares, int digitos) {
    std::string mapa =
        "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
        "/CIDSystemInfo<</Registry(Adobe)/Ordering(UCS)/Supplement 0>>def\n"
        "/CMapName/Adobe-Identity-UCS def\n/CMapType 2 def\n1 begincodespacerange\n";
    mapa += digitos == 2 ? "<00><FF>" : "<0000><FFFF>";
    mapa += "\nendcodespacerange\n";
    constexpr std::size_t Bloco = 100;  // the most that one block may hold
    for (std::size_t i = 0; i < pares.size(); i += Bloco) {
        const std::size_t fim = std::min(pares.size(), i + Bloco);
        mapa += std::to_string(fim - i) + " beginbfchar\n";
        for (std::size_t n = i; n < fim; ++n) {
            mapa += '<';
            AnexarHex(mapa, pares[n].codigo, digitos);
            mapa += "><";
            AnexarUTF16Hex(mapa, pares[n].unicode);
            mapa += ">\n";
        }
        mapa += "endbfchar\n";
    }
    return mapa + "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";
}

std::string MapaDosCodigos(const UsoDaFonte& uso) {
    std::vector<CodigoUnicode> pares;
    for (unsigned codigo = 0; codigo < uso.codigos.size(); ++codigo) {
        if (uso.codigos.test(codigo)) {
            pares.push_back({codigo, UnicodeDeWinAnsi(static_cast<std::uint8_t>(codigo))});
        }
    }
    return MapaUnicode(pares, 2);
}

std::string MapaDosGlifos(const UsoDaFonte& uso) {
    std::vector<CodigoUnicode> pares;
    for (const auto& [glifo, unicode] : uso.glifos) {
        if (unicode != 0) {
            pares.push_back({glifo, unicode});
        }
    }
    return MapaUnicode(pares, 4);
}

ObjetoDeC<hb_subset_input_destroy> Pedido(const UsoDaFonte& uso) {
    ObjetoDeC<hb_subset_input_destroy> pedido(hb_subset_input_create_or_fail());
    if (pedido == nullptr) {
        throw std::bad_alloc();
    }
    hb_subset_input_set_flags(pedido.get(), HB_SUBSET_FLAGS_NO_HINTING);
    hb_set_t* const caracteres = hb_subset_input_unicode_set(pedido.get());
    for (unsigned codigo = 0; codigo < 256; ++codigo) {
        if (uso.codigos.test(codigo)) {
            hb_set_add(caracteres, UnicodeDeWinAnsi(static_cast<std::uint8_t>(codigo)));
        }
    }
    hb_set_t* const glifos = hb_subset_input_glyph_set(pedido.get());
    for (const auto& [glifo, unicode] : uso.glifos) {
        hb_set_add(glifos, glifo);
    }
    // A PDF has no use for these tables; layout, left in, would also pull in glyphs.
    hb_set_t* const fora = hb_subset_input_set(pedido.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const auto tabela :
         {HB_TAG('G', 'S', 'U', 'B'), HB_TAG('G', 'P', 'O', 'S'), HB_TAG('G', 'D', 'E', 'F'),
          HB_TAG('k', 'e', 'r', 'n'), HB_TAG('n', 'a', 'm', 'e'), HB_TAG('D', 'S', 'I', 'G'),
          HB_TAG('O', 'S', '/', '2'), HB_TAG('p', 'o', 's', 't'), HB_TAG('g', 'a', 's', 'p'),
          HB_TAG('F', 'F', 'T', 'M'), HB_TAG('m', 'e', 't', 'a')}) {
        hb_set_add(fora, tabela);
    }
    return pedido;
}

// Text by glyph number has gone out with the numbers of the face.
std::string MapaDeNumeros(const UsoDaFonte& uso, const hb_map_t* novos) {
    std::string mapa(2 * (std::size_t{uso.glifos.rbegin()->first} + 1), '\0');
    for (const auto& [glifo, unicode] : uso.glifos) {
        const hb_codepoint_t novo = hb_map_get(novos, glifo);
        mapa[2 * std::size_t{glifo}] = static_cast<char>(novo >> 8U);
        mapa[2 * std::size_t{glifo} + 1] = static_cast<char>(novo);
    }
    return mapa;
}

std::shared_ptr<const FonteReduzida> Fazer(const Face& face, const UsoDaFonte& uso) {
    const auto pedido = Pedido(uso);
    const ObjetoDeC<hb_subset_plan_destroy> plano(
        hb_subset_plan_create_or_fail(face.Hb(), pedido.get()));
    const ObjetoDeC<hb_face_destroy> reduzida(
        plano != nullptr ? hb_subset_plan_execute_or_fail(plano.get()) : nullptr);
    if (reduzida == nullptr) {
        throw Erro(NumeroErro::FonteAusente,
                   "A fonte " + face.NomePostScript() + " não pôde ser embutida.");
    }
    const ObjetoDeC<hb_blob_destroy> blob(hb_face_reference_blob(reduzida.get()));
    unsigned tamanho = 0;
    const char* const dados = hb_blob_get_data(blob.get(), &tamanho);
    auto feita = std::make_shared<FonteReduzida>();
    Compressor& compressor = Compressor::DoFio();
    feita->programa = compressor.Comprimir({dados, tamanho});
    feita->tamanho = tamanho;
    if (uso.codigos.any()) {
        feita->mapaCodigos = compressor.Comprimir(MapaDosCodigos(uso));
    }
    if (!uso.glifos.empty()) {
        feita->mapaGlifos = compressor.Comprimir(MapaDosGlifos(uso));
        feita->glifos = compressor.Comprimir(
            MapaDeNumeros(uso, hb_subset_plan_old_to_new_glyph_mapping(plano.get())));
    }
    return feita;
}

// The latest ones by what they are made from, the last used first.
class Lembradas {
  public:
    std::shared_ptr<const FonteReduzida> Procurar(const std::string& chave) {
        const std::lock_guard trava(mutex_);
        const auto achada = porChave_.find(chave);
        if (achada == porChave_.end()) {
            return nullptr;
        }
        lista_.splice(lista_.begin(), lista_, achada->second);
        return lista_.front().reduzida;
    }

    void Lembrar(std::string chave, std::shared_ptr<const Face> face,
                 std::shared_ptr<const FonteReduzida> reduzida) {
        const std::lock_guard trava(mutex_);
        if (porChave_.contains(chave)) {
            return;  // another thread was faster
        }
        lista_.push_front({std::move(chave), std::move(face), std::move(reduzida)});
        porChave_.emplace(lista_.front().chave, lista_.begin());
        bytes_ += lista_.front().Bytes();
        while (bytes_ > MaisBytes) {
            bytes_ -= lista_.back().Bytes();
            porChave_.erase(lista_.back().chave);
            lista_.pop_back();
        }
    }

  private:
    static constexpr std::size_t MaisBytes = std::size_t{8} * 1024 * 1024;

    struct Lembrada {
        std::string chave;
        std::shared_ptr<const Face> face;  // whose address is in the key
        std::shared_ptr<const FonteReduzida> reduzida;

        [[nodiscard]] std::size_t Bytes() const {
            constexpr std::size_t Resto = 512;
            return chave.size() + reduzida->programa.size() + reduzida->glifos.size() +
                   reduzida->mapaCodigos.size() + reduzida->mapaGlifos.size() + Resto;
        }
    };

    std::mutex mutex_;
    std::size_t bytes_ = 0;
    std::list<Lembrada> lista_;
    std::unordered_map<std::string_view, std::list<Lembrada>::iterator> porChave_;
};

template <class Valor>
void AnexarBytes(std::string& chave, const Valor& valor) {
    chave.append(reinterpret_cast<const char*>(&valor), sizeof valor);
}

std::string Chave(const Face* face, const UsoDaFonte& uso) {
    std::string chave;
    AnexarBytes(chave, reinterpret_cast<std::uintptr_t>(face));
    AnexarBytes(chave, uso.codigos);
    for (const auto& [glifo, unicode] : uso.glifos) {
        AnexarBytes(chave, glifo);
        AnexarBytes(chave, unicode);
    }
    return chave;
}

}  // namespace

std::shared_ptr<const FonteReduzida> Reduzir(const std::shared_ptr<const Face>& face,
                                             const UsoDaFonte& uso) {
    static Lembradas lembradas;
    std::string chave = Chave(face.get(), uso);
    auto reduzida = lembradas.Procurar(chave);
    if (reduzida == nullptr) {
        reduzida = Fazer(*face, uso);
        lembradas.Lembrar(std::move(chave), face, reduzida);
    }
    return reduzida;
}

}  // namespace tarvo::pdf
