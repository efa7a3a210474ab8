// SPDX-License-Identifier: MIT
#include "tests/desktop/Previas.h"

#include <QComboBox>
#include <QLabel>
#include <algorithm>
#include <cstdlib>

#include "document/Imagens.h"
#include "document/QuadroPagina.h"

namespace tarvo::apoio {

void MontarTabela(DocumentoRelatorio& documento, int paginas, std::int32_t orientacao) {
    documento.Iniciar();
    documento.DefinirTitulo("Relatório de Apuração");
    documento.DefinirTituloResumido("Apuração / Teste");
    documento.DefinirIcone(frmFiguras::imgIconeR);
    documento.DefinirOrientacao(orientacao);
    documento.DefinirMargens(2, 2, 2, 2);
    for (int p = 1; p <= paginas; ++p) {
        if (p > 1) {
            documento.NovaPagina();
        }
        EscreverEmCaixa(documento, {.tamanho = 14}, 0, 0, 17, 1, "Apuração");
        for (int l = 1; l <= 3; ++l) {
            Celula(documento, {}, 0, l, 4, 0.6, "linha " + std::to_string(l));
            Celula(documento, {.horizontal = Alinhamento::Direita}, 4, l, 4, 0.6,
                   "valor " + std::to_string(p) + "." + std::to_string(l));
        }
        ImprimirRodape(documento, 0, 15);
    }
}

Previas::Previas() {
    // The same document gives the same bytes.
    setenv("SOURCE_DATE_EPOCH", "1000000000", 1);
}

std::vector<QMainWindow*> Previas::Abertas() {
    auto abertas = apoio::Abertas<QMainWindow>("visualizacao");
    std::sort(abertas.begin(), abertas.end(),
              [](auto* a, auto* b) { return a->windowTitle() < b->windowTitle(); });
    return abertas;
}

QMainWindow& Previas::Unica() {
    const auto abertas = Abertas();
    if (abertas.size() != 1) {
        throw std::runtime_error("not one preview is open");
    }
    return *abertas.front();
}

std::string Previas::Situacao() {
    return Parte<QLabel>("situacaoPagina").text().toStdString();
}

std::string Previas::Ampliacao() {
    return Parte<QComboBox>("campoAmpliacao").currentText().toStdString();
}

void Previas::Teclar(const char* atalho, QWidget* onde) {
    const auto tecla = QKeySequence(QString::fromUtf8(atalho))[0];
    // Shortcuts belong to the active window, which a window becomes only some time after another
    // was closed.
    Unica().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Unica()));
    auto* alvo = onde != nullptr ? onde : &Parte<QWidget>("paginas");
    QTest::keyClick(alvo, tecla.key(), tecla.keyboardModifiers());
}

}  // namespace tarvo::apoio
