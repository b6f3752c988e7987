// The page of statistics: four modes side by side, its choosers, its words when the book has changed, and the
// search of the frame.

#include "output/export_files.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_pgress.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "shell/frm_main.h"
#include "shell/menus.h"
#include "stats/frm_tj.h"
#include "store/dialogs.h"
#include "store/outside.h"
#include "tests/support/ui_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class StatsPage : public SampleStage {
 protected:
    StatsPage() {
        State().settings.LoadDate = u"month"_s;
        frame_ = std::make_unique<frmMain>();
        frame_->show();
        frame_->SetFormTab(kTabStats);
        page_ = dynamic_cast<frmTJ*>(frame_->GetWinhWnd(kTabStats));
    }
    QString Tip() { return Find<KestroLabel>(page_, "lblTip")->Text(); }
    QString Period() {
        const auto text = [&](const char* name) {
            return Find<KestroButton>(page_, name)->Date().toString(u"MM-dd"_s);
        };
        return text("btnDate0") + u'/' + text("btnDate1");
    }
    KestroList* ListOnShow() {
        for (auto* list : page_->Lists())
            if (list->isVisible()) return list;
        return nullptr;
    }
    void Press(const char* name) { ::Press(page_, name); }
    void Choose(const char* box, const QString& code) {
        auto* combox = Find<KestroCombox>(page_, box);
        combox->SetCurrentKey(code);
        combox->onChoose(combox->text(), code);
    }

    std::unique_ptr<frmMain> frame_;
    frmTJ* page_ = nullptr;
};

}  // namespace

TEST_F(StatsPage, EachModeKeepsItsBoundsItsCaptionAndItsList) {
    EXPECT_EQ(Tip() + Period(), u"各分类某期间统计09-01/09-03"_s);
    QCoreApplication::sendPostedEvents();
    const auto middle = [&](const char* name) {
        auto* widget = Find<QWidget>(page_, name);
        return widget->mapTo(page_, widget->rect().center()).y();
    };
    EXPECT_EQ(middle("btnDate0"), middle("btnEnter")) << "one row has room for all";
    page_->ShowMode(u"date"_s);
    EXPECT_EQ(Tip() + Period(), u"某分类各期间统计/"_s);
    EXPECT_TRUE(Find<QWidget>(page_, "comKind")->isVisible());
    EXPECT_FALSE(Find<QWidget>(page_, "comAcc")->isVisible());
    boxes.Expect(u"请选择一个分类!"_s);
    Press("btnEnter");
    Choose("comKind", u"0302"_s);
    QTest::mouseClick(Find<QWidget>(page_, "optDay"), Qt::LeftButton, {}, {8, 12});
    Press("btnEnter");
    EXPECT_EQ(Tip(), u"【0302银行存款】按『日』在【所有日期】期间统计"_s);
    EXPECT_EQ(ListOnShow()->objectName(), u"KestroList2"_s);
    EXPECT_EQ(ListOnShow()->RowCells(1),
              (QStringList{u"2"_s, u"2016-09-03"_s, u"5000"_s, u"0"_s, u"5000"_s}));
    page_->ShowMode(u"accdate"_s);
    EXPECT_TRUE(Find<KestroOption>(page_, "optMonth")->IsOn());
    EXPECT_EQ(ListOnShow()->RowCount(), 0);
    Menus::Choose(u"shortdate"_s, u"year"_s);
    EXPECT_EQ(Period(), u"01-01/09-03"_s);
    page_->ShowMode(u"acckind"_s);
    EXPECT_EQ(Period(), u"/"_s);
    Press("btnEnter");
    EXPECT_EQ(Tip(), u"各分类【所有日期】期间统计"_s);
    EXPECT_EQ(ListOnShow()->objectName() + QString::number(ListOnShow()->RowCount()), u"KestroList34"_s);
    page_->ShowMode(u"date"_s);
    EXPECT_EQ(Tip(), u"【0302银行存款】按『日』在【所有日期】期间统计"_s);
    EXPECT_TRUE(Find<KestroOption>(page_, "optDay")->IsOn());
    EXPECT_EQ(ListOnShow()->RowCount(), 2);
}

TEST_F(StatsPage, AChangedBookIsSaidUntilTheReportRunsAgain) {
    page_->ShowMode(u"acckind"_s);
    Press("btnEnter");
    page_->ShowMode(u"kind"_s);
    Notices().entriesChanged.Emit();
    EXPECT_EQ(Tip(), u"各分类某期间统计"_s);  // nothing has run here
    page_->ShowMode(u"acckind"_s);
    EXPECT_EQ(Tip(), u"各分类【所有日期】期间统计（账本已有变动，请重新统计）"_s);
    boxes.Expect(u"文件已导出到"_s, 0);
    page_->Do(Act::exportText);
    const auto text = QString::fromUtf8(BytesOf(ExportPath(u"统计(账户).txt"_s)));
    EXPECT_TRUE(text.contains(u"期间统计"_s) && !text.contains(u"重新统计"_s));
    Press("btnEnter");
    EXPECT_EQ(Tip(), u"各分类【所有日期】期间统计"_s);
}

