#include "output/print_wrap.h"

#include <QTextBoundaryFinder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class Wrapping {
 public:
    Wrapping(const QString& paragraph, double room, const std::function<double(const QString&)>& width)
        : text_(paragraph),
          room_(room),
          width_(width),
          lines_(QTextBoundaryFinder::Line, paragraph),
          letters_(QTextBoundaryFinder::Grapheme, paragraph) {}

    bool AtEnd() const { return at_ >= text_.size(); }

    QString NextLine() {
        const qsizetype begin = at_;
        at_ = EndOfLine(begin);
        return text_.mid(begin, at_ - begin);
    }

 private:
    bool Fits(qsizetype begin, qsizetype end) const { return width_(text_.mid(begin, end - begin)) <= room_; }

    // As many units as fit, found by doubling and halving.
    qsizetype MostThatFits(qsizetype begin) const {
        qsizetype good = begin, bad = begin + 8;
        while (bad < text_.size() && Fits(begin, bad)) {
            good = bad;
            bad += bad - begin;
        }
        if (bad >= text_.size()) {
            if (Fits(begin, text_.size())) return text_.size();
            bad = text_.size();
        }
        while (bad - good > 1) {
            const qsizetype middle = (good + bad) / 2;
            (Fits(begin, middle) ? good : bad) = middle;
        }
        return good;
    }

    qsizetype EndOfLine(qsizetype begin) {
        qsizetype end = MostThatFits(begin);
        while (end < text_.size() && text_[end] == u' ')
            ++end;
        if (end >= text_.size()) return text_.size();
        if (const auto border = BoundaryUpTo(lines_, end); border > begin) return border;
        if (const auto border = BoundaryUpTo(letters_, end); border > begin) return border;
        letters_.setPosition(begin);
        const auto next = letters_.toNextBoundary();
        return next > begin ? next : text_.size();
    }

    static qsizetype BoundaryUpTo(QTextBoundaryFinder& finder, qsizetype end) {
        finder.setPosition(end);
        return finder.isAtBoundary() ? end : finder.toPreviousBoundary();
    }

    const QString& text_;
    double room_;
    const std::function<double(const QString&)>& width_;
    QTextBoundaryFinder lines_;
    QTextBoundaryFinder letters_;
    qsizetype at_ = 0;
};

QStringList Paragraphs(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s).remove(QChar(u'\0'));
    for (const char16_t c : {u'\r', u'\u2028', u'\u2029'})
        text.replace(QChar(c), u'\n');
    text.replace(u'\t', u' ');
    return text.split(u'\n');
}

}  // namespace

WrappedText WrapText(const QString& text, double room, qsizetype most,
                     const std::function<double(const QString&)>& width) {
    WrappedText wrapped;
    for (const auto& paragraph : Paragraphs(text)) {
        Wrapping wrapping(paragraph, room, width);
        do {
            if (wrapped.lines.size() >= most) {
                wrapped.whole = false;
                return wrapped;
            }
            wrapped.lines << (paragraph.isEmpty() ? QString() : wrapping.NextLine());
        } while (!wrapping.AtEnd());
    }
    return wrapped;
}
