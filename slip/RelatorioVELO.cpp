// SPDX-License-Identifier: MIT
#include "slip/RelatorioVELO.h"

#include <vector>

#include "data/LeitoresDeCampo.h"
#include "document/QuadroPagina.h"

namespace tarvo {

namespace {

using namespace Alinhamento;

constexpr IdentidadeRelatorio VELO{.classe = "RelatorioVELO",
                                   .titulo = "VELO",
                                   .tituloResumido = "VELO",
                                   .icone = &frmFiguras::imgIconeG,
                                   .margens = {1.325, 1.325, 0, 0}};

constexpr double YViaContribuinte = 3.0;
constexpr double YViaBanco = 16.25;

constexpr double Altura = 0.65;  // of a field
constexpr double LarguraTab = 0.55;
constexpr double LarguraQuadro = 12.5;
constexpr double AlturaQuadro = 7.8;
constexpr double XDireita = 12.65;  // tabs of the right-hand column
constexpr double LarguraDireita = 5.0;
constexpr double YVencimento = 1.3;  // field 02, the first box of the right-hand column

constexpr EstiloTexto Centrado(double tamanho, bool negrito, std::int32_t cor = Cor::Preto) {
    return {.recuoX = 0, .horizontal = Centro, .tamanho = tamanho, .negrito = negrito, .cor = cor};
}
constexpr EstiloTexto Legenda(std::int32_t horizontal, std::int32_t vertical) {
    return {.recuoX = 0,
            .horizontal = horizontal,
            .vertical = vertical,
            .fonte = "Times New Roman",
            .tamanho = 5};
}
constexpr EstiloCampo EstiloCampoGuia(std::int32_t horizontal, double tamanho) {
    EstiloTexto legenda = Legenda(Esquerda, Topo);
    legenda.recuoX = 0.08;
    legenda.recuoTopo = 0.08;
    return {legenda,
            {.recuoX = 0.18,
             .recuoTopo = 0.08,
             .horizontal = horizontal,
             .vertical = Base,
             .tamanho = tamanho}};
}

constexpr EstiloTexto NumeroDoCampo = Centrado(10, true);
constexpr EstiloTexto Cabecalho{.recuoX = 0, .tamanho = 7};
constexpr EstiloTexto Observacoes{.recuoX = 0, .vertical = Topo, .multilinha = true};
constexpr EstiloTexto Vencimento{
    .recuoX = 0, .horizontal = Centro, .vertical = Base, .tamanho = 11};
constexpr EstiloCampo CampoGuia = EstiloCampoGuia(Esquerda, 8);
constexpr EstiloCampo CampoGuiaValor = EstiloCampoGuia(Direita, 11);

struct CampoEsquerdo {
    std::string_view numero;  // on the tab left of the box; empty: no tab
    double x;                 // of the box
    double y;
    double largura;
    std::string_view legenda;
    std::string_view campo;  // empty: nothing is read
};

constexpr CampoEsquerdo CamposEsquerdos[] = {
    {"15", 0.55, 1.95, 11.95, "CONTRIBUINTE", "Contribuinte"},
    {"16", 0.55, 2.6, 11.95, "ENDEREÇO", "Endereço"},
    {"", 0, 3.25, 6.0, "MUNICÍPIO", "Município"},
    {"", 6.0, 3.25, 0.8, "UF", "UF"},
    {"17", 7.35, 3.25, 2.5, "TELEFONE", "Telefone"},
    {"18", 10.4, 3.25, 2.1, "CNAE", ""},
};

constexpr std::string_view NumerosDireitos[] = {"02", "03", "04", "05", "06", "07", "08",
                                                "09", "10", "11", "12", "13", "14"};

struct CampoDireito {
    std::string_view legenda;
    std::string_view campo;
    Natureza natureza;
};

// Fields 03 to 14.
constexpr CampoDireito CamposDireitos[] = {
    {"CÓDIGO DE RECEITA", "CódigoReceita", Natureza::Codigo},
    {"INSCRIÇÃO ESTADUAL", "IE", Natureza::Codigo},
    {"CNPJ ou CPF", "CPF_CNPJ", Natureza::Codigo},
    {"INSCRIÇÃO NA DÍVIDA ATIVA ou Nº DA ETIQUETA", "InscriçãoDívidaAtiva", Natureza::Codigo},
    {"REFERÊNCIA (mês / ano)", "Referência", Natureza::Texto},
    {"Nº AIIM ou Nº DI ou Nº PARCELAMENTO", "NroAIIM_DI_PARCEL", Natureza::Codigo},
    {"VALOR DA RECEITA (Nominal ou Corrigida)", "ValorReceita", Natureza::Quantia},
    {"JUROS DE MORA", "JurosMora", Natureza::Quantia},
    {"MULTA DE MORA ou POR INFRAÇÃO (Nominal ou Corrigida)", "MultaMora_Infração",
     Natureza::Quantia},
    {"ACRÉSCIMO FINANCEIRO", "AcréscimoFinanceiro", Natureza::Quantia},
    {"HONORÁRIOS ADVOCATÍCIOS", "HonoráriosAdvocatícios", Natureza::Quantia},
    {"VALOR TOTAL", "ValorTotal", Natureza::Quantia},
};

// One copy of the slip, drawn in coordinates of its own: (0, 0) is the main frame's corner.
//
// It is drawn from the outside in; what it shows is read heading first, then the fields in the
// order of their numbers. Each copy is read whole, under the name of the copy.
class Guia {
  public:
    // The document's title is the first copy's.
    Guia(DocumentoRelatorio& doc, Recordset& dados, double x, double y, bool primeira)
        : doc_(doc), dados_(dados), x_(x), y_(y) {
        titulo_ = primeira ? Abrir({.tipo = TipoElemento::Titulo}) : Estrutura::Raiz;
        via_ = Abrir({.tipo = TipoElemento::Secao});
        titulo_ = primeira ? titulo_ : via_;
        brasao_ = Abrir({.tipo = TipoElemento::Figura});
        governo_ = Abrir({.tipo = TipoElemento::Paragrafo});
        formulario_ = Abrir({.tipo = TipoElemento::Paragrafo});
        AbrirCampo(Natureza::Texto);
        AbrirCampo(Natureza::Data);
        for (const auto& campo : CamposDireitos) {
            AbrirCampo(campo.natureza);
        }
        while (campos_.size() <= AutenticacaoMecanica) {
            AbrirCampo(Natureza::Texto);
        }
    }

