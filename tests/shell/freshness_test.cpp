// What shows is fresh: a change reaches every page, the visible one at once, a hidden one when it is next
// shown.

#include "chart/chart_panel.h"
#include "chart/maintenance.h"
#include "ledger/posting.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "shell/frm_main.h"
#include "store/job.h"
#include "tests/support/entries.h"
#include "tests/support/ui_fixture.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

class Freshness : public SampleStage {
 protected:
    Freshness() {
        frame_ = std::make_unique<frmMain>();
        Present(frame_.get());
        EXPECT_TRUE(Wait([this] { return Entries()->RowCount() >= 3; }));
    }
    KestroList* Entries() { return Find<KestroList>(Host().page(kTabAccount), "KestroList1"); }
    KestroList* Records() { return Find<KestroList>(Host().page(kTabSubAcc), "KestroList1"); }
    ChartPanel* Panel(Tab tab, const char* name) { return Find<ChartPanel>(Host().page(tab), name); }
    KestroList* Chart(Tab tab, const char* name) { return Find<KestroList>(Panel(tab, name), "KestroList1"); }
    void Key(Qt::Key key) { QTest::keyClick(frame_.get(), key, Qt::ControlModifier); }
    void Post(const QString& code, const QString& money) {
        auto e = SampleEntry(u"外来"_s, money);
        Choose(e, kKind1, code, u"某类"_s, true);
        PostEntry(State().gDB, e);
    }

    std::unique_ptr<frmMain> frame_;
};

}  // namespace

TEST_F(Freshness, APostedEntryIsInTheChartHoweverTheTabIsReached) {
    Key(Qt::Key_6);
    ASSERT_EQ(frame_->CurrentTab(), kTabSetting);
    auto* kinds = Chart(kTabSetting, "kinds");
    ASSERT_EQ(kinds->Cell(kinds->FindRow(u"0102"_s), 6), u"0"_s);
    Key(Qt::Key_1);
    Post(u"0102"_s, u"777"_s);
    Key(Qt::Key_6);
    EXPECT_EQ(kinds->Cell(kinds->FindRow(u"0102"_s), 6), u"777"_s);
    Post(u"0102"_s, u"1"_s);  // while it shows
    EXPECT_EQ(kinds->Cell(kinds->FindRow(u"0102"_s), 6), u"778"_s);
}

TEST_F(Freshness, AnAccountsChangeReachesTheOtherPanelAndTheListOfEntries) {
    Key(Qt::Key_6);
    Host().page(kTabSetting)->OpenSub(u"account"_s);
    Key(Qt::Key_2);
    EXPECT_TRUE(Wait([this] { return Records()->RowCount() == 2; }));
    Find<KestroScrollMenu>(Host().page(kTabSubAcc), "KestroScrollMenu1")->onClick(u"title1"_s, u"tongji"_s);
    auto* panel = Panel(kTabSubAcc, "accounts");
    const auto edit = [&](const InputTyped& typed) {
        panel->Select(u"0301"_s);
        OnInputBox(typed);
        panel->Do(Act::edit);
    };
    edit({u"0301 软件"_s, u"50"_s, {}, {}});
    Key(Qt::Key_6);
    auto* accounts = Chart(kTabSetting, "accounts");
    EXPECT_TRUE(accounts->RowCells(accounts->FindRow(u"0301"_s)).join(u'|').contains(u"0301软件||50|50|"_s));
    Key(Qt::Key_1);
    EXPECT_EQ(Column(Entries(), 6).first(), u"账户期初余额"_s);
    Key(Qt::Key_2);
    edit({{}, u"0"_s, {}, {}});
    Key(Qt::Key_1);
    EXPECT_FALSE(Column(Entries(), 6).contains(u"账户期初余额"_s));
    EXPECT_EQ(Entries()->RowCount(), 3);
}

TEST_F(Freshness, AChartChangeLeavesWhatTheUserMadeOfTheList) {
    for (int i = 0; i < 60; ++i)
        Post(u"0102"_s, QString::number(i + 1));
    auto* page = Host().page(kTabAccount);
    auto* list = Entries();
    list->SortBy(3, false);
    list->SetCurrentRow(40);
    list->ScrollToRow(40);
    list->SetChecked(5, true);
    const QString current = list->CurrentKey(), checked = list->RowKey(5);
    const int scrolled = list->verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    Find<KestroText>(page, "txtSearch")->setText(u"只打了字"_s);
    ASSERT_TRUE(NewRow(State().gDB, Chart::kinds, {u"0109 新类"_s, 5, {}, false}));
    EXPECT_EQ(list->RowCount(), 64);  // with the opening entry, and without the search
    EXPECT_EQ(list->SortedColumn(), 3);
    EXPECT_EQ(list->CurrentKey(), current);
    EXPECT_EQ(list->CheckedKeys(), QStringList{checked});
    EXPECT_EQ(list->verticalScrollBar()->value(), scrolled);
    EXPECT_TRUE(Find<KestroLabel>(page, "lblCount")->Text() == u"笔数:64");
    auto* detail = Find<KestroList>(page, "KestroList2");
    EXPECT_EQ(detail->Cell(0, 1), u"0102某类"_s);
    EXPECT_TRUE(Find<KestroCombox>(page, "comKind")->SetCurrentKey(u"0109"_s));
}

