#include "shell/controls/kestro_pgress.h"

#include "shell/skin.h"
#include "store/errors.h"
#include "store/money.h"
#include "store/state.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr int kHeight = 22, kFoot = 3;
constexpr int kStepMs = 50, kStep = 3, kWay = 100;
constexpr double kPiece = 0.25;

QString Grouped(int n) {
    return GroupText(QString::number(n), State().settings.nGroup, u","_s, u"0"_s);
}
}  // namespace

KestroPGress::KestroPGress(QWidget* parent) : QWidget(parent) {
    setCursor(Qt::PointingHandCursor);
    setToolTip(u"单击可以停止"_s);
    setAccessibleName(u"进度"_s);
    step_.setInterval(kStepMs);
    step_.callOnTimeout([this] {
        phase_ = (phase_ + kStep) % kWay;
        update();
    });
}

QSize KestroPGress::sizeHint() const {
    return {214, kHeight};
}

void KestroPGress::SetMinimum(int minimum) {
    minimum_ = minimum;
    maximum_ = std::max(maximum_, minimum);
    SetValue(value_);
}

void KestroPGress::SetMaximum(int maximum) {
    maximum_ = std::max(maximum, minimum_);
    SetValue(value_);
}

void KestroPGress::SetValue(int value) {
    value_ = std::clamp(value, minimum_, maximum_);
    update();
}

void KestroPGress::SetWaiting(const QString& text) {
    waiting_ = text;
    phase_ = 0;
    if (text.isEmpty())
        step_.stop();
    else
        step_.start();
    update();
}

QRect KestroPGress::Filled() const {
    const int range = maximum_ - minimum_, room = width() - 2;
    const auto part = [room](double share) { return static_cast<int>(std::lround(room * share)); };
    if (!waiting_.isEmpty()) return {1 + part((1 - kPiece) * phase_ / kWay), 1, part(kPiece), height() - 2};
    return {1, 1, part(range > 0 ? double(value_ - minimum_) / range : 0), height() - 2};
}

void KestroPGress::paintEvent(QPaintEvent*) {
    QPainter p(this);
    Skin::Box(p, rect(), 4, Skin::Color(Tok::surface), Skin::Color(Tok::box));
    const QRect done = Filled();
    p.fillRect(done, Skin::Color(Tok::soft));
    p.fillRect(done.adjusted(0, done.height() - kFoot, 0, 0), Skin::Color(Tok::accent));
    Skin::Box(p, rect(), 4, Qt::transparent, Skin::Color(Tok::box));
    p.setFont(Skin::Font(Type::small));
    p.setPen(Skin::Color(Tok::text));
    const QString told =
        waiting_.isEmpty() ? Grouped(value_ / unit_) + u" / "_s + Grouped(maximum_ / unit_) : waiting_;
    p.drawText(rect(), Qt::AlignCenter, told);
}

void KestroPGress::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) RunEvent(onClick);
}
