// The panel of a chart: what its box is opened with, what it shows after a change, whom it tells.

#include "chart/chart_panel.h"

#include "shell/controls/kestro_list.h"
#include "store/notices.h"
#include "tests/support/ui_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class ChartPanelTest : public SampleStage {
 protected:
    ChartPanelTest() {
        heard_ = Notices().chartChanged.Subscribe([this](Chart chart) { told_.push_back(chart); });
    }
    ChartPanel& Open(Chart chart) {
        panel_ = std::make_unique<ChartPanel>(chart, true, nullptr);
        panel_->Reload();
        list_ = Find<KestroList>(panel_.get(), "KestroList1");
        return *panel_;
    }
    void Edit(const QString& code, const InputTyped& typed) {
        panel_->Select(code);
        OnInputBox(typed);
        panel_->Do(Act::edit);
    }
    QString Line(const QString& code) { return list_->RowCells(list_->FindRow(code)).mid(1).join(u'|'); }

    std::unique_ptr<ChartPanel> panel_;
    KestroList* list_ = nullptr;
    std::vector<Chart> told_;
    NoticeToken heard_;
};

}  // namespace

TEST_F(ChartPanelTest, ABoxThatIsOnlyConfirmedChangesNothing) {
    auto& book = State().gDB;
    Open(Chart::kinds);
    Edit(u"0301"_s, {{}, u"1234.5"_s, u"零钱"_s, true});
    EXPECT_EQ(InputShown().title, u"修改分类名称"_s);
    EXPECT_EQ(InputShown().start, u"0301 现金"_s);
    EXPECT_EQ(Line(u"0301"_s), u"      0301现金|隐藏|1234.5|1234.50|0.00|1234.50|零钱"_s);
    Edit(u"00"_s, {});
    EXPECT_EQ(InputShown().title, u"系统预留分类，不可修改"_s);
    EXPECT_FALSE(InputShown().mayHide);
    const auto before =
        Rows(book, u"select * from tKind where Sort1>'00'"_s) + Rows(book, u"select * from tAccount"_s);
    Edit(u"0301"_s, {});
    EXPECT_EQ(InputShown().money + InputShown().memo, u"1234.50零钱"_s);
    EXPECT_TRUE(InputShown().hide && InputShown().mayHide);
    EXPECT_EQ(Rows(book, u"select * from tKind where Sort1>'00'"_s) + Rows(book, u"select * from tAccount"_s),
              before);
}

TEST_F(ChartPanelTest, ARowIsFollowedThroughItsNewCodeToItsEnd) {
    auto& panel = Open(Chart::kinds);
    boxes.Expect(u"请【选定一条】需修改的记录!"_s);
    panel.Do(Act::edit);
    boxes.Expect(u"没有【选定】要删除的分类!"_s);
    panel.Do(Act::remove);
    OnInputBox({u"0103 租金"_s, {}, {}, {}});
    panel.Do(Act::add);
    EXPECT_EQ(list_->CurrentRow(), 15);
    EXPECT_EQ(list_->RowCells(15), (QStringList{u"16"_s, u"      0103租金"_s, QString(), u"0"_s, u"0"_s,
                                                u"0"_s, u"0"_s, QString()}));
    Edit(u"0103"_s, {u"0109 房租"_s, {}, {}, {}});
    EXPECT_EQ(list_->FindRow(u"0103"_s), -1);
    boxes.Expect(u"你确定要【删除选定】的分类名称?"_s);
    boxes.Expect(u"已成功删除分类!"_s);
    panel.Do(Act::remove);
    EXPECT_EQ(list_->RowCount(), 15);
    EXPECT_EQ(list_->CurrentRow(), -1);
    EXPECT_EQ(told_, std::vector(3, Chart::kinds));
}

TEST_F(ChartPanelTest, AnAccountsStandingOpeningKeepsTheRestOrUndoesTheChange) {
    const QString record = u"select SubAccName1,Value1 from tSubAccItem where SubAccKey='0301'"_s;
    Open(Chart::accounts);
    Edit(u"0301"_s, {u"0301 软件"_s, u"10"_s, {}, {}});
    EXPECT_EQ(Line(u"0301"_s), u"      0301软件||10|10.00|0.00|10.00|"_s);
    told_.clear();
    boxes.Expect(u"意外错误，错误信息："_s);
    Edit(u"0301"_s, {u"0301 改名"_s, {}, {}, true});
    EXPECT_TRUE(boxes.Last().text.endsWith(u"其他内容已保存，期初余额未变"_s));
    EXPECT_EQ(Line(u"0301"_s), u"      0301改名|隐藏|10|10|0|10|"_s);
    EXPECT_EQ(list_->CurrentKey(), u"0301"_s);
    EXPECT_EQ(told_, std::vector{Chart::accounts});
    boxes.Expect(u"意外错误，错误信息："_s);
    Edit(u"0301"_s, {u"0301 又改"_s, u"20"_s, {}, {}});
    EXPECT_TRUE(boxes.Last().text.endsWith(u"请先把期初余额改为 0，再改为新的金额"_s));
    EXPECT_EQ(Line(u"0301"_s), u"      0301改名|隐藏|10|10|0|10|"_s);
    EXPECT_EQ(told_, std::vector{Chart::accounts});
    EXPECT_EQ(Rows(State().gDB, record), QStringList{u"改名|10"_s});
}

TEST_F(ChartPanelTest, AnOpeningThatTheBoxCannotHoldStaysUntilItIsTyped) {
    auto& book = State().gDB;
    book.Execute(
        u"update tKind set nAdd=30000000.25, Money=30000000.25, IID=900 where Sort1='0301'; insert into "
        u"tAccount"
        u" (Id1,Title1,Type1,Value1,nSign,bIsMain,Date1) values"
        u" (900,'分类期初余额','0301',30000000.25,1,1,'1900-01-01')"_s);
    const QString amounts =
        u"select k.nAdd,k.nReduce,k.Money,a.Value1,a.nSign from tKind k join tAccount a on a.Id1=k.IID"_s;
    const auto before = Rows(book, amounts);
    Open(Chart::kinds);
    Edit(u"0301"_s, {u"0301 零钱"_s, {}, {}, {}});
    EXPECT_EQ(Rows(book, u"select Name1 from tKind where Sort1='0301'"_s), QStringList{u"零钱"_s});
    EXPECT_EQ(Rows(book, amounts), before);
    EXPECT_EQ(before.size(), 1);
    Edit(u"0301"_s, {{}, u"0"_s, {}, {}});
    EXPECT_EQ(Rows(book, u"select nAdd,Money,IID from tKind where Sort1='0301'"_s), QStringList{u"0|0|0"_s});
}

TEST_F(ChartPanelTest, ARowThatHasGoneIsNotDeletedUnderAnothersName) {
    auto& panel = Open(Chart::kinds);
    panel.Select(u"0102"_s);
    State().gDB.Execute(u"update tKind set Sort1='0109' where Sort1='0102'"_s);
    boxes.Expect(u"意外错误!"_s);
    panel.Do(Act::remove);
    EXPECT_GE(list_->FindRow(u"0109"_s), 0);
}
