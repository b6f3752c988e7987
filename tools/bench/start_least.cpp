// The least Qt window that opens a book and reads nothing of it: bench_least STARTED BOOK.

#include "tools/bench/start_end.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <sqlite3.h>

namespace {

class LeastWindow : public QWidget {
 public:
    explicit LeastWindow(const char* started) : started_(started) { resize(1100, 700); }

 protected:
    void paintEvent(QPaintEvent*) override {
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
    if (argc != 3) return 2;
    QApplication app(argc, argv);
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(argv[2], &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) return 1;
    sqlite3_exec(db, "select count(*) from sqlite_master", nullptr, nullptr, nullptr);
    LeastWindow window(argv[1]);
    window.show();
    const int code = QApplication::exec();
    sqlite3_close(db);
    return code;
}
