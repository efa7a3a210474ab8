// SPDX-License-Identifier: MIT
#include "desktop/preview/AcoesDasTabelas.h"

#include <QApplication>
#include <QClipboard>
#include <sstream>

#include "desktop/ApoioQt.h"
#include "desktop/DialogoDeSalvar.h"
#include "desktop/Ligacao.h"
#include "desktop/preview/AcoesDaVisualizacao.h"
#include "desktop/preview/DocumentoPronto.h"
#include "desktop/preview/TabelaParaColar.h"
#include "desktop/preview/TabelasDaPrevia.h"
#include "desktop/preview/VistaPaginas.h"
#include "output/tables/PlanilhaXLSX.h"
#include "output/tables/TabelasCSV.h"
#include "system/files/Arquivos.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

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
