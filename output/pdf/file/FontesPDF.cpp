// SPDX-License-Identifier: MIT
#include "output/pdf/file/FontesPDF.h"

#include <optional>

#include "output/pdf/file/Sintaxe.h"

namespace tarvo::pdf {

namespace {

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
    if (f.uso.Vazio()) {
        return;
    }
    const std::string nome = NomeDoSubconjunto(f);
    const auto reduzida = Reduzir(f.fonte.FacePropria(), f.uso);
    const int arquivo = escritor_.Reservar();
    const int descritor = escritor_.Reservar();
    escritor_.FluxoComprimido(arquivo, "/Length1 " + std::to_string(reduzida->tamanho),
                              reduzida->programa);
    escritor_.Objeto(descritor, Descritor(f.fonte, nome, arquivo));
    if (f.uso.codigos.any()) {
        recursos += "/F" + std::to_string(f.numero) + " " + Referencia(f.objetoCodigos);
        EmbutirCodigos(f, *reduzida, nome, descritor);
    }
    if (!f.uso.glifos.empty()) {
        recursos += "/G" + std::to_string(f.numero) + " " + Referencia(f.objetoGlifos);
        EmbutirGlifos(f, *reduzida, nome, descritor);
    }
}

void FontesPDF::EmbutirCodigos(const FonteDoArquivo& f, const FonteReduzida& reduzida,
                               const std::string& nome, int descritor) {
    std::optional<unsigned> primeiro;
    unsigned ultimo = 0;
    std::string larguras;
    for (unsigned codigo = 0; codigo < f.uso.codigos.size(); ++codigo) {
        if (f.uso.codigos.test(codigo)) {
            // Widths are given without gaps from the first code to the last.
            for (auto n = primeiro ? ultimo + 1 : codigo; n < codigo; ++n) {
                larguras += "0 ";
            }
            primeiro = primeiro.value_or(codigo);
            ultimo = codigo;
            larguras +=
                std::to_string(f.fonte.FaceUsada().Avanco(static_cast<std::uint8_t>(codigo))) + " ";
        }
    }
    const int mapa = escritor_.Reservar();
    escritor_.FluxoComprimido(mapa, "", reduzida.mapaCodigos);
    escritor_.Objeto(f.objetoCodigos, "<</Type/Font/Subtype/TrueType/BaseFont/" + nome +
                                          "/Encoding/WinAnsiEncoding/FirstChar " +
                                          std::to_string(primeiro.value_or(0)) + "/LastChar " +
                                          std::to_string(ultimo) + "/Widths[" + larguras +
                                          "]/FontDescriptor " + Referencia(descritor) +
                                          "/ToUnicode " + Referencia(mapa) + ">>");
}

void FontesPDF::EmbutirGlifos(const FonteDoArquivo& f, const FonteReduzida& reduzida,
                              const std::string& nome, int descritor) {
    std::string larguras;
    for (const auto& [glifo, unicode] : f.uso.glifos) {
        larguras += std::to_string(glifo) + "[" +
                    std::to_string(f.fonte.FaceUsada().AvancoGlifo(glifo)) + "]";
    }
    const int mapa = escritor_.Reservar();
    const int numeros = escritor_.Reservar();
    const int descendente = escritor_.Reservar();
    escritor_.FluxoComprimido(mapa, "", reduzida.mapaGlifos);
    escritor_.FluxoComprimido(numeros, "", reduzida.glifos);
    escritor_.Objeto(descendente,
                     "<</Type/Font/Subtype/CIDFontType2/BaseFont/" + nome +
                         "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>"
                         "/CIDToGIDMap " +
                         Referencia(numeros) + "/DW 0/W[" + larguras + "]/FontDescriptor " +
                         Referencia(descritor) + ">>");
    escritor_.Objeto(f.objetoGlifos, "<</Type/Font/Subtype/Type0/BaseFont/" + nome +
                                         "/Encoding/Identity-H/DescendantFonts[" +
                                         Referencia(descendente) + "]/ToUnicode " +
                                         Referencia(mapa) + ">>");
}

}  // namespace tarvo::pdf
