#include "shell/file_dialog.h"

#include "store/paths.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
// The pattern with both cases of each letter, as the platform's dialog compares exactly.
QString AnyCase(const QString& pattern) {
    QString result;
    for (const QChar c : pattern)
        result += c.isLetter() ? u"[%1%2]"_s.arg(c.toLower(), c.toUpper()) : QString(c);
    return result;
}

QString PatternOf(const QString& patterns) {
    QStringList result;
    for (const QString& pattern : patterns.split(u';', Qt::SkipEmptyParts))
        result += pattern.trimmed() == u"*.*"_s ? u"*"_s : AnyCase(pattern.trimmed());
    return result.join(u' ');
}

QString StartFolder(const QString& folder) {
    const FoundPath found = RealPath(folder);
    return !folder.isEmpty() && found.exists ? found.path : QDir::homePath();
}

QString AskForNewFile(const FileRequest& request, QWidget* parent) {
    QFileDialog dialog(parent, request.title, StartFolder(request.folder), PlatformFilter(request.filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(request.suffix);
    dialog.selectFile(request.name);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString AskPlatform(const FileRequest& request) {
    QWidget* parent = QApplication::activeWindow();
    const QString folder = StartFolder(request.folder);
    if (!request.suffix.isEmpty()) return AskForNewFile(request, parent);
    if (request.wantsFolder) return QFileDialog::getExistingDirectory(parent, request.title, folder);
    const QString start = request.name.isEmpty() ? folder : folder + u'/' + request.name;
    return QFileDialog::getOpenFileName(parent, request.title, start, PlatformFilter(request.filter));
}
}  // namespace

std::function<QString(const FileRequest&)>& FileDialogSlot() {
    static std::function<QString(const FileRequest&)> slot = AskPlatform;
    return slot;
}

QString ChooseFile(const QString& title, const QString& filter, const QString& folder, const QString& name) {
    const auto& slot = FileDialogSlot();
    return slot ? slot({title, filter, folder, name, false}) : QString();
}

QString ChooseNewFile(const QString& title, const QString& filter, const QString& folder, const QString& name,
                      const QString& suffix) {
    const auto& slot = FileDialogSlot();
    return slot ? slot({title, filter, folder, name, false, suffix}) : QString();
}

QString ChooseFolder(const QString& title, const QString& folder) {
    const auto& slot = FileDialogSlot();
    return slot ? slot({title, {}, folder, {}, true}) : QString();
}

QString PlatformFilter(const QString& filter) {
    QStringList result;
    for (const QString& line : filter.split(u'\n', Qt::SkipEmptyParts)) {
        const auto bar = line.indexOf(u'|');
        const QString name = bar < 0 ? line : line.left(bar);
        result += u"%1 (%2)"_s.arg(name.trimmed(), PatternOf(bar < 0 ? line : line.mid(bar + 1)));
    }
    return result.join(u";;"_s);
}
