#include "shell/message_box.h"

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_dialog.h"
#include "shell/message_text.h"
#include "shell/skin.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/state.h"

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>

#include <algorithm>
#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int kLeast = 100;
constexpr int kButtonRow = 40;
constexpr int kButtonHeight = 28;
constexpr int kButtonWidth = 80;
constexpr int kButtonGap = 8;
constexpr int kTextLeft = 82;
constexpr int kTextRight = 16;
constexpr int kTextMargin = 6;
constexpr int kIconSide = 44;
constexpr int kIconLeft = 22;
constexpr int kFrame = 58;
constexpr int kFrameLeft = 12;

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
        MakeText(request.text, std::max(request.width, kLeast), std::max(request.height, kLeast));
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
        label->setPixmap(PictureOf(request.icon, devicePixelRatioF()));
        label->setFixedSize(kIconSide, kIconSide);
        picture_ = label;
    }

    // The box grows with its text up to the work area; beyond that the text scrolls.
    void MakeText(const QString& text, int width, int height) {
        int buttons = 2 * 12 - kButtonGap;
        for (const KestroButton* button : buttons_)
            buttons += ButtonWidth(*button) + kButtonGap;
        width = std::max(width, buttons);
        auto* words = new MessageText(text);
        const int room = std::max(width - 2 - kTextLeft - kTextRight, 1);
        const int wanted = words->Wrap(room);
        const int around = TitleHeight() + kButtonRow + 2 * kTextMargin + 1;
        const int most = screen()->availableGeometry().height() - 2 * Skin::ShadowMargin();
        height = std::min(std::max(height, wanted + around), most);
        auto* scroll = new QScrollArea(Body());
        scroll->setFrameShape(QFrame::NoFrame);
        scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        scroll->viewport()->setAutoFillBackground(false);
        scroll->setWidget(words);
        words->setAutoFillBackground(false);
        scroll->setFocusPolicy(wanted + around > most ? Qt::TabFocus : Qt::NoFocus);
        SetNamedSize({width, height});
        const int free = height - TitleHeight() - kButtonRow;
        const int shown = std::min(wanted, free - 2 * kTextMargin);
        scroll->setGeometry(kTextLeft - 1, (free - shown) / 2, width - kTextLeft - 1, shown);
        const int left = picture_->width() == kFrame ? kFrameLeft : kIconLeft;
        picture_->move(left - 1, (free - picture_->height()) / 2);
        PlaceButtons(width, height);
    }

    static int ButtonWidth(const KestroButton& button) {
        return std::max(kButtonWidth, button.sizeHint().width());
    }

    void PlaceButtons(int width, int height) {
        int x = width - 1 - 12;
        for (auto button = buttons_.rbegin(); button != buttons_.rend(); ++button) {
            const int wide = ButtonWidth(**button);
            x -= wide;
            (*button)->setGeometry(x, height - TitleHeight() - 10 - kButtonHeight, wide,
                                   (*button)->sizeHint().height());
            x -= kButtonGap;
        }
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
