// The page of notes: both lists, the search, finishing and deleting from the toolbar, and the number on the
// logo.

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_text.h"
#include "shell/menus.h"
#include "store/dialogs.h"
#include "tests/notes/note_page_fixture.h"

using namespace Qt::StringLiterals;

TEST_F(NotePage, BothListsStandSideBySideAndTheLogoCounts) {
    EXPECT_EQ(State().gPage, kPageNote);
    EXPECT_EQ(Titles(Wake()), (QStringList{u"交房租"_s, u"报税"_s, u"消息"_s}));
    EXPECT_EQ(Titles(All()), (QStringList{u"便签"_s, u"交房租"_s, u"报税"_s, u"消息"_s}));
    EXPECT_TRUE(Wake()->isVisible());
    EXPECT_FALSE(All()->isVisible());
    EXPECT_EQ(frame_->LogoNumber(), 2);
    page_->GoTo({2, kTagWeb});
    EXPECT_EQ(Wake()->CurrentRow(), 2);
    page_->GoTo({2, kTagWake});
    EXPECT_EQ(Wake()->CurrentRow(), 0);
    SetClock(u"2016-09-04 00:00:05"_s);
    frame_->Timer1_Timer();
    EXPECT_EQ(frame_->LogoNumber(), 3);
}

TEST_F(NotePage, ASearchShowsInTheListOfAllAndStaysOverAReload) {
    auto* box = Find<KestroText>(page_, "txtSearch");
    TypeInto(box, u"房"_s);
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(All()->isVisible());
    EXPECT_EQ(Titles(All()), QStringList{u"交房租"_s});
    TypeInto(box, u"屋"_s);  // not searched for yet
    page_->Do(Act::reload);
    EXPECT_EQ(Titles(All()), QStringList{u"交房租"_s});
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_EQ(Titles(All()).size(), 4);
    QTest::keyClick(Find<QWidget>(page_, "chkWake"), Qt::Key_Space);
    EXPECT_EQ(Titles(All()), (QStringList{u"交房租"_s, u"报税"_s}));
    QTest::keyClick(Find<QWidget>(page_, "chkFlag"), Qt::Key_Space);
    EXPECT_EQ(Titles(All()), QStringList{u"交房租"_s});
    Menus::Choose(u"shortdate"_s, u"today"_s);  // sets the dates alone
    EXPECT_EQ(Titles(All()), QStringList{u"交房租"_s});
    EXPECT_EQ(Find<KestroButton>(page_, "btnDate0")->Date(), QDate(2016, 9, 3));
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(Titles(All()), QStringList());
}

TEST_F(NotePage, FinishingAndDeletingShowAtOnce) {
    boxes.Expect(u"请【选择】一条记录!"_s);
    Press("btnFinish");
    boxes.Expect(u"【未选定】需要修改的记录!"_s);
    Press("btnEdit");
    Wake()->SetCurrentRow(0);
    boxes.Expect(u"操作成功!"_s);
    Press("btnFinish");
    EXPECT_EQ(Titles(Wake()), (QStringList{u"报税"_s, u"消息"_s}));
    EXPECT_EQ(frame_->LogoNumber(), 1);
    Wake()->CheckAll(true);
    boxes.Expect(u"操作成功（除【平台信息】之外）!"_s);
    Press("btnAllFinish");
    EXPECT_EQ(Titles(Wake()), QStringList{u"消息"_s});
    page_->ShowList(NoteList::note);
    All()->SetChecked(0, true);
    All()->SetChecked(3, true);
    boxes.Expect(u"您是否确定删除【选定】的一条或多条记录?"_s);
    boxes.Expect(u"成功删除记录【1】条!\n但【未读】的平台信息不可删除!"_s);
    Menus::Choose(u"delete"_s, u"deletesele"_s);
    EXPECT_EQ(Titles(All()), (QStringList{u"交房租"_s, u"报税"_s, u"消息"_s}));
    EXPECT_EQ(All()->CheckedRows(), std::vector<int>{2});
    page_->GoTo({2, kTagNote});
    boxes.Expect(u"你确定要删除【选定】的一条记录?"_s);
    boxes.Expect(u"成功删除!"_s);
    QTest::keyClick(All(), Qt::Key_Delete);
    EXPECT_EQ(Titles(All()), (QStringList{u"报税"_s, u"消息"_s}));
}

TEST_F(NotePage, WhatIsPrintedFollowsTicksAndSearch) {
    QStringList asked;
    RegisterDialog(kDlgPrint, [&](QPoint) { asked << PrintDialog().info; });
    const auto preview = [](const QString& item) { Menus::Choose(u"print"_s, item); };
    preview(u"printview"_s);
    Wake()->SetChecked(1, true);
    Wake()->SetChecked(2, true);
    preview(u"printview"_s);
    preview(u"printviewcheck"_s);
    TypeInto(Find<KestroText>(page_, "txtSearch"), u"房"_s);
    QTest::keyClick(Find<QWidget>(page_, "txtSearch"), Qt::Key_Return);
    preview(u"printview"_s);
    preview(u"printviewcheck"_s);
    const QString head = u"tNoteBook/1/记事列表/"_s;
    EXPECT_EQ(asked, (QStringList{head + u" and bWake=1 and bWakeOk=0/1"_s, head + u" and id1 in(3)/1"_s,
                                  head + u" and id1 in(3)/1"_s, head + u" and Title1 like '%房%'/1"_s,
                                  head + u" and id1=-1/1"_s}));
}