    void Imprimir(std::string_view via) {
        ImprimirAutenticacaoMecanica();
        ImprimirBarrasDaDireita();
        ImprimirQuadroPrincipal();
        ImprimirNomeDoFormulario();
        ImprimirCamposEsquerdos();
        ImprimirObservacoes();
        ImprimirCamposDireitos();
        ImprimirBordas(via);
    }

  private:
    // Places in campos_.
    static constexpr std::size_t Microfilme = 0;
    static constexpr std::size_t DataVencimento = 1;
    static constexpr std::size_t PrimeiroEsquerdo = std::size(NumerosDireitos) + 1;
    static constexpr std::size_t Observacao = PrimeiroEsquerdo + std::size(CamposEsquerdos);
    static constexpr std::size_t AutenticacaoMecanica = Observacao + 1;

    struct DonosDoCampo {
        std::uint32_t rotulo;
        std::uint32_t valor;
    };

    std::uint32_t Abrir(Elemento elemento) { return Trecho(doc_, elemento).Indice(); }
    void AbrirCampo(Natureza natureza) {
        const Trecho campo(doc_, {.tipo = TipoElemento::Campo});
        const auto rotulo = Abrir({.tipo = TipoElemento::Rotulo});
        campos_.push_back(
            {rotulo, Abrir({.tipo = TipoElemento::ValorDeCampo, .natureza = natureza})});
    }

    // The tab under the main frame, rounded in its upper left corner only.
    void ImprimirAutenticacaoMecanica() {
        Arredondado(0, 7.8, LarguraTab, Altura);
        Retangulo(0.2, 7.8, 0.35, 0.2, Cor::Branco, Cor::Branco);
        Retangulo(0, 8.0, LarguraTab, 0.45, Cor::Branco, Cor::Branco);
        Linha(0, 8.0, 0, 0.45);
        Linha(LarguraTab, 7.8, 0, Altura);
        Linha(0, 8.45, LarguraTab, 0);
        const auto rotulo = campos_[AutenticacaoMecanica].rotulo;
        Escrever(rotulo, NumeroDoCampo, 0, 7.8, LarguraTab, Altura, "20");
        Escrever(rotulo, Legenda(Esquerda, Topo), 0.63, 7.88, 11.79, Altura,
                 "AUTENTICAÇÃO MECÂNICA");
    }

