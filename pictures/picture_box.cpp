#include "pictures/picture_box.h"

#include "pictures/gdi_image.h"
#include "shell/controls/control_support.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDragStep = 5, kLeastSide = 256, kBorder = 2, kRadius = 4, kIcon = 32;

// Each half of the one before: what is drawn small is never far from its size.
std::vector<QImage> LevelsOf(const QImage& image) {
    const bool clear = image.hasAlphaChannel();
    std::vector<QImage> levels{
        image.convertToFormat(clear ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32)};
    while (std::max(levels.back().width(), levels.back().height()) > 2 * kLeastSide) {
        const QSize half = (levels.back().size() / 2).expandedTo({1, 1});
        levels.push_back(levels.back().scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    return levels;
}

QString WordsFor(int status) {
    if (status == kGdiFileNotFound) return u"图片文件不存在!"_s;
    if (status == kGdiAccessDenied) return u"没有权限读取该图片"_s;
    if (status == kGdiOutOfMemory) return u"图片尺寸太大，无法显示"_s;
    return u"不是有效的图片，无法显示"_s;
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setObjectName(u"Picture1"_s);
    setAccessibleName(u"图片框"_s);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent, false);
}

void PictureBox::ShowFile(const QString& path) {
    cGdiImage image;
    const bool good = image.Load(path);
    levels_ = good ? LevelsOf(image.Picture()) : std::vector<QImage>();
    words_ = good ? QString() : WordsFor(image.LoadStatus());
    setAccessibleDescription(words_);
    ShowFit();
}

void PictureBox::ShowFit() {
    angle_ = 0;
    fitted_ = true;
    const QSize size = HasPicture() ? levels_.front().size() : QSize();
    fit_ = FitToBox(width(), height(), size.width(), size.height()).value_or(PictureFit());
    Changed();
}

void PictureBox::ShowZoomed(float zoom) {
    if (!HasPicture()) return;
    fitted_ = false;
    const QSizeF size = QSizeF(levels_.front().size()) * zoom;
    fit_.x -= (size.width() - fit_.width) / 2;
    fit_.y -= (size.height() - fit_.height) / 2;
    fit_.width = size.width();
    fit_.height = size.height();
    fit_.zoom = zoom;
    Changed();
}

void PictureBox::ShowMoved(QPointF by) {
    if (!HasPicture()) return;
    fitted_ = false;
    fit_.x += by.x();
    fit_.y += by.y();
    update();
}

void PictureBox::Turn() {
    angle_ = NextAngle(angle_);
    ShowZoomed(fit_.zoom);
}

void PictureBox::Empty() {
    levels_.clear();
    words_.clear();
    setAccessibleDescription({});
    ShowFit();
}

void PictureBox::Changed() {
    update();
    RunEvent(onChange);
}

// The smallest level that still has a pixel for each one on the screen.
const QImage& PictureBox::LevelFor(double ratio) const {
    const double wanted = fit_.width * ratio;
    const auto enough = std::find_if(levels_.rbegin(), levels_.rend(),
                                     [&](const QImage& level) { return level.width() >= wanted; });
    return enough == levels_.rend() ? levels_.front() : *enough;
}

void PictureBox::PaintPicture(QPainter& p) const {
    p.save();
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.translate(fit_.x + fit_.width / 2, fit_.y + fit_.height / 2);
    p.rotate(angle_);
    const QRectF place(-fit_.width / 2, -fit_.height / 2, fit_.width, fit_.height);
    p.drawImage(place, LevelFor(devicePixelRatioF()));
    p.restore();
}

void PictureBox::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), Skin::Color(Tok::canvas));
    if (HasPicture()) {
        PaintPicture(p);
    } else if (!words_.isEmpty()) {
        p.drawPixmap((width() - kIcon) / 2, height() / 2 - kIcon,
                     Skin::Icon(u"warn"_s, kIcon, devicePixelRatioF()));
        p.setFont(Skin::Font(Type::body));
        p.setPen(Skin::Color(Tok::text));
        p.drawText(rect().adjusted(8, height() / 2 + 8, -8, -8),
                   Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, words_);
    }
    const bool focused = hasFocus();
    Skin::Box(p, rect(), kRadius, Qt::transparent, Skin::Color(focused ? Tok::pink : Tok::line2),
              focused ? kBorder : 1);
}

void PictureBox::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (fitted_ && HasPicture()) return ShowFit();
    if (event->oldSize().isValid())
        ShowMoved(QPointF(width() - event->oldSize().width(), height() - event->oldSize().height()) / 2);
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    RunEvent([&] {
        if ((key == Qt::Key_Up || key == Qt::Key_Down) && onStep) return onStep(key == Qt::Key_Up ? -1 : 1);
        if (key == Qt::Key_Space && onBig) return onBig();
        if (Controls::IsEnter(*event) && onOpen) return onOpen();
        QWidget::keyPressEvent(event);
    });
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    dragStart_ = event->position();
    setFocus(Qt::MouseFocusReason);
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) return;
    const QPointF by = event->position() - dragStart_;
    if (std::abs(by.x()) < kDragStep && std::abs(by.y()) < kDragStep) return;
    ShowMoved(by);
    dragStart_ = event->position();
}

void PictureBox::mouseDoubleClickEvent(QMouseEvent* event) {
    dragStart_ = event->position();
    RunEvent(onBig);
}

// The notches go to the window's tracker; nothing behind the box scrolls by them.
void PictureBox::wheelEvent(QWheelEvent* event) {
    event->accept();
}

void PictureBox::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void PictureBox::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}
