#include "shell/controls/kestro_calendar.h"

#include "shell/skin.h"
#include "store/errors.h"
#include "store/outside.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr QSize kSize(254, 274);
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 2100;
constexpr int kEdge = 8;
constexpr int kTitle = 40;
constexpr int kDaysTop = 65;
constexpr int kDayWidth = 34;
constexpr int kDayHeight = 28;
constexpr int kDayCells = 42;
constexpr int kFoot = 36;
constexpr int kChoices = 12;
constexpr int kChoiceColumns = 3;

QDate Today() {
    return Outside().now().date();
}

QDate InRange(QDate date) {
    return std::clamp(date, QDate(kFirstYear, 1, 1), QDate(kLastYear, 12, 31));
}
}  // namespace

KestroCalendar::KestroCalendar(QWidget* owner) : KestroPopup(owner) {
    setAccessibleName(u"日历"_s);
}

void KestroCalendar::PopUp(QWidget* anchor, QDate chosen, int firstYear, int lastYear) {
    QDate start = chosen.isValid() ? chosen : Today();
    if (!chosen.isValid() && firstYear > 0 && lastYear >= firstYear)
        start =
            QDate(std::clamp(start.year(), firstYear, lastYear), start.month(), 1).addDays(start.day() - 1);
    choosing_ = Choosing::days;
    pointer_ = {-1, -1};
    MoveTo(start);
    ShowAt(anchor, kSize);
}

void KestroCalendar::MoveTo(QDate date) {
    chosen_ = InRange(date);
    shown_ = QDate(chosen_.year(), chosen_.month(), 1);
    update();
}

void KestroCalendar::Pick(QDate date) {
    hide();
    if (onPick) onPick(InRange(date));
}

void KestroCalendar::Turn(int steps) {
    if (choosing_ == Choosing::years)
        yearPage_ = std::clamp(yearPage_ + steps * kChoices, kFirstYear, kLastYear - kChoices + 1);
    else
        shown_ = InRange(shown_.addMonths(choosing_ == Choosing::months ? 12 * steps : steps));
    shown_ = QDate(shown_.year(), shown_.month(), 1);
    update();
}

bool KestroCalendar::HandleKey(QKeyEvent* event) {
    const int by = event->modifiers() & Qt::ControlModifier ? 12 : 1;
    switch (event->key()) {
        case Qt::Key_Left:
            MoveTo(chosen_.addDays(-1));
            return true;
        case Qt::Key_Right:
            MoveTo(chosen_.addDays(1));
            return true;
        case Qt::Key_Up:
            MoveTo(chosen_.addDays(-7));
            return true;
        case Qt::Key_Down:
            MoveTo(chosen_.addDays(7));
            return true;
        case Qt::Key_PageUp:
            MoveTo(chosen_.addMonths(-by));
            return true;
        case Qt::Key_PageDown:
            MoveTo(chosen_.addMonths(by));
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Pick(chosen_);
            return true;
        default:
            break;
    }
    const bool modifier = event->text().isEmpty() && event->key() != Qt::Key_Tab;
    if (!modifier) hide();
    return false;
}

// Monday of the first week on view; a month that begins on a Monday shows the week before it too.
QDate KestroCalendar::FirstCell() const {
    const int before = shown_.dayOfWeek() - 1;
    return shown_.addDays(before == 0 ? -7 : -before);
}

QRect KestroCalendar::DayRect(int cell) const {
    const QRect inner = Inner();
    return {inner.left() + kEdge + cell % 7 * kDayWidth, inner.top() + kDaysTop + cell / 7 * kDayHeight,
            kDayWidth, kDayHeight};
}

QRect KestroCalendar::ChoiceRect(int cell) const {
    const QRect inner = Inner();
    const int wide = 7 * kDayWidth / kChoiceColumns;
    const int high = (kSize.height() - kTitle - kFoot) / (kChoices / kChoiceColumns);
    return {inner.left() + kEdge + cell % kChoiceColumns * wide,
            inner.top() + kTitle + cell / kChoiceColumns * high, wide, high};
}

QRect KestroCalendar::YearRect() const {
    return {Inner().left() + 60, Inner().top() + 4, 72, kTitle - 8};
}

QRect KestroCalendar::MonthRect() const {
    return {Inner().left() + 138, Inner().top() + 4, 56, kTitle - 8};
}

QRect KestroCalendar::ArrowRect(bool next) const {
    return {next ? Inner().right() - 33 : Inner().left() + 6, Inner().top() + 6, 28, 28};
}

QRect KestroCalendar::TodayRect() const {
    return {Inner().left() + kEdge, Inner().bottom() - kFoot + 1, 140, kFoot};
}

void KestroCalendar::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (event->button() == Qt::LeftButton) RunEvent([&] { Press(at); });
    update();
}

void KestroCalendar::Press(QPoint at) {
    if (ArrowRect(false).contains(at)) return Turn(-1);
    if (ArrowRect(true).contains(at)) return Turn(1);
    if (TodayRect().contains(at)) return Pick(Today());
    if (YearRect().contains(at)) {
        choosing_ = choosing_ == Choosing::years ? Choosing::days : Choosing::years;
        yearPage_ = std::min(shown_.year() - shown_.year() % 10, kLastYear - kChoices + 1);
        return;
    }
    if (MonthRect().contains(at)) {
        choosing_ = choosing_ == Choosing::months ? Choosing::days : Choosing::months;
        return;
    }
    if (choosing_ != Choosing::days) return PressChoice(at);
    for (int cell = 0; cell < kDayCells; ++cell)
        if (DayRect(cell).contains(at)) return Pick(FirstCell().addDays(cell));
}

