// SPDX-License-Identifier: MIT
#include "bench/PaginasDeExemplo.h"

#include <cstdint>
#include <iterator>

#include "data/Formatos.h"
#include "document/QuadroPagina.h"

namespace tarvo::bench {

namespace {

constexpr double W = LarguraRetrato;
constexpr double AlturaLinha = 0.6;
constexpr int LinhasPorPagina = 31;

constexpr EstiloTexto Centralizada{.recuoX = 0, .horizontal = Alinhamento::Centro, .negrito = true};
constexpr EstiloTexto TextoFixo{.recuoX = 0.2, .fonte = "Courier New"};
constexpr EstiloTexto Direita{.recuoX = 0.2, .horizontal = Alinhamento::Direita};
constexpr EstiloTexto Contribuinte{.tamanho = 12, .negrito = true, .cor = Cor::Teal};

constexpr const char* Rotulos[] = {"Por saídas com débito do imposto",
                                   "Outros débitos",
                                   "Estorno de créditos",
                                   "            002.18",
                                   "Por entradas com crédito do imposto",
                                   "            007.29",
                                   "Outros créditos",
                                   "Saldo credor do período anterior",
                                   "            007.40",
                                   "Imposto a recolher (063-064)",
                                   "Saldo credor a transportar (062-055)"};

// The same numbers on every machine and in every run.
class Sorteio {
  public:
    std::uint32_t Proximo() {
        estado_ = estado_ * 6364136223846793005U + 1442695040888963407U;
        return static_cast<std::uint32_t>(estado_ >> 33U);
    }
    std::string Valor() {
        const std::int64_t centavos = Proximo() >> (Proximo() % 20);
        return FormatarValor(Moeda::DeDecimosMilesimos(centavos * 100));
    }

  private:
    std::uint64_t estado_ = 1;
};

std::string Codigo(std::uint32_t numero) {
    return std::to_string(1000 + numero).substr(1);
}

void Identificacao(DocumentoRelatorio& doc) {
    constexpr double T = 3.6;
    Celula(doc, {.tipo = TipoElemento::Secao}, Contribuinte, 0, T, W, AlturaLinha, "Contribuinte");
    CelulaRotulada(doc, Campo, 0, T + 0.6, W, AlturaLinha, "Razão Social",
                   "Indústria de Laticínios São João do Açu Ltda.");
    constexpr const char* Campos[][2] = {{"Inscrição Estadual", "110042490114"},
                                         {"CNPJ", "12.345.678/0001-90"},
                                         {"Tipo da DRQ", "Substitutiva"},
                                         {"Regime Tributário", "RPA"},
                                         {"Referência", "07/2003"}};
    double x = 0;
    for (const auto& [rotulo, valor] : Campos) {
        CelulaRotulada(doc, CampoPequeno, x, T + 1.2, W / 5, AlturaLinha, rotulo, valor);
        x += W / 5;
    }
    Barra(doc, 0, T + 2.0, W);
}

}  // namespace

PaginasDeExemplo::PaginasDeExemplo(std::size_t paginas) : paginas_(paginas) {
    Sorteio sorteio;
    for (std::size_t i = 0; i < paginas * LinhasPorPagina; ++i) {
        const std::uint32_t item = sorteio.Proximo();
        linhas_.push_back({.campo = Codigo(item % 20),
                           .rotulo = Rotulos[item % std::size(Rotulos)],
                           .subitem = sorteio.Valor(),
                           .total = Codigo(51 + item % 17),
                           .valor = sorteio.Valor()});
    }
}

void PaginasDeExemplo::RegistrarLinha(DocumentoRelatorio& doc, double y, const Linha& linha) {
    const auto celula = [&](Elemento elemento, const EstiloTexto& estilo, double x, double largura,
                            std::string_view texto) {
        Celula(doc, elemento, estilo, x, y, largura, AlturaLinha, texto);
    };
    const Trecho trecho(doc, LinhaDe(FuncaoDaLinha::Dados));
    celula(CelulaDe(Natureza::Codigo), Centralizada, 0, 0.9, linha.campo);
    {
        const Trecho caixa(doc, TituloDeLinha(Natureza::Texto, 2));
        celula({.tipo = TipoElemento::Rotulo}, TextoFixo, 0.9, 11.7, linha.rotulo);
        celula({.tipo = TipoElemento::ValorDeCampo, .natureza = Natureza::Quantia}, Direita, 0.9,
               11.7, linha.subitem);
    }
    celula(CelulaDe(Natureza::Codigo), Centralizada, 12.6, 1.1, linha.total);
    celula(CelulaDe(Natureza::Quantia), Direita, 13.7, 3.3, linha.valor);
}

void PaginasDeExemplo::Registrar(DocumentoRelatorio& doc) const {
    constexpr EstiloCabecalho Cabecalho{.titulo = "Apuração do ICMS - Operações Próprias"};
    constexpr EstiloTexto Marca{
        .recuoX = 0, .horizontal = Alinhamento::Direita, .vertical = Alinhamento::Topo};
    doc.Iniciar();
    doc.DefinirTitulo("Relatório de Apuração do ICMS sobre Operações Próprias");
    doc.DefinirMargens(2.0, 2.0, 2.0, 2.0);
    auto linha = linhas_.begin();
    auto tabela = Estrutura::Raiz;
    for (std::size_t pagina = 0; pagina < paginas_; ++pagina) {
        if (pagina > 0) {
            doc.NovaPagina();
        }
        {
            const Trecho cabecalho(doc, pagina > 0 ? Estrutura::Decoracao : Estrutura::Raiz);
            ImprimirTopo(doc, Cabecalho, 0, 0, nullptr);
            EscreverEmCaixa(doc, Marca, 0, 0, W, 0.3, "DRQ Não Consistida");
            Identificacao(doc);
        }
        if (pagina == 0) {
            tabela = Trecho(doc, {.tipo = TipoElemento::Tabela}).Indice();
        }
        const Trecho linhas(doc, tabela);
        for (int n = 0; n < LinhasPorPagina; ++n) {
            RegistrarLinha(doc, 5.9 + n * AlturaLinha, *linha++);
        }
        ImprimirRodape(doc, 0, YRodape);
    }
}

}  // namespace tarvo::bench
