#pragma once
// KestroEditBox: the multi-line box. Tab leaves it.

#include <QPlainTextEdit>

#include <functional>

/// cut(), copy(), paste() and selectAll() serve the text menu. Ctrl+Enter goes on to the window.
class KestroEditBox : public QPlainTextEdit {
 public:
    explicit KestroEditBox(QWidget* parent = nullptr);

    QString Text() const { return toPlainText(); }
    void SetText(const QString& text) { setPlainText(text); }

    std::function<void()> onChange;  ///< after every change
    std::function<void()> onLeave;

    QSize sizeHint() const override { return {200, 64}; }
    QSize minimumSizeHint() const override { return {80, 56}; }

 protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
};
