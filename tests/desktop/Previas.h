// SPDX-License-Identifier: MIT
#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include "desktop/preview/VisualizadorQt.h"
#include "document/DocumentoRelatorio.h"
#include "system/settings/ConfiguracoesIni.h"
#include "tests/support/Apoio.h"

// What the tests of the preview share.
namespace tarvo::apoio {

// Pages of a small table: rows "linha L" and "valor P.L" on each page P, title "Apuração", footer.
void MontarTabela(DocumentoRelatorio& documento, int paginas, std::int32_t orientacao = 0);

// The windows of a kind that are open, those with that name when one is given.
template <class T>
std::vector<T*> Abertas(const char* nome = nullptr) {
    std::vector<T*> abertas;
    for (auto* janela : QApplication::topLevelWidgets()) {
        auto* uma = qobject_cast<T*>(janela);
        const bool procurada = nome == nullptr || janela->objectName() == QLatin1String(nome);
        if (uma != nullptr && uma->isVisible() && procurada) {
            abertas.push_back(uma);
        }
    }
    return abertas;
}

// Previews that keep their settings in a folder of the test's own.
class Previas : public testing::Test {
  protected:
    Previas();
    // In the order of their titles.
    static std::vector<QMainWindow*> Abertas();
    static QMainWindow& Unica();
    template <class T>
    static T& Parte(const char* nome) {
        auto* parte = Unica().findChild<T*>(QString::fromUtf8(nome));
        EXPECT_NE(parte, nullptr) << nome;
        return *parte;
    }
    static std::string Situacao();  // "Página 3 de 12"
    static std::string Ampliacao();
    static void Teclar(const char* atalho, QWidget* onde = nullptr);
    static bool Esperar(const std::function<bool()>& condicao) {
        return QTest::qWaitFor(condicao, 10'000);
    }

    PastaTemporaria pasta;
    ConfiguracoesIni ini{pasta.Caminho()};
    FabricaVisualizadoresQt fabrica{&ini};
    Ambiente ambiente{.visualizadores = &fabrica};
};

}  // namespace tarvo::apoio
