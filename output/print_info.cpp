#include "output/print_info.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The pieces between "#", those that begin no document put back to the one before.
QStringList Documents(const QString& text) {
    static const QRegularExpression head(u"^\\s*\\w+\\s*/\\s*[01]\\s*(/|$)"_s,
                                         QRegularExpression::UseUnicodePropertiesOption);
    QStringList documents;
    for (const auto& piece : text.split(u'#')) {
        if (documents.isEmpty() || head.match(piece).hasMatch())
            documents << piece;
        else
            documents.last() += u'#' + piece;
    }
    return documents;
}

// Where the condition's "and" begins, behind a "/"; -1 when there is none.
qsizetype ConditionIn(const QString& rest) {
    static const QRegularExpression condition(u"/(?=\\s*and\\s)"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    const auto found = condition.match(rest);
    return found.hasMatch() ? found.capturedEnd() : -1;
}

// Takes a mark off the end of a condition: a word behind a "/" that stands in no text of the condition.
QString TakeMark(QString& condition) {
    static const QRegularExpression word(u"^\\s*\\w*\\s*$"_s, QRegularExpression::UseUnicodePropertiesOption);
    const auto border = condition.lastIndexOf(u'/');
    if (border < 0) return {};
    const QString mark = condition.mid(border + 1);
    const bool inText = condition.left(border).count(u'\'') % 2 != 0;
    if (inText || !word.match(mark).hasMatch()) return {};
    condition.truncate(border);
    return mark.trimmed();
}

// A title without a condition that can be known as one: what is left is split as it stands, unless it holds
// more borders than a text can have.
void SplitPlain(const QString& rest, PrintInfo& info) {
    static const QRegularExpression end(
        u"^(.*)/\\s*/\\s*(\\w*)\\s*$"_s,
        QRegularExpression::UseUnicodePropertiesOption | QRegularExpression::DotMatchesEverythingOption);
    if (const auto found = end.match(rest); found.hasMatch()) {
        info.title = found.captured(1);
        info.mark = found.captured(2);
    } else if (rest.endsWith(u'/')) {
        info.title = rest.chopped(1);
    } else if (const auto parts = rest.split(u'/'); parts.size() <= 3) {
        info.title = parts[0];
        info.condition = parts.value(1);
        info.mark = parts.value(2);
    } else {
        info.title = rest;
    }
}

PrintInfo Parse(const QString& document) {
    PrintInfo info;
    const auto first = document.indexOf(u'/');
    const auto second = first < 0 ? -1 : document.indexOf(u'/', first + 1);
    info.table = document.left(first).trimmed();
    const QString kind = first < 0 ? QString() : document.mid(first + 1, second - first - 1).trimmed();
    info.list = kind.toInt() != 0;
    const QString rest = second < 0 ? QString() : document.mid(second + 1);
    if (const auto at = ConditionIn(rest); at >= 0) {
        info.title = rest.left(at - 1);
        info.condition = rest.mid(at);
        info.mark = TakeMark(info.condition);
    } else {
        SplitPlain(rest, info);
    }
    info.title = info.title.trimmed();
    info.condition = info.condition.trimmed();
    if (!info.condition.isEmpty()) info.condition.prepend(u' ');
    info.mark = info.mark.trimmed();
    return info;
}

}  // namespace

QString PrintInfoText(const std::vector<PrintInfo>& documents) {
    QStringList texts;
    for (const auto& info : documents) {
        QString text = info.table + (info.list ? u"/1/"_s : u"/0/"_s) + info.title + u'/' + info.condition;
        if (!info.mark.isEmpty()) text += u'/' + info.mark;
        texts << text;
    }
    return texts.join(u'#');
}

std::vector<PrintInfo> ParsePrintInfo(const QString& text) {
    std::vector<PrintInfo> documents;
    if (text.trimmed().isEmpty()) return documents;
    for (const auto& document : Documents(text.trimmed()))
        documents.push_back(Parse(document));
    return documents;
}