TEST_F(Freshness, ALoadThatFailsDoesNotLookLikeASaveThatFailed) {
    cConnection::Seams().beforeStatement = [](const QString& sql) {
        if (sql.contains(u"count(id1) as SumCount"_s)) FailStatement(u"读不出"_s, sql);
    };
    boxes.Expect(u"意外错误，错误信息："_s);
    Post(u"0102"_s, u"9"_s);
    cConnection::Seams().beforeStatement = {};
    EXPECT_EQ(Rows(State().gDB, u"select Money from tKind where Sort1='0102'"_s), QStringList{u"9"_s});
    Key(Qt::Key_6);
    Key(Qt::Key_1);  // it has stayed stale
    EXPECT_EQ(Entries()->RowCount(), 4);
}

TEST_F(Freshness, WhileAJobRunsPagesOnlyTakeNote) {
    {
        const Job running;
        Post(u"0102"_s, u"9"_s);
        EXPECT_EQ(Entries()->RowCount(), 3);
    }
    EXPECT_TRUE(Wait([this] { return Entries()->RowCount() == 4; }));
}

TEST_F(Freshness, KeysGoRoundTheTabsAndTheFocusStandsOnALine) {
    EXPECT_TRUE(Wait([this] { return Entries()->hasFocus(); }));
    EXPECT_EQ(Entries()->CurrentRow(), 0);
    QTest::keyClick(frame_.get(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(frame_->CurrentTab(), kTabSubAcc);
    QTest::keyClick(frame_.get(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(frame_->CurrentTab(), kTabAccount);
    QTest::keyClick(frame_.get(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(frame_->CurrentTab(), kTabSetting);
}

TEST_F(Freshness, APageThatCannotShowItsOwnChangeStaysStale) {
    auto& book = State().gDB;
    Entries()->SetCurrentRow(0);
    boxes.Expect(u"确定要【删除】选定的一条记录?"_s);
    cConnection::Seams().beforeStatement = [](const QString& sql) {
        if (sql.startsWith(u"select Id1 from tAccount where Id1 in("_s)) FailStatement(u"读不出"_s, sql);
    };
    boxes.Expect(u"意外错误，错误信息："_s);
    QTest::keyClick(Entries(), Qt::Key_Delete);
    cConnection::Seams().beforeStatement = {};
    EXPECT_EQ(Rows(book, u"select count(*) from tAccount where Id1=3"_s), QStringList{u"0"_s});
    Key(Qt::Key_6);
    Key(Qt::Key_1);
    EXPECT_EQ(Entries()->RowCount(), 2);
}

TEST_F(Freshness, AChosenKindIsFollowedToItsNewCode) {
    auto* page = Host().page(kTabAccount);
    Find<KestroScrollMenu>(page, "KestroScrollMenu1")->onClick(u"title3"_s, u"030201"_s);
    ASSERT_EQ(Entries()->RowCount(), 2);
    const auto stored = ReadChartRecord(State().gDB, 12, Chart::kinds);
    boxes.Expect(u"修改之前的编号已经在记账中使用"_s);
    ASSERT_TRUE(ChangeRow(State().gDB, Chart::kinds, *stored, {u"030209 农行"_s, 0, {}, false}));
    EXPECT_EQ(Entries()->RowCount(), 2);
    EXPECT_EQ(Find<KestroCombox>(page, "comKind")->text(), u"030209农行"_s);
    EXPECT_EQ(Column(Entries(), 5), (QStringList{u"-2100"_s, u"2900"_s}));
}

// Forward Tab visits the page as it is read: strip, toolbar, search, filters, list.
TEST_F(Freshness, TabVisitsThePageInReadingOrder) {
    auto* page = Host().page(kTabAccount);
    Find<QWidget>(page, "KestroScrollMenu1")->setFocus();
    QStringList visited;
    for (int i = 0; i < 14 && QApplication::focusWidget(); ++i) {
        visited << QApplication::focusWidget()->objectName();
        if (visited.last() == u"KestroList1"_s) break;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited,
              (QStringList{u"KestroScrollMenu1"_s, u"btnNew"_s, u"btnEdit"_s, u"btnDel"_s, u"btnPrint"_s,
                           u"btnExport"_s, u"txtSearch"_s, u"comKind"_s, u"btnDate0"_s, u"btnDate1"_s,
                           u"chkFlag"_s, u"comPage"_s, u"KestroList1"_s}));
}
