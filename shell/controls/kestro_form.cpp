#include "shell/controls/kestro_form.h"

#include "shell/controls/form_header.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QCloseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

KestroForm::KestroForm(QWidget* parent)
    : QWidget(parent, Qt::Window),
      frame_(std::make_unique<WindowFrame>(this, true)),
      header_(new KestroHeader(this)),
      body_(new QWidget(this)) {
    frame_->SetTitleHeight(HeaderHeight());
    frame_->onMargin = [this] { Arrange(); };
    setWindowIcon(Skin::WindowIcon());
    Connect();
}

KestroForm::~KestroForm() = default;

void KestroForm::Connect() {
    header_->logo->onClick = [this] { RunEvent(onLogo); };
    header_->label->onClick = [this] { RunEvent(onBookLabel); };
    for (size_t i = 0; i < header_->modes.size(); ++i) {
        header_->modes[i]->onClick = [this, mode = static_cast<int>(i)] {
            SetDisplayMode(mode);
            if (onDisplayMode) onDisplayMode(mode);
        };
    }
    for (const QString& name : {u"web"_s, u"calculator"_s, u"menu"_s}) {
        static_cast<HeaderPart*>(HeaderWidget(name))->onClick = [this, name] {
            if (onHeaderButton) onHeaderButton(name);
        };
    }
    header_->glyphs[0]->onClick = [this] { showMinimized(); };
    header_->glyphs[1]->onClick = [this] { frame_->ToggleMaximised(); };
    header_->glyphs[2]->onClick = [this] { RunEvent(onClose); };
}

void KestroForm::SetCaption(const QString& name, const QString& version) {
    setWindowTitle(name);
    header_->SetCaption(name, version);
}

void KestroForm::AddTab(const QString& caption) {
    const int index = TabCount();
    HeaderTab* tab = header_->AddTab(caption);
    tab->onClick = [this, index] {
        if (onTab) onTab(index);
    };
    tab->onDrag = [this] { frame_->StartMove(); };
}

void KestroForm::SelectTab(int index) {
    header_->SelectTab(index);
}

void KestroForm::SetTabEnabled(int index, bool enabled) {
    header_->tabs.at(static_cast<size_t>(index))->setEnabled(enabled);
}

int KestroForm::SelectedTab() const {
    for (int i = 0; i < TabCount(); ++i)
        if (header_->tabs[static_cast<size_t>(i)]->IsChosen()) return i;
    return -1;
}

int KestroForm::TabCount() const {
    return static_cast<int>(header_->tabs.size());
}

int KestroForm::HeaderHeight() {
    return KestroHeader::kHeight;
}

void KestroForm::SetBadge(int number) {
    header_->logo->SetBadge(number);
}

void KestroForm::SetBookLabel(const QString& text) {
    header_->SetBookLabel(text);
}

void KestroForm::SetDisplayMode(int mode) {
    header_->SetMode(mode);
}

int KestroForm::DisplayMode() const {
    for (size_t i = 0; i < header_->modes.size(); ++i)
        if (header_->modes[i]->IsChosen()) return static_cast<int>(i);
    return -1;
}

QWidget* KestroForm::HeaderWidget(const QString& name) const {
    if (name == u"logo"_s) return header_->logo;
    if (name == u"label"_s) return header_->label;
    if (name == u"web"_s) return header_->web;
    if (name == u"calculator"_s) return header_->calculator;
    return name == u"menu"_s ? header_->menu : nullptr;
}

void KestroForm::SetFooter(QWidget* bar) {
    delete footer_;
    footer_ = bar;
    bar->setParent(this);
    bar->show();
    Arrange();
}

void KestroForm::Arrange() {
    const QRect named = frame_->Named();
    const bool framed = !isMaximized();
    header_->SetRadius(frame_->Radius());
    header_->setGeometry(named.x(), named.y(), named.width(), HeaderHeight());
    const int foot = footer_ ? footer_->sizeHint().height() : 0;
    const int bottom = named.bottom() + 1 - (framed ? 1 : 0);
    body_->setGeometry(named.x() + 2, named.y() + HeaderHeight(), named.width() - 4,
                       bottom - foot - named.y() - HeaderHeight());
    if (footer_) footer_->setGeometry(named.x() + 1, bottom - foot, named.width() - 2, foot);
    update();
}

void KestroForm::paintEvent(QPaintEvent*) {
    QPainter p(this);
    frame_->Paint(p, Skin::Color(Tok::page));
}

void KestroForm::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Arrange();
}

void KestroForm::closeEvent(QCloseEvent* event) {
    event->ignore();
    RunEvent(onClose);
}
