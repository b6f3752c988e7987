#include "chart/chart_panel.h"

#include "chart/chart_export.h"
#include "chart/codes.h"
#include "output/export_page.h"
#include "output/print_run.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/toolbar.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/money.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRowGap = 6;

enum Column { kNo, kName, kHide, kOpening, kAdded, kReduced, kBalance, kNote };

RowLook LookOf(const QString& code) {
    RowLook look;
    if (code.size() == 2) look.style = RowStyle::grey1;
    return look;
}

}  // namespace

ChartPanel::ChartPanel(Chart chart, bool withButtons, QWidget* parent)
    : QWidget(parent), chart_(chart), prints_(!withButtons), fresh_(this, [this] {
          const QString current = KestroList1_->CurrentKey();
          Reload();
          Select(current);
      }) {
    auto* room = new QVBoxLayout(this);
    room->setContentsMargins({});
    room->setSpacing(kRowGap);
    if (withButtons) BuildToolbar(room);
    BuildList();
    room->addWidget(KestroList1_, 1);
    KestroPGress1_ = new PageJobBar(this);
    auto gone = KestroPGress1_->sizePolicy();
    gone.setRetainSizeWhenHidden(false);
    KestroPGress1_->setSizePolicy(gone);
    room->addWidget(KestroPGress1_, 0, Qt::AlignRight);
    notices_.push_back(Notices().entriesChanged.Subscribe([this] { fresh_.MarkStale(); }));
    notices_.push_back(Notices().chartChanged.Subscribe([this](Chart) { fresh_.MarkStale(); }));
}

void ChartPanel::Shown() {
    fresh_.Shown();
}

void ChartPanel::TakeFocus() {
    KestroList1_->setFocus();
}

bool ChartPanel::Can(Act act) const {
    switch (act) {
        case Act::add:
        case Act::reload:
        case Act::exportHtml:
        case Act::exportText:
        case Act::exportSheet:
            return true;
        case Act::print:
        case Act::preview:
            return prints_;
        case Act::edit:
        case Act::remove:
            return KestroList1_->CurrentRow() >= 0;
        default:
            return false;
    }
}

void ChartPanel::Do(Act act) {
    switch (act) {
        case Act::add:
            return New();
        case Act::edit:
            return Edit();
        case Act::remove:
            return Del();
        case Act::reload:
            return Reload();
        case Act::print:
        case Act::preview:
            return Print(act == Act::preview);
        case Act::exportHtml:
        case Act::exportText:
        case Act::exportSheet:
            return ExportFor(act, ChartExport(State().gDB, chart_), KestroPGress1_->Slots());
        default:
            return;
    }
}

void ChartPanel::BuildToolbar(QVBoxLayout* room) {
    auto* toolbar = new Toolbar(this);
    const QString newTip = IsKinds() ? u"新增记账分类到【当前】账本"_s : u"新增账户到【当前】账本"_s;
    const std::tuple<Act, QString, QString> acts[] = {
        {Act::add, u"btnNew"_s, newTip},
        {Act::edit, u"btnEdit"_s, u"修改/查看　选中的列表记录"_s},
        {Act::remove, u"btnDel"_s, u"删除当前列表记录"_s},
        {Act::exportHtml, u"btnExport"_s, u"导出记账分类记录"_s},
        {Act::reload, u"btnReload"_s, {}}};
    for (const auto& [act, name, tip] : acts) {
        auto* button = toolbar->Add(
            act, name, [this, act = act] { Do(act); }, tip);
        if (act == Act::exportHtml) Toolbar::GiveMenu(button, u"export"_s);
    }
    lblTip_ = new KestroLabel(u"当前账本的"_s + TableOf(chart_).word + u"列表（单击左侧导航条会刷新）"_s,
                              LabelKind::caption, this);
    room->addWidget(toolbar);
    room->addWidget(lblTip_);
}

