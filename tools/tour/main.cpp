// The tour: on a copy of the program folder it logs in to the sample book, types an entry and shows the list.
// tour PICTURE_FOLDER. What it saw is checked against the book; exit code 1 when a step fails.

#include <QApplication>
#include <QDir>
#include <QLocale>

#include <cstdio>

#include "app/startup.h"
#include "app/windows.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_style.h"
#include "shell/controls/kestro_tree.h"
#include "shell/skin.h"
#include "store/paths.h"
#include "store/state.h"
#include "tools/tour/tour.h"

using namespace Qt::StringLiterals;

namespace {

KestroList* EntryList(QWidget* window) {
    return dynamic_cast<KestroList*>(Control(window, "KestroList1"));
}

QWidget* MainWithRows(int rows) {
    auto* window = WindowWith("KestroList1");
    return window && EntryList(window)->RowCount() == rows && !State().gBusy ? window : nullptr;
}

QWidget* MessageWith(const QString& button) {
    auto* window = WindowWith("btnEnter");
    if (!window || window->findChild<QWidget*>(u"txtThing"_s)) return nullptr;
    auto* enter = dynamic_cast<QAbstractButton*>(Control(window, "btnEnter"));
    return enter && enter->text() == button ? window : nullptr;
}

void LogIn(Tour& tour) {
    tour.Add(u"login"_s, [] { return WindowWith("txtPass"); },
             [&tour](QWidget* w) {
                 tour.Picture(w, u"01-login"_s);
                 Key(Control(w, "txtPass"), Qt::Key_Return);
             });
    tour.Add(u"main window"_s, [] { return MainWithRows(3); },
             [&tour](QWidget* w) {
                 tour.Picture(w, u"02-main-before"_s);
                 Click(Control(w, "btnNew"));
             });
}

void PickInTree(Tour& tour) {
    tour.Add(u"tree picker"_s, [] { return WindowWith("KestroTree1"); },
             [&tour](QWidget* w) {
                 Click(Control(w, "btnExpand"));
                 auto* tree = dynamic_cast<KestroTree*>(Control(w, "KestroTree1"));
                 tree->SetCurrentNode(tree->FindKey(u"0201"_s));
                 tour.Picture(w, u"03-tree-picker"_s);
                 Click(Control(w, "btnEnter"));
             });
}

void TypeEntry(Tour& tour) {
    tour.Add(u"entry window"_s, [] { return WindowWith("txtThing"); },
             [](QWidget* w) { Click(Control(w, "btnEnter")); });
    tour.Add(u"error box"_s, [] { return MessageWith(u"确定"_s); },
             [&tour](QWidget* w) {
                 tour.Picture(w, u"04-error-box"_s);
                 Key(w, Qt::Key_Return);
             });
    tour.Add(u"matter, amount and first kind"_s, [] { return WindowWith("txtThing"); },
             [](QWidget* w) {
                 TypeText(Control(w, "txtThing"), u"购买办公椅"_s);
                 auto* money = Control(w, "txtMoney");
                 Click(money);
                 TypeText(money, u"350.5"_s);
                 auto* kind = dynamic_cast<KestroCombox*>(Control(w, "comKind"));
                 ClickAt(kind, {kind->width() - 12, kind->height() / 2});
             });
    PickInTree(tour);
    tour.Add(u"second kind and account"_s, [] { return WindowWith("txtThing"); },
             [&tour](QWidget* w) {
                 ClickAt(Control(w, "chkOther"), {12, 12});
                 auto* kind = Control(w, "comKind1");
                 Click(kind);
                 TypeText(kind, u"030201"_s);
                 Key(kind, Qt::Key_Return);
                 Click(dynamic_cast<KestroOptionPair*>(Control(w, "opt1"))->ReduceOption());
                 Click(Control(w, "pngArrow"));
                 auto* account = Control(w, "comAccName");
                 TypeText(account, u"01"_s);
                 Key(account, Qt::Key_Return);
                 Click(Control(w, "btnClone0"));
                 tour.Picture(w, u"05-entry-window"_s);
                 Click(Control(w, "btnEnter"));
             });
    tour.Add(u"confirmation"_s, [] { return MessageWith(u"正确"_s); },
             [&tour](QWidget* w) {
                 tour.Picture(w, u"06-confirmation"_s);
                 Key(w, Qt::Key_Return);
             });
}

QString Lines(const QString& sql) {
    QString text;
    auto rows = State().gDB.Read(sql);
    while (rows.Next()) {
        QStringList cells;
        for (int column = 0; column < rows.ColumnCount(); ++column)
            cells << rows.Text(column);
        text += u"  "_s + cells.join(u" | "_s) + u'\n';
    }
    return text;
}

void ShowResult(Tour& tour) {
    tour.Add(u"list with the new entry"_s, [] { return MainWithRows(4); },
             [&tour](QWidget* w) {
                 tour.Picture(w, u"07-main-after"_s);
                 const QString entry = Lines(
                     u"select Id1,Title1,Type1,TypeName1,Value1,nSign,IID,IIID,bIsMain from tAccount where Id1>7"_s);
                 const QString record = Lines(
                     u"select Id1,AccId,SubAccKey,SubAccName1,TypeName1,Value1,nSign from tSubAccItem where Id1>4"_s);
                 const QString balances =
                     Lines(u"select Sort1,Name1,nAdd,nReduce,Money from tKind where Sort1 in ('0201','030201') union all"
                           u" select Sort1,Name1,nAdd,nReduce,Money from tSubAcc where Sort1='01'"_s);
                 std::printf("tAccount:\n%stSubAccItem:\n%sbalances:\n%s", qUtf8Printable(entry), qUtf8Printable(record),
                             qUtf8Printable(balances));
                 const QString told = u"  0201 | 办公费用 | 2450.5 | 0 | 2450.5\n  030201 | 农行 | 5000 | 2450.5 | 2549.5\n"
                                      u"  01 | 东华公司 | 5350.5 | 0 | 5350.5\n"_s;
                 if (balances != told) tour.Fail(u"the balances are not as told"_s);
             });
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("Usage: tour PICTURE_FOLDER\n", stderr);
        return 1;
    }
    QApplication app(argc, argv);
    QLocale::setDefault(QLocale(QLocale::Chinese, QLocale::China));
    QApplication::setQuitOnLastWindowClosed(false);
    Skin::Load(ProgramFolder(), false);
    QApplication::setStyle(new KestroStyle);
    QApplication::setFont(Skin::Font(Type::body));
    RegisterWindows();
    Tour tour(QString::fromLocal8Bit(argv[1]));
    if (StartUp({}) != StartResult::login) return 1;
    ShowLogin();
    LogIn(tour);
    TypeEntry(tour);
    ShowResult(tour);
    tour.Start();
    const int code = QApplication::exec();
    TellAgent(1);
    DropWindows();
    return code;
}
