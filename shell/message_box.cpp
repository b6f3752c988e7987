#include "shell/message_box.h"

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_dialog.h"
#include "shell/controls/kestro_scrollbar.h"
#include "shell/message_text.h"
#include "shell/skin.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/state.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int kLeast = 100;
constexpr int kButtonRow = 40;
constexpr int kButtonHeight = 28;
constexpr int kButtonWidth = 80;
constexpr int kTextLeft = 82;
constexpr int kTextRight = 16;
constexpr int kTextMargin = 6;
constexpr int kIconSide = 44;
constexpr int kFrame = 58;
constexpr int kIconLeft = 22, kFrameLeft = 12;

struct Place {
    const char16_t* name;
    int result;
};
// From right to left; the last caption takes the first place.
constexpr std::array kPlaces =
    std::to_array<Place>({{u"btnEnter", 1}, {u"btnCancel", 0}, {u"btnEnter1", 2}, {u"btnOther", 3}});

constexpr std::array kPictures = {u"info", u"faq", u"fail", u"success", u"warn", u"mayday"};

QPixmap PictureOf(int icon, double ratio) {
    const bool known = icon >= 0 && icon < static_cast<int>(kPictures.size());
    return Skin::Icon(QString::fromUtf16(kPictures.at(known ? static_cast<size_t>(icon) : 0)), kIconSide,
                      ratio);
}

class CallersPicture : public QAbstractButton {
 public:
    CallersPicture(const QImage& image, QWidget* parent) : QAbstractButton(parent), image_(image) {
        setFixedSize(kFrame, kFrame);
        setCursor(Qt::PointingHandCursor);
        setAccessibleName(u"打开图片"_s);
        setToolTip(u"打开图片"_s);
        connect(this, &QAbstractButton::clicked, this, [this] { RunEvent([this] { Open(); }); });
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        const bool large = image_.width() > kFrame || image_.height() > kFrame;
        const QSize size = large ? image_.size().scaled(kFrame, kFrame, Qt::KeepAspectRatio) : image_.size();
        QRect r({0, 0}, size);
        r.moveCenter(rect().center());
        p.drawImage(r, image_);
        if (hasFocus()) Skin::FocusRing(p, rect(), 4, true, Skin::Color(Tok::accent));
    }

 private:
    void Open() const {
        const QString path = State().gDataDir + u"/msgboxIco.bmp"_s;
        if (image_.save(path, "BMP")) Outside().open(path);
    }

    QImage image_;
};

class frmMsgBox : public KestroDialog {
 public:
    frmMsgBox(const MessageRequest& request, QWidget* parent)
        : KestroDialog(DialogKind::small, request.title, parent) {
        SetOpacity(request.opacity <= 0 ? 0.5 : std::clamp(request.opacity, 0.2, 1.0));
        setObjectName(u"frmMsgBox"_s);
        setAccessibleDescription(request.text);
        MakeButtons(request.buttons.isEmpty() ? u"确定"_s : request.buttons);
        MakePicture(request);
        LayOut(request.text, {std::max(request.width, kLeast), std::max(request.height, kLeast)});
        onEscape = onClose = [this] { done(0); };
    }

 private:
    void MakeButtons(const QString& captions) {
        QStringList list = captions.split(u',');
        while (list.size() > static_cast<qsizetype>(kPlaces.size()))
            list.removeFirst();
        for (qsizetype i = 0; i < list.size(); ++i) {
            const Place& place = kPlaces.at(static_cast<size_t>(list.size() - 1 - i));
            const ButtonLook look = place.result == 1 ? ButtonLook::primary : ButtonLook::plain;
            auto* button = new KestroButton(look, list[i], {}, Body());
            button->SetHeight(kButtonHeight);
            button->setObjectName(QString::fromUtf16(place.name));
            button->onClick = [this, result = place.result] { done(result); };
            buttons_.push_back(button);
        }
        SetDefaultButton(buttons_.back());
        buttons_.back()->setFocus();
    }

    void MakePicture(const MessageRequest& request) {
        const QImage image = QImage::fromData(request.picture);
        if (!image.isNull()) {
            picture_ = new CallersPicture(image, Body());
            return;
        }
        auto* label = new QLabel(Body());
        picture_ = label;
        const int side = request.icon == kMsgNone ? 0 : kIconSide;
        label->setFixedSize(side, side);
        if (side > 0) label->setPixmap(PictureOf(request.icon, devicePixelRatioF()));
    }

    // The box grows with its text up to the work area; beyond that the text scrolls.
    void LayOut(const QString& text, QSize told) {
        auto* words = new MessageText(text);
        auto* scroll = new QScrollArea;
        UseKestroScrollbars(scroll);
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scroll->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        scroll->viewport()->setAutoFillBackground(false);
        scroll->setMinimumSize(1, 1);
        const int left = (picture_->width() == kFrame ? kFrameLeft : kIconLeft) - 1;
        auto* upper = new QHBoxLayout;
        upper->setContentsMargins(left, kTextMargin, 0, kTextMargin);
        upper->setSpacing(0);
        upper->addWidget(picture_, 0, Qt::AlignVCenter);
        upper->addSpacing(kTextLeft - 1 - left - picture_->width());
        upper->addWidget(scroll, 1);
        auto* column = new QVBoxLayout(Body());
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        column->addLayout(upper, 1);
        auto* buttons = ButtonRow();
        column->addLayout(buttons);
        const int width = std::max(told.width(), column->totalMinimumSize().width() + 2);
        const int wanted = words->Wrap(std::max(width - 2 - kTextLeft - kTextRight, 1));
        const int around = TitleHeight() + 1 + 2 * kTextMargin + buttons->sizeHint().height();
        scroll->setWidget(words);
        words->setAutoFillBackground(false);
        scroll->updateGeometry();
        SetNamedSize({width, std::max(told.height(), wanted + around)});
        column->activate();
        scroll->setFocusPolicy(words->height() > scroll->viewport()->height() ? Qt::TabFocus : Qt::NoFocus);
    }

    QLayout* ButtonRow() {
        auto* row = new QHBoxLayout;
        row->setContentsMargins(12, kButtonRow - 10 - kButtonHeight, 11, 9);
        row->setSpacing(Skin::Space::kPartner);
        row->addStretch();
        for (auto* button : buttons_) {
            button->SetLeastWidth(kButtonWidth);
            row->addWidget(button);
        }
        return row;
    }

    std::vector<KestroButton*> buttons_;  // from left to right
    QWidget* picture_ = nullptr;
};
}  // namespace

void InstallMessageBox() {
    MessageSlot() = [](const MessageRequest& request) {
        QWidget* front = QApplication::activeModalWidget();
        frmMsgBox box(request, front ? front : QApplication::activeWindow());
        return box.exec();
    };
}
