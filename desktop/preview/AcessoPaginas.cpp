// SPDX-License-Identifier: MIT
#include "desktop/preview/AcessoPaginas.h"

#include <QAccessibleWidget>
#include <QWindow>
#include <map>
#include <memory>

#include "desktop/preview/LeituraDoDocumento.h"
#include "desktop/preview/VistaPaginas.h"

namespace tarvo {

using namespace Qt::StringLiterals;

namespace {

using No = LeituraDoDocumento::No;

// The view. It keeps the interfaces of what stands in it as long as the document is shown.
class AcessoDaVista final : public QAccessibleWidget {
  public:
    explicit AcessoDaVista(VistaPaginas& vista)
        : QAccessibleWidget(&vista, QAccessible::Document), vista_(vista) {}
    ~AcessoDaVista() override { Esquecer(); }

    [[nodiscard]] int childCount() const override {
        return vista_.Leitura() == nullptr ? 0 : vista_.Leitura()->Paginas();
    }
    [[nodiscard]] QAccessibleInterface* child(int indice) const override {
        return indice >= 0 && indice < childCount() ? Acesso(indice, 0) : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* filho) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        const auto& cursor = vista_.Cursor();
        return cursor ? Acesso(cursor->pagina, cursor->no) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* Acesso(int pagina, int no) const;
    [[nodiscard]] VistaPaginas& Vista() const { return vista_; }

  private:
    void Esquecer() const {
        for (const auto& [onde, id] : std::exchange(acessos_, {})) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }

    VistaPaginas& vista_;
    mutable std::shared_ptr<LeituraDoDocumento> leitura_;  // that of acessos_
    mutable std::map<std::pair<int, int>, QAccessible::Id> acessos_;
};

// A page, or an element on it.
class AcessoDoNo : public QAccessibleInterface {
  public:
    AcessoDoNo(const AcessoDaVista& dona, std::shared_ptr<LeituraDoDocumento> leitura, int pagina,
               int no)
        : dona_(dona), leitura_(std::move(leitura)), pagina_(pagina), no_(no) {}

    [[nodiscard]] int Pagina() const { return pagina_; }
    [[nodiscard]] int Indice() const { return no_; }
    [[nodiscard]] const No& Onde() const { return Em(no_); }

    [[nodiscard]] bool isValid() const override { return dona_.Vista().Leitura() == leitura_; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override {
        return dona_.Vista().window()->windowHandle();
    }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return no_ == 0 ? QAccessible::queryAccessibleInterface(&dona_.Vista()) : Outro(Onde().pai);
    }
    [[nodiscard]] int childCount() const override { return static_cast<int>(Onde().filhos.size()); }
    [[nodiscard]] QAccessibleInterface* child(int indice) const override {
        return indice >= 0 && indice < childCount()
                   ? Outro(Onde().filhos[static_cast<std::size_t>(indice)])
                   : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* filho) const override {
        const auto* no = dynamic_cast<const AcessoDoNo*>(filho);
        const auto& filhos = Onde().filhos;
        const auto achado = no == nullptr || no->pagina_ != pagina_
                                ? filhos.end()
                                : std::find(filhos.begin(), filhos.end(), no->no_);
        return achado == filhos.end() ? -1 : static_cast<int>(achado - filhos.begin());
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        for (int i = 0; i < childCount(); ++i) {
            if (child(i)->rect().contains(x, y)) {
                return child(i);
            }
        }
        return nullptr;
    }
    [[nodiscard]] QRect rect() const override {
        return dona_.Vista().NaTela(pagina_, no_ == 0 ? std::nullopt : std::optional(Onde().lugar));
    }
    [[nodiscard]] QString text(QAccessible::Text qual) const override {
        if (qual != QAccessible::Name) {
            return {};
        }
        return no_ == 0 ? u"Página %1 de %2"_s.arg(pagina_ + 1).arg(leitura_->Paginas())
                        : Onde().texto;
    }
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State estado;
        estado.readOnly = true;
        estado.focusable = !Onde().texto.isEmpty();
        const auto& cursor = dona_.Vista().Cursor();
        estado.focused = cursor && cursor->pagina == pagina_ && cursor->no == no_;
        estado.offscreen = !dona_.Vista().rect().intersects(
            {dona_.Vista().mapFromGlobal(rect().topLeft()), rect().size()});
        return estado;
    }

