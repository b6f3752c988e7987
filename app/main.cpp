// The process entry.

#include "app/startup.h"
#include "app/windows.h"
#include "shell/controls/kestro_style.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/message_box.h"
#include "shell/skin.h"
#include "store/errors.h"
#include "store/places.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <QUrl>

#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

/// The last net: nothing that flies by may reach the event loop.
class Application : public QApplication {
 public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (...) {
            const auto failure = std::current_exception();
            RunEvent([&] { std::rethrow_exception(failure); });
            return false;
        }
    }
};

bool AnswerWithoutDisplay(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--version") == 0) {
            std::puts("KestroJot " KESTRO_VERSION);
            return true;
        }
        if (std::strcmp(argv[i], "--help") == 0) {
            std::puts(
                "Usage: KestroJot [BOOK]\n"
                "Desktop bookkeeping. BOOK is a .jotdb file; a running copy opens it.\n\n"
                "  --help     show this text\n"
                "  --version  show the version");
            return true;
        }
    }
    return false;
}

QString BookArgument(const QStringList& arguments) {
    if (arguments.size() < 2) return {};
    const QUrl url(arguments[1]);
    const QString path = url.isLocalFile() ? url.toLocalFile() : arguments[1];
    return QFileInfo(path).absoluteFilePath();
}

void SpeakChinese(QApplication& app) {
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::SimplifiedChineseScript, QLocale::China));
    auto* words = new QTranslator(&app);
    if (words->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(words);
}

}  // namespace

int main(int argc, char** argv) {
    if (AnswerWithoutDisplay(argc, argv)) return 0;
    Application app(argc, argv);
    QApplication::setApplicationName(u"KestroJot"_s);
    QApplication::setDesktopFileName(u"kestrojot"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    SpeakChinese(app);
    Skin::Load(ProgramFolder());
    QApplication::setStyle(new KestroStyle);
    QApplication::setFont(Skin::Font(Type::body));
    KestroToolTip::Install();
    RegisterWindows();
    StartResult result = StartResult::failed;
    RunEvent([&] { result = StartUp(BookArgument(QApplication::arguments())); });
    if (result != StartResult::login) return result == StartResult::failed ? 1 : 0;
    RunEvent([] { ShowLogin(); });
    const int code = QApplication::exec();
    DropWindows();
    return code;
}
