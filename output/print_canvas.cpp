#include "output/print_canvas.h"

#include "output/print_painter.h"
#include "shell/controls/kestro_scrollbar.h"
#include "shell/skin.h"

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr double kPixelsPerMm = 96 / 25.4;
constexpr int kMostPixels = 2560;  // of a side of the painted page
constexpr int kMargin = 18, kBarBreadth = 12, kScrollStep = 40;
constexpr int kWheelStep = 120, kCorner = 7;
}  // namespace

// The page on show, painted once for its place and size.
class PagePicture : public QWidget {
 public:
    PagePicture(const PrintDocument& document, QWidget* parent) : QWidget(parent), document_(document) {
        setObjectName(u"picPreview"_s);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    void ShowPage(size_t page) {
        page_ = page;
        image_ = {};
        setAccessibleName(u"第 %1 页"_s.arg(page + 1));
        update();
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        const double sharp = std::min(devicePixelRatioF(), double(kMostPixels) / std::max(width(), height()));
        const QSize pixels = (QSizeF(size()) * sharp).toSize();
        if (image_.size() != pixels) Render(pixels);
        QPainter p(this);
        p.setRenderHint(QPainter::SmoothPixmapTransform, sharp < devicePixelRatioF());
        p.drawImage(QRectF(rect()), image_);
    }

 private:
    void Render(QSize pixels) {
        image_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        image_.fill(Qt::white);
        QPainter p(&image_);
        PaintPage(p, document_, document_.pages[page_], pixels.width() / document_.Width());
    }

    const PrintDocument& document_;
    size_t page_ = 0;
    QImage image_;
};

PrintCanvas::PrintCanvas(const PrintDocument& document, QWidget* parent)
    : QWidget(parent),
      document_(document),
      room_(new QWidget(this)),
      picPreview(new PagePicture(document, room_)),
      ScrollV(new KestroScrollbar(Qt::Vertical, this, kBarBreadth)),
      ScrollH(new KestroScrollbar(Qt::Horizontal, this, kBarBreadth)) {
    setObjectName(u"canvas"_s);
    setAccessibleName(u"打印预览"_s);
    setFocusPolicy(Qt::StrongFocus);
    ScrollV->setObjectName(u"ScrollV"_s);
    ScrollH->setObjectName(u"ScrollH"_s);
    room_->installEventFilter(this);
    for (auto* bar : {ScrollV, ScrollH}) {
        bar->setSingleStep(kScrollStep);
        bar->setFocusPolicy(Qt::NoFocus);
        connect(bar, &QScrollBar::valueChanged, this, [this] { Place(); });
    }
}

QSize PrintCanvas::PictureSize() const {
    return (QSizeF(document_.Width(), document_.Height()) * (kPixelsPerMm * zoom_)).toSize();
}

void PrintCanvas::ShowPage(size_t page) {
    picPreview->ShowPage(page);
    ScrollV->setValue(0);
}

// What stands in the middle of the room stays there; at the top of a page the top stays.
void PrintCanvas::SetZoom(double zoom) {
    const bool top = ScrollV->value() == 0;
    const QPoint middle = room_->rect().center();
    const QPointF seen = QPointF(middle - picPreview->pos()) / zoom_;
    zoom_ = zoom;
    Arrange();
    const QPoint now = picPreview->pos() + (seen * zoom_).toPoint();
    ScrollBy(now.x() - middle.x(), top ? 0 : now.y() - middle.y());
}

void PrintCanvas::ScrollBy(int dx, int dy) {
    ScrollH->setValue(ScrollH->value() + dx);
    ScrollV->setValue(ScrollV->value() + dy);
}

// A bar takes room itself, which may call for the other one.
void PrintCanvas::Arrange() {
    const QSize need = PictureSize() + QSize(2 * kMargin, 2 * kMargin);
    bool across = false, down = false;
    for (int turn = 0; turn < 2; ++turn) {
        across = need.width() > width() - (down ? kBarBreadth : 0);
        down = need.height() > height() - (across ? kBarBreadth : 0);
    }
    ScrollH->setVisible(across);
    ScrollV->setVisible(down);
    const QSize room(width() - (down ? kBarBreadth : 0), height() - (across ? kBarBreadth : 0));
    room_->setGeometry(QRect(QPoint(), room));
    ScrollV->setGeometry(room.width(), 0, kBarBreadth, room.height());
    ScrollH->setGeometry(0, room.height(), room.width(), kBarBreadth);
    ScrollV->setPageStep(room.height());
    ScrollH->setPageStep(room.width());
    ScrollV->setRange(0, std::max(0, need.height() - room.height()));
    ScrollH->setRange(0, std::max(0, need.width() - room.width()));
    picPreview->resize(PictureSize());
    Place();
}

// On whole pixels of the device: a picture between them would be blurred.
void PrintCanvas::Place() {
    const QSize room = room_->size(), size = PictureSize();
    const auto at = [](int length, int in, int scrolled) {
        return std::max(kMargin, (in - length) / 2) - scrolled;
    };
    QPoint place(at(size.width(), room.width(), ScrollH->value()),
                 at(size.height(), room.height(), ScrollV->value()));
    const double ratio = devicePixelRatioF();
    const QPoint origin = mapTo(window(), QPoint());
    const auto settle = [ratio](int from, int& x) {
        for (int turn = 0; turn < 4 && std::fmod((from + x) * ratio, 1) != 0; ++turn)
            --x;
    };
    settle(origin.x(), place.rx());
    settle(origin.y(), place.ry());
    picPreview->move(place);
    room_->update();
}

// The lower corners follow those of the window.
void PrintCanvas::PaintGround(QPainter& p, QPoint offset) const {
    const double round = Skin::ShadowMargin() > 0 && !window()->isMaximized() ? kCorner : 0;
    p.save();
    p.translate(-offset);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(Skin::Color(Tok::canvas));
    p.drawRoundedRect(QRectF(rect()), round, round);
    p.restore();
    p.fillRect(QRect(-offset, QSize(width(), height() - kCorner)), Skin::Color(Tok::canvas));
}

void PrintCanvas::paintEvent(QPaintEvent*) {
    QPainter p(this);
    PaintGround(p, {});
    // On this ground a thumb alone would hardly be seen.
    for (const QWidget* bar : {static_cast<QWidget*>(ScrollV), static_cast<QWidget*>(ScrollH)})
        if (bar->isVisible()) p.fillRect(bar->geometry(), Skin::Color(Tok::head));
}

bool PrintCanvas::eventFilter(QObject* watched, QEvent* event) {
    if (watched != room_ || event->type() != QEvent::Paint) return QWidget::eventFilter(watched, event);
    QPainter p(room_);
    Skin::Shadow(p, picPreview->geometry(), 0, true);
    return true;
}

void PrintCanvas::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Arrange();
}

void PrintCanvas::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Arrange();
}

void PrintCanvas::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        const bool across = std::abs(turned.x()) > std::abs(turned.y());
        QCoreApplication::sendEvent(across ? ScrollH : ScrollV, event);
        event->accept();
        return;
    }
    wheel_ += turned.y();
    for (; std::abs(wheel_) >= kWheelStep; wheel_ -= wheel_ > 0 ? kWheelStep : -kWheelStep)
        if (onZoom) onZoom(wheel_ > 0 ? 1 : -1);
    event->accept();
}