  protected:
    [[nodiscard]] const No& Em(int no) const {
        return leitura_->Pagina(pagina_).at(static_cast<std::size_t>(no));
    }
    [[nodiscard]] QAccessibleInterface* Outro(int no) const { return dona_.Acesso(pagina_, no); }
    [[nodiscard]] QAccessibleInterface* AcessoDoElemento(std::uint32_t elemento) const {
        const auto onde = leitura_->OndeEsta(elemento);
        return onde ? dona_.Acesso(onde->pagina, onde->no) : nullptr;
    }
    [[nodiscard]] LeituraDoDocumento& Leitura() const { return *leitura_; }

  private:
    const AcessoDaVista& dona_;
    std::shared_ptr<LeituraDoDocumento> leitura_;
    int pagina_;
    int no_;
};

QAccessible::Role AcessoDoNo::role() const {
    switch (Onde().tipo) {
        case TipoElemento::Documento:
            return QAccessible::Section;
        case TipoElemento::Titulo:
        case TipoElemento::Secao:
            return QAccessible::Heading;
        case TipoElemento::Paragrafo:
            return QAccessible::Paragraph;
        case TipoElemento::Tabela:
            return QAccessible::Table;
        case TipoElemento::LinhaDeTabela:
            return QAccessible::Row;
        case TipoElemento::CelulaDeTitulo:
            return Leitura().IntitulaLinha(Onde().elemento) ? QAccessible::RowHeader
                                                            : QAccessible::ColumnHeader;
        case TipoElemento::Celula:
            return QAccessible::Cell;
        case TipoElemento::Figura:
            return QAccessible::Graphic;
        default:
            return QAccessible::StaticText;
    }
}

// The rows of a table that stand on one page.
class AcessoDaTabela final : public AcessoDoNo, public QAccessibleTableInterface {
  public:
    using AcessoDoNo::AcessoDoNo;

    void* interface_cast(QAccessible::InterfaceType tipo) override {
        return tipo == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    // Where a cell reaches over several columns it stands for each; there is always one.
    [[nodiscard]] QAccessibleInterface* cellAt(int linha, int coluna) const override {
        auto* acesso = child(linha);
        if (acesso == nullptr) {
            return nullptr;
        }
        int melhor = -1;
        for (const int celula : Em(Onde().filhos[static_cast<std::size_t>(linha)]).filhos) {
            if (melhor < 0 || Leitura().Coluna(Em(celula).elemento) <= coluna) {
                melhor = celula;
            }
        }
        return melhor < 0 ? acesso : Outro(melhor);
    }
    [[nodiscard]] QString columnDescription(int coluna) const override {
        return Leitura().TituloDaColuna(Onde().elemento, coluna);
    }
    [[nodiscard]] QString rowDescription(int linha) const override {
        return linha >= 0 && linha < rowCount()
                   ? Leitura().TituloDaLinha(
                         Em(Onde().filhos[static_cast<std::size_t>(linha)]).elemento)
                   : QString();
    }
    [[nodiscard]] int columnCount() const override { return Leitura().Colunas(Onde().elemento); }
    [[nodiscard]] int rowCount() const override { return childCount(); }
    [[nodiscard]] int selectedCellCount() const override { return 0; }
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override { return {}; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override { return 0; }
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override { return {}; }
    [[nodiscard]] bool isColumnSelected(int) const override { return false; }
    [[nodiscard]] bool isRowSelected(int) const override { return false; }
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}
};

class AcessoDaCelula final : public AcessoDoNo, public QAccessibleTableCellInterface {
  public:
    using AcessoDoNo::AcessoDoNo;

