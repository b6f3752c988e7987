#include "store/text.h"

#include <QStringEncoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Bytes of one character in GB18030; the usual ones without asking the converter.
qsizetype BytesOf(QStringView character) {
    const char16_t c = character.front().unicode();
    if (c < 0x80) return 1;
    if (c >= 0x4E00 && c <= 0x9FA5) return 2;
    QStringEncoder encoder("GB18030");
    return QByteArray(encoder.encode(character)).size();
}

}  // namespace

QString PadByWidth(int width, const QString& text) {
    qsizetype kept = 0, used = 0;
    while (kept < text.size()) {
        const qsizetype units = text[kept].isHighSurrogate() && kept + 1 < text.size() ? 2 : 1;
        const qsizetype bytes = BytesOf(QStringView(text).mid(kept, units));
        if (used + bytes > width) break;
        used += bytes;
        kept += units;
    }
    return text.left(kept).leftJustified(kept + std::max<qsizetype>(0, width - used), u' ');
}

QString IndentByDepth(const QString& text, bool nbsp) {
    const QString trimmed = text.trimmed();
    const auto blanks = std::max<qsizetype>(0, (trimmed.size() / 2 - 1) * 6);
    QString indented = QString(blanks, u' ') + trimmed;
    if (nbsp) indented.replace(u"  "_s, u"&nbsp;"_s);
    return indented;
}

QString OneLine(const QString& text) {
    QString line = text;
    line.replace(u"\r\n"_s, u" "_s).remove(QChar(u'\0'));
    for (const char16_t c : {u'\r', u'\n', u'\u2028', u'\u2029'})
        line.replace(QChar(c), u' ');
    return line;
}
