// The controls of a list page, in the order in which they are read and visited, and their places.

#include "ledger/detail_panel.h"
#include "ledger/list_page.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_text.h"
#include "shell/menus.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/period_buttons.h"
#include "shell/parts/toolbar.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLoadDelayMs = 1;  // the window paints before the first load
constexpr int kSearch = 236;
constexpr int kSearchLeast = 140;
constexpr int kKindBox = 216;
constexpr int kKindBoxLeast = 120;
constexpr int kPageBox = 168;
constexpr int kPageBoxLeast = 96;
constexpr int kSumsHeight = 36;
constexpr int kListY = 86;
constexpr int kListLeast = 120;
constexpr int kListBesideDetail = 560;

QHBoxLayout* RowOf(QWidget* owner, int spacing) {
    auto* row = new QHBoxLayout(owner);
    row->setContentsMargins({});
    row->setSpacing(spacing);
    return row;
}

}  // namespace

ListPage::ListPage(QWidget* parent, const ListPageWords& words)
    : StripPage(parent),
      fresh_(this,
             [this] {
                 FollowChosenCode();
                 ReloadChoosers();
                 ReloadInPlace();
             }),
      chart_(words.chart),
      lines_(words.lines) {
    setAutoFillBackground(false);
    BuildToolbar(words);
    BuildFilters(words);
    BuildLists(words);
    LayOut();
    Connect(words);
    pRESETGROUP();
}

void ListPage::BuildToolbar(const ListPageWords& words) {
    toolbar_ = new Toolbar(this);
    const auto add = [this](Act act, const QString& name, const QString& tip) {
        return toolbar_->Add(
            act, name, [this, act] { Do(act); }, tip);
    };
    btnNew = add(Act::add, u"btnNew"_s, words.newTip);
    btnEdit = add(Act::edit, u"btnEdit"_s, words.editTip);
    btnDel = add(Act::remove, u"btnDel"_s, words.delTip);
    toolbar_->AddLine();
    btnPrint = add(Act::print, u"btnPrint"_s, words.printTip);
    btnExport = add(Act::exportHtml, u"btnExport"_s, words.exportTip);
    Toolbar::GiveMenu(btnDel, u"delete"_s);
    Toolbar::GiveMenu(btnPrint, u"print"_s);
    Toolbar::GiveMenu(btnExport, u"export"_s);
    txtSearch = new KestroText(TextMode::search, this);
    txtSearch->setObjectName(u"txtSearch"_s);
    txtSearch->SetPrompt(words.searchPrompt);
    txtSearch->setToolTip(u"1.关键词限于【事情标题】\n2.这是模糊搜索\n3.单击重新载入、刷新"_s);
    toolbar_->SetEnd(txtSearch, kSearchLeast, kSearch);
}

void ListPage::BuildFilters(const ListPageWords& words) {
    filters_ = new QWidget(this);
    comKind = new KestroCombox(ComboxMode::chooseOnly, filters_);
    comKind->setObjectName(u"comKind"_s);
    comKind->SetLeftIcon(words.kindIcon);
    comKind->SetBrowse(u"tree"_s, words.treeTip);
    comKind->setMinimumWidth(kKindBoxLeast);
    comKind->setMaximumWidth(kKindBox);
    comKind->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    period_ = new PeriodButtons(filters_);
    period_->SetTips(
        u"1.例如过滤【2012-1-1】-【2012-02-20】间的记录\n2.则【日期1】就是起始日期.\n3.则【日期2】就是终止日期"_s,
        u"1.如果不选这项意味着搜>=日期1的记录\n2.可以通过右边的下拉箭头,确定快捷期间."_s);
    chkFlag = new KestroCheck(u"重要"_s, filters_);
    chkFlag->setObjectName(u"chkFlag"_s);
    chkFlag->SetIconName(u"flag"_s);
    chkFlag->setVisible(words.hasFlag);
    comPage = new KestroCombox(ComboxMode::chooseOnly, filters_);
    comPage->setObjectName(u"comPage"_s);
    comPage->SetLeftIcon(u"Pages"_s);
    comPage->setToolTip(u"列表页数选择框，每１万为一页!"_s);
    comPage->setMinimumWidth(kPageBoxLeast);
    comPage->setMaximumWidth(kPageBox);
    comPage->hide();
}

void ListPage::BuildLists(const ListPageWords& words) {
    center_ = new QWidget(this);
    listRoom_ = new QWidget(center_);
    KestroList1 = new KestroList(listRoom_);
    KestroList1->setObjectName(u"KestroList1"_s);
    KestroList1->SetCheckColumn(true);
    for (const auto& column : words.columns)
        KestroList1->DefineColumn(column);
    lblCount = new KestroLabel({}, LabelKind::value, listRoom_);
    lblCount->setObjectName(u"lblCount"_s);
    lblValue = new KestroLabel({}, LabelKind::value, listRoom_);
    lblValue->setObjectName(u"lblValue"_s);
    lblValue->SetCopyIcon(true);
    lblValue->setToolTip(u"【单击】查看增加、减少额、差额！会自动复制到 Windows 粘贴板。"_s);
    KestroPGress1 = new PageJobBar(listRoom_, KestroList1);
    panel_ = new DetailPanel(this);
    KestroList2 = panel_->List();
    KestroList2->setObjectName(u"KestroList2"_s);
}

