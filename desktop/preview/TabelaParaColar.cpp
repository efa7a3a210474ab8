// SPDX-License-Identifier: MIT
#include "desktop/preview/TabelaParaColar.h"

#include <sstream>

#include "desktop/ApoioQt.h"
#include "output/tables/TabelasCSV.h"

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

}  // namespace

std::unique_ptr<QMimeData> TabelaParaColar(const TabelaDoDocumento& tabela) {
    std::ostringstream texto;
    EscreverCSV({&tabela, 1}, texto, {.separador = '\t', .marca = false});
    auto dados = std::make_unique<QMimeData>();
    dados->setText(ParaQt(texto.view()));
    dados->setHtml(ComoHTML(tabela));
    return dados;
}

}  // namespace tarvo