    void ImprimirBarrasDaDireita() {
        for (const double x : {12.5, 18.2}) {
            Retangulo(x, YVencimento, 0.15, 8.45, Cor::Cinza, Cor::Cinza);
        }
    }

    void ImprimirQuadroPrincipal() {
        Arredondado(0, 0, LarguraQuadro, AlturaQuadro);
        Figura(brasao_, 0.25, 0.1, 1.5, 1.62842, frmFiguras::imgBrasaoVDMonocromatico);
        Escrever(governo_, Cabecalho, 2, 0.2, 7.5, 0.3, "GOVERNO DO ESTADO DE VALDORA");
        Escrever(governo_, Cabecalho, 2, 0.5, 7.5, 0.3, "SECRETARIA DA FAZENDA");
        Escrever(titulo_, Centrado(10, true), 2, 0.8, 7.5, 1.15, "GUIA DE ARRECADAÇÃO ESTADUAL");
    }

    void ImprimirNomeDoFormulario() {
        Retangulo(9.5, 0, 3.0, 1.04, Cor::Preto, Cor::Branco);
        Retangulo(9.6, 0.1, 2.8, 0.84, Cor::Preto, Cor::Preto);
        Escrever(formulario_, Centrado(20, true, Cor::Branco), 9.5, 0, 3.0, 1.144, "VELO");
        Contorno(9.5, 1.04, 3.0, 0.91);
        Escrever(formulario_, Centrado(18, true), 9.5, 1.04, 3.0, 0.91, "ICMS");
        Linha(0, 1.95, 9.5, 0);
    }

    void ImprimirCamposEsquerdos() {
        for (auto n = PrimeiroEsquerdo; const auto& campo : CamposEsquerdos) {
            if (!campo.numero.empty()) {
                NumeroCampo(n, campo.x - LarguraTab, campo.y, campo.numero);
            }
            Rotulado(n++, CampoGuia, campo.x, campo.y, campo.largura, campo.legenda,
                     campo.campo.empty() ? " " : Valor(campo.campo));
        }
    }

    void ImprimirObservacoes() {
        const auto [rotulo, valor] = campos_[Observacao];
        NumeroCampo(Observacao, 0, 3.9, "19");
        Escrever(rotulo, Legenda(Esquerda, Topo), 0.63, 3.98, 11.79, Altura, "OBSERVAÇÕES");
        Escrever(valor, Observacoes, 0.73, 4.3, 11.59, 3.5, Valor("Observações"));
    }

    void ImprimirCamposDireitos() {
        constexpr double XCaixa = XDireita + LarguraTab;
        constexpr double XLegenda = XCaixa + 0.08;
        constexpr double LarguraLegenda = 4.84;
        constexpr double AlturaLegenda = 0.49;
        // The fields below number 01 stand one below the other.
        const auto linha = [](std::size_t n) {
            return YVencimento + Altura * static_cast<int>(n - DataVencimento);
        };
        const auto microfilme = campos_[Microfilme].rotulo;
        const auto [rotulo, valor] = campos_[DataVencimento];

        Escrever(microfilme, NumeroDoCampo, XDireita, 0.65, LarguraTab, Altura, "01");
        Escrever(microfilme, Legenda(Esquerda, Base), XLegenda, 0.73, LarguraLegenda, AlturaLegenda,
                 "MICROFILME (NÃO PREENCHER)");
        for (auto n = DataVencimento; const auto numero : NumerosDireitos) {
            NumeroCampo(n, XDireita, linha(n), numero);
            ++n;
        }
        Rotulado(DataVencimento, CampoGuiaValor, XCaixa, YVencimento, LarguraDireita, "DATA DE",
                 "");
        Escrever(rotulo, Legenda(Esquerda, Base), XLegenda, 1.38, LarguraLegenda, AlturaLegenda,
                 "VENCIMENTO");
        Linha(15.2, YVencimento, 0, Altura);
        Escrever(valor, Vencimento, 15.38, 1.38, 2.64, 0.57, Valor("DataVencimento"));
        for (auto n = DataVencimento + 1; const auto& campo : CamposDireitos) {
            Rotulado(n, CampoGuiaValor, XCaixa, linha(n), LarguraDireita, campo.legenda,
                     Valor(campo.campo));
            ++n;
        }
    }

