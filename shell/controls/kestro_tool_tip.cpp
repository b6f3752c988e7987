#include "shell/controls/kestro_tool_tip.h"

#include "shell/skin.h"

#include <QApplication>
#include <QGuiApplication>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPadX = 10, kPadY = 7, kMostWidth = 360, kLine = 19, kMostLines = 24, kAway = 12;

class TipWindow : public QWidget {
 public:
    TipWindow() : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint) {
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        if (Skin::ShadowMargin() > 0) setAttribute(Qt::WA_TranslucentBackground);
        setObjectName(u"KestroToolTip"_s);
    }

    void SetText(const QString& text) {
        setAccessibleName(text);
        QString lines = text;
        lines.remove(u'\r').replace(u'\n', QChar(QChar::LineSeparator));
        if (const auto rest = LayOut(lines)) LayOut(lines.left(*rest - 1) + u'…');
        update();
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        const double radius = testAttribute(Qt::WA_TranslucentBackground) ? 4 : 0;
        Skin::Box(p, rect(), radius, Skin::Color(Tok::tip), Skin::Color(Tok::tip));
        p.setPen(Skin::Color(Tok::tipText));
        layout_.draw(&p, QPointF(kPadX, kPadY));
    }

 private:
    /// Where the lines begin that a tip has no room for.
    std::optional<qsizetype> LayOut(const QString& lines) {
        const double line = kLine * Skin::Scale();
        layout_.setText(lines);
        layout_.setFont(Skin::Font(Type::small));
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout_.setTextOption(option);
        std::optional<qsizetype> rest;
        double widest = 0, y = 0;
        layout_.beginLayout();
        for (QTextLine next = layout_.createLine(); next.isValid(); next = layout_.createLine()) {
            if (next.lineNumber() == kMostLines) {
                rest = next.textStart();
                break;
            }
            next.setLineWidth(kMostWidth - 2 * kPadX);
            next.setPosition({0, y + (line - next.height()) / 2});
            widest = std::max(widest, next.naturalTextWidth());
            y += line;
        }
        layout_.endLayout();
        resize(static_cast<int>(std::ceil(widest)) + 2 * kPadX, static_cast<int>(std::ceil(y)) + 2 * kPadY);
        return rest;
    }

    QTextLayout layout_;
};

/// What is up, and the ear that hears when it has to go.
class TipKeeper : public QObject {
 public:
    TipKeeper() { qApp->installEventFilter(this); }

    QString keyWord, text;
    QPointer<QWidget> owner;
    std::unique_ptr<TipWindow> window;
    bool installed = false;

    bool IsUp() const { return window && window->isVisible(); }
    void Close() {
        keyWord.clear();
        text.clear();
        if (window) window->hide();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::ToolTip:
                return installed && ShowFor(dynamic_cast<QWidget*>(watched));
            case QEvent::Leave:
                if (watched == owner) Close();
                return false;
            case QEvent::Hide:
            case QEvent::Destroy:
                if (owner && watched == owner) Close();
                return false;
            case QEvent::MouseButtonPress:
            case QEvent::KeyPress:
            case QEvent::Wheel:
            case QEvent::WindowDeactivate:
                if (IsUp()) Close();
                return false;
            default:
                return false;
        }
    }

 private:
    static bool ShowFor(QWidget* widget) {
        if (!widget || widget->toolTip().isEmpty()) return false;
        KestroToolTip::Show(u"widget"_s, widget->toolTip(), QCursor::pos(), widget);
        return true;
    }
};

QPointer<TipKeeper>& Kept() {
    static QPointer<TipKeeper> keeper;
    return keeper;
}

void DropWindow() {
    if (Kept()) Kept()->window.reset();
}

/// Lives and dies with the application, whose windows it watches; its own window goes before the platform
/// does.
TipKeeper& Keeper() {
    if (!Kept()) {
        Kept() = new TipKeeper;
        Kept()->setParent(qApp);
        qAddPostRoutine(DropWindow);
    }
    return *Kept();
}

QPoint PlaceFor(const QSize& size, const QPoint& globalPos) {
    QPoint at = globalPos + QPoint(kAway, kAway);
    const QScreen* screen = QGuiApplication::screenAt(globalPos);
    if (!screen) return at;
    const QRect room = screen->availableGeometry();
    if (at.y() + size.height() > room.bottom()) at.setY(globalPos.y() - kAway - size.height());
    at.setX(std::max(room.left(), std::min(at.x(), room.right() - size.width())));
    at.setY(std::max(room.top(), at.y()));
    return at;
}

}  // namespace

namespace KestroToolTip {

void Install() {
    Keeper().installed = true;
}

void Show(const QString& keyWord, const QString& text, const QPoint& globalPos, QWidget* owner) {
    TipKeeper& keeper = Keeper();
    if (text.isEmpty()) return Hide();
    if (keeper.IsUp() && keeper.keyWord == keyWord && keeper.text == text) return;
    if (!keeper.window) keeper.window = std::make_unique<TipWindow>();
    keeper.keyWord = keyWord;
    keeper.text = text;
    keeper.owner = owner;
    keeper.window->SetText(text);
    keeper.window->move(PlaceFor(keeper.window->size(), globalPos));
    keeper.window->show();
}

void Hide() {
    Keeper().Close();
}

void Hide(const QString& keyWord) {
    if (IsShown(keyWord)) Hide();
}

bool IsShown(const QString& keyWord) {
    return Keeper().IsUp() && Keeper().keyWord == keyWord;
}

QString ShownText() {
    return Keeper().IsUp() ? Keeper().text : QString();
}

}  // namespace KestroToolTip
