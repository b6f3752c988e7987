#pragma once
// KestroLabel: texts of windows. plain is text, caption names a field, hint is small, title is a report's
// name, value is a sum ("差额:12.50": the part before the colon dim, the rest bold) with a copy icon if asked
// for, help carries a question mark.

#include <QLabel>
#include <QString>

#include <functional>

enum class LabelKind { plain, caption, hint, title, value, help };

class KestroLabel : public QLabel {
 public:
    explicit KestroLabel(const QString& text = {}, LabelKind kind = LabelKind::plain,
                         QWidget* parent = nullptr);

    void SetText(const QString& text);
    QString Text() const { return text(); }
    void SetKind(LabelKind kind);
    void SetCopyIcon(bool on);
    /// Another colour for the whole text, as a token of the skin.
    void SetColor(int token);

    std::function<void()> onClick;  ///< a label with one takes the hand cursor when shown

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

 private:
    int IconWidth() const;

    LabelKind kind_;
    bool copyIcon_ = false;
    int color_ = -1;
};
