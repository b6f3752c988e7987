// Changing, deleting and following entries through the windows: both list pages.

#include "chart/chart_panel.h"
#include "ledger/frm_account.h"
#include "ledger/frm_account_new.h"
#include "ledger/frm_sub_acc.h"
#include "ledger/posting.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "store/dialogs.h"
#include "store/picture_index.h"
#include "tests/support/entries.h"
#include "tests/support/ui_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class ChangeWindows : public SampleStage {
 protected:
    template <typename P>
    std::unique_ptr<P> Open(int rows) {
        auto page = NewPage<P>();
        list_ = Find<KestroList>(page.get(), "KestroList1");
        EXPECT_TRUE(Wait([&] { return list_->RowCount() == rows; }));
        return page;
    }
    /// Runs body on the entry window and presses its main button.
    void OnEntryWindow(const std::function<void(QWidget*)>& body) {
        RegisterDialog(kDlgEntry, [body](QPoint) {
            frmAccountNew window;
            if (!window.IsReady()) return;
            window.show();
            body(&window);
            Press(&window, "btnEnter");
        });
    }
    QStringList Line(int row) { return list_->RowCells(row); }

    KestroList* list_ = nullptr;
};

}  // namespace

TEST_F(ChangeWindows, AnEditedEntryRewritesItsLineAndKeepsItsKey) {
    auto page = Open<frmAccount>(3);
    list_->SetCurrentRow(0);
    OnEntryWindow([](QWidget* window) {
        EXPECT_EQ(window->windowTitle(), u"新建记账"_s);
        EXPECT_EQ(Find<KestroCombox>(window, "comKind1")->text(), u"030201农行"_s);
        EXPECT_TRUE(Find<KestroCheck>(window, "chkOther")->IsChecked());
        Find<KestroText>(window, "txtMoney")->setText(u"99.5"_s);
        Press(window, "chkOther", {12, 12});
    });
    boxes.Expect(u"【事情】：购买办公桌"_s);
    page->Do(Act::edit);
    EXPECT_EQ(Line(0)[3] + u'|' + Line(0)[5], u"99.50|99.50"_s);
    EXPECT_EQ(list_->CurrentKey(), u"3"_s);
    EXPECT_EQ(Rows(State().gDB, u"select Id1 from tAccount where Id1 in (3,4)"_s), QStringList{u"3"_s});
    EXPECT_TRUE(BalanceBreaks(State().gDB).isEmpty());
}

// The chart's row has another name by now and is hidden; the entry keeps the one it was made with, also when
// its box was emptied and typed anew.
TEST_F(ChangeWindows, ARenamedHiddenKindAndTheNotesBytesOutliveAnEdit) {
    auto& book = State().gDB;
    book.Execute(u"update tKind set Name1='新名',nHide=1 where Sort1='0201'"_s);
    book.Execute(u"update tAccount set Note1='甲\r\n乙\u00a0' where Id1=3"_s);
    const auto row = [&] { return Rows(book, u"select Type1,TypeName1,Note1 from tAccount where Id1=3"_s); };
    const auto before = row();
    auto page = Open<frmAccount>(3);
    list_->SetCurrentRow(0);
    OnEntryWindow([](QWidget* window) {
        auto* kind = Find<KestroCombox>(window, "comKind");
        const QString text = kind->text();
        for (const QString& typed : {u"没有"_s, text}) {
            kind->setFocus();
            kind->selectAll();
            TypeInto(kind, typed);
            Find<QWidget>(window, "txtThing")->setFocus();
        }
        EXPECT_EQ(kind->text(), text);
    });
    boxes.Expect(u"【事情】：购买办公桌"_s);
    page->Do(Act::edit);
    EXPECT_EQ(row(), before);
}

