// SPDX-License-Identifier: MIT
#include "desktop/preview/PainelLateral.h"

#include <QHeaderView>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeWidget>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"
#include "desktop/preview/DocumentoPronto.h"
#include "desktop/preview/Miniaturas.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

constexpr int PapelPagina = Qt::UserRole;     // of an entry's data
constexpr int PapelLugar = Qt::UserRole + 1;  // QRectF, points

}  // namespace

PainelLateral::PainelLateral(QWidget* pai)
    : QDockWidget(u"Painel lateral"_s, pai),
      abas_(new QTabWidget(this)),
      miniaturas_(new Miniaturas(abas_)),
      sumario_(new QTreeWidget(abas_)),
      avisos_(new QTableWidget(0, 2, abas_)) {
    setObjectName(u"painelLateral"_s);
    setFeatures(QDockWidget::DockWidgetClosable);
    miniaturas_->aoEscolher = [this](int pagina) { aoEscolher(pagina, {}); };
    CriarSumario();
    CriarAvisos();
    abas_->setObjectName(u"abasDoPainel"_s);
    abas_->addTab(miniaturas_, u"Pági&nas"_s);
    abas_->addTab(sumario_, u"Sumá&rio"_s);
    abas_->addTab(avisos_, u"A&visos"_s);
    // As wide as the pictures; the user may widen it.
    sumario_->setSizeAdjustPolicy(QAbstractScrollArea::AdjustIgnored);
    setWidget(abas_);
}

void PainelLateral::CriarSumario() {
    sumario_->setObjectName(u"sumario"_s);
    sumario_->setAccessibleName(u"Sumário"_s);
    sumario_->setHeaderHidden(true);
    sumario_->setRootIsDecorated(false);
    sumario_->setWordWrap(true);
    Ligar(sumario_, &QTreeWidget::itemSelectionChanged, this, [this] {
        if (const auto* entrada = sumario_->currentItem()) {
            aoEscolher(entrada->data(0, PapelPagina).toInt(),
                       entrada->data(0, PapelLugar).toRectF());
        }
    });
}

void PainelLateral::CriarAvisos() {
    avisos_->setObjectName(u"avisosDaPrevia"_s);
    avisos_->setAccessibleName(u"O que as páginas não mostram como se espera"_s);
    avisos_->setHorizontalHeaderLabels({u"Página"_s, u"Aviso ou texto cortado"_s});
    avisos_->horizontalHeader()->setStretchLastSection(true);
    avisos_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    avisos_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    avisos_->verticalHeader()->hide();
    avisos_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    avisos_->setWordWrap(true);
    avisos_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    avisos_->setSelectionBehavior(QAbstractItemView::SelectRows);
    avisos_->setTabKeyNavigation(false);
    Ligar(avisos_, &QTableWidget::itemSelectionChanged, this, [this] {
        if (const auto* entrada = avisos_->item(avisos_->currentRow(), 0)) {
            aoEscolher(entrada->data(PapelPagina).toInt(), entrada->data(PapelLugar).toRectF());
        }
    });
}

void PainelLateral::Mostrar(PintorPaginas* pintor, const DocumentoPronto* documento) {
    miniaturas_->Mostrar(pintor);
    sumario_->clear();
    avisos_->setRowCount(0);
    if (documento != nullptr) {
        MostrarSumario(*documento);
        ListarAvisos(*documento);
    }
    abas_->setTabVisible(abas_->indexOf(sumario_), sumario_->topLevelItemCount() > 0);
    abas_->setTabVisible(abas_->indexOf(avisos_), avisos_->rowCount() > 0);
}

// A heading may consist of several texts.
void PainelLateral::MostrarSumario(const DocumentoPronto& documento) {
    QTreeWidgetItem* titulo = nullptr;
    QTreeWidgetItem* entrada = nullptr;
    auto ultimo = Estrutura::Decoracao;
    const auto& celulas = documento.celulas;
    for (int pagina = 0; pagina < celulas.Paginas(); ++pagina) {
        for (auto i = celulas.Primeira(pagina); i < celulas.Primeira(pagina + 1); ++i) {
            const auto dono = celulas.Dono(i);
            const auto tipo = documento.TipoDoElemento(dono);
            if (tipo != TipoElemento::Titulo && tipo != TipoElemento::Secao) {
                continue;
            }
            const auto texto = celulas.TextoDa(i, pagina);
            if (dono == ultimo) {
                entrada->setText(0, entrada->text(0) + u' ' + texto);
                continue;
            }
            const bool dentro = tipo == TipoElemento::Secao && titulo != nullptr;
            entrada = dentro ? new QTreeWidgetItem(titulo) : new QTreeWidgetItem(sumario_);
            entrada->setText(0, texto);
            entrada->setData(0, PapelPagina, pagina);
            entrada->setData(0, PapelLugar, celulas.Lugar(i));
            titulo = tipo == TipoElemento::Titulo ? entrada : titulo;
            ultimo = dono;
        }
    }
    sumario_->expandAll();
}

// What is of no page, then the texts that were cut.
void PainelLateral::ListarAvisos(const DocumentoPronto& documento) {
    const auto acrescentar = [this](QTableWidgetItem* pagina, const std::string& texto) {
        const int linha = avisos_->rowCount();
        avisos_->insertRow(linha);
        avisos_->setItem(linha, 0, pagina);
        avisos_->setItem(linha, 1, new QTableWidgetItem(ParaQt(texto)));
        avisos_->item(linha, 1)->setToolTip(ParaQt(texto));
    };
    for (const std::string& aviso : documento.avisos) {
        acrescentar(nullptr, aviso);
    }
    for (const TextoCortado& corte : documento.cortados) {
        auto* pagina = new QTableWidgetItem(QString::number(corte.pagina));
        pagina->setData(PapelPagina, static_cast<int>(corte.pagina) - 1);
        pagina->setData(PapelLugar, documento.celulas.NaPagina(corte.caixa));
        acrescentar(pagina, corte.texto);
    }
}

void PainelLateral::Marcar(int pagina) {
    miniaturas_->Marcar(pagina);
}

void PainelLateral::Atualizar() {
    miniaturas_->Atualizar();
}

void PainelLateral::MostrarAvisos() {
    show();
    abas_->setCurrentWidget(avisos_);
    avisos_->setFocus();
}

}  // namespace tarvo
