// SPDX-License-Identifier: MIT
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QClipboard>
#include <algorithm>

#include "dispatch/Catalogo.h"
#include "host/example/Exemplo.h"
#include "tests/desktop/Previas.h"

namespace tarvo {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::Not;
using namespace Qt::StringLiterals;

// As a screen reader says a cell: what stands over it, before it, and in it.
std::string Lida(QAccessibleInterface& celula) {
    QStringList partes;
    auto* naTabela = celula.tableCellInterface();
    for (auto* titulo : naTabela->columnHeaderCells() + naTabela->rowHeaderCells()) {
        partes << titulo->text(QAccessible::Name);
    }
    partes << celula.text(QAccessible::Name);
    return partes.join(u", "_s).toStdString();
}

struct Arvore {
    std::vector<std::string> titulos, textos, celulas;
};

void Percorrer(QAccessibleInterface& no, Arvore& arvore) {
    for (int i = 0; i < no.childCount(); ++i) {
        auto* filho = no.child(i);
        ASSERT_NE(filho, nullptr);
        EXPECT_TRUE(filho->isValid());
        EXPECT_EQ(filho->parent(), &no);
        EXPECT_EQ(no.indexOfChild(filho), i);
        const auto texto = filho->text(QAccessible::Name).toStdString();
        if (filho->role() == QAccessible::Heading) {
            arvore.titulos.push_back(texto);
        } else if (filho->tableCellInterface() != nullptr) {
            arvore.celulas.push_back(Lida(*filho));
        } else if (!texto.empty()) {
            arvore.textos.push_back(texto);
        }
        if (auto* tabela = filho->tableInterface()) {
            // No place of the grid is without a cell.
            for (int linha = 0; linha < tabela->rowCount(); ++linha) {
                for (int coluna = 0; coluna < tabela->columnCount(); ++coluna) {
                    EXPECT_NE(tabela->cellAt(linha, coluna), nullptr) << linha << ' ' << coluna;
                }
            }
        }
        Percorrer(*filho, arvore);
    }
}

class AcessoPaginas : public apoio::Previas {
  protected:
    // Shows a report of the example's first declaration and returns its first page.
    QAccessibleInterface& PrimeiraPagina(const char* codigo) {
        const auto entrada =
            std::find_if(Catalogo().begin(), Catalogo().end(),
                         [codigo](const auto& uma) { return uma.codigo == codigo; });
        relatorio = entrada->criar(ambiente);
        relatorio->Construir(*banco, "250114377019", 101);
        relatorio->Exibir();
        auto* vista = QAccessible::queryAccessibleInterface(&Parte<QWidget>("paginas"));
        EXPECT_EQ(vista->role(), QAccessible::Document);
        EXPECT_EQ(vista->childCount(), static_cast<int>(relatorio->Documento().paginas.size()));
        auto* pagina = vista->child(0);
        EXPECT_EQ(pagina->parent(), vista);
        EXPECT_TRUE(pagina->text(QAccessible::Name).startsWith(u"Página 1 de "_s));
        return *pagina;
    }
    Arvore ArvoreDe(const char* codigo) {
        Arvore arvore;
        Percorrer(PrimeiraPagina(codigo), arvore);
        return arvore;
    }

    apoio::BancoDeTeste banco{ScriptDeExemplo()};
    ConfiguracoesIni& definir = (ini.Gravar("Tarvo", "pRef", "RefAtual", "07/2003"), ini);
    Ambiente ambiente{.visualizadores = &fabrica, .configuracoes = &definir};
    std::unique_ptr<RelatorioDeclaracao> relatorio;
};

TEST_F(AcessoPaginas, PagesAreReadAsHeadingsFieldsAndTables) {
    const auto resumo = ArvoreDe("02");
    EXPECT_THAT(resumo.titulos, Contains("Resumo por CFOPs - Entradas (Grupos 1, 2 e 3)"));
    EXPECT_THAT(resumo.textos, AllOf(Contains("Inscrição Estadual 250114377019"),
                                     Contains("Brasão do Estado de Valdora")));
    EXPECT_THAT(resumo.celulas,
                AllOf(Contains("Valores Contábeis, 1.101, 2.434.362,95"),
                      Contains("ICMS - VALORES FISCAIS, Operações com Crédito do Imposto, "
                               "Imposto Creditado, 1.101, 417.319,36"),
                      Contains("CÓDIGOS FISCAIS, 1.101")));
    // The footer is there for the eye alone.
    EXPECT_THAT(resumo.textos, Not(Contains(testing::HasSubstr("Página 1 de"))));
    EXPECT_THAT(ArvoreDe("10").celulas,
                Contains("Por entradas com crédito do imposto, 1.129.541,51"));
    EXPECT_THAT(ArvoreDe("17").celulas, Contains("Valor, 04/08/2003, 33.390,46"));
}

TEST_F(AcessoPaginas, TheArrowKeysReadTextByTextAndInTablesByRowAndColumn) {
    PrimeiraPagina("17");
    auto* vista = QAccessible::queryAccessibleInterface(&Parte<QWidget>("paginas"));
    EXPECT_EQ(vista->focusChild(), nullptr);
    Teclar("F7");
    const auto lido = [&] { return vista->focusChild()->text(QAccessible::Name).toStdString(); };
    for (int i = 0; i < 40 && lido() != "01/08/2003"; ++i) {
        Teclar("Right");
    }
    Teclar("Right");
    EXPECT_EQ(lido(), "23.394,59");
    Teclar("Down");
    EXPECT_EQ(lido(), "33.390,46");
    auto* celula = vista->focusChild();
    EXPECT_TRUE(celula->state().focused);
    EXPECT_EQ(celula->text(QAccessible::Description), u"Valor, 04/08/2003"_s);
    // It is seen and can be copied.
    EXPECT_TRUE(vista->rect().contains(celula->rect()));
    Teclar("Ctrl+C");
    EXPECT_EQ(QApplication::clipboard()->text(), u"33.390,46"_s);
    Teclar("Up");
    Teclar("Left");
    EXPECT_EQ(lido(), "01/08/2003");
    relatorio->Ocultar();
    EXPECT_EQ(vista->childCount(), 0);
    EXPECT_EQ(vista->focusChild(), nullptr);
}

}  // namespace
}  // namespace tarvo
