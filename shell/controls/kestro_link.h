#pragma once
// KestroLink: a line of text that acts on a click, the blank, or Enter when the focus came by key.

#include <QPushButton>
#include <QString>

#include <functional>

class KestroLink : public QPushButton {
 public:
    explicit KestroLink(const QString& text = {}, QWidget* parent = nullptr);

    std::function<void()> onClick;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

 private:
    bool byKey_ = false;
};