TEST_F(ChangeWindows, TheWindowShowsAWholeEntryAndKeepsWhatIsLeftAlone) {
    auto& book = State().gDB;
    PostEntry(book, RichEntry());
    book.Execute(u"insert into tPic values (9,x'00','a','tAccount',-1,-1)"_s);
    ForgetPictureOwners();
    const auto rows = [&] {
        return Rows(book, u"select * from tAccount"_s) + Rows(book, u"select * from tSubAccItem"_s) +
               Rows(book, u"select nAdd,nReduce,Money from tKind"_s) + Rows(book, u"select ID1 from tPic"_s);
    };
    const auto before = rows();
    auto page = Open<frmAccount>(4);
    list_->SetCurrentRow(3);
    OnEntryWindow([](QWidget* window) {
        QStringList texts;
        for (const char* box :
             {"txtThing", "txtDate", "txtHour", "txtMinute", "txtMoney", "txtAccValue", "txtAccValue1"})
            texts << Find<KestroText>(window, box)->text();
        for (const char* box : {"comKind", "comKind1", "comAccName", "comAccName1"})
            texts << Find<KestroCombox>(window, box)->text();
        EXPECT_EQ(texts.join(u'|'),
                  u"O'Neil 的货款|2016-12-31|23|05|20.50|3.25|17.25|"
                  u"0201办公费用|0301现金|01东华公司|0301软件开发"_s);
        QString signs;
        for (const char* pair : {"opt0", "opt1", "opt2", "opt3"})
            signs += Find<KestroOptionPair>(window, pair)->IsAdd() ? u'+' : u'-';
        EXPECT_EQ(signs, u"-+-+"_s);
        EXPECT_TRUE(Find<KestroCheck>(window, "chkMark")->IsChecked());
        EXPECT_EQ(Find<KestroEditBox>(window, "editNote")->Text(), u"第一行\n'第二行'"_s);
        EXPECT_FALSE(Find<KestroText>(window, "txtThing")->onEndButton);  // no templates in a change
    });
    boxes.Expect(u"【事情】：O'Neil 的货款"_s);
    page->Do(Act::edit);
    EXPECT_EQ(rows(), before);
    RegisterDialog(kDlgEntry, [](QPoint) {
        frmAccountNew window;
        window.show();
        Press(&window, "btnCancel");
    });
    page->Do(Act::edit);
    EXPECT_EQ(rows(), before);
}

// The running balance below a changed line would be wrong, so the list is read anew in place.
TEST_F(ChangeWindows, AChangeWithAKindChosenMovesTheBalancesOfAllLines) {
    auto page = Open<frmAccount>(3);
    Find<KestroScrollMenu>(page.get(), "KestroScrollMenu1")->onClick(u"title3"_s, u"030201"_s);
    list_->SetCurrentRow(0);
    list_->SetChecked(1, true);
    Find<KestroText>(page.get(), "txtSearch")->setText(u"不曾搜索"_s);
    OnEntryWindow([](QWidget* window) { Find<KestroText>(window, "txtMoney")->setText(u"4000"_s); });
    boxes.Expect(u"【事情】：购买办公桌"_s);
    page->Do(Act::edit);
    EXPECT_EQ(Line(0)[5] + u' ' + Line(1)[5], u"-4000 1000"_s);
    EXPECT_EQ(list_->CurrentKey(), u"4"_s);
    EXPECT_TRUE(list_->IsChecked(1));
    EXPECT_EQ(Find<KestroLabel>(page.get(), "lblValue")->Text(), u"差额:1,000"_s);
    auto* detail = Find<KestroList>(page.get(), "KestroList2");
    EXPECT_EQ(detail->Cell(0, 2), u"-4000"_s);
    OnEntryWindow([](QWidget* window) {
        auto* kind = Find<KestroCombox>(window, "comKind");
        kind->setFocus();
        kind->selectAll();
        TypeInto(kind, u"0301"_s);
        QTest::keyClick(kind, Qt::Key_Return);
    });
    list_->SetCurrentRow(1);
    boxes.Expect(u"【事情】：软件定制收入"_s);
    page->Do(Act::edit);
    EXPECT_EQ(list_->RowCount(), 1);  // the other has another kind now
    EXPECT_EQ(Find<KestroLabel>(page.get(), "lblCount")->Text(), u"笔数:1"_s);
    // The line stands for the second row, which goes.
    list_->SetCurrentRow(0);
    OnEntryWindow([](QWidget* window) { Press(window, "chkOther", {12, 12}); });
    boxes.Expect(u"【事情】：购买办公桌"_s);
    page->Do(Act::edit);
    EXPECT_EQ(EntryDialog().id, -1);
    EXPECT_EQ(list_->RowCount(), 0);
}

