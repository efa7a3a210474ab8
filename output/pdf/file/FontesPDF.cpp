#include "output/pdf/file/FontesPDF.h"

#include <hb-subset.h>

#include <algorithm>
#include <new>

#include "data/CodigosDeErros.h"
#include "data/ObjetoDeC.h"
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

// The face reduced to the glyphs in use. Their numbers stay, since text written by glyph number
// has already gone out.
std::string Subconjunto(const FonteDoArquivo& f) {
    const ObjetoDeC<hb_subset_input_destroy> pedido(hb_subset_input_create_or_fail());
    if (pedido == nullptr) {
        throw std::bad_alloc();
    }
    hb_subset_input_set_flags(pedido.get(),
                              HB_SUBSET_FLAGS_NO_HINTING | HB_SUBSET_FLAGS_RETAIN_GIDS);
    hb_set_t* const caracteres = hb_subset_input_unicode_set(pedido.get());
    for (unsigned codigo = 0; codigo < 256; ++codigo) {
        if (f.codigos.test(codigo)) {
            hb_set_add(caracteres, UnicodeDeWinAnsi(static_cast<std::uint8_t>(codigo)));
        }
    }
    hb_set_t* const glifos = hb_subset_input_glyph_set(pedido.get());
    for (const auto& [glifo, unicode] : f.glifos) {
        hb_set_add(glifos, glifo);
    }
    // A PDF has no use for layout tables; left in, they would also pull in glyphs.
    hb_set_t* const fora = hb_subset_input_set(pedido.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const auto tabela :
         {HB_TAG('G', 'S', 'U', 'B'), HB_TAG('G', 'P', 'O', 'S'), HB_TAG('G', 'D', 'E', 'F'),
          HB_TAG('k', 'e', 'r', 'n'), HB_TAG('n', 'a', 'm', 'e'), HB_TAG('D', 'S', 'I', 'G')}) {
        hb_set_add(fora, tabela);
    }
    const Face& face = f.fonte.FaceUsada();
    const ObjetoDeC<hb_face_destroy> reduzida(hb_subset_or_fail(face.Hb(), pedido.get()));
    if (reduzida == nullptr) {
        throw Erro(NumeroErro::FonteAusente,
                   "A fonte " + face.NomePostScript() + " não pôde ser embutida.");
    }
    const ObjetoDeC<hb_blob_destroy> blob(hb_face_reference_blob(reduzida.get()));
    unsigned tamanho = 0;
    const char* const dados = hb_blob_get_data(blob.get(), &tamanho);
    return {dados, tamanho};
}

// Six capitals and a plus mark a subset; the number of the face tells two subsets apart.
std::string NomeDoSubconjunto(const FonteDoArquivo& f) {
    std::string marca = "TARVOA";
    marca[5] = static_cast<char>('A' + f.numero % 26);
    marca[4] = static_cast<char>('A' + f.numero / 26 % 26);
    return marca + "+" + f.fonte.FaceUsada().NomePostScript();
}

std::string Descritor(const Fonte& fonte, const std::string& nome, int arquivo) {
    const auto& m = fonte.Metricas();
    constexpr unsigned NaoSimbolica = 32;
    const unsigned sinais = (m.larguraUnica ? 1U : 0U) | (m.serifas ? 2U : 0U) |
                            (m.manuscrita ? 8U : 0U) | NaoSimbolica |
                            (m.inclinacao != 0 ? 64U : 0U);
    std::string d = "<</Type/FontDescriptor/FontName/" + nome;
    d += "/Flags " + std::to_string(sinais);
    d += "/FontBBox[" + std::to_string(m.xMinimo) + " " + std::to_string(m.yMinimo) + " " +
         std::to_string(m.xMaximo) + " " + std::to_string(m.yMaximo) + "]";
    d += "/ItalicAngle " + std::to_string(m.inclinacao);
    d += "/Ascent " + std::to_string(m.ascendente);
    d += "/Descent " + std::to_string(-m.descendente);
    d += "/CapHeight " + std::to_string(m.maiuscula);
    d += "/StemV " + std::to_string(m.haste);
    return d + "/FontFile2 " + Referencia(arquivo) + ">>";
}

}  // namespace

FonteDoArquivo& FontesPDF::Obter(std::string_view nome, bool negrito, bool italico) {
    std::string chave(nome);
    chave += negrito ? 'B' : 'b';
    chave += italico ? 'I' : 'i';
    auto*& fonte = porNome_[chave];
    if (fonte == nullptr) {
        fonte = &Acrescentar(Fonte(nome, negrito, italico));
        porFace_.try_emplace(&fonte->fonte.FaceUsada(), fonte);
    }
    return *fonte;
}

