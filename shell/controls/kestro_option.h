#pragma once
// KestroOption: one of several choices. Those of one parent widget exclude each other; KestroOptionPair is
// the pair 增加 / 减少, of which exactly one is always on.

#include <QRadioButton>
#include <QString>
#include <QWidget>

#include <functional>

enum class OptionLook { plain, add, reduce };

class KestroOption : public QRadioButton {
 public:
    explicit KestroOption(const QString& caption = {}, QWidget* parent = nullptr,
                          OptionLook look = OptionLook::plain);

    bool IsOn() const { return isChecked(); }
    void SetOn();  ///< without a callback
    /// An icon of 16 before the words of a plain option.
    void SetIconName(const QString& name);

    std::function<void()> onChoose;  ///< the user switched it on

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool hitButton(const QPoint& pos) const override;

 private:
    void PaintMark(QPainter& p, const QRectF& mark, const QColor& on) const;
    void PaintPlain(QPainter& p) const;
    void PaintPill(QPainter& p) const;

    OptionLook look_;
    QString iconName_;
};

class KestroOptionPair : public QWidget {
 public:
    explicit KestroOptionPair(QWidget* parent = nullptr);

    bool IsAdd() const;
    void SetAdd(bool add);  ///< without a callback
    /// What the pair decides, such as 分类一导致; each option is read out with it.
    void SetGroupName(const QString& name);
    KestroOption* AddOption() const { return add_; }
    KestroOption* ReduceOption() const { return reduce_; }

    std::function<void(bool add)> onChange;

 private:
    KestroOption* add_;
    KestroOption* reduce_;
};
