// The least Qt window that opens a book and reads nothing of it: bench_least STARTED BOOK [TEXT]. With a text
// it shows that one line, as a program has to that speaks Chinese.

#include "tools/bench/start_end.h"

#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>

#include <sqlite3.h>

namespace {

class LeastWindow : public QWidget {
 public:
    LeastWindow(const char* started, QString text) : started_(started), text_(std::move(text)) {
        setFont(QFont(QStringLiteral("Noto Sans CJK SC")));
        resize(1100, 700);
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        if (!text_.isEmpty()) QPainter(this).drawText(rect(), Qt::AlignCenter, text_);
        QTimer::singleShot(0, this, [this] {
            TellStart(started_);
            QApplication::quit();
        });
    }

 private:
    const char* started_;
    QString text_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3 || argc > 4) return 2;
    QApplication app(argc, argv);
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(argv[2], &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) return 1;
    sqlite3_exec(db, "select count(*) from sqlite_master", nullptr, nullptr, nullptr);
    LeastWindow window(argv[1], argc == 4 ? QString::fromUtf8(argv[3]) : QString());
    window.show();
    const int code = QApplication::exec();
    sqlite3_close(db);
    return code;
}
