#include "desktop/preview/TextosCortados.h"

#include <QHeaderView>
#include <QTableWidget>
#include <QVBoxLayout>

#include "desktop/ApoioQt.h"
#include "desktop/Ligacao.h"

namespace tarvo {

using namespace Qt::StringLiterals;

TextosCortados::TextosCortados(QWidget* pai, const std::vector<TextoCortado>& cortados)
    : QDialog(pai) {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(u"Textos que não couberam inteiros"_s);
    resize(600, 300);
    auto* tabela = new QTableWidget(static_cast<int>(cortados.size()), 2, this);
    tabela->setAccessibleName(windowTitle());
    tabela->setHorizontalHeaderLabels({u"Página"_s, u"Texto inteiro"_s});
    tabela->horizontalHeader()->setStretchLastSection(true);
    tabela->verticalHeader()->hide();
    tabela->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tabela->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabela->setTabKeyNavigation(false);
    for (int i = 0; i < tabela->rowCount(); ++i) {
        const auto& corte = cortados[static_cast<std::size_t>(i)];
        tabela->setItem(i, 0, new QTableWidgetItem(QString::number(corte.pagina)));
        tabela->setItem(i, 1, new QTableWidgetItem(ParaQt(corte.texto)));
    }
    Ligar(tabela, &QTableWidget::itemSelectionChanged, this, [this, tabela] {
        const auto* pagina = tabela->item(tabela->currentRow(), 0);
        if (aoEscolher && pagina != nullptr) {
            aoEscolher(pagina->text().toInt() - 1);
        }
    });
    (new QVBoxLayout(this))->addWidget(tabela);
}

}  // namespace tarvo