TEST_F(ChangeWindows, ANewLineAfterDeletionsTakesTheNextNumber) {
    auto page = Open<frmAccount>(3);
    list_->SetCurrentRow(1);
    boxes.Expect(u"确定要【删除】选定的一条记录?"_s);
    page->Do(Act::remove);
    RegisterDialog(kDlgEntry, [](QPoint) {
        const auto ids = PostEntry(State().gDB, SampleEntry(u"新"_s, u"1"_s));
        EntryDialog entry;
        entry.done = 1;
        entry.id = static_cast<int>(ids.main);
    });
    page->Do(Act::add);
    EXPECT_EQ(Line(2)[0] + Line(2)[6], u"4新"_s);
    EXPECT_EQ(list_->CurrentRow(), 2);
}

TEST_F(ChangeWindows, BothRecordsOfAnEntryFollowItsChangeAndItsEnd) {
    PostEntry(State().gDB, RichEntry());
    auto page = Open<frmSubAcc>(4);
    list_->SetCurrentRow(2);
    OnEntryWindow([](QWidget* window) { Find<KestroText>(window, "txtAccValue1")->setText(u"99"_s); });
    boxes.Expect(u"【事情】：O'Neil 的货款"_s);
    page->Do(Act::edit);
    EXPECT_TRUE(Line(3).contains(u"99"_s)) << qPrintable(Line(3).join(u'|'));
    boxes.Expect(u"确定要【删除】选定的一条记录? 若确定将删除该事情!"_s);
    page->Do(Act::remove);
    EXPECT_EQ(list_->RowCount(), 2);
}

// The record's entry stands, but knows another record: the record alone goes.
TEST_F(ChangeWindows, ARecordThatItsEntryDoesNotKnowDeletesNoEntry) {
    auto& book = State().gDB;
    book.Execute(u"update tAccount set IIID=-1 where Id1 in (5,6)"_s);
    EXPECT_TRUE(DeleteLine(book, LineKind::records, 3));
    EXPECT_EQ(
        Rows(book, u"select count(*) from tAccount"_s) + Rows(book, u"select count(*) from tSubAccItem"_s),
        (QStringList{u"5"_s, u"1"_s}));
}

TEST_F(ChangeWindows, ARecordWhoseEntryIsGoneGoesAloneWithItsBalance) {
    auto& book = State().gDB;
    book.Execute(u"delete from tAccount where Id1 in (5,6)"_s);
    auto page = Open<frmSubAcc>(2);
    list_->SetCurrentRow(1);
    boxes.Expect(u"意外错误：未找到记录!"_s);
    page->Do(Act::edit);
    boxes.Expect(u"确定要【删除】选定的一条记录? 若确定将删除该事情!"_s);
    page->Do(Act::remove);
    EXPECT_EQ(list_->RowCount(), 1);
    EXPECT_EQ(Rows(book, u"select Money from tSubAcc where Sort1='01'"_s), QStringList{u"0"_s});
    EXPECT_EQ(Rows(book, u"select count(*) from tAccount"_s), QStringList{u"3"_s});
}

// Lines that the list still shows may stand for nothing any more, or for an entry that has moved on.
TEST_F(ChangeWindows, AStaleLineDeletesNobodyElsesEntry) {
    auto& book = State().gDB;
    auto page = Open<frmSubAcc>(2);
    book.Execute(
        u"delete from tSubAccItem where Id1=3; update tAccount set IIID=-1 where Id1 in (5,6);"
        u"update tSubAcc set nAdd=0,Money=0 where Sort1='01'"_s);
    list_->SetCurrentRow(1);
    boxes.Expect(u"错误: 该记录可能已在【记账窗口】列表中删除记账时, 一起删除了! 请【刷新】此窗口列表!"_s);
    page->Do(Act::remove);
    list_->CheckAll(true);
    boxes.Expect(u"您确定要【删除】选定的记录?"_s);
    boxes.Expect(u"成功删除1条记账!\n另有1条账户记录已不在账本中!"_s);
    page->Do(Act::deleteChecked);
    EXPECT_EQ(list_->RowCount(), 0);
    EXPECT_EQ(Rows(book, u"select Id1 from tAccount where bIsMain=1"_s), (QStringList{u"3"_s, u"5"_s}));
}

