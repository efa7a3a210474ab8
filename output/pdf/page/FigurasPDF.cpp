// SPDX-License-Identifier: MIT
#include "output/pdf/page/FigurasPDF.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

#include "output/pdf/file/Compressor.h"
#include "output/pdf/file/Sintaxe.h"
#include "output/pdf/page/LeitorGIF.h"

namespace tarvo::pdf {

namespace {

int BitsPorPonto(std::size_t cores) {
    return cores <= 2 ? 1 : cores <= 4 ? 2 : cores <= 16 ? 4 : 8;
}

// The indices packed, each row starting at a byte.
std::string Empacotar(const Raster& raster, int bits) {
    std::string saida;
    const auto largura = static_cast<std::size_t>(raster.largura);
    for (std::size_t linha = 0; linha < raster.pontos.size(); linha += largura) {
        unsigned byte = 0;
        int livres = 8;
        for (std::size_t x = 0; x < largura; ++x) {
            livres -= bits;
            byte |= static_cast<unsigned>(raster.pontos[linha + x])
                    << static_cast<unsigned>(livres);
            if (livres == 0 || x + 1 == largura) {
                saida.push_back(static_cast<char>(byte));
                byte = 0;
                livres = 8;
            }
        }
    }
    return saida;
}

// The colour space of the indices; a picture without colours prints on any printer's black.
std::string EspacoDeCor(const Raster& raster) {
    const bool cinza = std::ranges::all_of(
        raster.paleta, [](const auto& cor) { return cor[0] == cor[1] && cor[1] == cor[2]; });
    std::string espaco = cinza ? "[/Indexed/DeviceGray " : "[/Indexed/DeviceRGB ";
    espaco += std::to_string(raster.paleta.size() - 1) + "<";
    for (const auto& cor : raster.paleta) {
        for (std::size_t componente = 0; componente < (cinza ? 1U : 3U); ++componente) {
            AnexarHex(espaco, cor.at(componente), 2);
        }
    }
    return espaco + ">]";
}

// What a picture is in a file. The same for every file: kept for the process, as reports bear the
// same few pictures.
struct Figura {
    FormatoImagem formato = FormatoImagem::GIF;
    std::vector<unsigned char> bytes;
    std::vector<unsigned char> desenho;
    std::string dicionario;
    std::string dados;  // compressed
};

void PrepararDesenho(std::string_view desenho, Figura& figura) {
    const auto fim = std::min(desenho.find('\n'), desenho.size());
    figura.dicionario = "/Type/XObject/Subtype/Form";
    figura.dicionario += desenho.substr(0, fim);
    figura.dados = Compressor::DoFio().Comprimir(desenho.substr(fim));
}

void PrepararPontos(const Imagem& imagem, Figura& figura) {
    const Raster raster = LerGIF(imagem);
    const int bits = BitsPorPonto(raster.paleta.size());
    std::string d = "/Type/XObject/Subtype/Image/Width ";
    d += std::to_string(raster.largura) + "/Height " + std::to_string(raster.altura);
    d += "/BitsPerComponent " + std::to_string(bits) + "/ColorSpace" + EspacoDeCor(raster);
    if (raster.transparente.has_value()) {
        const std::string indice = std::to_string(*raster.transparente);
        d += "/Mask[" + indice + " " + indice + "]";
    }
    figura.dicionario = std::move(d);
    figura.dados = Compressor::DoFio().Comprimir(Empacotar(raster, bits));
}

std::shared_ptr<const Figura> Preparar(const Imagem& imagem) {
    auto figura = std::make_shared<Figura>();
    figura->formato = imagem.formato;
    figura->bytes.assign(imagem.bytes.begin(), imagem.bytes.end());
    figura->desenho.assign(imagem.desenho.begin(), imagem.desenho.end());
    if (imagem.desenho.empty()) {
        PrepararPontos(imagem, *figura);
    } else {
        PrepararDesenho(std::string(figura->desenho.begin(), figura->desenho.end()), *figura);
    }
    return figura;
}

std::shared_ptr<const Figura> Pronta(const Imagem& imagem) {
    constexpr std::size_t Lembradas = 16;
    static std::mutex mutex;
    static std::vector<std::shared_ptr<const Figura>> prontas;
    const std::lock_guard trava(mutex);
    const auto achada = std::ranges::find_if(prontas, [&](const auto& figura) {
        return figura->formato == imagem.formato &&
               std::ranges::equal(figura->bytes, imagem.bytes) &&
               std::ranges::equal(figura->desenho, imagem.desenho);
    });
    if (achada != prontas.end()) {
        return *achada;
    }
    auto figura = Preparar(imagem);
    if (prontas.size() < Lembradas) {
        prontas.push_back(figura);
    }
    return figura;
}

}  // namespace

const std::string& FigurasPDF::Obter(const Imagem& imagem) {
    auto& nome = nomes_[imagem.bytes.data()];
    if (nome.empty()) {
        const auto figura = Pronta(imagem);
        const int objeto = escritor_.Reservar();
        escritor_.FluxoComprimido(objeto, figura->dicionario, figura->dados);
        nome = "I" + std::to_string(nomes_.size() - 1);
        recursos_ += "/" + nome + " " + Referencia(objeto);
    }
    return nome;
}

}  // namespace tarvo::pdf
