// The settings page in the frame, and the way to it from a kind in the strip of the entry page.

#include "books/frm_setting.h"
#include "chart/chart_panel.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/frm_main.h"
#include "tests/support/ui_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class SettingPage : public SampleStage {
 protected:
    SettingPage() {
        frame_ = std::make_unique<frmMain>();
        frame_->show();
        entries_ = Host().page(kTabAccount);
        EXPECT_TRUE(Wait([this] { return Find<KestroList>(entries_, "KestroList1")->RowCount() == 3; }));
    }
    KestroScrollMenu* Strip() { return Find<KestroScrollMenu>(entries_, "KestroScrollMenu1"); }
    KestroCombox* Kinds() { return Find<KestroCombox>(entries_, "comKind"); }
    KestroList* Chart(const char* panel) {
        return Find<KestroList>(Find<QWidget>(Host().page(kTabSetting), panel), "KestroList1");
    }
    bool HasKind(const QString& code) {
        frame_->SetFormTab(kTabAccount);
        Strip()->Select(u"title3"_s, code);
        return Strip()->SelectedKey() == code && Kinds()->SetCurrentKey(code);
    }
    /// The menu of a kind in the strip.
    void KindMenu(const QString& code, Act act) {
        frame_->SetFormTab(kTabAccount);
        Strip()->Select(u"title3"_s, code);
        entries_->Do(act);
    }

    std::unique_ptr<frmMain> frame_;
    Page* entries_ = nullptr;
};

}  // namespace

TEST_F(SettingPage, AKindOfTheStripLeadsToItsRowAndBack) {
    OnInputBox({u"0102 工程收入"_s, {}, {}, {}});
    KindMenu(u"0102"_s, Act::kindEdit);
    EXPECT_EQ(InputShown().start, u"0102 项目收入"_s);
    EXPECT_EQ(frame_->CurrentTab(), kTabSetting);
    auto* kinds = Chart("kinds");
    EXPECT_EQ(kinds->CurrentKey(), u"0102"_s);
    frame_->activateWindow();
    EXPECT_TRUE(Wait([&] { return kinds->hasFocus(); }));
    frame_->SetFormTab(kTabAccount);
    ASSERT_TRUE(Kinds()->SetCurrentKey(u"0102"_s));
    EXPECT_EQ(Kinds()->text(), u"0102工程收入"_s);

    OnInputBox({u"0103 租金"_s, {}, {}, {}});
    KindMenu(u"0201"_s, Act::kindAdd);
    EXPECT_EQ(InputShown().title, u"新增分类"_s);
    EXPECT_TRUE(HasKind(u"0103"_s));

    boxes.Expect(u"你确定要【删除选定】的分类名称?"_s);
    boxes.Expect(u"已成功删除分类!"_s);
    KindMenu(u"0103"_s, Act::kindDelete);
    EXPECT_FALSE(HasKind(u"0103"_s));
    EXPECT_EQ(kinds->FindRow(u"0103"_s), -1);
}

TEST_F(SettingPage, WithoutAKindOnlyANewOneCanBeMade) {
    for (const Act act : {Act::kindEdit, Act::kindDelete}) {
        boxes.Expect(u"【未选定】任何分类项!"_s);
        KindMenu({}, act);
        EXPECT_EQ(frame_->CurrentTab(), 0);
    }
    boxes.Expect(u"未选定任何【分类】!"_s);
    KindMenu({}, Act::kindMoney);
    boxes.Expect(u"分类名称: 农行\n增加额: 5000 元\n减少额: 2100 元\n余　额: 2900 元"_s);
    KindMenu(u"030201"_s, Act::kindMoney);
}

TEST_F(SettingPage, EntriesFollowTheCodeOfTheirKind) {
    auto* list = Find<KestroList>(entries_, "KestroList1");
    list->SetCurrentRow(1);
    boxes.Expect(u"修改之前的编号已经在记账中使用"_s);
    OnInputBox({u"030209 农行"_s, {}, {}, {}});
    KindMenu(u"030201"_s, Act::kindEdit);
    EXPECT_EQ(list->Cell(2, 2), u"030201农行"_s);  // hidden, and fresh when it shows
    frame_->SetFormTab(kTabAccount);
    EXPECT_EQ(list->Cell(2, 2), u"030209农行"_s);
    EXPECT_EQ(list->CurrentKey(), u"7"_s);
}

TEST_F(SettingPage, OnlyTheChartThatShowsIsReadAgain) {
    frame_->SetFormTab(kTabSetting);
    auto* page = Host().page(kTabSetting);
    EXPECT_TRUE(Chart("kinds")->isVisible());
    EXPECT_EQ(Chart("kinds")->RowCount(), 15);
    page->DoKindAcc(Chart::accounts, u"0301"_s, Act::find);
    auto* accounts = Chart("accounts");
    EXPECT_TRUE(accounts->isVisible());
    EXPECT_FALSE(Chart("kinds")->isVisible());
    EXPECT_EQ(accounts->CurrentKey(), u"0301"_s);
    State().gDB.Execute(
        u"insert into tSubAcc (Id1,Name1,Sort1) values (20,'x','09');"
        u"insert into tKind (ID1,Name1,Sort1) values (20,'x','09')"_s);
    page->ReLoadKindAcc(u"kind"_s);
    EXPECT_EQ(accounts->RowCount(), 4);
    EXPECT_EQ(Chart("kinds")->RowCount(), 15);
    page->ReLoadKindAcc(u"account"_s);
    EXPECT_EQ(accounts->RowCount(), 5);
    page->OpenSub(u"unknown"_s);
    EXPECT_TRUE(accounts->isVisible());
    page->OpenSub(u"kind"_s);
    EXPECT_EQ(Chart("kinds")->RowCount(), 16);
}
