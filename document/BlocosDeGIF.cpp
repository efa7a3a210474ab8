// SPDX-License-Identifier: MIT
#include "document/BlocosDeGIF.h"

#include <cstddef>

namespace tarvo {

namespace {

// Walks through the blocks of a file.
class BlocosDeGIF {
  public:
    explicit BlocosDeGIF(std::span<const unsigned char> bytes) : resto_(bytes) {}

    bool Inteiros() {
        constexpr std::size_t Cabecalho = 13;
        constexpr std::size_t Descritor = 9;
        const auto tela = Tomar(Cabecalho);
        const bool assinado = tela.size() == Cabecalho && tela[0] == 'G' && tela[1] == 'I' &&
                              tela[2] == 'F' && tela[6] + tela[7] > 0 && tela[8] + tela[9] > 0;
        const bool geral = assinado && TomarPaleta(tela[10]);
        bool figura = false;
        while (assinado && !resto_.empty()) {
            const unsigned char tipo = Tomar(1)[0];
            if (tipo == FimDoArquivo) {
                return figura;
            }
            if (tipo == InicioDeFigura) {
                const auto descritor = Tomar(Descritor);
                figura = !descritor.empty() && (TomarPaleta(descritor.back()) || geral);
            }
            // The label of an extension, the width of a picture's codes.
            if (Tomar(1).empty() || (!figura && tipo != InicioDeExtensao) || !PularSubblocos()) {
                return false;
            }
        }
        return false;
    }

  private:
    static constexpr unsigned char InicioDeExtensao = 0x21;
    static constexpr unsigned char InicioDeFigura = 0x2C;
    static constexpr unsigned char FimDoArquivo = 0x3B;

    // The next bytes; none, and nothing left, where there are not so many.
    std::span<const unsigned char> Tomar(std::size_t quantos) {
        const auto tomados = resto_.first(quantos <= resto_.size() ? quantos : 0);
        resto_ = resto_.subspan(tomados.empty() ? resto_.size() : quantos);
        return tomados;
    }
    // Whether there is one, of the size that the last bits tell.
    bool TomarPaleta(unsigned char sinais) {
        return (sinais & 0x80U) != 0 && !Tomar(std::size_t{6} << (sinais & 7U)).empty();
    }
    bool PularSubblocos() {
        for (;;) {
            const auto tamanho = Tomar(1);
            if (tamanho.empty() || tamanho[0] == 0) {
                return !tamanho.empty();
            }
            Tomar(tamanho[0]);
        }
    }

    std::span<const unsigned char> resto_;
};

}  // namespace

bool EhGIFInteiro(std::span<const unsigned char> bytes) {
    return BlocosDeGIF(bytes).Inteiros();
}

}  // namespace tarvo