FonteDoArquivo& FontesPDF::Obter(const std::shared_ptr<const Face>& face) {
    auto*& fonte = porFace_[face.get()];
    if (fonte == nullptr) {
        fonte = &Acrescentar(Fonte(face));
    }
    return *fonte;
}

FonteDoArquivo& FontesPDF::Acrescentar(Fonte fonte) {
    auto nova = std::make_unique<FonteDoArquivo>(std::move(fonte));
    nova->numero = static_cast<int>(fontes_.size());
    nova->objetoCodigos = escritor_.Reservar();
    nova->objetoGlifos = escritor_.Reservar();
    return *fontes_.emplace_back(std::move(nova));
}

std::string FontesPDF::Embutir() {
    std::string recursos;
    for (const auto& f : fontes_) {
        EmbutirFace(*f, recursos);
    }
    return recursos;
}

void FontesPDF::EmbutirFace(const FonteDoArquivo& f, std::string& recursos) {
    if (f.codigos.none() && f.glifos.empty()) {
        return;
    }
    const std::string nome = NomeDoSubconjunto(f);
    const std::string bytes = Subconjunto(f);
    const int arquivo = escritor_.Reservar();
    const int descritor = escritor_.Reservar();
    escritor_.Fluxo(arquivo, "/Length1 " + std::to_string(bytes.size()), bytes);
    escritor_.Objeto(descritor, Descritor(f.fonte, nome, arquivo));
    if (f.codigos.any()) {
        recursos += "/F" + std::to_string(f.numero) + " " + Referencia(f.objetoCodigos);
        EmbutirCodigos(f, nome, descritor);
    }
    if (!f.glifos.empty()) {
        recursos += "/G" + std::to_string(f.numero) + " " + Referencia(f.objetoGlifos);
        EmbutirGlifos(f, nome, descritor);
    }
}

void FontesPDF::EmbutirCodigos(const FonteDoArquivo& f, const std::string& nome, int descritor) {
    std::vector<CodigoUnicode> pares;
    std::string larguras;
    for (unsigned codigo = 0; codigo < f.codigos.size(); ++codigo) {
        if (f.codigos.test(codigo)) {
            const auto byte = static_cast<std::uint8_t>(codigo);
            // Widths are given without gaps from the first code to the last.
            for (auto n = pares.empty() ? codigo : pares.back().codigo + 1; n < codigo; ++n) {
                larguras += "0 ";
            }
            pares.push_back({codigo, UnicodeDeWinAnsi(byte)});
            larguras += std::to_string(f.fonte.FaceUsada().Avanco(byte)) + " ";
        }
    }
    const int mapa = escritor_.Reservar();
    escritor_.Fluxo(mapa, "", MapaUnicode(pares, 2));
    escritor_.Objeto(f.objetoCodigos, "<</Type/Font/Subtype/TrueType/BaseFont/" + nome +
                                          "/Encoding/WinAnsiEncoding/FirstChar " +
                                          std::to_string(pares.front().codigo) + "/LastChar " +
                                          std::to_string(pares.back().codigo) + "/Widths[" +
                                          larguras + "]/FontDescriptor " + Referencia(descritor) +
                                          "/ToUnicode " + Referencia(mapa) + ">>");
}

void FontesPDF::EmbutirGlifos(const FonteDoArquivo& f, const std::string& nome, int descritor) {
    std::vector<CodigoUnicode> pares;
    std::string larguras;
    for (const auto& [glifo, unicode] : f.glifos) {
        larguras += std::to_string(glifo) + "[" +
                    std::to_string(f.fonte.FaceUsada().AvancoGlifo(glifo)) + "]";
        if (unicode != 0) {
            pares.push_back({glifo, unicode});
        }
    }
    const int mapa = escritor_.Reservar();
    const int descendente = escritor_.Reservar();
    escritor_.Fluxo(mapa, "", MapaUnicode(pares, 4));
    escritor_.Objeto(descendente,
                     "<</Type/Font/Subtype/CIDFontType2/BaseFont/" + nome +
                         "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>"
                         "/CIDToGIDMap/Identity/DW 0/W[" +
                         larguras + "]/FontDescriptor " + Referencia(descritor) + ">>");
    escritor_.Objeto(f.objetoGlifos, "<</Type/Font/Subtype/Type0/BaseFont/" + nome +
                                         "/Encoding/Identity-H/DescendantFonts[" +
                                         Referencia(descendente) + "]/ToUnicode " +
                                         Referencia(mapa) + ">>");
}

}  // namespace tarvo::pdf
