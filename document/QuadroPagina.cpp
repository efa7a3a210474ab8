// SPDX-License-Identifier: MIT
#include "document/QuadroPagina.h"

#include <string>

#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "document/Imagens.h"

namespace tarvo {

namespace {

using namespace Alinhamento;

constexpr EstiloTexto Rotulo(double tamanho, bool negrito = true, std::int32_t cor = Cor::Preto) {
    return {.recuoTopo = 0.05,
            .recuoBase = 0.05,
            .vertical = Topo,
            .tamanho = tamanho,
            .negrito = negrito,
            .cor = cor};
}

constexpr EstiloTexto RotuloPequeno = Rotulo(6);
constexpr EstiloTexto RotuloDeTotal = Rotulo(9, true, Cor::Teal);

constexpr EstiloTexto ValorMultilinha(double tamanho) {
    return {
        .recuoX = 0.2, .recuoTopo = 0.3, .vertical = Topo, .tamanho = tamanho, .multilinha = true};
}

constexpr EstiloTexto ValorDeTotal(bool negrito) {
    return {.recuoX = 0.2,
            .recuoTopo = 0.05,
            .recuoBase = 0.05,
            .horizontal = Direita,
            .tamanho = 9,
            .negrito = negrito};
}

constexpr EstiloTexto Etiqueta{.recuoX = 0, .vertical = Topo};
constexpr EstiloTexto MarcaConsistencia{.recuoX = 0, .horizontal = Direita, .vertical = Topo};
constexpr EstiloTexto Governo{
    .recuoX = 0, .horizontal = Centro, .tamanho = 14, .negrito = true, .cor = Cor::Vermelho};
constexpr EstiloTexto TituloIdentificacao{.tamanho = 12, .negrito = true, .cor = Cor::Teal};

std::string Referencia(Recordset& identificacao, std::string_view regime) {
    const auto mesAno = [&](const char* campo) {
        return FormatarMesAno(DataCampo(identificacao.Fields(campo)));
    };
    if (regime == "02") {
        return mesAno("Ref2").substr(0, 2) + " a " + mesAno("Ref1");
    }
    return RegimeTributario(regime).empty() ? "" : mesAno("Ref1");
}

}  // namespace

const EstiloCampo Campo{RotuloPequeno, {.recuoX = 0.2, .vertical = Base}};
const EstiloCampo CampoPequeno{
    RotuloPequeno,
    {.recuoX = 0.2, .recuoTopo = 0.05, .recuoBase = 0.05, .vertical = Base, .tamanho = 6}};
const EstiloCampo CampoMultilinha{RotuloPequeno, ValorMultilinha(8)};
const EstiloCampo CampoMultilinhaPequeno{RotuloPequeno, ValorMultilinha(6)};
const EstiloCampo CampoValor{Rotulo(6, false),
                             {.recuoX = 0.2, .horizontal = Direita, .vertical = Base}};
const EstiloCampo CampoTotal{RotuloDeTotal, ValorDeTotal(false)};
const EstiloCampo CampoTotalNegrito{RotuloDeTotal, ValorDeTotal(true)};
const EstiloTexto TituloQuadro{
    .horizontal = Centro, .tamanho = 14, .negrito = true, .cor = Cor::Teal, .multilinha = true};
const EstiloTexto CelulaTitulo{.recuoTopo = 0.05,
                               .recuoBase = 0.05,
                               .horizontal = Centro,
                               .vertical = Topo,
                               .tamanho = 6,
                               .negrito = true,
                               .multilinha = true};
const EstiloTexto CelulaValor{.horizontal = Direita, .tamanho = 6};
const EstiloTexto CelulaDireitaRecuada{.recuoX = 0.2, .horizontal = Direita};
const EstiloTexto CelulaRotulo{.recuoX = 0.2, .fonte = "Courier New", .negrito = true};
const EstiloTexto CelulaTextoFixo{.recuoX = 0.2, .fonte = "Courier New"};

std::string_view TipoDaDRQ(std::int32_t tipo) {
    return tipo == 1 ? "Normal" : tipo == 2 ? "Substitutiva" : tipo == 3 ? "Coligida" : "";
}

std::string_view RegimeTributario(std::string_view codigo) {
    return codigo == "01"   ? "RPA"
           : codigo == "02" ? "RES"
           : codigo == "03" ? "Dispensado"
           : codigo == "04" ? "Simples-ST"
                            : "";
}

void DesenharMoldura(DocumentoRelatorio& doc, double x, double y, double largura, double altura) {
    doc.DesenharRetanguloArredondado(x, y, largura, altura, false, 0.1, Cor::Preto, Cor::Branco, 1);
}

void EscreverEmCaixa(DocumentoRelatorio& doc, const EstiloTexto& e, double x, double y,
                     double largura, double altura, std::string_view texto) {
    const auto escrever = e.multilinha ? &DocumentoRelatorio::EscreverTextoMultilinha
                                       : &DocumentoRelatorio::EscreverTexto;
    (doc.*escrever)(x + e.recuoX, y + e.recuoTopo, largura - 2 * e.recuoX,
                    altura - (e.recuoTopo + e.recuoBase), texto, e.horizontal, e.vertical, e.fonte,
                    e.tamanho, e.negrito, false, false, e.cor);
}

void Celula(DocumentoRelatorio& doc, const EstiloTexto& estilo, double x, double y, double largura,
            double altura, std::string_view texto) {
    DesenharMoldura(doc, x, y, largura, altura);
    EscreverEmCaixa(doc, estilo, x, y, largura, altura, texto);
}

void Celula(DocumentoRelatorio& doc, Elemento elemento, const EstiloTexto& estilo, double x,
            double y, double largura, double altura, std::string_view texto) {
    const Trecho trecho(doc, elemento);
    Celula(doc, estilo, x, y, largura, altura, texto);
}

void CelulaRotulada(DocumentoRelatorio& doc, const EstiloCampo& estilo, double x, double y,
                    double largura, double altura, std::string_view rotulo, std::string_view valor,
                    Elemento elemento) {
    const Trecho caixa(doc, elemento);
    DesenharMoldura(doc, x, y, largura, altura);
    {
        const Trecho trecho(doc, {.tipo = TipoElemento::Rotulo});
        EscreverEmCaixa(doc, estilo.rotulo, x, y, largura, altura, rotulo);
    }
    const Trecho trecho(doc, {.tipo = TipoElemento::ValorDeCampo, .natureza = elemento.natureza});
    EscreverEmCaixa(doc, estilo.valor, x, y, largura, altura, valor);
}

void Barra(DocumentoRelatorio& doc, double x, double y, double largura) {
    doc.DesenharRetangulo(x, y, largura, 0.1, true, Cor::Teal, Cor::Teal, 1);
}

void ImprimirTopo(DocumentoRelatorio& doc, const EstiloCabecalho& estilo, double x, double y,
                  Recordset* identificacao) {
    const double W = estilo.largura;
    const bool paisagem = W > LarguraRetrato;
    const double xGoverno = x + (paisagem ? 6.0 : 2.0);
    const double larguraGoverno = paisagem ? 13.7 : 13.0;

    {
        const Trecho decoracao(doc, Estrutura::Decoracao);
        EscreverEmCaixa(doc, Etiqueta, 0, 0, W, 0.3, "DRQ");
    }
    if (identificacao != nullptr) {
        const std::string marca = BooleanoCampo(identificacao->Fields("Consistente"))
                                      ? TextoCampo(identificacao->Fields("Autenticação"))
                                      : "DRQ Não Consistida";
        EscreverEmCaixa(doc, MarcaConsistencia, 0, 0, W, 0.3, marca);
    }
    Barra(doc, x, y + 0.5, W);
    doc.DesenharFigura(x + 0.1, y + 0.65, 1.74, 1.89, frmFiguras::imgBrasaoVDColorido, false);
    EscreverEmCaixa(doc, Governo, xGoverno, y + 0.85, larguraGoverno, 0.7,
                    "Governo do Estado de Valdora");
    EscreverEmCaixa(doc, Governo, xGoverno, y + 1.65, larguraGoverno, 0.7, "Secretaria da Fazenda");
    Barra(doc, x, y + 2.6, W);

    EstiloTexto titulo = TituloQuadro;
    titulo.tamanho = estilo.tamanhoTitulo;
    Celula(doc, {.tipo = TipoElemento::Titulo}, titulo, x, y + estilo.yTitulo, W,
           estilo.alturaTitulo, estilo.titulo);
}

void ImprimirIdentificacao(DocumentoRelatorio& doc, const EstiloCabecalho& estilo, double x,
                           double y, Recordset& identificacao) {
    const double W = estilo.largura;
    const double T = y + estilo.yIdentificacao;
    const std::string regime = TextoCampo(identificacao.Fields("RegTrib"));
    if (doc.Registrado().paginas.size() == 1) {
        doc.DefinirIdentificacao(
            {.contribuinte = TextoCampo(identificacao.Fields("RazãoSocial")),
             .IE = TextoCampo(identificacao.Fields("tblContribuinte.IE")),
             .declaracao = std::to_string(LongCampo(identificacao.Fields("NroDRQ"))),
             .referencia = Referencia(identificacao, regime)});
    }

    Celula(doc, {.tipo = TipoElemento::Secao}, TituloIdentificacao, x, T, W, 0.6, "Contribuinte");
    CelulaRotulada(doc, Campo, x, T + 0.6, W, 0.6, "Razão Social",
                   TextoCampo(identificacao.Fields("RazãoSocial")));
    int coluna = 0;
    const auto pequeno = [&](std::string_view rotulo, std::string_view valor,
                             Natureza natureza = Natureza::Texto) {
        CelulaRotulada(doc, CampoPequeno, x + coluna * W / 5, T + 1.2, W / 5, 0.6, rotulo, valor,
                       {.tipo = TipoElemento::Campo, .natureza = natureza});
        ++coluna;
    };
    pequeno("Inscrição Estadual", TextoCampo(identificacao.Fields("tblContribuinte.IE")),
            Natureza::Codigo);
    pequeno("CNPJ", TextoCampo(identificacao.Fields("CNPJ")), Natureza::Codigo);
    pequeno("Tipo da DRQ", TipoDaDRQ(LongCampo(identificacao.Fields("Tipo"))));
    pequeno("Regime Tributário", RegimeTributario(regime));
    pequeno("Referência", Referencia(identificacao, regime));
    if (estilo.barraFinal) {
        Barra(doc, x, T + 2.0, W);
    }
}

void ImprimirCabecalho(DocumentoRelatorio& doc, const EstiloCabecalho& estilo, double x, double y,
                       Recordset& identificacao) {
    ImprimirTopo(doc, estilo, x, y, &identificacao);
    ImprimirIdentificacao(doc, estilo, x, y, identificacao);
}

void ImprimirRodape(DocumentoRelatorio& doc, double x, double y, double largura) {
    const Trecho decoracao(doc, Estrutura::Decoracao);
    const double W = largura / 3;
    const auto celula = [&](int coluna, std::int32_t horizontal, std::string_view texto) {
        const EstiloTexto estilo{.recuoX = 0, .horizontal = horizontal, .tamanho = 6};
        EscreverEmCaixa(doc, estilo, x + coluna * W, y + 0.4, W, 0.3, texto);
    };
    Barra(doc, x, y + 0.2, largura);
    celula(0, Esquerda, "%%D");
    celula(1, Centro, "%%H");
    celula(2, Direita, "Página %%p de %%P");
}

}  // namespace tarvo
