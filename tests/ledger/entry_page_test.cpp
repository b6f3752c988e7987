// The entry page: filters, pages, sums, detail, strip, and what it does after saving.

#include "ledger/frm_account.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "store/dialogs.h"
#include "store/outside.h"
#include "tests/support/ui_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class EntryPage : public SampleStage {
 protected:
    EntryPage() {
        State().gPage = kPageAccount;
        page_ = NewPage<frmAccount>();
        list_ = At<KestroList>("KestroList1");
        EXPECT_TRUE(Wait([this] { return !Count().isEmpty(); }));
    }
    template <typename T>
    T* At(const char* name) {
        return Find<T>(page_.get(), name);
    }
    QString Count() { return At<KestroLabel>("lblCount")->Text(); }
    QStringList Column(int column) { return ::Column(list_, column); }
    void ChooseKind(const QString& code) {
        At<KestroScrollMenu>("KestroScrollMenu1")->onClick(u"title3"_s, code);
    }

    std::unique_ptr<frmAccount> page_;
    KestroList* list_ = nullptr;
};

}  // namespace

TEST_F(EntryPage, ShowsOneLineAnEntryAndForAKindItsRowsWithARunningBalance) {
    EXPECT_EQ(Column(6), (QStringList{u"购买办公桌"_s, u"赊销选果机控制系统"_s, u"软件定制收入"_s}));
    EXPECT_EQ(Column(2), (QStringList{u"0201办公费用"_s, u"0303应收款"_s, u"030201农行"_s}));
    EXPECT_EQ(Column(7), (QStringList{QString(), u"011"_s, u"001"_s}));
    EXPECT_EQ(list_->Column(5).caption, u"金   额"_s);
    ChooseKind(u"03"_s);
    EXPECT_EQ(Column(3), (QStringList{QString(), u"8500"_s, u"5000"_s}));
    EXPECT_EQ(Column(4), (QStringList{u"2100"_s, QString(), QString()}));
    EXPECT_EQ(Column(5), (QStringList{u"-2100"_s, u"6400"_s, u"11400"_s}));
    EXPECT_EQ(list_->Column(5).caption, u"累计余额"_s);
    EXPECT_EQ(At<KestroCombox>("comKind")->text(), u"03资产"_s);
    EXPECT_EQ(At<KestroLabel>("lblValue")->Text(), u"差额:11,400"_s);
}

TEST_F(EntryPage, FiltersByTextFlagAndDates) {
    auto* search = At<KestroText>("txtSearch");
    search->setFocus();
    TypeInto(search, u"收入"_s);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(Column(6), QStringList{u"软件定制收入"_s});
    search->setText(u"'"_s);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(list_->RowCount(), 0);
    EXPECT_FALSE(At<QWidget>("comPage")->isVisible());
    QTest::keyClick(search, Qt::Key_Space);
    EXPECT_EQ(search->text(), QString());
    page_->SetPeriod({QDate(2016, 9, 1), QDate(2016, 9, 2)});
    page_->Do(Act::runPeriod);
    EXPECT_EQ(Column(6), QStringList{u"赊销选果机控制系统"_s});
    EXPECT_EQ(Count(), u"笔数:1"_s);
    page_->SetPeriod({});
    State().gDB.Execute(u"update tAccount set Mark1=1 where Id1=3"_s);
    QTest::mouseClick(At<QWidget>("chkFlag"), Qt::LeftButton, {}, {12, 16});
    EXPECT_EQ(Column(6), QStringList{u"购买办公桌"_s});
}

TEST_F(EntryPage, PagesByTenThousandAndStartsTheBalanceAgain) {
    auto& book = State().gDB;
    book.Execute(
        u"begin; with recursive n(i) as (select 100 union all select i+1 from n where i<10249) insert into "
        u"tAccount (Id1,Title1,Type1,TypeName1,Value1,Date1,Time1,nSign,bIsMain) select "
        u"i,'x','0101','产品收入',"
        u"1,'2017-01-01','08:00',1,1 from n; commit"_s);
    ChooseKind(u"0101"_s);
    EXPECT_EQ(list_->RowCount(), 10000);
    EXPECT_EQ(Count(), u"笔数:10,151"_s);
    auto* pages = At<KestroCombox>("comPage");
    ASSERT_EQ(pages->Count(), 2);
    EXPECT_EQ(pages->Item(1).text, u"10001 - 10151"_s);
    int counts = 0;  // a page turn asks for none
    cConnection::Seams().beforeStatement = [&](const QString& sql) {
        counts += sql.contains(u"SumCount"_s) ? 1 : 0;
    };
    pages->onChoose(pages->Item(1).text, pages->Item(1).key);
    EXPECT_EQ(list_->RowCount(), 151);
    EXPECT_EQ(list_->Cell(0, 0), u"10001"_s);
    EXPECT_EQ(list_->Cell(0, 5), u"1"_s);
    EXPECT_EQ(counts, 0);
    EXPECT_EQ(Count(), u"笔数:10,151"_s);
    page_->Do(Act::reload);
    EXPECT_EQ(counts, 1);
    Job::StopAfter(20);
    boxes.Expect(u"已停止剩余部分导出!"_s);
    page_->Do(Act::runPeriod);
    EXPECT_EQ(list_->RowCount(), 20);
    EXPECT_FALSE(State().gBusy);
}

TEST_F(EntryPage, ANewEntryBecomesTheLastLineWhateverItsDate) {
    RegisterDialog(kDlgEntry, [](QPoint) {
        EXPECT_EQ(State().gPage, 2);
        EntryDialog entry;
        EXPECT_EQ(entry.isNew, 1);
        entry.done = 1;
        entry.id = 3;
    });
    QTest::mouseClick(At<QWidget>("btnNew"), Qt::LeftButton);
    EXPECT_EQ(list_->RowCells(3), (QStringList{u"4"_s, u"2016-01-01  14:08"_s, u"0201办公费用"_s, u"2100"_s,
                                               QString(), QString(), u"购买办公桌"_s, QString()}));
    EXPECT_EQ(list_->CurrentRow(), 3);
    RegisterDialog(kDlgEntry, [](QPoint) {
        EntryDialog().done = 1;
        EntryDialog().id = 999;
    });
    boxes.Expect(u"意外错误!"_s);
    page_->Do(Act::add);
    EXPECT_EQ(list_->RowCount(), 4);
}

TEST_F(EntryPage, CopiesTheSums) {
    QString copied;
    Outside().copyText = [&copied](const QString& text) { copied = text; };
    ChooseKind(u"030201"_s);
    boxes.Expect(u"笔数：2 笔\n增加：5,000 元\n减少：2,100 元\n差额：2,900 元"_s);
    At<KestroScrollMenu>("KestroScrollMenu1")->onDoubleClick(u"title1"_s, u"summoney"_s);
    EXPECT_EQ(copied, u"笔数：2 笔\n增加：5,000 元\n减少：2,100 元\n差额：2,900 元"_s);
}

TEST_F(EntryPage, TakesOneDroppedBook) {
    boxes.Expect(u"不能同时打开多个账本!"_s);
    page_->MyTrack_DragDropFiles(2, u"/a.jotdb\n/b.jotdb"_s);
    boxes.Expect(u"文件【/no such.jotdb】不存在！"_s);
    page_->MyTrack_DragDropFiles(1, u"/No Such.jotdb"_s);
}
