#pragma once
// The words of a message box: wrapped, with quiet headings and coloured arrows. Only the box uses it.

#include <QTextLayout>
#include <QWidget>

class MessageText : public QWidget {
 public:
    explicit MessageText(const QString& text, QWidget* parent = nullptr);

    /// Lays the text out in width; returns the height that it takes.
    int Wrap(int width);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QList<QTextLayout::FormatRange> Formats() const;

    QTextLayout layout_;
    int lineHeight_ = 20;
};
