// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>

#include <QApplication>
#include <QThreadPool>

#include "desktop/ApoioQt.h"

// Real windows without a screen.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    QApplication aplicacao(argc, argv);
    tarvo::InstalarTraducao();
    // Every printing gets a new thread, which looks for the print service of its test.
    QThreadPool::globalInstance()->setExpiryTimeout(0);
    return RUN_ALL_TESTS();
}