void KestroCalendar::PressChoice(QPoint at) {
    for (int cell = 0; cell < kChoices; ++cell) {
        if (!ChoiceRect(cell).contains(at)) continue;
        const bool years = choosing_ == Choosing::years;
        shown_ = QDate(years ? yearPage_ + cell : shown_.year(), years ? shown_.month() : cell + 1, 1);
        choosing_ = Choosing::days;
        return MoveTo(QDate(shown_.year(), shown_.month(), std::min(chosen_.day(), shown_.daysInMonth())));
    }
}

void KestroCalendar::mouseMoveEvent(QMouseEvent* event) {
    pointer_ = event->position().toPoint();
    update();
}

void KestroCalendar::leaveEvent(QEvent*) {
    pointer_ = {-1, -1};
    update();
}

void KestroCalendar::wheelEvent(QWheelEvent* event) {
    if (const int notches = notches_.Take(*event)) Turn(-notches);
    event->accept();
}

void KestroCalendar::paintEvent(QPaintEvent* event) {
    KestroPopup::paintEvent(event);
    QPainter p(this);
    PaintTitle(p);
    if (choosing_ == Choosing::days)
        PaintDays(p);
    else
        PaintChoices(p);
    PaintToday(p);
}

void KestroCalendar::PaintTitle(QPainter& p) const {
    const auto drop = [&](const QRect& r, const QString& text, bool open) {
        const bool lit = open || r.contains(pointer_);
        if (lit) Skin::Box(p, r, 4, Skin::Color(Tok::soft), {});
        p.setFont(Skin::Font(Type::title));
        p.setPen(Skin::Color(Tok::text));
        p.drawText(r.adjusted(4, 0, -14, 0), Qt::AlignCenter | Qt::TextDontClip, text);
        Skin::Chevron(p, QRectF(r.right() - 12, r.top(), 10, r.height()), open ? 1 : 0,
                      Skin::Color(Tok::text2), 9);
    };
    drop(YearRect(), u"%1年"_s.arg(shown_.year()), choosing_ == Choosing::years);
    drop(MonthRect(), u"%1月"_s.arg(shown_.month()), choosing_ == Choosing::months);
    for (const bool next : {false, true}) {
        const QRect r = ArrowRect(next);
        if (r.contains(pointer_)) Skin::Box(p, r, 4, Skin::Color(Tok::soft), {});
        Skin::Chevron(p, r, next ? 3 : 2, Skin::Color(Tok::text), 12);
    }
}

void KestroCalendar::PaintDays(QPainter& p) const {
    static const QString names = u"一二三四五六日"_s;
    p.setFont(Skin::Font(Type::small));
    p.setPen(Skin::Color(Tok::text2));
    for (int i = 0; i < 7; ++i)
        p.drawText(DayRect(i).translated(0, -kDayHeight + 2), Qt::AlignCenter, names.mid(i, 1));
    for (int cell = 0; cell < kDayCells; ++cell)
        PaintDay(p, DayRect(cell), FirstCell().addDays(cell));
}

void KestroCalendar::PaintDay(QPainter& p, const QRect& r, QDate day) const {
    Tok ink = day.dayOfWeek() > 5 ? Tok::accent : Tok::text;
    if (day.month() != shown_.month()) ink = Tok::dis;
    const bool today = day == Today();
    if (day == chosen_) {
        Skin::Box(p, r, 4, Skin::Color(Tok::accent), {});
        ink = Tok::onAccent;
    } else if (r.contains(pointer_)) {
        Skin::Box(p, r, 4, Skin::Color(Tok::soft), {});
    }
    if (today && day != chosen_) Skin::Box(p, r, 4, {}, Skin::Color(Tok::accent));
    p.setFont(Skin::Font(today || day == chosen_ ? Type::smallBold : Type::small));
    p.setPen(Skin::Color(ink));
    p.drawText(r, Qt::AlignCenter, QString::number(day.day()));
}

void KestroCalendar::PaintChoices(QPainter& p) const {
    const bool years = choosing_ == Choosing::years;
    for (int cell = 0; cell < kChoices; ++cell) {
        const int value = years ? yearPage_ + cell : cell + 1;
        const bool current = value == (years ? shown_.year() : shown_.month());
        const QRect r = ChoiceRect(cell).adjusted(3, 6, -3, -6);
        if (current)
            Skin::Box(p, r, 4, Skin::Color(Tok::accent), {});
        else if (r.contains(pointer_))
            Skin::Box(p, r, 4, Skin::Color(Tok::soft), {});
        p.setFont(Skin::Font(current ? Type::bodyBold : Type::body));
        p.setPen(Skin::Color(current ? Tok::onAccent : Tok::text));
        p.drawText(r, Qt::AlignCenter, years ? QString::number(value) : u"%1月"_s.arg(value));
    }
}

void KestroCalendar::PaintToday(QPainter& p) const {
    const QRect inner = Inner();
    Skin::HLine(p, inner.left() + 1, inner.right(), inner.bottom() - kFoot, Skin::Color(Tok::line));
    QFont font = Skin::Font(Type::small);
    font.setUnderline(TodayRect().contains(pointer_));
    p.setFont(font);
    p.setPen(Skin::Color(Tok::accent));
    p.drawText(TodayRect().adjusted(kEdge, 0, 0, 0), Qt::AlignVCenter,
               u"今天 "_s + Today().toString(u"yyyy-MM-dd"_s));
}
