#pragma once
// The clickable parts of the main window's band. Only KestroHeader uses them.

#include <QAbstractButton>

#include <functional>

class HeaderPart : public QAbstractButton {
 public:
    HeaderPart(QWidget* parent, const QString& tip);

    void SetChosen(bool chosen);
    bool IsChosen() const { return chosen_; }

    std::function<void()> onClick;
    std::function<void()> onDrag;  ///< the pointer left with the button held: a move of the window

 protected:
    void focusInEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool ShowsFocus() const { return hasFocus() && byKey_; }

 private:
    QPoint pressedAt_;
    bool chosen_ = false;
    bool byKey_ = false;
};

class HeaderTab : public HeaderPart {
 public:
    HeaderTab(QWidget* parent, const QString& caption);

 protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A picture of 18 pixels.
class HeaderIcon : public HeaderPart {
 public:
    HeaderIcon(QWidget* parent, const QString& icon, const QString& tip);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QString icon_;
};

class HeaderLogo : public HeaderPart {
 public:
    explicit HeaderLogo(QWidget* parent);
    void SetBadge(int number);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    int number_ = 0;
};

class HeaderLabel : public HeaderPart {
 public:
    explicit HeaderLabel(QWidget* parent);
    /// Any text: an & in a name is no mnemonic.
    void SetText(const QString& text);
    QString Text() const { return text_; }
    int WantedWidth() const;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QString text_;
};

enum class WindowGlyph { minimise, maximise, close };

class HeaderGlyph : public HeaderPart {
 public:
    HeaderGlyph(QWidget* parent, WindowGlyph glyph, const QString& tip);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    WindowGlyph glyph_;
};
