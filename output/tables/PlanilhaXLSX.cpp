// SPDX-License-Identifier: MIT
#include "output/tables/PlanilhaXLSX.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <ostream>
#include <string_view>
#include <vector>

#include "data/CodigosDeErros.h"
#include "data/Textos.h"
#include "output/tables/MedidasDaFolha.h"
#include "output/tables/NomesDeFolhas.h"
#include "output/tables/PastaDeTrabalho.h"

namespace tarvo {

namespace {

using Celula = TabelaDoDocumento::Celula;
using Linha = TabelaDoDocumento::Linha;

constexpr lxw_row_t MaisLinhas = 1'048'576;
// In bytes, which are never fewer than the two-byte units that spreadsheets count.
constexpr std::size_t MaiorTexto = 32'767;

bool EmNegrito(const Linha& linha) {
    return linha.funcao != FuncaoDaLinha::Dados;
}

// The sheets of one table.
class Folhas {
  public:
    Folhas(PastaDeTrabalho& pasta, NomesDeFolhas& nomes, std::string_view nome,
           const TabelaDoDocumento& tabela)
        : pasta_(pasta), nomes_(nomes), nome_(nome), tabela_(tabela), medidas_(tabela) {}

    void Escrever() {
        Abrir();
        for (const auto& linha : tabela_.linhas) {
            EscreverLinha(linha);
        }
    }

  private:
    void Abrir() {
        folha_ = &pasta_.NovaFolha(nomes_.Novo(nome_));
        linha_ = 0;
        for (std::size_t i = 0; i < tabela_.titulos.size(); ++i) {
            const auto coluna = static_cast<lxw_col_t>(i);
            ConferirPlanilha(
                worksheet_set_column(folha_, coluna, coluna, medidas_.Largura(i), nullptr));
        }
        if (tabela_.TemTitulos()) {
            for (std::size_t i = 0; i < tabela_.titulos.size(); ++i) {
                EscreverTexto(i, tabela_.titulos[i], EstiloDeCelula::TextoQuebrado, true);
            }
            DefinirAltura(medidas_.AlturaDosTitulos(tabela_));
            worksheet_freeze_panes(folha_, 1, 0);
            ++linha_;
        }
    }

    void EscreverLinha(const Linha& linha) {
        std::vector<std::string_view> restos;
        for (const auto& celula : linha.celulas) {
            restos.emplace_back(celula.texto);
        }
        bool primeira = true;
        do {
            if (linha_ == MaisLinhas) {
                Abrir();
            }
            for (std::size_t i = 0; i < restos.size(); ++i) {
                if (primeira && EscreverNumero(i, linha.celulas[i], EmNegrito(linha))) {
                    restos[i] = {};
                }
                const auto pedaco = InicioInteiro(restos[i], MaiorTexto);
                restos[i].remove_prefix(pedaco.size());
                EscreverTexto(i, pedaco, EstiloDoTexto(linha, i), EmNegrito(linha));
            }
            DefinirAltura(medidas_.Altura(linha));
            primeira = false;
            ++linha_;
        } while (!std::ranges::all_of(restos, [](auto resto) { return resto.empty(); }));
    }

    EstiloDeCelula EstiloDoTexto(const Linha& linha, std::size_t coluna) const {
        return linha.celulas[coluna].natureza == Natureza::Quantia ? EstiloDeCelula::Quantia
               : medidas_.Quebra(linha, coluna)                    ? EstiloDeCelula::TextoQuebrado
                                                                   : EstiloDeCelula::Texto;
    }

    void DefinirAltura(double pontos) {
        if (pontos > 0) {
            ConferirPlanilha(worksheet_set_row(folha_, linha_, pontos, nullptr));
        }
    }

    // False for what is no number and no date.
    bool EscreverNumero(std::size_t coluna, const Celula& celula, bool negrito) {
        const auto numero = celula.Numero();
        if (numero) {
            const bool quantia = celula.natureza == Natureza::Quantia;
            auto* const formato =
                pasta_.Formato(quantia ? EstiloDeCelula::Quantia : EstiloDeCelula::Dia, negrito);
            ConferirPlanilha(worksheet_write_number(folha_, linha_, static_cast<lxw_col_t>(coluna),
                                                    *numero, formato));
        }
        return numero.has_value();
    }

    void EscreverTexto(std::size_t coluna, std::string_view texto, EstiloDeCelula estilo,
                       bool negrito) {
        if (!texto.empty()) {
            ConferirPlanilha(worksheet_write_string(folha_, linha_, static_cast<lxw_col_t>(coluna),
                                                    std::string(texto).c_str(),
                                                    pasta_.Formato(estilo, negrito)));
        }
    }

    PastaDeTrabalho& pasta_;
    NomesDeFolhas& nomes_;
    std::string_view nome_;
    const TabelaDoDocumento& tabela_;
    MedidasDaFolha medidas_;
    lxw_worksheet* folha_ = nullptr;
    lxw_row_t linha_ = 0;
};

}  // namespace

void EscreverXLSX(std::span<const SecaoDaPlanilha> secoes, std::ostream& saida) {
    PastaDeTrabalho pasta;
    NomesDeFolhas nomes;
    bool alguma = false;
    for (const auto& secao : secoes) {
        for (const auto& tabela : secao.tabelas) {
            Folhas(pasta, nomes, secao.nome.empty() ? tabela.nome : secao.nome, tabela).Escrever();
            alguma = true;
        }
    }
    if (!alguma) {
        pasta.NovaFolha(nomes.Novo(""));
    }
    saida << pasta.Fechar();
    if (!saida.flush()) {
        throw Erro(NumeroErro::ErroDispositivo, "A gravação da planilha falhou.");
    }
}

}  // namespace tarvo
