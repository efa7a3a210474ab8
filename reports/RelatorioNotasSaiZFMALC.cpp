// SPDX-License-Identifier: MIT
#include "reports/RelatorioNotasSaiZFMALC.h"

#include <iterator>

#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "document/CicloPaginas.h"
#include "document/QuadroPagina.h"
#include "document/TabelaEmDesenho.h"

namespace tarvo {

namespace {

using namespace Alinhamento;

constexpr IdentidadeRelatorio Notas{.classe = "RelatorioNotasSaiZFMALC",
                                    .titulo = "Relatório de Notas Fiscais de Saída para ZFM / ALC",
                                    .tituloResumido = "Notas Fiscais Saída ZFM / ALC"};
constexpr EstiloCabecalho Cabecalho{.titulo = "Relação de Notas Fiscais de Saída para ZFM / ALC"};

constexpr double W = LarguraRetrato;
constexpr double PrimeiraLinha = 5.9;
constexpr double AlturaCelula = 0.6;
constexpr double AlturaTitulos = 0.9;
constexpr double AlturaGrupo = AlturaCelula + AlturaTitulos;
constexpr double AlturaSubtotal = 1.1;  // with its bar and the gap before the next group
constexpr double LimiteGrupo = 22.9;
constexpr double LimiteLinha = 24.4;
constexpr double LimiteSubtotal = 24.1;
constexpr double LimiteTotal = 24.4;

constexpr EstiloTexto NoMeio(std::int32_t horizontal, double tamanho, bool negrito,
                             std::int32_t cor) {
    return {.recuoTopo = 0.05,
            .recuoBase = 0.05,
            .horizontal = horizontal,
            .tamanho = tamanho,
            .negrito = negrito,
            .cor = cor};
}

constexpr EstiloTexto CelulaCentralizada = NoMeio(Centro, 8, false, Cor::Preto);
constexpr EstiloTexto CelulaDireita = NoMeio(Direita, 8, false, Cor::Preto);
constexpr EstiloCampo CampoNegrito{NoMeio(Esquerda, 9, true, Cor::Teal),
                                   NoMeio(Direita, 9, true, Cor::Preto)};

struct Coluna {
    std::string_view titulo;
    double x;  // cm
    double largura;
    const EstiloTexto& estilo;
    Elemento celula;
};

constexpr Coluna Colunas[] = {
    {"Data de Emissão\r\nda Nota Fiscal", 0, 3.2, CelulaCentralizada, CelulaDe(Natureza::Data)},
    {"Número da\r\nNota Fiscal", 3.2, 3.0, CelulaDireita, TituloDeLinha(Natureza::Codigo)},
    {"Município de\r\nDestino", 6.2, 4.0, CelulaDireita, CelulaDe(Natureza::Texto)},
    {"CNPJ do\r\nDestinatário", 10.2, 3.3, CelulaCentralizada, CelulaDe(Natureza::Codigo)},
    {"Valor", 13.5, 3.5, CelulaDireita, CelulaDe(Natureza::Quantia)},
};
constexpr int NumeroDeColunas = std::size(Colunas);

std::string ConsultaGrupos(std::int32_t NumeroDRQ) {
    const std::string numero = std::to_string(NumeroDRQ);
    return "select distinctrow tblDetalhesCFOPs.* "
           "from tblDetalhesCFOPs, tblZFM_ALC "
           "where Left(tblDetalhesCFOPs.CFOP, 1) = '6' "
           "and tblDetalhesCFOPs.CFOP = tblZFM_ALC.CFOP "
           "and tblZFM_ALC.NroDRQ = " +
           numero + " and tblDetalhesCFOPs.NroDRQ = " + numero + " order by tblDetalhesCFOPs.CFOP";
}

std::string ConsultaNotas(std::int32_t NumeroDRQ, std::string_view CFOP) {
    return "SELECT distinctrow tblZFM_ALC.*, tblMunicípiosZFM_ALC.Município, "
           "tblMunicípiosZFM_ALC.UF As UFMun "
           "FROM tblMunicípiosZFM_ALC, tblDetalhesCFOPs "
           "INNER JOIN tblZFM_ALC "
           "ON tblDetalhesCFOPs.CFOP = tblZFM_ALC.CFOP "
           " WHERE tblZFM_ALC.NroDRQ = " +
           std::to_string(NumeroDRQ) +
           " AND tblMunicípiosZFM_ALC.CódMunicípio = tblZFM_ALC.MunicípioDest "
           " AND tblZFM_ALC.CFOP = " +
           TextoSql(CFOP) + " ORDER BY tblZFM_ALC.Data";
}

}  // namespace

RelatorioNotasSaiZFMALC::RelatorioNotasSaiZFMALC(const Ambiente& ambiente)
    : RelatorioDeConsulta(Notas, ambiente) {}

std::string RelatorioNotasSaiZFMALC::Consulta(std::int32_t NumeroDRQ) const {
    return ConsultaGrupos(NumeroDRQ);
}

void RelatorioNotasSaiZFMALC::ImprimirPaginas(BancoDados& banco, Recordset& identificacao,
                                              Recordset& grupos) {
    CicloPaginas paginas(Desenho(), PrimeiraLinha,
                         [&] { ImprimirCabecalho(Desenho(), Cabecalho, 0, 0, identificacao); });
    TabelaEmDesenho tabela(Desenho());
    if (grupos.EOF_()) {
        ImprimirTitulosGrupo(tabela, paginas.Bloco(LimiteGrupo, AlturaGrupo), " ");
    }
    Moeda total;
    for (; !grupos.EOF_(); grupos.MoveNext()) {
        const std::string CFOP = TextoCampo(grupos.Fields("CFOP"));
        ImprimirTitulosGrupo(tabela, paginas.Bloco(LimiteGrupo, AlturaGrupo), CFOP);
        const auto notas = banco.OpenRecordset(
            ConsultaNotas(LongCampo(grupos.Fields("NroDRQ")), CFOP), TipoRecordset::ForwardOnly);
        Moeda subtotal;
        for (; !notas->EOF_(); notas->MoveNext()) {
            ImprimirLinha(paginas.Bloco(LimiteLinha, AlturaCelula), *notas);
            subtotal += MoedaCampo(notas->Fields("Valor"));
        }
        total += subtotal;
        const double y = paginas.Bloco(LimiteSubtotal, AlturaSubtotal);
        ImprimirSoma(y, FuncaoDaLinha::Subtotal, "Subtotal", subtotal);
        Barra(Desenho(), 0, y + 0.8, W);
    }
    ImprimirSoma(paginas.Bloco(LimiteTotal, AlturaCelula), FuncaoDaLinha::Total, "Total", total);
    paginas.Encerrar();
}

void RelatorioNotasSaiZFMALC::ImprimirTitulosGrupo(TabelaEmDesenho& tabela, double y,
                                                   std::string_view CFOP) {
    {
        const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::TituloDeGrupo));
        CelulaRotulada(Desenho(), CampoNegrito, 0, y, W, AlturaCelula, "CFOP", CFOP,
                       TituloDeLinha(Natureza::Codigo, NumeroDeColunas));
    }
    tabela.ComecarTitulos();
    for (const auto& coluna : Colunas) {
        tabela.Titulo(CelulaTitulo, coluna.x, y + AlturaCelula, coluna.largura, AlturaTitulos,
                      coluna.titulo);
    }
}