    void* interface_cast(QAccessible::InterfaceType tipo) override {
        return tipo == QAccessible::TableCellInterface
                   ? static_cast<QAccessibleTableCellInterface*>(this)
                   : nullptr;
    }
    [[nodiscard]] QString text(QAccessible::Text qual) const override {
        return qual == QAccessible::Description ? Descricao() : AcessoDoNo::text(qual);
    }
    [[nodiscard]] bool isSelected() const override { return state().focused; }
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override {
        QList<QAccessibleInterface*> celulas;
        for (const auto titulo : Leitura().TitulosDaColuna(Tabela().elemento, columnIndex())) {
            if (titulo == Onde().elemento) {
                break;  // over a heading stand only those above it
            }
            if (auto* acesso = AcessoDoElemento(titulo)) {
                celulas << acesso;
            }
        }
        return celulas;
    }
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override {
        const auto titulo = Leitura().QueIntitula(Em(Onde().pai).elemento);
        auto* acesso = titulo && *titulo != Onde().elemento ? AcessoDoElemento(*titulo) : nullptr;
        return acesso == nullptr ? QList<QAccessibleInterface*>()
                                 : QList<QAccessibleInterface*>{acesso};
    }
    [[nodiscard]] int columnIndex() const override { return Leitura().Coluna(Onde().elemento); }
    [[nodiscard]] int rowIndex() const override {
        const auto& linhas = Tabela().filhos;
        return static_cast<int>(std::find(linhas.begin(), linhas.end(), Onde().pai) -
                                linhas.begin());
    }
    [[nodiscard]] int columnExtent() const override { return Leitura().Largura(Onde().elemento); }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override { return Outro(Em(Onde().pai).pai); }

  private:
    [[nodiscard]] const No& Tabela() const { return Em(Em(Onde().pai).pai); }
    // What stands over it and before it, for readers that do not ask the table.
    [[nodiscard]] QString Descricao() const {
        QStringList partes;
        for (auto* titulo : columnHeaderCells() + rowHeaderCells()) {
            partes << titulo->text(QAccessible::Name);
        }
        partes.removeAll(QString());
        return partes.join(u", "_s);
    }
};

int AcessoDaVista::indexOfChild(const QAccessibleInterface* filho) const {
    const auto* no = dynamic_cast<const AcessoDoNo*>(filho);
    return no != nullptr && no->Indice() == 0 ? no->Pagina() : -1;
}

QAccessibleInterface* AcessoDaVista::childAt(int x, int y) const {
    return childCount() == 0 ? nullptr : child(vista_.PaginaNaTela({x, y}));
}

QAccessibleInterface* AcessoDaVista::Acesso(int pagina, int no) const {
    if (leitura_ != vista_.Leitura()) {
        Esquecer();
        leitura_ = vista_.Leitura();
    }
    const auto [achado, novo] = acessos_.try_emplace({pagina, no});
    if (novo) {
        const auto tipo = leitura_->Pagina(pagina).at(static_cast<std::size_t>(no)).tipo;
        QAccessibleInterface* acesso = nullptr;
        if (tipo == TipoElemento::Tabela) {
            acesso = new AcessoDaTabela(*this, leitura_, pagina, no);
        } else if (tipo == TipoElemento::Celula || tipo == TipoElemento::CelulaDeTitulo) {
            acesso = new AcessoDaCelula(*this, leitura_, pagina, no);
        } else {
            acesso = new AcessoDoNo(*this, leitura_, pagina, no);
        }
        achado->second = QAccessible::registerAccessibleInterface(acesso);
    }
    return QAccessible::accessibleInterface(achado->second);
}

QAccessibleInterface* Fabricar(const QString&, QObject* objeto) {
    auto* vista = dynamic_cast<VistaPaginas*>(objeto);
    return vista != nullptr ? new AcessoDaVista(*vista) : nullptr;
}

}  // namespace

void AcessoPaginas::Instalar() {
    QAccessible::installFactory(Fabricar);
}

void AcessoPaginas::DizerCursor(VistaPaginas& vista) {
    if (auto* acesso = QAccessible::queryAccessibleInterface(&vista)) {
        if (auto* foco = acesso->focusChild()) {
            QAccessibleEvent evento(foco, QAccessible::Focus);
            QAccessible::updateAccessibility(&evento);
        }
    }
}

}  // namespace tarvo
