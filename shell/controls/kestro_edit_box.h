#pragma once
// KestroEditBox: the multi-line box. Tab leaves it.

#include <QPlainTextEdit>

#include <functional>

/// cut(), copy(), paste() and selectAll() serve the text menu. Ctrl+Enter goes on to the window.
class KestroEditBox : public QPlainTextEdit {
 public:
    explicit KestroEditBox(QWidget* parent = nullptr);

    /// The text that was set, to the character, as long as the user has not changed it.
    QString Text() const;
    void SetText(const QString& text);

    std::function<void()> onChange;  ///< after every change
    std::function<void()> onLeave;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 private:
    QString set_;

 protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
};
