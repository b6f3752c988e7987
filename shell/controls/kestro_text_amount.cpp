#include "shell/controls/kestro_text.h"
#include "shell/skin.h"
#include "store/money.h"

#include <QInputMethodEvent>
#include <QPainter>

#include <limits>

using namespace Qt::StringLiterals;

namespace {
constexpr int kPadding = 8;
constexpr int kUnitGap = 6;
constexpr int kDot = 6, kDotStep = 10;

// How many characters of shown stand before the position-th character of plain; separators belong to the
// character after them.
qsizetype ShownPosition(const QString& plain, const QString& shown, qsizetype position) {
    qsizetype at = 0;
    for (qsizetype i = 0; i < position && at < shown.size(); ++i, ++at)
        while (at < shown.size() && shown[at] != plain[i])
            ++at;
    return at;
}

bool SpellsNumber(const QString& text) {
    return NumericValue(text).has_value() && !text.contains(u'e', Qt::CaseInsensitive);
}
}  // namespace

int KestroText::UnitWidth() const {
    if (unit_.isEmpty()) return 0;
    return QFontMetrics(Skin::Font(Type::body)).horizontalAdvance(unit_) + kUnitGap;
}

// Only a text that is a number is grouped: anything else is shown as typed, for the user to see what is
// wrong.
QString KestroText::Grouped() const {
    QString plain = text();
    const auto point = plain.indexOf(u'.');
    const QString whole = point < 0 ? plain : plain.left(point);
    if (!SpellsNumber(whole) || !(point < 0 || SpellsNumber(u"0"_s + plain.mid(point)))) return plain;
    QString grouped = GroupText(whole, group_, u","_s, whole);
    // What grouping would write in another way, such as leading zeros, stands as typed too.
    if (QString(grouped).remove(u',') != whole) return plain;
    return point < 0 ? grouped : grouped + plain.mid(point);
}

QRect KestroText::TextRoom() const {
    const QMargins m = textMargins();
    return rect().adjusted(m.left() + 2, 0, -m.right() - 2, 0);
}

int KestroText::AmountX(int position) const {
    const QFontMetrics metrics(font());
    const QString shown = Grouped();
    const auto wide = [&](const QString& t) { return metrics.horizontalAdvance(t); };
    const QRect room = TextRoom();
    const int cursor = wide(shown.left(ShownPosition(text(), shown, cursorPosition())));
    const int all = wide(shown) + wide(preedit_);
    // A text longer than its box is pushed so far that the cursor stays in sight.
    const int hidden = qMax(0, room.width() - all >= 0 ? 0 : room.left() - (room.right() - all + cursor));
    const int start = room.right() + 1 - all + hidden;
    return start + wide(shown.left(ShownPosition(text(), shown, position)));
}

int KestroText::PositionAt(int x) const {
    int best = 0;
    int least = std::numeric_limits<int>::max();
    for (int i = 0; i <= text().size(); ++i) {
        const int away = qAbs(PositionX(i) - x);
        if (away < least) best = i;
        least = qMin(least, away);
    }
    return best;
}

void KestroText::PaintAmount(QPainter& p) const {
    const QRect room = TextRoom();
    const QString shown = Grouped();
    const int start = AmountX(0);
    const int cursorX = AmountX(cursorPosition());
    PaintPrompt(p, start);
    p.setFont(font());
    p.save();
    p.setClipRect(room.adjusted(-1, 0, 2, 0));
    if (hasSelectedText()) {
        const int x1 = AmountX(selectionStart());
        const int high = p.fontMetrics().height();
        p.fillRect(x1, (height() - high) / 2, AmountX(selectionEnd()) - x1, high, palette().highlight());
    }
    p.setPen(TextColor());
    const auto split = ShownPosition(text(), shown, cursorPosition());
    const auto draw = [&](int x, const QString& t) {
        p.drawText(QRect(x, 0, width(), height()), Qt::AlignVCenter | Qt::TextDontClip, t);
        return p.fontMetrics().horizontalAdvance(t);
    };
    draw(start, shown.left(split));
    const int composed = draw(cursorX, preedit_);
    draw(cursorX + composed, shown.mid(split));
    if (composed > 0) Skin::HLine(p, cursorX, cursorX + composed, height() - 7, TextColor());
    if (hasFocus() && !isReadOnly())
        Skin::VLine(p, cursorX + composed, 7, height() - 7, Skin::Color(Tok::text));
    p.restore();
    if (unit_.isEmpty()) return;
    p.setFont(Skin::Font(Type::body));
    p.setPen(Skin::Color(isEnabled() ? Tok::text2 : Tok::dis));
    p.drawText(QRect(room.right() + 1 + kUnitGap, 0, UnitWidth(), height()), Qt::AlignVCenter, unit_);
}

void KestroText::PaintPrompt(QPainter& p, int right) const {
    const QRect room(kPadding, 0, right - 2 * kPadding, height());
    p.setFont(Skin::Font(Type::small));
    if (p.fontMetrics().horizontalAdvance(prompt_) > room.width()) return;
    p.setPen(Skin::Color(isEnabled() ? Tok::text3 : Tok::dis));
    p.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, prompt_);
}

// Dots of one width whatever the letters are, pushed so far that the cursor stays in sight.
int KestroText::DotX(int position) const {
    const QRect room = TextRoom();
    const int hidden = qMax(0, kDotStep * cursorPosition() + 1 - room.width());
    return room.left() + kDotStep * position - hidden;
}

void KestroText::PaintDots(QPainter& p) const {
    const QRect room = TextRoom();
    if (text().isEmpty() && !placeholderText().isEmpty()) {
        p.setFont(font());
        p.setPen(Skin::Color(isEnabled() ? Tok::text3 : Tok::dis));
        p.drawText(room, Qt::AlignVCenter | Qt::AlignLeft, placeholderText());
    }
    p.save();
    p.setClipRect(room.adjusted(-1, 0, 2, 0));
    if (hasSelectedText()) {
        const int from = DotX(selectionStart());
        p.fillRect(from, 7, DotX(selectionEnd()) - from, height() - 14, palette().highlight());
    }
    for (int i = 0; i < text().size(); ++i)
        Skin::Box(p, QRectF(DotX(i) + (kDotStep - kDot) / 2.0, (height() - kDot) / 2.0, kDot, kDot),
                  kDot / 2.0, TextColor(), {});
    if (hasFocus() && !isReadOnly())
        Skin::VLine(p, DotX(cursorPosition()), 7, height() - 7, Skin::Color(Tok::text));
    p.restore();
}

void KestroText::inputMethodEvent(QInputMethodEvent* event) {
    // QLineEdit would take a commit even into a box that only shows a choice.
    if (isReadOnly()) return event->ignore();
    preedit_ = event->preeditString();
    SetWrong(false);
    QInputMethodEvent cleaned(preedit_, event->attributes());
    cleaned.setCommitString(Clean(event->commitString()), event->replacementStart(),
                            event->replacementLength());
    QLineEdit::inputMethodEvent(&cleaned);
    update();
}

QVariant KestroText::inputMethodQuery(Qt::InputMethodQuery query) const {
    if (PaintsItself() && query == Qt::ImCursorRectangle)
        return QRect(PositionX(cursorPosition()), 4, 1, height() - 8);
    return QLineEdit::inputMethodQuery(query);
}
