// SPDX-License-Identifier: MIT
#include "reports/RelatorioCadastro.h"

#include "data/Consultas.h"
#include "data/Formatos.h"
#include "data/LeitoresDeCampo.h"
#include "document/QuadroPagina.h"

namespace tarvo {

namespace {

constexpr IdentidadeRelatorio Cadastro{.classe = "RelatorioCadastro",
                                       .titulo = "Relatório de Cadastro do Contribuinte",
                                       .tituloResumido = "Cadastro do Contribuinte"};

constexpr EstiloCabecalho Cabecalho{.titulo = "Cadastro do Contribuinte", .yTitulo = 3.1};

constexpr double W = LarguraRetrato;
constexpr double AlturaLinha = 0.6;
constexpr double AlturaObservacao = 16.4;

struct CelulaCadastro {
    double y;  // cm below the body's top
    double x;  // cm
    double largura;
    const char* rotulo;
    const char* campo;
    Natureza natureza = Natureza::Texto;
};

constexpr CelulaCadastro Celulas[] = {
    {0.0, 0, W, "Razão Social", "RazãoSocial"},
    {0.6, 0, W / 3, "Inscrição Estadual", "IE", Natureza::Codigo},
    {0.6, W / 3, W / 3, "CNPJ", "CNPJ", Natureza::Codigo},
    {0.6, 2 * W / 3, W / 3, "Data do Cadastramento", "DataCadastro", Natureza::Data},
    {1.2, 0, W / 2, "Local", "Localização"},
    {1.2, W / 2, W / 8, "Número", "Número"},
    {1.2, W / 2 + W / 8, W / 2 - W / 8, "Complemento", "Complemento"},
    {1.8, 0, W / 2, "Bairro", "Bairro"},
    {1.8, W / 2, W / 2, "Município", "Município"},
    {2.4, 0, W / 4, "CEP", "CEP", Natureza::Codigo},
    {2.4, W / 4, W / 16, "UF", "UF"},
    {2.4, W / 4 + W / 16, W / 4 + W / 16, "Telefone", "Telefone"},
    {2.4, W / 2 + W / 8, W / 4 + W / 8, "FAX", "FAX"},
    {3.0, 0, W / 2, "e-mail", "Email"},
    {3.0, W / 2, W / 2, "Home Page", "HomePage"},
    {3.6, 0, W, "Contato", "Contato"},
};

}  // namespace

RelatorioCadastro::RelatorioCadastro(const Ambiente& ambiente)
    : RelatorioDeclaracao(Cadastro, ambiente) {}

void RelatorioCadastro::Desenhar(BancoDados& banco, const std::string& IE,
                                 std::int32_t /*NumeroDRQ*/) {
    const auto contribuinte =
        banco.OpenRecordset(ConsultaContribuinte(IE), TipoRecordset::ForwardOnly);
    IniciarDocumento();
    if (!contribuinte->EOF_()) {
        Desenho().DefinirIdentificacao(
            {.contribuinte = TextoCampo(contribuinte->Fields("RazãoSocial")),
             .IE = TextoCampo(contribuinte->Fields("IE"))});
        ImprimirTopo(Desenho(), Cabecalho, 0, 0, nullptr);
        ImprimirCadastro(*contribuinte, 0, 4.2);
        ImprimirRodape(Desenho(), 0, YRodape);
    }
}

void RelatorioCadastro::ImprimirCadastro(Recordset& contribuinte, double x, double y) {
    for (const auto& celula : Celulas) {
        const Valor valor = contribuinte.Fields(celula.campo);
        const std::string texto = celula.natureza == Natureza::Data && !EhNulo(valor)
                                      ? FormatarData(DataCampo(valor))
                                      : TextoCampo(valor);
        CelulaRotulada(Desenho(), Campo, x + celula.x, y + celula.y, celula.largura, AlturaLinha,
                       celula.rotulo, texto,
                       {.tipo = TipoElemento::Campo, .natureza = celula.natureza});
    }
    CelulaRotulada(Desenho(), CampoMultilinha, x, y + 4.2, W, AlturaObservacao, "Observação",
                   TextoCampo(contribuinte.Fields("Observação")));
}

}  // namespace tarvo