TEST_F(StatsPage, ChoosersFollowTheirCharts) {
    page_->ShowMode(u"date"_s);
    Choose("comKind", u"0401"_s);
    auto* box = Find<KestroCombox>(page_, "comKind");
    const int count = box->Count();
    State().gDB.Execute(
        u"update tKind set nHide=1, Name1='卡' where Sort1='0401'; insert into tKind (ID1,Sort1,Name1) values (99,'0501','新')"_s);
    Notices().chartChanged.Emit(Chart::kinds);
    EXPECT_EQ(box->Count(), count + 1);
    EXPECT_EQ(box->text(), u"0401卡"_s);
    State().gDB.Execute(u"delete from tKind where Sort1='0401'"_s);
    Notices().chartChanged.Emit(Chart::kinds);
    EXPECT_EQ(box->text(), QString());
    OnNextModal([](QWidget* tree) { tree->close(); });
    box->onBrowse();
    EXPECT_EQ(box->text(), QString());
    boxes.Expect(u"请选择一个分类!"_s);
    Press("btnEnter");
}

TEST_F(StatsPage, PagesPrintWhatTheyShow) {
    QStringList told;
    RegisterDialog(kDlgPrint, [&](QPoint) {
        told << PrintDialog().info;
        EXPECT_TRUE(State().gBusy);
    });
    page_->ShowMode(u"acckind"_s);
    Press("btnEnter");
    Notices().entriesChanged.Emit();
    Menus::Choose(u"print"_s, u"printview"_s);
    page_->ShowMode(u"date"_s);
    page_->Do(Act::preview);
    frame_->SetFormTab(kTabAccount);
    auto* entries = frame_->GetWinhWnd(kTabAccount);
    Find<KestroText>(entries, "txtSearch")->setText(u"3/4#'"_s);
    entries->Do(Act::reload);
    Menus::Choose(u"print"_s, u"printviewcheck"_s);
    frame_->SetFormTab(kTabSubAcc);
    auto* accounts = frame_->GetWinhWnd(kTabSubAcc);
    accounts->Do(Act::reload);
    auto* list = Find<KestroList>(accounts, "KestroList1");
    list->SetChecked(1, true);
    accounts->Do(Act::previewChecked);
    auto* strip = Find<KestroScrollMenu>(accounts, "KestroScrollMenu1");
    strip->onClick(u"title1"_s, u"tongji"_s);
    EXPECT_FALSE(accounts->Can(Act::printChecked));
    accounts->Do(Act::preview);
    EXPECT_EQ(
        told,
        (QStringList{
            u"tTjKind/1/各分类【所有日期】期间统计//1"_s, u"tTjDate/1/某分类各期间统计//1"_s,
            u"tAccount/1/【全部】账务列表/ and Title1 like '%3/4#''%' and bIsMain=1 and (date1 >='2016-09-01' and date1<= '2016-09-03') and id1=-1/1"_s,
            u"tSubAccItem/1/【全部】账户记录列表/ and (date1 >='2016-09-01' and date1<= '2016-09-03') and id1 in(3)/1"_s,
            u"tSubAcc/1/【账户】列表//1"_s}));
    EXPECT_FALSE(State().gBusy);
}

TEST_F(StatsPage, WhatCannotBeDoneHereIsDisabled) {
    EXPECT_TRUE(page_->Can(Act::add) && page_->Can(Act::exportSheet));
    for (const auto act :
         {Act::edit, Act::remove, Act::remember, Act::printChecked, Act::previewChecked, Act::deleteChecked})
        EXPECT_FALSE(page_->Can(act)) << static_cast<int>(act);
}

TEST_F(StatsPage, TheFramesSearchStandsInItsBarWhileItRuns) {
    QStringList opened;
    auto* box = Find<KestroText>(frame_->findChild<QWidget*>(u"barTip"_s), "txtSearch");
    ASSERT_TRUE(box && box->isEnabled());
    auto* bar = Find<KestroPGress>(frame_->findChild<QWidget*>(u"barTip"_s), "KestroPGress1");
    Outside().open = [&](const QString& path) {
        opened << path;
        EXPECT_TRUE(bar->isVisible() && !box->isVisible());
        return true;
    };
    box->setFocus();
    TypeInto(box, u"软件"_s);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(opened, QStringList{ExportPath(u"Query_1.html"_s)});
    EXPECT_TRUE(box->isVisible() && !bar->isVisible() && frame_->focusWidget() == box);
    QInputMethodEvent composing(u"ruan"_s, {});
    QCoreApplication::sendEvent(box, &composing);
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_TRUE(box->text().startsWith(u"软件"_s));
    QInputMethodEvent done({}, {});
    QCoreApplication::sendEvent(box, &done);
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_EQ(box->text(), QString());
}
