// The tour: on a copy of the program folder it logs in to the sample book, types an entry and shows the list.
// tour PICTURE_FOLDER. What it saw is checked against the book; exit code 1 when a step fails.

#include "app/startup.h"
#include "app/windows.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_style.h"
#include "shell/controls/kestro_tree.h"
#include "shell/skin.h"
#include "store/places.h"
#include "store/state.h"
#include "tools/tour/see_answers.h"
#include "tools/tour/see_books.h"
#include "tools/tour/see_notes.h"
#include "tools/tour/see_web.h"
#include "tools/tour/tour.h"

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

KestroList* EntryList(QWidget* window) {
    return dynamic_cast<KestroList*>(Control(window, "KestroList1"));
}

void DoubleClickRow(KestroList* list, int row) {
    const QPoint at = list->visualRect(list->model()->index(row, 3)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

QWidget* MainWithRows(int rows) {
    auto* window = WindowWith("KestroList1");
    return window && EntryList(window)->RowCount() == rows && !State().gBusy ? window : nullptr;
}

void LogIn(Tour& tour) {
    tour.Add(
        u"login"_s, [] { return WindowWith("txtPass"); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"01-login"_s);
            Key(Control(w, "txtPass"), Qt::Key_Return);
        });
    tour.Add(
        u"main window"_s, [] { return MainWithRows(3); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"02-main-before"_s);
            Click(Control(w, "btnNew"));
        });
}

void PickInTree(Tour& tour) {
    tour.Add(
        u"tree picker"_s, [] { return WindowWith("KestroTree1"); },
        [&tour](QWidget* w) {
            Click(Control(w, "btnExpand"));
            auto* tree = dynamic_cast<KestroTree*>(Control(w, "KestroTree1"));
            tree->SetCurrentNode(tree->FindKey(u"0201"_s));
            tour.Picture(w, u"03-tree-picker"_s);
            Click(Control(w, "btnEnter"));
        });
}

void TypeEntry(Tour& tour) {
    tour.Add(
        u"entry window"_s, [] { return WindowWith("txtThing"); },
        [](QWidget* w) { Click(Control(w, "btnEnter")); });
    tour.Add(
        u"error box"_s, [] { return MessageWith(u"确定"_s); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"04-error-box"_s);
            Key(w, Qt::Key_Return);
        });
    tour.Add(
        u"matter, amount and first kind"_s, [] { return WindowWith("txtThing"); },
        [](QWidget* w) {
            TypeText(Control(w, "txtThing"), u"购买办公椅"_s);
            auto* money = Control(w, "txtMoney");
            Click(money);
            TypeText(money, u"350.5"_s);
            auto* kind = dynamic_cast<KestroCombox*>(Control(w, "comKind"));
            ClickAt(kind, {kind->width() - 12, kind->height() / 2});
        });
    PickInTree(tour);
    tour.Add(
        u"second kind and account"_s, [] { return WindowWith("txtThing"); },
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
    tour.Add(
        u"confirmation"_s, [] { return MessageWith(u"正确"_s); },
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
    tour.Add(
        u"list with the new entry"_s, [] { return MainWithRows(4); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"07-main-after"_s);
            const QString entry = Lines(
                u"select Id1,Title1,Type1,TypeName1,Value1,nSign,IID,IIID,bIsMain from tAccount where Id1>7"_s);
            const QString record = Lines(
                u"select Id1,AccId,SubAccKey,SubAccName1,TypeName1,Value1,nSign from tSubAccItem where Id1>4"_s);
            const QString balances = Lines(
                u"select Sort1,Name1,nAdd,nReduce,Money from tKind where Sort1 in ('0201','030201') union all"
                u" select Sort1,Name1,nAdd,nReduce,Money from tSubAcc where Sort1='01'"_s);
            std::printf("tAccount:\n%stSubAccItem:\n%sbalances:\n%s", qUtf8Printable(entry),
                        qUtf8Printable(record), qUtf8Printable(balances));
            const QString told =
                u"  0201 | 办公费用 | 2450.5 | 0 | 2450.5\n  030201 | 农行 | 5000 | 2450.5 | 2549.5\n"
                u"  01 | 东华公司 | 5350.5 | 0 | 5350.5\n"_s;
            if (balances != told) return tour.Fail(u"the balances are not as expected"_s);
            DoubleClickRow(EntryList(w), 3);
        });
}

