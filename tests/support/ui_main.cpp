#include "shell/controls/kestro_style.h"
#include "shell/skin.h"

#include <QApplication>
#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*.warning=false");  // the offscreen platform cannot raise windows and says so
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
