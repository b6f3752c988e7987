#include "shell/message_text.h"

#include "shell/skin.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {
// From so many lines on they stand closer.
constexpr int kManyLines = 7;

QTextLayout::FormatRange Colored(qsizetype start, qsizetype length, Tok token) {
    QTextLayout::FormatRange range;
    range.start = static_cast<int>(start);
    range.length = static_cast<int>(length);
    range.format.setForeground(Skin::Color(token));
    return range;
}
}  // namespace

MessageText::MessageText(const QString& text, QWidget* parent) : QWidget(parent) {
    QString lines = text;
    lines.replace(u"\r\n"_s, u"\n"_s);
    lines.replace(u'\n', QChar(QChar::LineSeparator));
    layout_.setText(lines);
    layout_.setFont(Skin::Font(Type::body));
    layout_.setFormats(Formats());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout_.setTextOption(option);
    setAccessibleName(text);
}

QList<QTextLayout::FormatRange> MessageText::Formats() const {
    const QString text = layout_.text();
    QList<QTextLayout::FormatRange> formats;
    qsizetype start = 0;
    for (const QString& line : text.split(QChar(QChar::LineSeparator))) {
        const auto end = line.indexOf(u"】："_s);
        if (line.startsWith(u'【') && end > 0) formats += Colored(start, end + 2, Tok::text2);
        start += line.size() + 1;
    }
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'▲') formats += Colored(i, 1, Tok::add);
        if (text[i] == u'▼') formats += Colored(i, 1, Tok::reduce);
    }
    return formats;
}

int MessageText::Wrap(int width) {
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine())
        line.setLineWidth(width);
    layout_.endLayout();
    lineHeight_ = Skin::LineHeight(layout_.lineCount() < kManyLines ? Type::body : Type::small);
    for (int i = 0; i < layout_.lineCount(); ++i) {
        QTextLine line = layout_.lineAt(i);
        line.setPosition({0, i * lineHeight_ + (lineHeight_ - line.height()) / 2});
    }
    const int height = layout_.lineCount() * lineHeight_;
    resize(width, height);
    return height;
}

void MessageText::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setPen(Skin::Color(Tok::text));
    layout_.draw(&p, {0, 0});
}