    // What stands around the fields: citation, copy label, cut line.
    void ImprimirBordas(std::string_view via) {
        Figura(Estrutura::Raiz, -0.28, 5.7, 0.25, 1.94737, frmFiguras::imgPortariaKEX_27_95);
        Escrever(via_, Legenda(Direita, Base), 0.18, 9.18, 12.14, 0.57, via);
        Figura(Estrutura::Decoracao, -0.25, 10.1, 0.33046, 0.3, frmFiguras::imgTesoura);
        doc_.DesenharLinha(x_ - 0.25, y_ + 10.25, 18.85, 0, 0, 0, 1, 2);
    }

    void NumeroCampo(std::size_t campo, double x, double y, std::string_view numero) {
        Contorno(x, y, LarguraTab, Altura);
        Escrever(campos_[campo].rotulo, NumeroDoCampo, x, y, LarguraTab, Altura, numero);
    }
    void Rotulado(std::size_t campo, const EstiloCampo& estilo, double x, double y, double largura,
                  std::string_view legenda, std::string_view valor) {
        Contorno(x, y, largura, Altura);
        Escrever(campos_[campo].rotulo, estilo.rotulo, x, y, largura, Altura, legenda);
        Escrever(campos_[campo].valor, estilo.valor, x, y, largura, Altura, valor);
    }
    void Escrever(std::uint32_t dono, const EstiloTexto& estilo, double x, double y, double largura,
                  double altura, std::string_view texto) {
        const Trecho trecho(doc_, dono);
        EscreverEmCaixa(doc_, estilo, x_ + x, y_ + y, largura, altura, texto);
    }
    void Contorno(double x, double y, double largura, double altura) {
        doc_.DesenharRetangulo(x_ + x, y_ + y, largura, altura, false, Cor::Preto, Cor::Branco, 1);
    }
    void Retangulo(double x, double y, double largura, double altura, std::int32_t borda,
                   std::int32_t preenchimento) {
        doc_.DesenharRetangulo(x_ + x, y_ + y, largura, altura, true, borda, preenchimento, 1);
    }
    void Arredondado(double x, double y, double largura, double altura) {
        doc_.DesenharRetanguloArredondado(x_ + x, y_ + y, largura, altura, false, 0.2, Cor::Preto,
                                          Cor::Branco, 1);
    }
    void Linha(double x, double y, double largura, double altura) {
        doc_.DesenharLinha(x_ + x, y_ + y, largura, altura, 0, 0, 1, 0);
    }
    void Figura(std::uint32_t dono, double x, double y, double largura, double altura,
                const Imagem& figura) {
        const Trecho trecho(doc_, dono);
        doc_.DesenharFigura(x_ + x, y_ + y, largura, altura, figura, true);
    }
    [[nodiscard]] std::string Valor(std::string_view campo) const {
        return TextoCampo(dados_.Fields(campo));
    }

    DocumentoRelatorio& doc_;
    Recordset& dados_;
    double x_;
    double y_;

    // Elements of the copy.
    std::uint32_t titulo_;
    std::uint32_t via_;
    std::uint32_t brasao_;
    std::uint32_t governo_;
    std::uint32_t formulario_;
    std::vector<DonosDoCampo> campos_;  // 01 to 16, town, state, 17 to 20
};

}  // namespace

RelatorioVELO::RelatorioVELO(const Ambiente& ambiente) : Relatorio(VELO, ambiente) {}

void RelatorioVELO::Construir(BancoDados& banco) {
    const Acompanhamento acompanhamento(banco, AmbienteDoRelatorio().andamento);
    const LeituraMantida leitura(banco, "", 0);
    const auto dados = banco.OpenRecordset("select * from tblVELO", TipoRecordset::ForwardOnly);
    IniciarDocumento();
    if (!dados->EOF_()) {
        Desenho().DefinirIdentificacao({.contribuinte = TextoCampo(dados->Fields("Contribuinte")),
                                        .IE = TextoCampo(dados->Fields("IE")),
                                        .referencia = TextoCampo(dados->Fields("Referência"))});
        Guia(Desenho(), *dados, 0, YViaContribuinte, true).Imprimir("VIA CONTRIBUINTE");
        Guia(Desenho(), *dados, 0, YViaBanco, false).Imprimir("VIA BANCO");
    }
    Rever(banco, {}, {});
}

}  // namespace tarvo
