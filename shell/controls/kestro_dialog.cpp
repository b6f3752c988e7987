#include "shell/controls/kestro_dialog.h"

#include "shell/controls/png_button.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

using namespace Qt::StringLiterals;

KestroDialog::KestroDialog(DialogKind kind, const QString& caption, QWidget* parent)
    : QDialog(parent),
      frame_(std::make_unique<WindowFrame>(this, false)),
      kind_(kind),
      close_(new PngButton({}, u"关闭"_s, this)),
      body_(new QWidget(this)) {
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

int KestroDialog::TitleHeight() const {
    return Skin::Px(kind_ == DialogKind::small ? 32 : 40);
}

int KestroDialog::FooterHeight() const {
    return Skin::Px(kind_ == DialogKind::small ? 48 : 56);
}

void KestroDialog::SetNamedSize(QSize size) {
    frame_->SetNamedSize(size);
    Arrange();
}

// The outline's pixel stays free of children.
void KestroDialog::Arrange() {
    const QRect named = frame_->Named();
    const QRect room = named.adjusted(1, TitleHeight(), -1, -1);
    const int foot = footer_ ? FooterHeight() - 1 : 0;
    close_->setGeometry(named.right() - 36, named.top() + (TitleHeight() - 28) / 2, 32, 28);
    body_->setGeometry(room.adjusted(0, titleLine_ ? 1 : 0, 0, -foot));
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
    if (footer_) Skin::HLine(p, named.left() + 1, named.right(), footer_->y() - 1, line);
}

void KestroDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    Arrange();
}

void KestroDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
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
    const QRect area = screen()->availableGeometry();
    const QRect over = parentWidget() ? parentWidget()->window()->frameGeometry() : area;
    QRect r = rect();
    r.moveCenter(over.center());
    r.moveLeft(qMax(area.left(), qMin(r.left(), area.right() + 1 - r.width())));
    r.moveTop(qMax(area.top(), qMin(r.top(), area.bottom() + 1 - r.height())));
    if (!testAttribute(Qt::WA_Moved)) move(r.topLeft());
}
