#include "shell/controls/kestro_dialog.h"

#include "shell/controls/kestro_scrollbar.h"
#include "shell/controls/png_button.h"
#include "shell/skin.h"
#include "store/errors.h"
#include "store/job.h"
#include "store/state.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {
// What was shown or hidden inside a part reaches the layouts above it only with the next events; the size is
// wanted now.
void SettleLayouts(const QWidget& part) {
    const auto inner = part.findChildren<QWidget*>();
    for (auto child = inner.rbegin(); child != inner.rend(); ++child)
        if ((*child)->layout()) (*child)->layout()->activate();
    part.layout()->activate();
}
}  // namespace

KestroDialog::KestroDialog(DialogKind kind, const QString& caption, QWidget* parent)
    : QDialog(parent),
      frame_(std::make_unique<WindowFrame>(this, false)),
      kind_(kind),
      close_(new PngButton({}, u"关闭"_s, this)),
      scroll_(new QScrollArea(this)),
      body_(new QWidget),
      duringJob_(State().gBusy) {
    UseKestroScrollbars(scroll_);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setWidgetResizable(true);
    scroll_->setWidget(body_);
    scroll_->viewport()->setAutoFillBackground(false);
    body_->setAutoFillBackground(false);
    frame_->SetTitleHeight(TitleHeight());
    frame_->onMargin = [this] { Arrange(); };
    close_->SetClosing(true);
    close_->setFocusPolicy(Qt::NoFocus);
    close_->onClick = [this] { Leave(onClose); };
    setWindowIcon(Skin::WindowIcon());
    SetCaption(caption);
}

KestroDialog::~KestroDialog() = default;

void KestroDialog::SetCaption(const QString& caption) {
    setWindowTitle(caption);
    update();
}

QWidget* KestroDialog::Footer() {
    if (footer_ == nullptr) {
        footer_ = new QWidget(this);
        Arrange();
    }
    return footer_;
}

void KestroDialog::SetTitleLine(bool shown) {
    titleLine_ = shown;
    update();
}

void KestroDialog::SetFooterLine(int shorter) {
    footerLineShorter_ = shorter;
    update();
}

int KestroDialog::TitleHeight() const {
    return Skin::Px(kind_ == DialogKind::small ? 32 : 40);
}

int KestroDialog::FooterHeight() const {
    return Skin::Px(kind_ == DialogKind::small ? 48 : 56);
}

QRect KestroDialog::BodyRect() const {
    return scroll_->geometry();
}

QSize KestroDialog::WorkArea() const {
    return screen()->availableGeometry().size();
}

QSize KestroDialog::NeededSize(QSize least) const {
    QSize needed = least;
    const auto widen = [&](const QWidget* part) {
        if (!part || !part->layout()) return;
        SettleLayouts(*part);
        needed.setWidth(qMax(needed.width(), part->layout()->totalMinimumSize().width() + 2));
    };
    widen(body_);
    widen(footer_);
    if (const auto* form = body_->layout()) {
        const int wide = needed.width() - 2;
        const int high =
            form->hasHeightForWidth() ? form->totalHeightForWidth(wide) : form->totalSizeHint().height();
        const int around = TitleHeight() + (titleLine_ ? 1 : 0) + (footer_ ? FooterHeight() : 1);
        needed.setHeight(qMax(needed.height(), high + around));
    }
    const QSize area = WorkArea();
    if (needed.height() > area.height())
        needed.setWidth(needed.width() + scroll_->verticalScrollBar()->sizeHint().width());
    return needed.boundedTo(area);
}

void KestroDialog::SetNamedSize(QSize least) {
    frame_->SetNamedSize(NeededSize(least));
    Arrange();
}

void KestroDialog::SetSmallest(QSize size) {
    frame_->SetSmallest(NeededSize(size));
}

// The outline's pixel stays free of children.
void KestroDialog::Arrange() {
    const QRect named = frame_->Named();
    const QRect room = named.adjusted(1, TitleHeight(), -1, -1);
    const int foot = footer_ ? FooterHeight() - 1 : 0;
    close_->setGeometry(named.right() - 36, named.top() + (TitleHeight() - 28) / 2, 32, 28);
    scroll_->setGeometry(room.adjusted(0, titleLine_ ? 1 : 0, 0, -foot));
    if (footer_) footer_->setGeometry(room.left(), room.bottom() + 1 - foot + 1, room.width(), foot - 1);
    update();
}

void KestroDialog::paintEvent(QPaintEvent*) {
    QPainter p(this);
    frame_->Paint(p, Skin::Color(Tok::surface));
    const QRect named = frame_->Named();
    const QRect title(named.x() + 16, named.y(), named.width() - 16 - 44, TitleHeight());
    p.setFont(Skin::Font(Type::title));
    p.setPen(Skin::Color(Tok::text));
    p.drawText(title, Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(windowTitle(), Qt::ElideRight, title.width()));
    const QColor line = Skin::Color(Tok::line);
    if (titleLine_) Skin::HLine(p, named.left() + 1, named.right(), named.top() + TitleHeight(), line);
    if (!footer_) return;
    const int y = footer_->y() - 1, end = named.right() - footerLineShorter_;
    Skin::HLine(p, named.left() + 1, end, y, line);
    if (end < named.right()) Skin::HLine(p, end + 1, named.right() - 1, y, Skin::Color(Tok::page));
}

void KestroDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    Arrange();
}

void KestroDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    // A job of the window goes on unseen otherwise; a box that came up during one is closed as ever.
    if (State().gBusy && !duringJob_) return Job::Stop();
    Leave(onClose);
}

void KestroDialog::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape)
        Leave(onEscape);
    else if (enter && default_)
        default_->click();
    else
        QDialog::keyPressEvent(event);
}

void KestroDialog::Leave(const std::function<void()>& road) {
    if (road)
        RunEvent(road);
    else
        reject();
}

// A dialog stands over the middle of its window, and wholly on the screen.
void KestroDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // The shadow may reach over the edge of the screen.
    const int m = frame_->Margin();
    const QRect area = screen()->availableGeometry().adjusted(-m, -m, m, m);
    const QRect over = parentWidget() ? parentWidget()->window()->frameGeometry() : area;
    QRect r = rect();
    r.moveCenter(over.center());
    r.moveLeft(qMax(area.left(), qMin(r.left(), area.right() + 1 - r.width())));
    r.moveTop(qMax(area.top(), qMin(r.top(), area.bottom() + 1 - r.height())));
    frame_->SetPlace(testAttribute(Qt::WA_Moved) ? pos() : r.topLeft());
    // The body has its height only after its layout.
    QTimer::singleShot(0, this, [this] {
        if (auto* box = focusWidget(); box && body_->isAncestorOf(box)) scroll_->ensureWidgetVisible(box);
    });
}
