#pragma once
// Fixed-width and indented texts.

#include <QString>

/// text cut and filled with blanks to width bytes of the Chinese code page: a Chinese character counts 2.
QString PadByWidth(int width, const QString& text);

/// text behind 6 blanks for each level of two characters below the first. nbsp: pairs of blanks become
/// "&nbsp;".
QString IndentByDepth(const QString& text, bool nbsp = false);

/// A text as one line: line breaks become blanks.
QString OneLine(const QString& text);
