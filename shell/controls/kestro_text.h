#pragma once
// KestroText: the one-line box, for words, searches, passwords and amounts.

#include <QLineEdit>

#include <functional>

enum class TextMode {
    normal,
    search,  ///< magnifier at the right end, Escape clears
    masked,  ///< shows dots
    amount   ///< right-aligned with its unit; separators are painted, text() never holds one
};

/// text() and setText() are the plain text. Line breaks that a user pastes become blanks. In amount mode
/// `,` `，` `￥` `元` and blanks drop out of what is typed or pasted, and full-width digits become ASCII;
/// nothing else is refused.
class KestroText : public QLineEdit {
 public:
    explicit KestroText(TextMode mode = TextMode::normal, QWidget* parent = nullptr);

    void SetMode(TextMode mode);
    TextMode Mode() const { return mode_; }
    /// Digits per group in amount mode: 3 or 4, anything else paints no separators.
    void SetGroup(int digits);
    /// 40 high at 20 px bold, for the amount of an entry.
    void SetBig(bool big);
    /// Words painted before the right end, 元 at first in amount mode; empty paints none.
    void SetUnit(const QString& unit);
    /// The hint of an empty box; in amount mode it stands at the left and stays while typing.
    void SetPrompt(const QString& prompt);
    void SetLeftIcon(const QString& icon);
    /// A button at the right end; opensWindow puts a line before it. An empty icon takes it away.
    void SetEndButton(const QString& icon, const QString& tip, bool opensWindow);
    /// Puts the clipboard's text in as one step that can be undone.
    void paste();
    /// Marks wrong input until the text changes or a key is pressed.
    void SetWrong(bool wrong);
    bool IsWrong() const { return wrong_; }

    std::function<void(const QString&)> onChange;  ///< after the user changed the text; not on setText
    std::function<void()> onEnter;                 ///< without it, Enter goes on to the window
    std::function<void()> onEndButton;             ///< the button, or Alt+Down
    std::function<void()> onClick;
    std::function<void()> onLeave;          ///< the focus went to another control
    std::function<bool(QKeyEvent*)> onKey;  ///< before the box; true when the key is used up
    /// Makes blank and Escape empty the box, and is called after; an input method that composes keeps them.
    std::function<void()> onEmptied;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 protected:
    /// Takes room at the right for a derived box, before the end button.
    void SetRightZone(int width);
    /// The end button, empty when there is none; and the right zone.
    QRect EndRect() const;
    QRect ZoneRect() const;
    /// Paints into the right zone.
    virtual void PaintZone(QPainter&) const {}
    virtual QColor Fill() const;
    /// Whether the end button does anything; without it stands disabled.
    virtual bool HasEndAction() const { return mode_ == TextMode::search || onEndButton; }
    /// The user changed the text; calls onChange.
    virtual void Edited();
    /// A press of the left button outside the end button.
    virtual void Pressed(QPoint) {}

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void dropEvent(QDropEvent* event) override;

 private:
    void Fit();
    QString Clean(const QString& text) const;
    void CleanEdit();
    void EndStep();
    bool EmptiesBox(const QKeyEvent& event) const;
    void ShowMenu(QPoint at);
    bool TypeCleaned(const QKeyEvent& event);
    void PaintOutline(QPainter& p) const;
    void PaintEnds(QPainter& p) const;
    QColor TextColor() const;
    void PutCursor(int position, bool marking);
    void ShowEndTip(bool over);

    // Two modes paint their text themselves: QLineEdit cannot show separators that its text has not, nor dots
    // of a size of ours.
    bool PaintsItself() const { return mode_ == TextMode::amount || mode_ == TextMode::masked; }
    bool ShowsCut() const;
    void PaintCut();
    void PaintAmount(QPainter& p) const;
    void PaintDots(QPainter& p) const;
    int DotX(int position) const;
    int PositionX(int position) const {
        return mode_ == TextMode::masked ? DotX(position) : AmountX(position);
    }
    void PaintPrompt(QPainter& p, int right) const;
    QString Grouped() const;
    int AmountX(int position) const;
    int PositionAt(int x) const;
    QRect TextRoom() const;
    int UnitWidth() const;

    TextMode mode_ = TextMode::normal;
    QString unit_;
    QString prompt_;
    QString leftIcon_;
    QString endIcon_;
    QString endTip_;
    QString preedit_;
    int group_ = 3;
    int zone_ = 0;
    bool endLine_ = false;
    bool big_ = false;
    bool wrong_ = false;
    bool overEnd_ = false;
    QString restTip_;
};
