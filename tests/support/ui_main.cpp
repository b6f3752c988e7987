#include "shell/controls/kestro_style.h"
#include "shell/skin.h"

#include <QApplication>
#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    // Offscreen, unless another platform is asked for: a small screen, or a display with a window manager.
    const QByteArray platform = qgetenv("KESTRO_TEST_PLATFORM");
    qputenv("QT_QPA_PLATFORM", platform.isEmpty() ? QByteArray("offscreen") : platform);
    qputenv("QT_LOGGING_RULES",
            "*.warning=false");  // the offscreen platform cannot raise windows and says so
    QApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    QApplication::setQuitOnLastWindowClosed(false);
    Skin::Load(QCoreApplication::applicationDirPath(), false);
    QApplication::setStyle(new KestroStyle);
    QApplication::setFont(Skin::Font(Type::body));
    ::testing::InitGoogleTest(&argc, argv);
    GTEST_FLAG_SET(shuffle, true);
    return RUN_ALL_TESTS();
}
