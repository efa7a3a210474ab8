#include <gmock/gmock.h>

#include <QApplication>

#include "platform/desktop/ApoioQt.h"

// Real windows without a screen.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    QApplication aplicacao(argc, argv);
    tarvo::InstalarTraducao();
    return RUN_ALL_TESTS();
}
