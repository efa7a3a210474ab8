// SPDX-License-Identifier: MIT
#include "desktop/preview/AcoesDasTabelas.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <memory>
#include <sstream>

#include "desktop/ApoioQt.h"
#include "desktop/DialogoDeSalvar.h"
#include "desktop/Ligacao.h"
#include "desktop/preview/AcoesDaVisualizacao.h"
#include "desktop/preview/DocumentoPronto.h"
#include "desktop/preview/TabelasDaPrevia.h"
#include "desktop/preview/VistaPaginas.h"
#include "output/tables/PlanilhaXLSX.h"
#include "output/tables/TabelasCSV.h"
#include "system/files/Arquivos.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

using Celula = TabelaDoDocumento::Celula;

// What a cell is, in the words of the two spreadsheets that read HTML: value and format for the
// one, which knows a date by its code in Portuguese (1046) alone, a style and a number for the
// other.
QString Especie(const Celula& celula) {
    const auto numero = celula.Numero();
    if (!numero) {
        return uR"( sdnum="1033;0;@" style="mso-number-format:'\@'")"_s;
    }
    const bool quantia = celula.natureza == Natureza::Quantia;
    return uR"( align="right" sdval="%1" sdnum="%2" x:num="%1" style="mso-number-format:'%3'")"_s
        .arg(*numero, 0, 'f', 2)
        .arg(quantia ? u"1033;0;#,##0.00"_s : u"1046;0;DD/MM/AAAA"_s,
             quantia ? u"#,##0.00"_s : uR"(dd\/mm\/yyyy)"_s);
}

QString ComoHTML(const TabelaDoDocumento& tabela) {
    const auto escrito = [](const std::string& texto) {
        return ParaQt(texto).toHtmlEscaped().replace(u'\n', u"<br>"_s);
    };
    QString html =
        uR"(<html xmlns:x="urn:schemas-microsoft-com:office:excel"><meta charset="utf-8"><table>)"_s;
    if (tabela.TemTitulos()) {
        html += u"<tr>"_s;
        for (const auto& titulo : tabela.titulos) {
            html += u"<th>"_s + escrito(titulo) + u"</th>"_s;
        }
        html += u"</tr>"_s;
    }
    for (const auto& linha : tabela.linhas) {
        const char* const marca = linha.funcao == FuncaoDaLinha::Dados ? "td" : "th";
        html += u"<tr>"_s;
        for (const auto& celula : linha.celulas) {
            html += u"<%1%2>%3</%1>"_s.arg(QLatin1String(marca), Especie(celula),
                                           escrito(celula.texto));
        }
        html += u"</tr>"_s;
    }
    return html + u"</table></html>"_s;
}

// For the clipboard: cells between tabs for every program, and as HTML in which spreadsheets find
// what is a number, a date or a text.
std::unique_ptr<QMimeData> TabelaParaColar(const TabelaDoDocumento& tabela) {
    std::ostringstream texto;
    EscreverCSV({&tabela, 1}, texto, {.separador = '\t', .marca = false});
    auto dados = std::make_unique<QMimeData>();
    dados->setText(ParaQt(texto.view()));
    dados->setHtml(ComoHTML(tabela));
    return dados;
}

std::string ComoArquivo(const QString& arquivo, const std::vector<TabelaDoDocumento>& tabelas) {
    std::ostringstream saida;
    saida.exceptions(std::ios::badbit);
    if (arquivo.endsWith(u".csv"_s, Qt::CaseInsensitive)) {
        EscreverCSV(tabelas, saida);
    } else {
        const SecaoDaPlanilha secao{.nome = "", .tabelas = tabelas};
        EscreverXLSX({&secao, 1}, saida);
    }
    return std::move(saida).str();
}

}  // namespace

AcoesDasTabelas::AcoesDasTabelas(const AcoesDaVisualizacao& acoes, QWidget& janela,
                                 VistaPaginas& vista, const DocumentoPronto& documento)
    : janela_(janela), vista_(vista), documento_(documento) {
    const auto ligar = [&](Acao acao, auto fazer) {
        Ligar(&acoes[acao], &QAction::triggered, &janela, fazer);
    };
    ligar(Acao::CopiarTabela, [this] { Copiar(); });
    ligar(Acao::SalvarTabela, [this] { SalvarTabela(); });
    ligar(Acao::SalvarPlanilha, [this] { SalvarTodas(); });
    vista.setContextMenuPolicy(Qt::ActionsContextMenu);
    vista.addActions(
        {&acoes[Acao::Copiar], &acoes[Acao::CopiarTabela], &acoes[Acao::SalvarTabela]});
}

void AcoesDasTabelas::Copiar() const {
    const TabelasDaPrevia tabelas(documento_);
    if (const auto* tabela = tabelas.Escolhida(vista_.Selecao(), vista_.Pagina())) {
        QApplication::clipboard()->setMimeData(TabelaParaColar(*tabela).release());
        DizerDePassagem(&janela_, u"Tabela copiada: %1"_s.arg(ParaQt(tabela->nome)));
    } else {
        DizerDePassagem(&janela_, u"Não há tabela nesta página."_s);
    }
}

void AcoesDasTabelas::SalvarTabela() const {
    const TabelasDaPrevia tabelas(documento_);
    if (const auto* tabela = tabelas.Escolhida(vista_.Selecao(), vista_.Pagina())) {
        Salvar(u"Salvar a tabela como planilha"_s, {tabela, 1});
    } else {
        DizerDePassagem(&janela_, u"Não há tabela nesta página."_s);
    }
}

void AcoesDasTabelas::SalvarTodas() const {
    Salvar(u"Salvar como planilha"_s, TabelasDaPrevia(documento_).Todas());
}

void AcoesDasTabelas::Salvar(const QString& titulo,
                             std::span<const TabelaDoDocumento> tabelas) const {
    PerguntarOndeSalvar(
        &janela_, titulo, ParaQt(documento_.tituloResumido),
        {u"Planilhas (*.xlsx)"_s, u"Valores separados por ponto e vírgula (*.csv)"_s},
        [&janela = janela_,
         copia = std::vector(tabelas.begin(), tabelas.end())](const QString& arquivo) {
            GravarArquivo(arquivo.toStdString(), ComoArquivo(arquivo, copia));
            DizerDePassagem(&janela, u"Salvo em %1"_s.arg(arquivo));
        });
}

}  // namespace tarvo
