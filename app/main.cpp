// The process entry.

#include "app/signals.h"
#include "app/startup.h"
#include "app/windows.h"
#include "shell/controls/kestro_style.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/message_box.h"
#include "shell/skin.h"
#include "store/errors.h"
#include "store/places.h"
#include "web/network.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <optional>

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

constexpr int kBadUsage = 2;
constexpr auto kUsage =
    "Usage: KestroJot [BOOK]\n"
    "Desktop bookkeeping. BOOK is a .jotdb file; a running copy opens it.\n\n"
    "  -h, --help     show this text\n"
    "  -v, --version  show the version";

/// The toolkit takes these for itself, with the word behind them.
bool IsToolkitOption(const QByteArray& word) {
    static const QByteArrayList options{"-platform", "-display", "-session", "-style"};
    return options.contains(word.startsWith("--") ? word.mid(1) : word);
}

struct CommandLine {
    QByteArray book;
    std::optional<int> answer;  ///< the exit status, when no window is needed
};

int Complain(const QByteArray& what) {
    std::fprintf(stderr, "KestroJot: %s\n%s\n", what.constData(), kUsage);
    return kBadUsage;
}

// Read before the toolkit starts, which needs a display.
CommandLine ReadCommandLine(int argc, char** argv) {
    CommandLine line;
    bool words = false;
    for (int i = 1; i < argc && !line.answer; ++i) {
        const QByteArray word = argv[i];
        const bool option = !words && word.startsWith('-') && word.size() > 1;
        if (option && word == "--") {
            words = true;
        } else if (option && (word == "--version" || word == "-v")) {
            line.answer = std::puts("KestroJot " KESTRO_VERSION) < 0 ? 1 : 0;
        } else if (option && (word == "--help" || word == "-h")) {
            line.answer = std::puts(kUsage) < 0 ? 1 : 0;
        } else if (option && IsToolkitOption(word)) {
            ++i;
        } else if (option) {
            line.answer = Complain("unknown option " + word);
        } else if (!line.book.isEmpty()) {
            line.answer = Complain("one book at most");
        } else {
            line.book = word;
        }
    }
    return line;
}

QString BookPath(const QByteArray& word) {
    if (word.isEmpty()) return {};
    const QString text = QString::fromLocal8Bit(word);
    const QUrl url(text);
    return QFileInfo(url.isLocalFile() ? url.toLocalFile() : text).absoluteFilePath();
}

// Instead of the toolkit's abort.
void TellMissingDisplay(QtMsgType type, const QMessageLogContext&, const QString&) {
    if (type != QtFatalMsg) return;
    std::fputs("KestroJot: no display can be opened\n", stderr);
    std::_Exit(1);
}

void SpeakChinese(QApplication& app) {
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::SimplifiedChineseScript, QLocale::China));
    auto* words = new QTranslator(&app);
    if (words->load(u"qtbase_zh_CN"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(words);
}

}  // namespace

int main(int argc, char** argv) {
    const CommandLine line = ReadCommandLine(argc, argv);
    if (line.answer) return *line.answer;
    const auto handler = qInstallMessageHandler(TellMissingDisplay);
    Application app(argc, argv);
    qInstallMessageHandler(handler);
    QApplication::setApplicationName(u"KestroJot"_s);
    QApplication::setDesktopFileName(QStringLiteral(KESTRO_APP_ID));
    QApplication::setQuitOnLastWindowClosed(false);
    SpeakChinese(app);
    Skin::Load(ProgramFolder());
    QApplication::setStyle(new KestroStyle);
    QApplication::setFont(Skin::Font(Type::body));
    KestroToolTip::Install();
    RegisterWindows();
    Web().send = NetworkSend();
    StartResult result = StartResult::failed;
    RunEvent([&] { result = StartUp(BookPath(line.book)); });
    if (result != StartResult::login) return result == StartResult::failed ? 1 : 0;
    OnEndSignal(EndQuietly);
    if (!RunEvent([] { ShowLogin(); })) return 1;
    StartAgentAtRest([] { TellDueCount(); });
    const int code = QApplication::exec();
    DropWindows();
    return code;
}