void RelatorioNotasSaiZFMALC::ImprimirLinha(double y, Recordset& nota) {
    const std::string textos[std::size(Colunas)] = {
        FormatarData(DataCampo(nota.Fields("Data"))),
        TextoCampo(nota.Fields("NF")),
        TextoCampo(nota.Fields("Município")) + "/" + TextoCampo(nota.Fields("UFMun")),
        TextoCampo(nota.Fields("CNPJDest")),
        FormatarValor(MoedaCampo(nota.Fields("Valor"))),
    };
    const std::string* texto = textos;
    const Trecho linha(Desenho(), LinhaDe(FuncaoDaLinha::Dados));
    for (const auto& coluna : Colunas) {
        Celula(Desenho(), coluna.celula, coluna.estilo, coluna.x, y, coluna.largura, AlturaCelula,
               *texto++);
    }
}

void RelatorioNotasSaiZFMALC::ImprimirSoma(double y, FuncaoDaLinha funcao, std::string_view rotulo,
                                           Moeda soma) {
    const Trecho linha(Desenho(), LinhaDe(funcao));
    CelulaRotulada(Desenho(), CampoNegrito, 0, y, W, AlturaCelula, rotulo, FormatarValor(soma),
                   CelulaDe(Natureza::Quantia, NumeroDeColunas));
}

}  // namespace tarvo
