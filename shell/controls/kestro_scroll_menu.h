#pragma once
// KestroScrollMenu: the strip of sections at the left of a page. Keys are unique within their section.

#include "shell/controls/control_support.h"
#include "shell/skin.h"

#include <QPoint>
#include <QRect>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class KestroScrollbar;

struct ScrollMenuItem {
    QString key;
    QString caption;
    QString icon = {};                  ///< name in the icon set
    QString mark = {};                  ///< text at the right end
    std::optional<Tok> markColor = {};  ///< text when not set
    int depth = 0;                      ///< code level: each moves the item 12 to the right
    bool bold = false;
    bool enabled = true;     ///< false: stands in its place and does nothing
    bool selectable = true;  ///< false for figures: they take no selection, but report clicks
    QString tip = {};        ///< used when no onTip answers
};

/// A line as it shows, for tools that read the strip.
struct StripLine {
    QString text;
    QRect rect;
    bool isHead = false;
    bool folded = false;
    bool selected = false;
    bool enabled = true;
    bool focused = false;
};

class KestroScrollMenu : public QWidget {
 public:
    explicit KestroScrollMenu(QWidget* parent = nullptr);

    void AddSection(const QString& key, const QString& caption);
    /// Adds an item to the section; an unknown section is ignored.
    void AddItem(const QString& section, const ScrollMenuItem& item);
    void ClearAll();
    void Clear(const QString& section);  ///< drops the items, keeps the section and its fold
    void SetCaption(const QString& section, const QString& caption);
    void SetIcon(const QString& section, const QString& item, const QString& icon);
    void SetItemCaption(const QString& section, const QString& item, const QString& caption);
    void SetMark(const QString& section, const QString& item, const QString& mark);
    void SetBold(const QString& section, const QString& item, bool bold);
    void Fold(const QString& section, bool folded);
    bool IsFolded(const QString& section) const;
    /// Between the two nothing is painted.
    void BeginFill();
    void EndFill();

    /// Selects an item without a callback; an empty or unknown key selects nothing.
    void Select(const QString& section, const QString& item);
    QString SelectedSection() const;
    QString SelectedKey() const;

    /// Only icons, 44 wide.
    void SetCollapsed(bool on);
    bool IsCollapsed() const { return collapsed_; }

    int LineCount() const { return static_cast<int>(lines_.size()); }
    StripLine LineOf(int line) const;
    /// As a click on the line.
    void PressLine(int line) { Press(line); }

    std::function<void(const QString& section, const QString& item)> onClick;
    std::function<void(const QString& section, const QString& item)> onDoubleClick;
    std::function<void(const QString& section, const QString& item, const QPoint& globalPos)> onContextMenu;
    /// The tool tip of an item, asked for when the pointer rests on it.
    std::function<QString(const QString& section, const QString& item)> onTip;

    QSize sizeHint() const override;

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

 private:
    struct Section {
        QString key;
        QString caption;
        bool folded = false;
        std::vector<ScrollMenuItem> items;
    };
    /// A line as laid out: a section head when item is -1. y counts from the top of its part.
    struct Line {
        int section = -1;
        int item = -1;
        int y = 0;
        int height = 0;
        bool scrolls = false;
    };

    Section* FindSection(const QString& key);
    const Section* FindSection(const QString& key) const;
    ScrollMenuItem* FindItem(const QString& section, const QString& item);
    const ScrollMenuItem& ItemOf(const Line& line) const;
    void Relayout();
    void PlaceScrollBar();
    QRect LineRect(const Line& line) const;
    int LineAt(const QPoint& pos) const;  ///< index into lines_, -1 none
    void SetHover(int line);
    void MoveFocus(int step);
    void OpenMenuByKey();
    void Press(int line);
    void Open(int line);  ///< as a double click does
    void ShowTip(const QPoint& pos, const QPoint& globalPos);
    void EnsureVisible(int line);
    void PaintHead(QPainter& p, const Line& line) const;
    void PaintItem(QPainter& p, const Line& line, int index) const;

    std::vector<Section> sections_;
    std::vector<Line> lines_;
    KestroScrollbar* bar_;
    QString selectedSection_;
    QString selectedKey_;
    int scrollTop_ = 0;     ///< y where the part begins that scrolls
    int scrollHeight_ = 0;  ///< height of its contents
    int hover_ = -1;
    int focusLine_ = -1;  ///< line with the keyboard, shown while the strip has the focus by key
    bool keyFocus_ = false;
    bool collapsed_ = false;
    bool filling_ = false;
    Controls::WheelNotches notches_;
};
