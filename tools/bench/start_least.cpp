// The least Qt window that reads the lines of a query and shows them: bench_least STARTED BOOK QUERY.

#include "tools/bench/raw_book.h"
#include "tools/bench/start_end.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QTableView>
#include <QTimer>

namespace {

constexpr int kColumns = 8, kRowHeight = 28;

class LeastModel : public QAbstractTableModel {
 public:
    explicit LeastModel(std::vector<RawBook::Row> rows) : rows_(std::move(rows)) {}
    int rowCount(const QModelIndex&) const override { return static_cast<int>(rows_.size()); }
    int columnCount(const QModelIndex&) const override { return kColumns; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) return {};
        const auto& row = rows_[static_cast<size_t>(index.row())];
        return QString::fromStdString(row[static_cast<size_t>(index.column()) + 1]);
    }

 private:
    std::vector<RawBook::Row> rows_;
};

class LeastList : public QTableView {
 public:
    explicit LeastList(const char* started) : started_(started) {
        setFont(QFont(QStringLiteral("Noto Sans CJK SC")));
        verticalHeader()->hide();
        verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        verticalHeader()->setDefaultSectionSize(kRowHeight);
        resize(1100, 700);
    }

 protected:
    void paintEvent(QPaintEvent* event) override {
        QTableView::paintEvent(event);
        QTimer::singleShot(0, this, [this] {
            TellStart(started_);
            QApplication::quit();
        });
    }

 private:
    const char* started_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    QApplication app(argc, argv);
    RawBook book(argv[2]);
    LeastModel lines(book.Rows(argv[3]));
    LeastList window(argv[1]);
    window.setModel(&lines);
    window.show();
    return QApplication::exec();
}
