// The controls of the web ledger's page, in the order in which they are read and visited, and their places.

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/menus.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/toolbar.h"
#include "shell/skin.h"
#include "web/frm_web_acc.h"
#include "web/web_ledger.h"

#include <QGridLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kRoomForAll = 1040;                  // all columns of the history beside the whole strip
constexpr int kNameLeast = 70, kAmountLeast = 60;  // four characters, five digits
}  // namespace

frmWebAcc::frmWebAcc(QWidget* parent)
    : StripPage(parent, kRoomForAll), fresh_(this, [this] { ReloadData(); }) {
    BuildStrip();
    BuildToolbar();
    BuildLists();
    LayOut();
    pRESETGROUP();
    ShowList(WebList::waiting);
    fresh_.Loading();
    notices_.push_back(Notices().webRowsChanged.Subscribe([this] { fresh_.MarkStale(); }));
    notices_.push_back(Notices().chartChanged.Subscribe([this](Chart) { fresh_.MarkStale(); }));
    notices_.push_back(Notices().webBusy.Subscribe([this](bool busy) { SetBusyBar(busy); }));
}

void frmWebAcc::BuildStrip() {
    auto* strip = KestroScrollMenu1;
    strip->AddSection(u"title0"_s, u"网账管理"_s);
    strip->AddItem(u"title0"_s, {.key = u"list"_s, .caption = u"在线网账"_s, .icon = u"web"_s});
    strip->AddItem(u"title0"_s, {.key = u"his"_s, .caption = u"历史网账"_s, .icon = u"clock"_s});
    strip->onClick = [this](const QString&, const QString& item) {
        ShowList(item == u"list" ? WebList::waiting : WebList::history);
    };
}

void frmWebAcc::BuildToolbar() {
    toolbar_ = new Toolbar(this);
    btnCheck = toolbar_->Add(
        u"检查"_s, u"import"_s, u"btnCheck"_s, [] { Web().Begin(WebTalk::fetch); },
        u"检查网站账户中有无新的记录需要下载!"_s);
    btnCheck->SetLook(ButtonLook::primary);
    btnToBill = toolbar_->Add(
        u"入账"_s, u"income"_s, u"btnToBill"_s, [this] { PostAll(); },
        u"把从网站下载的账务记录导入到账本!"_s);
    btnSet = toolbar_->Add(
        u"上传"_s, u"export"_s, u"btnSet"_s, [] { UploadAsked(); }, u"将账本中的分类上传到网站您的账户中!"_s);
    toolbar_->AddLine();
    btnDel = toolbar_->Add(
        Act::remove, u"btnDel"_s, [this] { DeleteTicked(); }, u"删除选中的在线网账或历史网账!"_s);
}

KestroList* frmWebAcc::MakeList(WebList which) {
    const bool waiting = which == WebList::waiting;
    auto* list = new KestroList(this);
    list->setObjectName(waiting ? u"KestroList1"_s : u"KestroList2"_s);
    list->setAccessibleName(waiting ? u"在线网账"_s : u"历史网账"_s);
    list->SetCheckColumn(true);
    const int name = waiting ? 90 : 78, amount = waiting ? 80 : 72;  // the history has one column more
    const auto column = [&](const QString& key, const QString& caption, const QString& type) {
        const bool money = type == u"money";
        list->DefineColumn({key,
                            caption,
                            money ? amount : name,
                            money ? kAmountLeast : kNameLeast,
                            type,
                            money ? ListColor::signedMoney : ListColor::none,
                            false,
                            {}});
    };
    list->DefineColumn({u"no"_s, u"NO"_s, 40, 24, u"number"_s, ListColor::dim, false, {}});
    list->DefineColumn({u"title"_s, u"事情"_s, 160, 100, u"string"_s, ListColor::none, true, {}});
    list->DefineColumn({u"date"_s, u"记账日期"_s, 120, 118, u"string"_s, ListColor::dim, false, {}});
    column(u"kind"_s, u"事情分类"_s, u"string"_s);
    column(u"value"_s, u"金额"_s, u"money"_s);
    column(u"kind2"_s, u"关联分类名"_s, u"string"_s);
    column(u"value2"_s, u"关联金额"_s, u"money"_s);
    column(u"account"_s, u"记入账户"_s, u"string"_s);
    column(u"accountValue"_s, u"账户金额"_s, u"money"_s);
    if (!waiting)
        list->DefineColumn({.key = u"result"_s,
                            .caption = u"结果"_s,
                            .width = 88,
                            .smallest = 86,
                            .type = u"string"_s,
                            .icons = {{u"已入账"_s, u"success"_s}, {u"未入账"_s, u"fail"_s}}});
    list->SetEmptyText(waiting ? u"没有等待入账的记录"_s : u"没有历史网账"_s);
    list->onDelete = [this] { DeleteTicked(); };
    list->onRightClick = [](int, const QPoint& at) { Menus::Popup(u"delete"_s, at); };
    return list;
}

void frmWebAcc::BuildLists() {
    for (const auto which : {WebList::waiting, WebList::history})
        lists_[static_cast<size_t>(which)] = MakeList(which);
}

void frmWebAcc::LayOut() {
    bars_ = new QWidget(this);
    KestroPGress1 = new KestroPGress(bars_);
    KestroPGress1->setObjectName(u"KestroPGress1"_s);
    KestroPGress1->onClick = [] { Web().Stop(); };
    KestroPGress2 = new PageJobBar(bars_);
    KestroPGress2->setObjectName(u"KestroPGress2"_s);
    auto* bars = new QGridLayout(bars_);
    bars->setContentsMargins({});
    bars->addWidget(KestroPGress1, 0, 0);
    bars->addWidget(KestroPGress2, 0, 0);
    SetBusyBar(Web().IsAwaited());
    auto* head = new QHBoxLayout;
    head->setSpacing(Skin::Space::kPartner);
    head->addWidget(toolbar_, 1);
    head->addWidget(bars_);
    Room()->addLayout(head);
    for (auto* list : lists_)
        Room()->addWidget(list, 1);
}
