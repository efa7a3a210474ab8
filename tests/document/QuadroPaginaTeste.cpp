// SPDX-License-Identifier: MIT
#include "document/QuadroPagina.h"

#include "data/Consultas.h"
#include "tests/support/Roteiro.h"

namespace tarvo {
namespace {

using Respostas = apoio::Roteiro::Respostas;

TEST(QuadroPagina, DrawsWhatItsRoteiroTells) {
    apoio::Roteiro roteiro(R"sql(
insert into tblContribuinte (IE, RazãoSocial, CNPJ) values ('1', 'Padaria São João', '00.1');
insert into tblDRQ (NroDRQ, Ref1, Ref2, Tipo, RegTrib, Consistente, Autenticação)
values (1, '2003-07-01', '2003-07-01', 1, '01', -1, 'A1B2');)sql");
    const auto desenhar = [&](const EstiloCabecalho& estilo) {
        DocumentoRelatorio doc;
        const auto identificacao = roteiro.Banco()->OpenRecordset(ConsultaIdentificacao("1", 1),
                                                                  TipoRecordset::ForwardOnly);
        ImprimirCabecalho(doc, estilo, 0, 0, *identificacao);
        roteiro.documento = doc.Registrado();
        return Respostas();
    };
    roteiro.Ensinar("cabecalho", [&](const auto&) { return desenhar({.titulo = "Título"}); });
    roteiro.Ensinar("paisagem", [&](const auto&) {
        return desenhar({.titulo = "T", .largura = LarguraPaisagem, .barraFinal = false});
    });
    roteiro.Ensinar("mudar", [&](const std::string& colunas) {
        roteiro.Banco().Executar("UPDATE tblDRQ SET " + colunas);
        desenhar({.titulo = "Título"});
        const auto t = apoio::Textos(roteiro.documento, 0);
        return Respostas{t.at(1) + " | " + t.at(13) + " | " + t.at(15) + " | " + t.at(17)};
    });
    roteiro.Ensinar("celulas", [&](const auto&) {
        DocumentoRelatorio doc;
        CelulaRotulada(doc, CampoMultilinha, 1, 2, 4, 16.4, "R", "V");
        CelulaRotulada(doc, CampoValor, 1, 2, 4, 0.6, "R", "V");
        CelulaRotulada(doc, CampoTotalNegrito, 1, 2, 4, 0.7, "R", "V");
        Celula(doc, CelulaTitulo, 1, 2, 4, 1, "T");
        roteiro.documento = doc.Registrado();
        return Respostas();
    });
    roteiro.Conferir("document/QuadroPagina.txt");
}

}  // namespace
}  // namespace tarvo