void ChartPanel::BuildList() {
    auto* list = KestroList1_ = new KestroList(this);
    list->setObjectName(u"KestroList1"_s);
    list->setAccessibleName(TableOf(chart_).word + u"列表"_s);
    list->DefineColumn({u"no"_s, u"No"_s, 46, 30, u"number"_s, ListColor::dim, false, {}});
    list->DefineColumn({u"name"_s, u"编号名称"_s, 200, 120, u"string"_s, ListColor::none, true, {}});
    list->DefineColumn({u"hide"_s, u"隐藏？"_s, 64, 50, u"string"_s, ListColor::dim, false, {}});
    list->DefineColumn({u"opening"_s, u"期初余额"_s, 100, 80, u"money"_s, ListColor::none, false, {}});
    list->DefineColumn({u"add"_s, u"增加额"_s, 100, 80, u"money"_s, ListColor::add, false, {}});
    list->DefineColumn({u"reduce"_s, u"减少额"_s, 100, 80, u"money"_s, ListColor::reduce, false, {}});
    list->DefineColumn({u"money"_s, u"余额"_s, 104, 80, u"money"_s, ListColor::none, false, {}});
    list->DefineColumn({u"note"_s, u"备注"_s, 160, 60, u"string"_s, ListColor::dim, false, {}});
    list->onDoubleClick = [this](int, int) { Edit(); };
    list->onDelete = [this] { Del(); };
    ResetGroup();
}

void ChartPanel::ResetGroup() {
    for (const int column : {kOpening, kAdded, kReduced, kBalance})
        KestroList1_->SetMoneyGroup(column, State().settings.nGroup);
}

void ChartPanel::Reload() {
    fresh_.Loading();
    const auto lines = ReadChart(State().gDB, chart_);
    const ListFill fill(*KestroList1_);
    KestroList1_->Clear();
    for (const auto& line : lines)
        KestroList1_->AddRow(line.cells, line.code, QString::number(line.id), LookOf(line.code));
    fresh_.MarkFresh();
}

void ChartPanel::Select(const QString& code) {
    const int row = KestroList1_->FindRow(code);
    if (row < 0) return;
    KestroList1_->SetCurrentRow(row);
    KestroList1_->ScrollToRow(row);
}

bool ChartPanel::Ask(const QString& title, const QString& prompt, const ChartRecord* start) {
    ResetDlg(kDlgInput);
    InputDialog input;
    input.done = 1;  // with the memo row
    input.prompt = prompt;
    input.text = title;
    input.mode = 1;
    input.money = 0;
    if (start) {
        input.startText = start->code + u' ' + start->name;
        input.memo = start->note;
        input.other = start->hide ? 1 : 0;
        input.money = Hundredths(start->oldOpening).value_or(0);
        input.otherDisabled = IsKinds() && start->code == kReservedKind ? 1 : 0;
    }
    return OpenModal(kDlgInput) && input.done != 0;
}

TypedRow ChartPanel::Typed() {
    const InputDialog input;
    return {input.text, input.money / 100.0, input.memo, input.otherChecked != 0};
}

void ChartPanel::Run(const QString& code, const std::function<void()>& change) {
    PendingError failed;
    bool good = false;
    {
        const FreshView::Own own(fresh_);
        good = Succeeds(change, &failed);
    }
    if (good) return fresh_.ShownOwn();
    // Part of a change may stand before the statement that fails.
    Succeeds([&] {
        Reload();
        Select(code);
    });
    TellFailure(failed);
}

void ChartPanel::New() {
    const bool kinds = IsKinds();
    const QString prompt = kinds ? u"分类编号名称(编号+空格，如：0102 生产成本)"_s
                                 : u"账户编号名称(编号+空格，如：0102 华东区上海)"_s;
    if (!Ask(kinds ? u"新增分类"_s : u"新增账户"_s, prompt, nullptr)) return;
    Run({}, [this] {
        const auto added = NewRow(State().gDB, chart_, Typed());
        if (!added) return;
        Append(added->id, added->record);
    });
}

