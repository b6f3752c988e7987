#pragma once
// The panel of what one line holds: six rows of label, code and name, amount.

#include <QStringList>
#include <QWidget>

#include <vector>

class KestroList;

class DetailPanel : public QWidget {
 public:
    static constexpr int kWidth = 280;  ///< beside the list

    explicit DetailPanel(QWidget* parent);
    KestroList* List() const { return list_; }
    void Fill(const QString& heading, const QString& title, const std::vector<QStringList>& rows);
    /// The room it takes below the list.
    int HeightBelow() const;
    /// Fixes its width beside the list, or its height below it.
    void Place(bool aside);
    bool IsPlaced() const { return placed_; }

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    int TitleHeight() const;

    QString heading_;
    QString title_;
    KestroList* list_;
    bool placed_ = false;
};