void ListPage::LayOut() {
    Room()->addWidget(toolbar_);
    auto* filters = RowOf(filters_, Skin::Space::kPartner);
    filters->addWidget(comKind, 1);
    filters->addWidget(period_);
    filters->addSpacing(Skin::Space::kPage);
    filters->addWidget(chkFlag);
    filters->addStretch();
    filters->addWidget(comPage, 1);
    Room()->addWidget(filters_);
    auto* lists = new QVBoxLayout(listRoom_);
    lists->setContentsMargins({});
    lists->setSpacing(0);
    lists->addWidget(KestroList1, 1);
    auto* sums = new QWidget(listRoom_);
    sums->setFixedHeight(Skin::Px(kSumsHeight));
    auto* row = RowOf(sums, 2 * Skin::Space::kPage);
    row->addWidget(lblCount);
    row->addWidget(lblValue);
    row->addStretch();
    row->addWidget(KestroPGress1);
    lists->addWidget(sums);
    RowOf(center_, Skin::Space::kPage)->addWidget(listRoom_, 1);
    Room()->addWidget(center_, 1);
    Room()->addWidget(panel_);
}

void ListPage::Connect(const ListPageWords&) {
    txtSearch->onEnter = [this] { ReloadData(); };
    txtSearch->onEndButton = [this] { ReloadData(); };
    txtSearch->onEmptied = [this] { ReloadData(); };
    comKind->onChoose = [this](const QString&, const QString& key) { ChooseCode(key); };
    comKind->onBrowse = [this] { OpenTree(); };
    period_->onPick = [this] { ReloadData(); };
    comPage->onChoose = [this](const QString&, const QString& key) {
        if (key == sPage) return;
        sPage = key;
        LoadPage();
    };
    KestroList1->onCurrent = [this](int) { ShowDetail(); };
    KestroList1->onDoubleClick = [this](int, int) { Do(Act::edit); };
    KestroList2->onDoubleClick = [this](int row, int) {
        if (row == EntryDetail::kPictureRow) OpenPictures();
    };
    KestroList1->onDelete = [this] { Do(Act::remove); };
    KestroList1->onRightClick = [](int, const QPoint& at) { Menus::Popup(u"edit"_s, at); };
    KestroList1->onFirstPaint = [this] { TimerLoadData.start(); };
    lblValue->onClick = [this] { CopySums(); };
    const auto changed = [this] {
        figures_.reset();
        if (loaded_) fresh_.MarkStale();
    };
    notices_.push_back(Notices().entriesChanged.Subscribe(changed));
    notices_.push_back(Notices().chartChanged.Subscribe([changed](Chart) { changed(); }));
    TimerLoadData.setSingleShot(true);
    TimerLoadData.setInterval(kLoadDelayMs);
    TimerLoadData.callOnTimeout([this] { RunEvent([this] { FirstLoad(); }); });
}

void ListPage::ShowOther(QWidget* other) {
    if (other_) other_->hide();
    other_ = other;
    filters_->setVisible(!other_);
    center_->setVisible(!other_);
    txtSearch->setVisible(!other_);
    if (other_) {
        Room()->addWidget(other_, 1);
        other_->show();
    }
    toolbar_->Fit();
    Arrange();
}

void ListPage::resizeEvent(QResizeEvent* event) {
    StripPage::resizeEvent(event);
    Arrange();
}

void ListPage::SetDisplayMode(int mode) {
    displayMode_ = mode;
    Arrange();
}

// The detail stands beside the list only where enough stays for it, otherwise below, and goes where that is
// not so.
void ListPage::Arrange() {
    const int width = Room()->contentsRect().width();
    const bool side =
        displayMode_ == 0 && width - DetailPanel::kWidth - Skin::Space::kPage >= Skin::Px(kListBesideDetail);
    const bool below = !side && displayMode_ != 2 &&
                       height() - Skin::Px(kListY + kSumsHeight + kListLeast) - panel_->HeightBelow() >= 0;
    panel_->setVisible(!other_ && (side || below));
    auto* center = static_cast<QHBoxLayout*>(center_->layout());
    const bool isAside = center->indexOf(panel_) >= 0;
    if (side == isAside && panel_->IsPlaced()) return;
    panel_->Place(side);
    if (side)
        center->addWidget(panel_);
    else
        Room()->insertWidget(Room()->indexOf(center_) + 1, panel_);
}
