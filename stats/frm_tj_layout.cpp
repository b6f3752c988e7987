// The controls of the statistics page, in the order in which they are read and visited, and their places.

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/menus.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/period_buttons.h"
#include "shell/parts/toolbar.h"
#include "shell/skin.h"
#include "stats/frm_tj.h"
#include "store/errors.h"
#include "store/state.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kChooser = 216, kChooserLeast = 120;
constexpr int kTipHeight = 32;
constexpr int kMoneyWidth = 150, kMoneyLeast = 80;
constexpr int kNumberWidth = 60, kNumberLeast = 30;
constexpr int kNameWidth = 200, kNameLeast = 120;

QString ModeTip(const QString& mode) {
    if (mode == u"date")
        return u"（1）如：分类【工资收入】在【2015年各月】的累计数额－－这是接月统计\n"
               u"（2）再如：分类【日常支出】在【1月份】各日的累计数额－－这是按日\n"
               u" （3）注意：【没有记账】的月、日不会列出，如：按日统计，2月1、3日『有』记账，那么2月2日【不会列出】"_s;
    if (mode == u"kind")
        return u"（1）如：【选定期间】各分类累计数额\n"
               u"（2）注意：【隐藏分类】也会列出；若『不选定』期间则按账本所有时间"_s;
    return {};
}

}  // namespace

frmTJ::frmTJ(QWidget* parent)
    : StripPage(parent), fresh_(this, [this] {
          LoadComkindData();
          fresh_.MarkFresh();
      }) {
    BuildStrip();
    BuildChoosers();
    BuildLists();
    LayOut();
    for (const auto& row : ReportModes())
        states_[static_cast<size_t>(row.mode)].title = row.title;
    Now().period = PeriodOfKey(State().settings.LoadDate);
    LoadComkindData();
    pRESETGROUP();
    ShowMode(ModeRow(mode_).key);
    notices_.push_back(Notices().entriesChanged.Subscribe([this] { MarkStale(); }));
    notices_.push_back(Notices().chartChanged.Subscribe([this](Chart) {
        MarkStale();
        fresh_.MarkStale();
    }));
}

void frmTJ::BuildStrip() {
    auto* strip = KestroScrollMenu1;
    strip->AddSection(u"title0"_s, u"分类.期间 统计"_s);
    strip->AddSection(u"title1"_s, u"账户.期间.统计"_s);
    for (const auto& row : ReportModes()) {
        const bool kinds = row.chart == Chart::kinds;
        const QString icon = row.byPeriod ? u"date"_s : kinds ? u"kind"_s : u"account"_s;
        strip->AddItem(kinds ? u"title0"_s : u"title1"_s,
                       {.key = row.key, .caption = row.title, .icon = icon});
    }
    strip->onClick = [this](const QString&, const QString& item) { ShowMode(item); };
    strip->onTip = [](const QString&, const QString& item) { return ModeTip(item); };
}

KestroCombox* frmTJ::MakeChooser(Chart chart) {
    const bool kinds = chart == Chart::kinds;
    auto* box = new KestroCombox(ComboxMode::pick, this);
    box->setObjectName(kinds ? u"comKind"_s : u"comAcc"_s);
    box->SetLeftIcon(kinds ? u"kind"_s : u"account"_s);
    box->SetPrompt(u"选择"_s + TableOf(chart).word);
    box->SetBrowse(u"tree"_s, u"在"_s + TableOf(chart).word + u"树中选择"_s);
    box->setMinimumWidth(kChooserLeast);
    box->setMaximumWidth(kChooser);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->onChoose = [this, kinds](const QString&, const QString& key) { (kinds ? sKindKey : sAccKey) = key; };
    box->onBrowse = [this, chart] { OpenTree(chart); };
    return box;
}

void frmTJ::BuildChoosers() {
    comKind = MakeChooser(Chart::kinds);
    comAcc = MakeChooser(Chart::accounts);
    period_ = new PeriodButtons(this);
    period_->onPick = [this] { Now().period = period_->Value(); };
    lengths_ = new QWidget(this);
    const auto option = [this](const QString& name, const QString& caption) {
        auto* made = new KestroOption(caption, lengths_);
        made->setObjectName(name);
        made->setAccessibleName(u"按"_s + caption + u"统计"_s);
        return made;
    };
    optYear = option(u"optYear"_s, u"年"_s);
    optMonth = option(u"optMonth"_s, u"月"_s);
    optDay = option(u"optDay"_s, u"日"_s);
    for (const auto& [made, length] : LengthOptions())
        made->onChoose = [this, length = length] { bPeriod[SideOfMode()] = length; };
    btnEnter = new KestroButton(ButtonLook::primary, u"统计"_s, {}, this);
    btnEnter->setObjectName(u"btnEnter"_s);
    btnEnter->onClick = [this] { Run(); };
    toolbar_ = new Toolbar(this);
    btnPrint = toolbar_->Add(
        Act::print, u"btnPrint"_s, [this] { Do(Act::print); }, u"打印所有记录"_s);
    btnExport = toolbar_->Add(
        Act::exportHtml, u"btnExport"_s, [this] { Do(Act::exportHtml); }, u"导出列表所有记录"_s);
    btnPrint->SetLook(ButtonLook::toolbar);
    toolbar_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    Toolbar::GiveMenu(btnPrint, u"print"_s);
    Toolbar::GiveMenu(btnExport, u"export"_s);
}

