// SPDX-License-Identifier: MIT
#include "document/DocumentoRelatorio.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "data/CodigosDeErros.h"
#include "document/BlocosDeGIF.h"
#include "document/Imagens.h"

namespace tarvo {

namespace {

[[noreturn]] void LancarChamadaInvalida(const std::string& motivo) {
    throw Erro(NumeroErro::ChamadaInvalida, "Chamada inválida: " + motivo + ".");
}

[[noreturn]] void LancarConfiguracao(NumeroErro numero, std::string_view texto) {
    throw Erro(numero, std::string(texto));
}

Caixa CaixaFinita(double x, double y, double largura, double altura) {
    // A sum of finite numbers of page size is finite; any infinity or NaN spoils it.
    if (!std::isfinite(x + y + largura + altura)) {
        LancarChamadaInvalida("coordenada que não é um número");
    }
    return {x, y, largura, altura};
}

std::int32_t Positiva(std::int32_t espessura) {
    if (espessura <= 0) {
        LancarChamadaInvalida("espessura que não é positiva");
    }
    return espessura;
}

bool SobraArea(const Conteudo& c, const Margens& m) {
    return m.esquerda + m.direita < c.LarguraPapel() && m.superior + m.inferior < c.AlturaPapel();
}

}  // namespace

DocumentoRelatorio::DocumentoRelatorio(const Ambiente& ambiente) : ambiente_(ambiente) {}

DocumentoRelatorio::~DocumentoRelatorio() = default;

void DocumentoRelatorio::Iniciar() {
    conteudo_ = Conteudo();
    aberto_ = Estrutura::Raiz;
}

void DocumentoRelatorio::DefinirTitulo(std::string_view titulo) {
    conteudo_.titulo = titulo;
}

void DocumentoRelatorio::DefinirTituloResumido(std::string_view titulo) {
    conteudo_.tituloResumido = titulo;
}

void DocumentoRelatorio::DefinirIcone(const Imagem& figura) {
    conteudo_.icone = &figura;
}

void DocumentoRelatorio::DefinirIdentificacao(const Identificacao& identificacao) {
    conteudo_.identificacao = identificacao;
}

void DocumentoRelatorio::DefinirOrientacao(std::int32_t orientacao) {
    RecusarSeDesenhado();
    if (orientacao != 0 && orientacao != 1) {
        LancarConfiguracao(NumeroErro::PadraoDePaginaInvalido,
                           CodigosDeErros::PadraoDePaginaInvalido);
    }
    const auto anterior = std::exchange(conteudo_.orientacao, orientacao);
    if (!SobraArea(conteudo_, conteudo_.margens)) {
        conteudo_.orientacao = anterior;
        LancarConfiguracao(NumeroErro::PaginaInsuficiente, CodigosDeErros::PaginaInsuficiente);
    }
}

void DocumentoRelatorio::DefinirMargens(double esquerda, double direita, double superior,
                                        double inferior) {
    RecusarSeDesenhado();
    const Margens margens{esquerda, direita, superior, inferior};
    const bool naoNegativas = esquerda >= 0 && direita >= 0 && superior >= 0 && inferior >= 0;
    if (!naoNegativas || !SobraArea(conteudo_, margens)) {
        LancarConfiguracao(NumeroErro::MargensInvalidas, CodigosDeErros::MargensInvalidas);
    }
    conteudo_.margens = margens;
}

void DocumentoRelatorio::NovaPagina() {
    if (ambiente_.andamento != nullptr &&
        !ambiente_.andamento->PaginaConcluida(conteudo_.paginas.size())) {
        LancarCancelado();
    }
    // Pages of a report are alike: the last one's size spares the new one its growing.
    auto& completa = conteudo_.paginas.back();
    completa.shrink_to_fit();
    const auto esperadas = completa.size();
    conteudo_.paginas.emplace_back().reserve(esperadas);
    auto& donos = conteudo_.estrutura.donos;
    donos.back().shrink_to_fit();
    donos.emplace_back().reserve(esperadas);
}

void DocumentoRelatorio::DesenharLinha(double x, double y, double largura, double altura,
                                       std::int32_t reservado1, std::int32_t reservado2,
                                       std::int32_t espessura, std::int16_t estilo) {
    if (estilo != 0 && estilo != 2) {
        LancarChamadaInvalida("estilo de linha desconhecido");
    }
    Acrescentar(Linha{CaixaFinita(x, y, largura, altura), reservado1, reservado2,
                      Positiva(espessura), estilo});
}

void DocumentoRelatorio::DesenharRetangulo(double x, double y, double largura, double altura,
                                           bool preenchido, std::int32_t corBorda,
                                           std::int32_t corPreenchimento, std::int32_t espessura) {
    Acrescentar(Retangulo{CaixaFinita(x, y, largura, altura), preenchido, corBorda,
                          corPreenchimento, Positiva(espessura)});
}

void DocumentoRelatorio::DesenharRetanguloArredondado(double x, double y, double largura,
                                                      double altura, bool preenchido, double raio,
                                                      std::int32_t corBorda,
                                                      std::int32_t corPreenchimento,
                                                      std::int32_t espessura) {
    if (!std::isfinite(raio) || raio < 0) {
        LancarChamadaInvalida("raio que não é um comprimento");
    }
    Acrescentar(RetanguloArredondado{CaixaFinita(x, y, largura, altura), preenchido, raio, corBorda,
                                     corPreenchimento, Positiva(espessura)});
}

void DocumentoRelatorio::EscreverTexto(double x, double y, double largura, double altura,
                                       std::string_view texto, std::int32_t alinhamentoHorizontal,
                                       std::int32_t alinhamentoVertical, std::string_view fonte,
                                       double tamanho, bool negrito, bool italico, bool sublinhado,
                                       std::int32_t cor) {
    AcrescentarTexto(CaixaFinita(x, y, largura, altura), texto, alinhamentoHorizontal,
                     alinhamentoVertical, fonte, tamanho, negrito, italico, sublinhado, cor, false);
}

void DocumentoRelatorio::EscreverTextoMultilinha(
    double x, double y, double largura, double altura, std::string_view texto,
    std::int32_t alinhamentoHorizontal, std::int32_t alinhamentoVertical, std::string_view fonte,
    double tamanho, bool negrito, bool italico, bool sublinhado, std::int32_t cor) {
    AcrescentarTexto(CaixaFinita(x, y, largura, altura), texto, alinhamentoHorizontal,
                     alinhamentoVertical, fonte, tamanho, negrito, italico, sublinhado, cor, true);
}

void DocumentoRelatorio::DesenharFigura(double x, double y, double largura, double altura,
                                        const Imagem& figura, bool proporcional) {
    if (figura.formato != FormatoImagem::GIF || figura.largura <= 0 || figura.altura <= 0 ||
        !EhGIFInteiro(figura.bytes)) {
        LancarChamadaInvalida("a figura \"" + std::string(figura.nome) +
                              "\" não é uma imagem GIF legível");
    }
    const Figura desenhada{CaixaFinita(x, y, largura, altura), &figura, proporcional};
    Acrescentar(desenhada, DonoDoQueSeLe(TipoElemento::Figura));
}

void DocumentoRelatorio::Exibir() {
    ObterVisualizador().Exibir(conteudo_);
}

void DocumentoRelatorio::Ocultar() {
    if (visualizador_ != nullptr) {
        visualizador_->Ocultar();
    }
}

void DocumentoRelatorio::Imprimir(bool& perguntar) {
    ObterVisualizador().Imprimir(conteudo_, perguntar);
}

Visualizador& DocumentoRelatorio::ObterVisualizador() {
    if (visualizador_ == nullptr) {
        if (ambiente_.visualizadores == nullptr) {
            throw Erro(NumeroErro::AcaoNaoSuportada,
                       "Este programa não oferece visualização nem impressão.");
        }
        visualizador_ = ambiente_.visualizadores->Criar();
    }
    return *visualizador_;
}

void DocumentoRelatorio::RecusarSeDesenhado() const {
    const bool vazio = std::all_of(conteudo_.paginas.begin(), conteudo_.paginas.end(),
                                   [](const Pagina& p) { return p.empty(); });
    if (!vazio) {
        LancarConfiguracao(NumeroErro::DocumentoContemObjetos,
                           CodigosDeErros::DocumentoContemObjetos);
    }
}

template <class P>
void DocumentoRelatorio::Acrescentar(P&& primitiva, std::uint32_t dono) {
    conteudo_.paginas.back().emplace_back(std::forward<P>(primitiva));
    conteudo_.estrutura.donos.back().push_back(dono);
}

std::uint32_t DocumentoRelatorio::DonoDoQueSeLe(TipoElemento padrao, bool vazio) {
    auto& elementos = conteudo_.estrutura.elementos;
    if (aberto_ == Estrutura::Decoracao || TemConteudo(elementos[aberto_].tipo)) {
        return aberto_;
    }
    if (vazio) {
        return Estrutura::Decoracao;
    }
    elementos.push_back({.tipo = padrao, .pai = Estrutura::Raiz});
    return static_cast<std::uint32_t>(elementos.size() - 1);
}

void DocumentoRelatorio::AcrescentarTexto(const Caixa& caixa, std::string_view texto,
                                          std::int32_t horizontal, std::int32_t vertical,
                                          std::string_view fonte, double tamanho, bool negrito,
                                          bool italico, bool sublinhado, std::int32_t cor,
                                          bool multilinha) {
    if (horizontal < 0 || horizontal > 2 || vertical < 0 || vertical > 2) {
        LancarChamadaInvalida("código de alinhamento desconhecido");
    }
    if (!std::isfinite(tamanho) || tamanho <= 0) {
        LancarChamadaInvalida("tamanho de fonte que não é positivo");
    }
    Acrescentar(Texto{.caixa = caixa,
                      .texto = std::string(texto),
                      .tamanho = tamanho,
                      .cor = cor,
                      .fonte = IndiceDaFonte(fonte),
                      .horizontal = static_cast<std::uint8_t>(horizontal),
                      .vertical = static_cast<std::uint8_t>(vertical),
                      .negrito = negrito,
                      .italico = italico,
                      .sublinhado = sublinhado,
                      .multilinha = multilinha},
                DonoDoQueSeLe(TipoElemento::Paragrafo, texto.empty()));
}

std::uint16_t DocumentoRelatorio::IndiceDaFonte(std::string_view fonte) {
    auto& fontes = conteudo_.fontes;
    const auto achada = std::find(fontes.begin(), fontes.end(), fonte);
    const auto indice = static_cast<std::uint16_t>(achada - fontes.begin());
    if (achada == fontes.end()) {
        fontes.emplace_back(fonte);
    }
    return indice;
}

}  // namespace tarvo
