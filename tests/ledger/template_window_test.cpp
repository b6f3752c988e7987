// Templates: remembered from the list, chosen in the entry window, forgotten in their own.

#include "ledger/frm_account.h"
#include "ledger/frm_account_new.h"
#include "ledger/frm_account_template.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_text.h"
#include "store/dialogs.h"
#include "tests/support/ui_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class TemplateWindow : public SampleStage {
 protected:
    TemplateWindow() {
        State().gDB.Execute(
            u"insert into tAccountTemplate values (4,'房租'), (5,'O''Neil 的账'), (7,'水电')"_s);
    }
    QStringList Kept() { return Rows(State().gDB, u"select ID1 from tAccountTemplate"_s); }
};

}  // namespace

TEST_F(TemplateWindow, AMatterIsRememberedOnce) {
    const auto page = NewPage<frmAccount>();
    auto* list = Find<KestroList>(page.get(), "KestroList1");
    ASSERT_TRUE(Wait([&] { return list->RowCount() == 3; }));
    State().gDB.Execute(u"update tAccount set Title1='O''Neil 的账 ' where Id1=3"_s);
    list->SetCurrentRow(-1);
    boxes.Expect(u"未选定记录!"_s);
    page->Do(Act::remember);
    list->SetCurrentRow(0);
    boxes.Expect(u"增加标题成功!"_s);  // other blanks make another template
    page->Do(Act::remember);
    boxes.Expect(u"已经有相同的事情标题!"_s);
    page->Do(Act::remember);
    EXPECT_EQ(Rows(State().gDB, u"select * from tAccountTemplate where ID1>7"_s),
              QStringList{u"8|O'Neil 的账 "_s});
    State().gDB.Execute(u"delete from tAccount where Id1=3"_s);
    boxes.Expect(u"意外错误!"_s);
    page->Do(Act::remember);
}

TEST_F(TemplateWindow, AChosenOneBecomesTheMatterAndACancelledOneDoesNot) {
    ResetDlg(kDlgEntry);
    EntryDialog().isNew = 1;
    frmAccountNew entry;
    entry.show();
    auto* thing = Find<KestroText>(&entry, "txtThing");
    const auto choose = [&](int row, const char* button) {
        RegisterDialog(kDlgTemplate, [=](QPoint) {
            TemplateDialog().done = 1;  // as an earlier opening left it
            frmAccountTemplate window;
            window.show();
            Find<KestroList>(&window, "KestroList1")->SetCurrentRow(row);
            if (button) return Press(&window, button);
            Find<KestroList>(&window, "KestroList1")->onDoubleClick(row, 1);
            EXPECT_TRUE(Wait([&] { return !window.isVisible(); }));
        });
        thing->onEndButton();
        return thing->text();
    };
    EXPECT_EQ(choose(1, "btnEnter"), u"O'Neil 的账"_s);
    EXPECT_EQ(choose(0, "btnCancel"), u"O'Neil 的账"_s);
    EXPECT_EQ(choose(2, nullptr), u"水电"_s);
    EXPECT_EQ(choose(-1, "btnEnter"), QString());
}

TEST_F(TemplateWindow, OnlyTheCheckedAreForgotten) {
    ResetDlg(kDlgTemplate);
    frmAccountTemplate window;
    window.show();
    auto* list = Find<KestroList>(&window, "KestroList1");
    EXPECT_EQ(list->RowCells(1), (QStringList{u"2"_s, u"O'Neil 的账"_s}));
    Press(&window, "pngArrow");
    boxes.Expect(u"您确定要【删除】选定的一条或多条记录?"_s);
    boxes.Expect(u"【没有选定】任何记录!"_s);
    Press(&window, "btnDel");
    list->SetChecked(0, true);
    list->SetChecked(1, true);
    boxes.Expect(u"您确定要【删除】选定的一条或多条记录?"_s, 0);
    Press(&window, "btnDel");
    EXPECT_EQ(Kept().size(), 3);
    boxes.Expect(u"您确定要【删除】选定的一条或多条记录?"_s);
    Press(&window, "btnDel");
    EXPECT_EQ(Kept(), QStringList{u"7"_s});
    EXPECT_EQ(list->RowCount(), 1);
    EXPECT_EQ(list->RowCells(0), (QStringList{u"1"_s, u"水电"_s}));
}