TEST_F(ChangeWindows, AfterAStopOnlyWhatIsGoneLeavesTheList) {
    for (int i = 0; i < 60; ++i)
        PostEntry(State().gDB, SampleEntry(u"批"_s, u"1"_s));
    auto page = Open<frmAccount>(63);
    list_->CheckAll(true);
    Job::StopAfter(50);
    boxes.Expect(u"您确定要【删除】选定的记录?"_s);
    boxes.Expect(u"成功删除50条记账!"_s);
    page->Do(Act::deleteChecked);
    Job::StopAfter(-1);
    QStringList left =
        Rows(State().gDB, u"select Id1 from tAccount where bIsMain=1 order by date1,time1,id1"_s);
    QStringList shown;
    for (int row = 0; row < list_->RowCount(); ++row)
        shown << list_->RowKey(row);
    EXPECT_EQ(shown, left);
    EXPECT_EQ(Find<KestroLabel>(page.get(), "lblCount")->Text(), u"笔数:%1"_s.arg(left.size()));
}

TEST_F(ChangeWindows, CheckedRecordsGoWithTheirOwnEntries) {
    PostEntry(State().gDB, RichEntry());
    auto page = Open<frmSubAcc>(4);
    // Record 3 of entry 5, while entry 3 has none, and both of entry 8.
    for (const int row : {1, 2, 3})
        list_->SetChecked(row, true);
    boxes.Expect(u"您确定要【删除】选定的记录?"_s);
    boxes.Expect(u"成功删除4条记账!"_s);
    page->Do(Act::deleteChecked);
    EXPECT_EQ(boxes.Last().text, u"成功删除4条记账!"_s);
    EXPECT_EQ(list_->RowCount(), 1);
    EXPECT_EQ(Rows(State().gDB, u"select Id1 from tAccount"_s), (QStringList{u"3"_s, u"4"_s, u"7"_s}));
    EXPECT_EQ(Find<KestroLabel>(page.get(), "lblValue")->Text(), u"差额:8,500"_s);
}

TEST_F(ChangeWindows, DeletesTheCurrentLineAndTheCheckedOnes) {
    auto page = Open<frmAccount>(3);
    list_->SetCurrentRow(-1);
    boxes.Expect(u"【没有选定】需要删除的记录,你需要单击一条记录使其选定!"_s);
    Press(page.get(), "btnDel", {10, 10});
    list_->SetCurrentRow(1);
    boxes.Expect(u"确定要【删除】选定的一条记录?　该事情的【分类记录】和【账户记录】、【图片】都将删除!"_s,
                 0);
    QTest::keyClick(list_, Qt::Key_Delete);
    EXPECT_EQ(list_->RowCount(), 3);
    boxes.Expect(u"确定要【删除】选定的一条记录?"_s);
    QTest::keyClick(list_, Qt::Key_Delete);
    EXPECT_EQ(list_->RowCount(), 2);
    EXPECT_EQ(Find<KestroLabel>(page.get(), "lblCount")->Text(), u"笔数:2"_s);
    boxes.Expect(u"【没有选定】任何记录!"_s);
    page->Do(Act::deleteChecked);
    list_->CheckAll(true);
    boxes.Expect(u"您确定要【删除】选定的记录? 若删除的记录较多，则需要一些时间!"_s);
    boxes.Expect(u"成功删除4条记账!"_s);
    page->Do(Act::deleteChecked);
    EXPECT_EQ(list_->RowCount(), 0);
    EXPECT_EQ(Rows(State().gDB, u"select count(*) from tAccount"_s), QStringList{u"0"_s});
    EXPECT_EQ(Rows(State().gDB, u"select count(*) from tPic"_s), QStringList{u"0"_s});
    EXPECT_TRUE(BalanceBreaks(State().gDB).isEmpty());
}

