#include "shell/controls/kestro_indicator.h"

#include "shell/skin.h"

#include <QDateTime>
#include <QPainter>

namespace {
constexpr int kSide = 20, kStepMs = 40;
constexpr double kLine = 2.5;
constexpr int kSixteenths = 16;  // of a degree, as arcs are told
}  // namespace

KestroIndicator::KestroIndicator(QWidget* parent) : QWidget(parent) {
    setFixedSize(sizeHint());
    timer_.setInterval(kStepMs);
    timer_.callOnTimeout([this] { update(); });
}

QSize KestroIndicator::sizeHint() const {
    return {kSide, kSide};
}

void KestroIndicator::Run(bool on) {
    if (on)
        timer_.start();
    else
        timer_.stop();
    update();
}

void KestroIndicator::paintEvent(QPaintEvent*) {
    if (!IsRunning()) return;
    const double turned = static_cast<double>(QDateTime::currentMSecsSinceEpoch() % 1000) * 0.36;
    const QRectF ring = QRectF(rect()).adjusted(kLine / 2, kLine / 2, -kLine / 2, -kLine / 2);
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Skin::Color(Tok::line2), kLine));
    p.drawEllipse(ring);
    p.setPen(QPen(Skin::Color(Tok::accent), kLine, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(ring, static_cast<int>((90 - turned) * kSixteenths), -90 * kSixteenths);
}