KestroList* frmTJ::MakeList(const ReportModeRow& mode) {
    static const QString names[] = {u"KestroList2"_s, u"KestroList1"_s, u"KestroList4"_s, u"KestroList3"_s};
    auto* list = new KestroList(this);
    list->setObjectName(names[static_cast<size_t>(mode.mode)]);
    list->setAccessibleName(mode.title);
    const QString name = mode.byPeriod ? u"期间"_s : TableOf(mode.chart).word + u"名称"_s;
    list->DefineColumn(
        {u"no"_s, u"NO"_s, kNumberWidth, kNumberLeast, u"number"_s, ListColor::dim, false, {}});
    list->DefineColumn({u"name"_s, name, kNameWidth, kNameLeast, u"string"_s, ListColor::none, true, {}});
    list->DefineColumn(
        {u"add"_s, u"增加(元)"_s, kMoneyWidth, kMoneyLeast, u"money"_s, ListColor::add, false, {}});
    list->DefineColumn(
        {u"reduce"_s, u"减少(元)"_s, kMoneyWidth, kMoneyLeast, u"money"_s, ListColor::reduce, false, {}});
    list->DefineColumn(
        {u"money"_s, u"余额(元)"_s, kMoneyWidth, kMoneyLeast, u"money"_s, ListColor::none, false, {}});
    if (mode.byPeriod) list->SetBars(1, 2, 3);
    // The list of a kind's periods offers the menu of entries.
    const QString menu = mode.mode == ReportMode::date ? u"edit"_s : u"export"_s;
    list->onRightClick = [menu](int, const QPoint& at) { Menus::Popup(menu, at); };
    return list;
}

void frmTJ::BuildLists() {
    lblTip = new KestroLabel({}, LabelKind::title, this);
    lblTip->setObjectName(u"lblTip"_s);
    KestroPGress1 = new PageJobBar(this);
    for (const auto& row : ReportModes())
        lists_[static_cast<size_t>(row.mode)] = MakeList(row);
}

void frmTJ::LayOut() {
    auto* lengths = new QHBoxLayout(lengths_);
    lengths->setContentsMargins({});
    lengths->setSpacing(Skin::Space::kField);
    for (const auto& [option, length] : LengthOptions())
        lengths->addWidget(option);
    asked_ = new QHBoxLayout;
    asked_->setSpacing(Skin::Space::kPartner);
    for (auto* chooser : {comKind, comAcc})
        asked_->addWidget(chooser, 1);
    asked_->addWidget(period_);
    asked_->addStretch();
    Room()->addLayout(asked_);
    more_ = new QHBoxLayout;
    more_->setSpacing(Skin::Space::kPartner);
    more_->addStretch();
    Room()->addLayout(more_);
    PutMore(*asked_);
    auto* told = new QHBoxLayout;
    told->setSpacing(Skin::Space::kPage);
    told->addWidget(lblTip, 1);
    told->addWidget(KestroPGress1);
    lblTip->setMinimumHeight(Skin::Px(kTipHeight));
    Room()->addLayout(told);
    for (auto* list : lists_)
        Room()->addWidget(list, 1);
}

void frmTJ::PutMore(QHBoxLayout& row) {
    // Before and behind the stretch that each of the two rows ends with.
    row.insertWidget(row.count() - 1, lengths_);
    row.insertWidget(row.count() - 1, btnEnter);
    row.addWidget(toolbar_);
    narrow_ = &row == more_;
}

// Where one row has no room for all, its second half goes into a row of its own.
void frmTJ::Arrange() {
    int needed = toolbar_->sizeHint().width() + Skin::Space::kPartner;
    for (const QWidget* widget : {static_cast<QWidget*>(comKind), static_cast<QWidget*>(comAcc),
                                  static_cast<QWidget*>(period_), lengths_, static_cast<QWidget*>(btnEnter)})
        if (!widget->isHidden())
            needed +=
                std::max(widget->minimumWidth(), widget->minimumSizeHint().width()) + Skin::Space::kPartner;
    const auto margins = Room()->contentsMargins();
    const bool narrow = needed > width() - margins.left() - margins.right();
    if (narrow == narrow_) return;
    PutMore(narrow ? *more_ : *asked_);
}

void frmTJ::resizeEvent(QResizeEvent* event) {
    StripPage::resizeEvent(event);
    Arrange();
}
