#pragma once
// Breaking a long text into lines by its width.

#include <QString>
#include <QStringList>

#include <functional>

/// The lines of text that keep to room, at most that many. Its own line breaks hold; further ones come at
/// blanks and between Chinese characters where one may stand, inside a word only when nothing else is left.
/// whole tells whether the lines hold all of the text.
struct WrappedText {
    QStringList lines;
    bool whole = true;
};
WrappedText WrapText(const QString& text, double room, qsizetype most,
                     const std::function<double(const QString&)>& width);
