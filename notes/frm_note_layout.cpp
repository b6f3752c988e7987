// The controls of the notes page, in the order in which they are read and visited, and their places.

#include "notes/frm_note.h"
#include "notes/note_change.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "shell/menus.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/period_buttons.h"
#include "shell/parts/toolbar.h"
#include "shell/skin.h"
#include "store/state.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSearch = 236, kSearchLeast = 140;

}  // namespace

frmNote::frmNote(QWidget* parent) : StripPage(parent), fresh_(this, [this] { ReloadData(); }) {
    BuildStrip();
    BuildToolbar();
    BuildFilters();
    BuildLists();
    LayOut();
    ShowList(NoteList::wake);
    fresh_.Loading();
    reminders_ = Notices().remindersChanged.Subscribe([this] { fresh_.MarkStale(); });
}

void frmNote::BuildStrip() {
    auto* strip = KestroScrollMenu1;
    strip->AddSection(u"title0"_s, u"记事提醒"_s);
    strip->AddItem(u"title0"_s, {.key = kTagWake, .caption = u"未完成的提醒"_s, .icon = u"wake"_s});
    strip->AddItem(u"title0"_s, {.key = kTagNote, .caption = u"所有记事提醒"_s, .icon = u"note"_s});
    strip->onClick = [this](const QString&, const QString& item) {
        ShowList(item == kTagWake ? NoteList::wake : NoteList::note);
    };
}

void frmNote::BuildToolbar() {
    toolbar_ = new Toolbar(this);
    btnNew = toolbar_->Add(
        Act::add, u"btnNew"_s, [this] { Do(Act::add); }, u"新增记事或提醒"_s);
    btnEdit = toolbar_->Add(
        Act::edit, u"btnEdit"_s, [this] { EditCurrent(); }, u"修改/查看　记事或提醒"_s);
    btnDel = toolbar_->Add(
        Act::remove, u"btnDel"_s, [this] { Do(Act::remove); },
        u"删除记事或提醒, 但『未读』的【平台信息】不可删除!"_s);
    toolbar_->AddLine();
    btnFinish =
        toolbar_->Add(u"完成"_s, u"check"_s, u"btnFinish"_s, [this] { FinishNote(State().gDB, Chosen()); });
    btnAllFinish = toolbar_->Add(u"完成勾选"_s, u"items"_s, u"btnAllFinish"_s,
                                 [this] { FinishTicked(State().gDB, Ticked()); });
    toolbar_->AddLine();
    btnPrint = toolbar_->Add(
        Act::print, u"btnPrint"_s, [this] { Do(Act::print); }, u"打印列表所有记录, 但平台信息不被打印"_s);
    Toolbar::GiveMenu(btnDel, u"delete"_s);
    Toolbar::GiveMenu(btnPrint, u"print"_s);
    txtSearch = new KestroText(TextMode::search, this);
    txtSearch->setObjectName(u"txtSearch"_s);
    txtSearch->SetPrompt(u"搜索标题"_s);
    toolbar_->SetEnd(txtSearch, kSearchLeast, kSearch);
    txtSearch->onEnter = [this] { Search(); };
    txtSearch->onEndButton = [this] { Search(); };
    txtSearch->onEmptied = [this] { Search(); };
}

void frmNote::BuildFilters() {
    filters_ = new QWidget(this);
    period_ = new PeriodButtons(filters_);
    period_->onPick = [this] { Search(); };
    const auto check = [this](const QString& name, const QString& caption, const QString& icon) {
        auto* made = new KestroCheck(caption, filters_);
        made->setObjectName(name);
        made->SetIconName(icon);
        made->onChange = [this](bool) { Search(); };
        return made;
    };
    chkFlag = check(u"chkFlag"_s, u"重要"_s, u"flag"_s);
    chkWake = check(u"chkWake"_s, u"提醒"_s, u"wake"_s);
}

KestroList* frmNote::MakeList(NoteList which) {
    const bool wake = which == NoteList::wake;
    auto* list = new KestroList(listRoom_);
    list->setObjectName(wake ? u"KestroList1"_s : u"KestroList2"_s);
    list->setAccessibleName(wake ? u"未完成的提醒"_s : u"所有记事提醒"_s);
    list->SetCheckColumn(true);
    list->DefineColumn({u"no"_s, u"NO"_s, 60, 24, u"number"_s, ListColor::dim, false, {}});
    list->DefineColumn({u"date"_s, u"增加日期"_s, 150, 100, u"string"_s, ListColor::dim, false, {}});
    if (wake)
        list->DefineColumn({u"until"_s, u"最后期限"_s, 110, 80, u"date"_s, ListColor::none, false, {}});
    else
        list->DefineColumn(
            {.key = u"type"_s,
             .caption = u"类型"_s,
             .width = 110,
             .smallest = 60,
             .type = u"string"_s,
             .icons = {{u"提醒"_s, u"clock"_s}, {u"记事"_s, u"note"_s}, {u"平台"_s, u"web"_s}}});
    list->DefineColumn(
        {u"title"_s, wake ? u"提醒事项"_s : u"标题"_s, 300, 140, u"string"_s, ListColor::none, true, {}});
    list->DefineColumn({u"flag"_s, u"重要"_s, 80, 60, u"icons"_s, ListColor::none, false, {}});
    list->SetEmptyText(wake ? u"没有未完成的提醒"_s : u"没有记事"_s);
    list->onDoubleClick = [this](int, int) { EditCurrent(); };
    list->onDelete = [this] { Do(Act::remove); };
    list->onRightClick = [](int, const QPoint& at) { Menus::Popup(u"edit"_s, at); };
    return list;
}

void frmNote::BuildLists() {
    listRoom_ = new QWidget(this);
    for (const auto which : {NoteList::wake, NoteList::note})
        lists_[static_cast<size_t>(which)] = MakeList(which);
    KestroPGress1 = new PageJobBar(listRoom_);
}

void frmNote::LayOut() {
    Room()->addWidget(toolbar_);
    auto* filters = new QHBoxLayout(filters_);
    filters->setContentsMargins({});
    filters->setSpacing(Skin::Space::kPartner);
    filters->addWidget(period_);
    filters->addSpacing(Skin::Space::kPage);
    filters->addWidget(chkFlag);
    filters->addWidget(chkWake);
    filters->addStretch();
    filters->addWidget(KestroPGress1);
    Room()->addWidget(filters_);
    auto* lists = new QVBoxLayout(listRoom_);
    lists->setContentsMargins({});
    for (auto* list : lists_)
        lists->addWidget(list, 1);
    Room()->addWidget(listRoom_, 1);
}