// The entry's amount becomes 400 and its account goes.
void EditEntry(Tour& tour) {
    tour.Add(
        u"entry window with the stored entry"_s, [] { return WindowWith("txtThing"); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"08-edit-window"_s);
            auto* money = Control(w, "txtMoney");
            Key(money, Qt::Key_A, Qt::ControlModifier);
            TypeText(money, u"400"_s);
            Click(Control(w, "pngArrow"));
            Click(Control(w, "btnEnter"));
        });
    tour.Add(
        u"confirmation of the change"_s, [] { return MessageWith(u"正确"_s); },
        [](QWidget* w) { Key(w, Qt::Key_Return); });
    tour.Add(
        u"changed line"_s, [] { return MainWithRows(4); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"09-main-edited"_s);
            const QString account = Lines(u"select nAdd,nReduce,Money from tSubAcc where Sort1='01'"_s);
            const QString kind = Lines(u"select nAdd,nReduce,Money from tKind where Sort1='030201'"_s);
            if (account != u"  5000 | 0 | 5000\n" || kind != u"  5000 | 2500 | 2500\n")
                return tour.Fail(u"the change has not moved the balances as expected"_s);
            Click(Tab(w, u"账  户"_s));
        });
}

void SeeAccounts(Tour& tour) {
    tour.Add(
        u"account page"_s,
        [] {
            auto* window = WindowWith("btnNoNew");
            auto* button = window ? window->findChild<QWidget*>(u"btnNoNew"_s) : nullptr;
            auto* page = button ? button->parentWidget()->parentWidget() : nullptr;
            auto* list = page ? page->findChild<KestroList*>(u"KestroList1"_s) : nullptr;
            return list && list->RowCount() == 2 && !State().gBusy ? window : nullptr;
        },
        [&tour](QWidget* w) {
            tour.Picture(w, u"10-account-page"_s);
            // Heading, 账户记录, 账户管理.
            auto* strip = w->findChild<QWidget*>(u"accounts"_s)
                              ->parentWidget()
                              ->findChild<QWidget*>(u"KestroScrollMenu1"_s);
            for (const int key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
                Key(strip, key);
        });
    tour.Add(
        u"accounts in the account page"_s,
        [] {
            auto* window = WindowWith("accounts");
            auto* chart = window ? window->findChild<QWidget*>(u"accounts"_s) : nullptr;
            return chart && chart->isVisible() ? window : nullptr;
        },
        [&tour](QWidget* w) {
            tour.Picture(w, u"11-accounts"_s);
            Click(Tab(w, u"设  置"_s));
        });
}

QWidget* Settings() {
    return WindowWith("btnReload");
}

void AddKind(Tour& tour) {
    tour.Add(u"settings page"_s, Settings,
             [](QWidget* w) { Click(w->findChild<QWidget*>(u"kinds"_s)->findChild<QWidget*>(u"btnNew"_s)); });
    tour.Add(
        u"input box"_s, [] { return WindowWith("txtNote"); },
        [&tour](QWidget* w) {
            TypeText(Control(w, "txtNote"), u"0304 押金"_s);
            auto* money = Control(w, "txtMoney");
            Key(money, Qt::Key_A, Qt::ControlModifier);
            TypeText(money, u"-250.5"_s);
            TypeText(Control(w, "editNote"), u"房东"_s);
            tour.Picture(w, u"12-input-box"_s);
            Click(Control(w, "btnEnter"));
        });
    tour.Add(u"the new kind"_s, Settings, [&tour](QWidget* w) {
        tour.Picture(w, u"13-settings"_s);
        const QString kind = Lines(
            u"select k.Sort1,k.Name1,k.nReduce,k.Money,a.Title1,a.Value1,a.nSign from"
            u" tKind k join tAccount a on a.Id1=k.IID where k.Sort1='0304'"_s);
        std::printf("the new kind:\n%s", qUtf8Printable(kind));
        if (kind != u"  0304 | 押金 | 250.5 | -250.5 | 分类期初余额 | 250.5 | -1\n")
            return tour.Fail(u"the new kind is not as expected"_s);
        Click(Tab(w, u"记  账"_s));
    });
}

void DeleteEntry(Tour& tour) {
    tour.Add(
        // The kind's opening balance has come in as an entry.
        u"entry page again"_s, [] { return MainWithRows(5); },
        [](QWidget* w) { Key(EntryList(w), Qt::Key_Delete); });
    tour.Add(
        u"question before deleting"_s, [] { return MessageWith(u"确定"_s); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"14-delete-question"_s);
            Key(w, Qt::Key_Return);
        });
    tour.Add(
        u"list without the entry"_s, [] { return MainWithRows(4); },
        [&tour](QWidget* w) {
            const QString left = Lines(u"select count(*) from tAccount where Id1 in (8,9)"_s);
            const QString kind = Lines(u"select nAdd,nReduce,Money from tKind where Sort1='030201'"_s);
            Click(Tab(w, u"统  计"_s));
            if (left != u"  0\n" || kind != u"  5000 | 2100 | 2900\n")
                tour.Fail(u"the deletion has not restored the balances"_s);
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
    EditEntry(tour);
    SeeAccounts(tour);
    AddKind(tour);
    DeleteEntry(tour);
    SeeAnswers(tour);
    SeeNotes(tour);
    SeeBooks(tour);
    SeeWeb(tour);
    tour.Start();
    const int code = QApplication::exec();
    TellAgent(1);
    DropWindows();
    return code;
}