TEST_F(ChangeWindows, AccountRecordsLeadToTheirEntry) {
    auto page = Open<frmSubAcc>(2);
    EXPECT_EQ(Line(1), (QStringList{u"2"_s, u"2016-09-03 14:10"_s, u"01东华公司"_s, u"5000"_s, QString(),
                                    u"5000"_s, u"软件定制收入"_s}));
    EXPECT_EQ(Find<KestroLabel>(page.get(), "lblValue")->Text(), u"差额:13,500"_s);
    list_->SetCurrentRow(1);
    OnEntryWindow([](QWidget* window) { Find<KestroText>(window, "txtAccValue")->setText(u"300"_s); });
    boxes.Expect(u"【事情】：软件定制收入"_s);
    page->Do(Act::edit);
    EXPECT_EQ(Line(1)[1] + u'|' + Line(1)[3] + u'|' + Line(1)[5], u"2016-09-03  14:10|300|300"_s);
    OnEntryWindow([](QWidget* window) { Press(window, "pngArrow"); });
    boxes.Expect(u"【事情】：软件定制收入"_s);
    page->Do(Act::edit);
    EXPECT_EQ(list_->RowCount(), 1);  // its account was taken away
    list_->SetCurrentRow(0);
    boxes.Expect(u"确定要【删除】选定的一条记录? 若确定将删除该事情!"_s);
    QTest::keyClick(list_, Qt::Key_Delete);
    EXPECT_EQ(Rows(State().gDB, u"select Id1 from tAccount"_s),
              (QStringList{u"3"_s, u"4"_s, u"5"_s, u"6"_s}));
}

TEST_F(ChangeWindows, TheAccountPageKeepsTheChartInItsOtherView) {
    auto page = Open<frmSubAcc>(2);
    Find<KestroScrollMenu>(page.get(), "KestroScrollMenu1")->onClick(u"title1"_s, u"tongji"_s);
    EXPECT_FALSE(Find<QWidget>(page.get(), "txtSearch")->isVisible());
    EXPECT_FALSE(Find<QWidget>(page.get(), "btnNoNew")->isVisible());
    auto* chart = Find<ChartPanel>(page.get(), "accounts");
    auto* list = Find<KestroList>(chart, "KestroList1");
    EXPECT_EQ(list->RowCount(), 4);
    EXPECT_TRUE(Wait([&] { return list->mapTo(page.get(), QPoint()).y() < 60; }));  // right below the toolbar
    OnInputBox({u"04 ABC"_s, u"125.5"_s, {}, true});
    Press(page.get(), "btnNew");
    EXPECT_EQ(list->RowCells(4), (QStringList{u"5"_s, u"04abc"_s, u"隐藏"_s, u"125.5"_s, u"125.50"_s, u"0"_s,
                                              u"125.50"_s, QString()}));
    EXPECT_EQ(Find<KestroCombox>(page.get(), "comKind")->Count(), 5);  // hidden accounts are not offered
    EXPECT_EQ(Rows(State().gDB,
                   u"select a.Type1,r.SubAccKey,r.Value1 from tSubAcc s join tSubAccItem r on r.Id1=s.IID"
                   u" join tAccount a on a.IIID=r.Id1 and r.AccId=a.Id1 where s.Sort1='04'"_s),
              QStringList{u"00|04|125.5"_s});
    // The buttons and the deletion of checked lines belong to the chart now, not to the list behind it.
    list_->CheckAll(true);
    list_->SetCurrentRow(0);
    page->Do(Act::deleteChecked);
    chart->Select(u"0301"_s);
    boxes.Expect(u"你确定要【删除选定】的账户?"_s);
    boxes.Expect(u"已成功删除分类!"_s);
    Press(page.get(), "btnDel", {10, 10});
    EXPECT_EQ(list->RowCount(), 4);
    EXPECT_EQ(Find<KestroCombox>(page.get(), "comKind")->Count(), 4);
    EXPECT_EQ(Rows(State().gDB, u"select count(*) from tSubAccItem"_s), QStringList{u"3"_s});
    EXPECT_EQ(list_->RowCount(), 3);  // the opening record has come
}
