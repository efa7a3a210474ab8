// SPDX-License-Identifier: MIT
#include "document/Imagens.h"

#include "embutido/imgBrasaoVDColorido.h"
#include "embutido/imgBrasaoVDColoridoDesenho.h"
#include "embutido/imgBrasaoVDMonocromatico.h"
#include "embutido/imgBrasaoVDMonocromaticoDesenho.h"
#include "embutido/imgIconeG.h"
#include "embutido/imgIconeR.h"
#include "embutido/imgPortariaKEX_27_95.h"
#include "embutido/imgPortariaKEX_27_95Desenho.h"
#include "embutido/imgTesoura.h"
#include "embutido/imgTesouraDesenho.h"

namespace tarvo {

namespace {

// Both headers state the size in bytes 6 to 9: the GIF's screen as two 16-bit numbers (low byte
// first), the icon's first entry as two bytes.
constexpr Imagem Ler(std::string_view nome, std::string_view descricao,
                     std::span<const unsigned char> bytes,
                     std::span<const unsigned char> desenho = {}) {
    if (bytes[0] == 'G')
        return {nome,
                descricao,
                FormatoImagem::GIF,
                bytes[6] + 256 * bytes[7],
                bytes[8] + 256 * bytes[9],
                bytes,
                desenho};
    return {nome, descricao, FormatoImagem::Icone, bytes[6], bytes[7], bytes, desenho};
}

}  // namespace

// Constants of the program image, so that no static constructor can meet them empty.
namespace frmFiguras {
constinit const Imagem imgBrasaoVDColorido =
    Ler("imgBrasaoVDColorido", "Brasão do Estado de Valdora", embutido::imgBrasaoVDColorido,
        embutido::imgBrasaoVDColoridoDesenho);
constinit const Imagem imgIconeR = Ler("imgIconeR", "Ícone dos relatórios", embutido::imgIconeR);
constinit const Imagem imgIconeG =
    Ler("imgIconeG", "Ícone da guia de pagamento", embutido::imgIconeG);
constinit const Imagem imgTesoura =
    Ler("imgTesoura", "Tesoura: linha de corte", embutido::imgTesoura, embutido::imgTesouraDesenho);
constinit const Imagem imgPortariaKEX_27_95 =
    Ler("imgPortariaKEX_27_95", "Portaria KEX 27/95", embutido::imgPortariaKEX_27_95,
        embutido::imgPortariaKEX_27_95Desenho);
constinit const Imagem imgBrasaoVDMonocromatico =
    Ler("imgBrasaoVDMonocromatico", "Brasão do Estado de Valdora",
        embutido::imgBrasaoVDMonocromatico, embutido::imgBrasaoVDMonocromaticoDesenho);
}  // namespace frmFiguras

}  // namespace tarvo
