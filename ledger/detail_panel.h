#pragma once
// The panel under the list: what one line holds, as six rows of label, code and name, amount.

#include "ledger/list_page.h"

#include <QStringList>

#include <vector>

class KestroLabel;

class ListPage::DetailPanel : public QWidget {
 public:
    static constexpr int kTitle = 30;
    static constexpr int kHeight = kTitle + 24 + 6 * 24 + 4;  ///< title, heading, six rows, frame

    explicit DetailPanel(QWidget* parent);
    KestroList* List() const { return list_; }
    void Fill(const QString& heading, const QString& title, const std::vector<QStringList>& rows);

 protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    QString heading_;
    QString title_;
    KestroList* list_;
};
