// kestro-drive: the program's logic without windows. JSON lines in, JSON lines out.

#include "store/book_box.h"
#include "store/book_check.h"
#include "store/book_format.h"
#include "store/errors.h"
#include "store/paths.h"
#include "store/session.h"
#include "store/settings_file.h"
#include "store/state.h"
#include "tools/drive/request.h"
#include "web/network.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QStringDecoder>

#include <cstdio>
#include <iostream>
#include <map>
#include <string>

using namespace Qt::StringLiterals;

namespace {

struct Options {
    QString book, pass, settings, data, box, defaultBox;
    bool good = false;
};

Options Read(const QStringList& arguments) {
    Options options;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const std::map<QString, QString*> named{{u"--pass"_s, &options.pass},
                                                {u"--settings"_s, &options.settings},
                                                {u"--data"_s, &options.data},
                                                {u"--box"_s, &options.box},
                                                {u"--default-box"_s, &options.defaultBox}};
        const auto option = named.find(arguments[i]);
        if (option == named.end()) {
            options.book = arguments[i];
            continue;
        }
        if (++i == arguments.size()) return options;
        *option->second = arguments[i];
    }
    options.good = !options.book.isEmpty();
    return options;
}

void Print(const QJsonObject& answer) {
    const QByteArray line = QJsonDocument(answer).toJson(QJsonDocument::Compact);
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

QString Absolute(const QString& path, const QString& otherwise) {
    return path.isEmpty() ? otherwise : QFileInfo(path).absoluteFilePath();
}

// Without a box the book stands alone.
void KnowBooks(const Options& options, const QString& book) {
    auto& state = State();
    state.gDefaultBox = Absolute(options.defaultBox, UsualBookBox());
    if (options.box.isEmpty()) {
        state.gBooks.clear();
        state.gCurBook = AddOutsideBook(book);
        return;
    }
    state.settings.sDBPath = FixBookPath(Absolute(options.box, {}));
    state.gCommandLine = book;
    ScanBookBox(state.settings.sDBPath);
    ReadBookInfo();
    ChooseBook();
}

// Opens the book as the program does. The text of what refuses it, or an empty one.
QString OpenBook(const Options& options) {
    const BoxLog log;
    const QString path = QFileInfo(options.book).absoluteFilePath();
    const auto spelled = SpelledPath(path);
    if (!spelled.rivals.isEmpty()) return RivalsText(spelled.rivals);
    if (!FileExists(path)) return u"文件【"_s + path + u"】不存在！"_s;
    PendingError failed;
    bool right = false;
    const bool opened = Succeeds(
        [&] {
            if (!options.settings.isEmpty()) OpenSettings(options.settings);
            KnowBooks(options, spelled.path);
            if (!CheckBook(-1)) return;
            ReopenDB();
            right = CheckPass(State().gDB, options.pass) == PassCheck::right;
        },
        &failed);
    if (!opened) return ErrorText(failed, {});
    if (right) return {};
    return log.LastText().isEmpty() ? u"口令不正确!"_s : log.LastText();
}

QJsonObject AnswerLine(const std::string& line) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8.decode(QByteArrayView(line.data(), static_cast<qsizetype>(line.size())));
    if (utf8.hasError()) return {{u"ok"_s, false}, {u"error"_s, u"bad UTF-8"_s}, {u"boxes"_s, QJsonArray()}};
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(text.toUtf8(), &error);
    if (!document.isObject())
        return {{u"ok"_s, false}, {u"error"_s, u"bad JSON"_s}, {u"boxes"_s, QJsonArray()}};
    return Answer(document.object());
}

}  // namespace

int main(int argc, char** argv) {
    // Texts are measured and pages painted without a display, whatever the desktop is.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    qputenv("QT_LOGGING_RULES", "*.warning=false");
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    int alone = 1;  // the toolkit gets no word of the command line
    const QGuiApplication app(alone, argv);
    const Options options = Read(arguments);
    if (!options.good) {
        std::fputs(
            "Usage: kestro-drive [--pass TEXT] [--settings FILE] [--data FOLDER] "
            "[--box FOLDER] [--default-box FOLDER] BOOK\n",
            stderr);
        return 1;
    }
    Web().send = NetworkSend();
    State().gDataDir =
        options.data.isEmpty() ? UsualDataFolder() : QFileInfo(options.data).absoluteFilePath();
    const QString refused = OpenBook(options);
    if (!refused.isEmpty()) {
        Print({{u"ok"_s, false}, {u"message"_s, refused}});
        return 1;
    }
    for (std::string line; std::getline(std::cin, line);)
        if (!line.empty()) Print(AnswerLine(line));
    Web().Drop();
    Web().send = {};
    return 0;
}
