#include "store/text.h"

#include <QStringEncoder>

#include <algorithm>

using namespace Qt::StringLiterals;

QString PadByWidth(int width, const QString& text) {
    QStringEncoder encoder("GB18030");
    QString kept;
    qsizetype used = 0;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype units = text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
        const QByteArray bytes = encoder.encode(QStringView(text).mid(at, units));
        if (used + bytes.size() > width) break;
        used += bytes.size();
        kept += QStringView(text).mid(at, units);
        at += units;
    }
    return kept + QString(std::max<qsizetype>(0, width - used), u' ');
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
