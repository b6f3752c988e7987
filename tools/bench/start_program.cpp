// The program from its start to the painted list: bench_start STARTED BOOK PROGRAM_FOLDER. The login is
// answered as soon as it is there. The agent, a program of its own, is not started.

#include "app/frm_login.h"
#include "app/startup.h"
#include "app/windows.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_style.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/skin.h"
#include "store/outside.h"
#include "store/places.h"
#include "store/state.h"
#include "tools/bench/start_end.h"

#include <QApplication>
#include <QEvent>
#include <QLocale>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Ends the program after the first painting that shows the loaded rows.
class FirstRows : public QObject {
 public:
    FirstRows(KestroList* list, const char* started) : list_(list), started_(started) {
        list->viewport()->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::Paint || told_ || State().gBusy || list_->RowCount() == 0) return false;
        told_ = true;
        QTimer::singleShot(0, this, [this] {
            TellStart(started_);
            QApplication::quit();
        });
        return false;
    }

 private:
    KestroList* list_;
    const char* started_;
    bool told_ = false;
};

template <class Window>
Window* Shown() {
    for (auto* widget : QApplication::topLevelWidgets())
        if (auto* window = dynamic_cast<Window*>(widget); window && window->isVisible()) return window;
    return nullptr;
}

KestroList* ShownList() {
    for (auto* widget : QApplication::topLevelWidgets())
        if (auto* list = dynamic_cast<KestroList*>(widget->findChild<QWidget*>(u"KestroList1"_s)))
            return list;
    return nullptr;
}

void AnswerLogin(const char* started) {
    if (auto* login = Shown<frmLogin>()) login->BtnEnterClicked();
    auto* list = ShownList();
    if (!list) return QApplication::exit(1);
    static const FirstRows watch(list, started);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    State().gProgramFolder = QString::fromLocal8Bit(argv[3]);
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::SimplifiedChineseScript, QLocale::China));
    Skin::Load(ProgramFolder(), false);
    QApplication::setStyle(new KestroStyle);
    QApplication::setFont(Skin::Font(Type::body));
    KestroToolTip::Install();
    RegisterWindows();
    Outside().launch = [](const QString&, const QStringList&, const QString&) { return false; };
    if (StartUp(QString::fromLocal8Bit(argv[2])) != StartResult::login) return 1;
    ShowLogin();
    QTimer::singleShot(0, &app, [&] { AnswerLogin(argv[1]); });
    const int code = QApplication::exec();
    DropWindows();
    return code;
}
