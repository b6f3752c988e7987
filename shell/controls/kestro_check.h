#pragma once
// KestroCheck: a box and its caption, with an icon between them if one is named. The box stands 3 pixels from
// the left edge, room for its focus ring.

#include <QCheckBox>
#include <QString>

#include <functional>

class KestroCheck : public QCheckBox {
 public:
    explicit KestroCheck(const QString& caption = {}, QWidget* parent = nullptr);

    void SetIconName(const QString& name);
    bool IsChecked() const { return isChecked(); }
    void SetChecked(bool on);  ///< without a callback

    std::function<void(bool on)> onChange;  ///< by the user only

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& pos) const override;

 private:
    QString iconName_;
};