// A chart has the columns of the work table of all kinds, and is printed in its layout.
void ChartPanel::Print(bool preview) {
    const auto& names = TableOf(chart_);
    const PrintInfo info{.table = names.table,
                         .title = u"【"_s + names.word + u"】列表"_s,
                         .mark = u"1"_s,
                         .layout = u"tTjKind"_s};
    RunPrint({{info}, preview, KestroPGress1_->PrintSlot(preview)});
}

void ChartPanel::Append(qint64 id, const ChartRecord& record) {
    const int row = KestroList1_->RowCount();
    KestroList1_->AddRow(ChartCells(row + 1, record, true), record.code, QString::number(id),
                         LookOf(record.code));
    KestroList1_->SetCurrentRow(row);
    KestroList1_->ScrollToRow(row);
}

void ChartPanel::Edit() {
    const int row = KestroList1_->CurrentRow();
    if (row < 0) {
        ShowMsg(u"请【选定一条】需修改的记录!"_s);
        return;
    }
    const qint64 id = KestroList1_->RowSubKey(row).toLongLong();
    if (id <= -1) {
        ShowMsg(u"选定的分类记录无效(ID1=-1)! "_s);
        return;
    }
    auto record = ReadChartRecord(State().gDB, id, chart_);
    if (!record) return;
    const bool kinds = IsKinds();
    const QString title = kinds && record->code == kReservedKind ? u"系统预留分类，不可修改"_s
                          : kinds                                ? u"修改分类名称"_s
                                                                 : u"修改账户名称"_s;
    const QString prompt =
        kinds ? u"分类编号名称(编号+空格，如：0102 生产成本)"_s : u"账户编号名称(编号+空格，如：01 华东区)"_s;
    if (!Ask(title, prompt, &*record)) return;
    TypedRow typed = Typed();
    // An amount that the box could not show to its last place is not changed by leaving it alone.
    if (!InputDialog().moneyTyped) typed.opening = record->oldOpening;
    Run(record->code, [&] {
        const auto changed = ChangeRow(State().gDB, chart_, *record, typed);
        if (!changed) return;
        const int now = RowOfId(id);  // the list may have been read anew while the box stood
        if (now >= 0 && !changed->othersMoved) return ShowChanged(now, *changed);
        Reload();
        Select(changed->code);
    });
}

int ChartPanel::RowOfId(qint64 id) const {
    for (int row = 0; row < KestroList1_->RowCount(); ++row)
        if (KestroList1_->RowSubKey(row).toLongLong() == id) return row;
    return -1;
}

void ChartPanel::ShowChanged(int row, const ChartRecord& record) {
    auto cells = ChartCells(KestroList1_->Cell(row, kNo).toInt(), record, true);
    cells[kAdded] = FixedText(record.added);
    cells[kReduced] = FixedText(record.reduced);
    cells[kBalance] = FixedText(record.balance);
    for (int column = 0; column < KestroList1_->ColumnCount(); ++column)
        KestroList1_->SetCell(row, column, cells[column]);
    KestroList1_->SetRowKey(row, record.code, KestroList1_->RowSubKey(row));
    KestroList1_->SetRowLook(row, LookOf(record.code));
}

void ChartPanel::Del() {
    const int row = KestroList1_->CurrentRow();
    if (row < 0) {
        ShowMsg(NoneChosen(chart_));
        return;
    }
    const auto stored = ReadChartRecord(State().gDB, KestroList1_->RowSubKey(row).toLongLong(), chart_);
    if (!stored || stored->code != KestroList1_->RowKey(row)) {
        // The row has gone or has another code since the list was read.
        ShowMsg(u"意外错误!"_s, u"确定"_s, kMsgFail);
        return Reload();
    }
    const qint64 id = KestroList1_->RowSubKey(row).toLongLong();
    const auto removeLine = [this, id] {
        const int now = RowOfId(id);
        if (now >= 0) KestroList1_->RemoveRows({now});
        KestroList1_->SetCurrentRow(-1);
    };
    const QString code = KestroList1_->RowKey(row);
    Run(code, [&] { DeleteRowAsked(State().gDB, chart_, code, removeLine); });
}
