#include "ledger/list_page.h"

#include "ledger/detail_panel.h"
#include "ledger/list_export.h"
#include "output/export_page.h"
#include "output/print_run.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_text.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/period_buttons.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/outside.h"

#include <limits>
#include <set>

using namespace Qt::StringLiterals;

ListPage::~ListPage() = default;

void ListPage::Shown() {
    fresh_.Shown();
}

void ListPage::TakeFocus() {
    (other_ ? other_ : KestroList1)->setFocus();
}

bool ListPage::Can(Act act) const {
    switch (act) {
        case Act::edit:
        case Act::remove:
            return HasLine();
        case Act::exportHtml:
        case Act::exportText:
        case Act::exportSheet:
        case Act::print:
        case Act::preview:
        case Act::printChecked:
        case Act::previewChecked:
        case Act::deleteChecked:
        case Act::reload:
        case Act::find:
        case Act::period:
        case Act::runPeriod:
            return !other_;
        default:
            return false;
    }
}

void ListPage::Do(Act act) {
    switch (act) {
        case Act::edit:
            return EditCurrent();
        case Act::remove:
            return DeleteCurrent();
        case Act::exportHtml:
        case Act::exportText:
        case Act::exportSheet:
            return ExportFor(act, LinesExport(lines_, RowsOnShow(*KestroList1)), KestroPGress1->Slots());
        case Act::print:
        case Act::printChecked:
            return Print(false, act == Act::printChecked);
        case Act::preview:
        case Act::previewChecked:
            return Print(true, act == Act::previewChecked);
        case Act::deleteChecked:
            return DeleteChecked();
        case Act::reload:
        case Act::runPeriod:
            return ReloadData();
        case Act::find:
            return txtSearch->setFocus(Qt::ShortcutFocusReason);
        default:
            return;
    }
}

void ListPage::ShowSums() {
    ShowFigures(Figures());
}

void ListPage::ShowSumLabels(const QString& count, const QString& value) {
    lblCount->SetText(count);
    lblValue->SetText(value);
}

void ListPage::ShowDetail() {
    const int row = KestroList1->CurrentRow();
    const auto detail = ReadDetail(State().gDB, row < 0 ? -1 : EntryOf(row));
    const QString number = row < 0 ? QString() : KestroList1->Cell(row, kColNo);
    panel_->Fill(row < 0 ? QString() : u"列表NO【"_s + number + u'】', detail.title, detail.rows);
}

void ListPage::OpenPictures() {
    const int row = KestroList1->CurrentRow();
    const qint64 main = row < 0 ? -1 : ReadDetail(State().gDB, EntryOf(row)).main;
    if (main < 0 || main > std::numeric_limits<int>::max()) return;
    ResetDlg(kDlgPictures);
    PictureDialog pictures;
    pictures.table = u"tAccount"_s;
    pictures.id = static_cast<int>(main);
    OpenModal(kDlgPictures);
}

void ListPage::MakeCurrent(int row) {
    KestroList1->SetCurrentRow(row);
    KestroList1->ScrollToRow(row);
    ShowDetail();
}

void ListPage::ShowOwnChange(const std::function<void()>& show) {
    if (!query_.all) return ReloadInPlace();
    show();
    ShowSums();
    fresh_.ShownOwn();
}

void ListPage::EditCurrent() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(u"没有选中任何记录!"_s);
        return;
    }
    if (!CheckLine(row)) return;
    const qint64 id = EntryOf(row);
    if (id > std::numeric_limits<int>::max()) {
        ShowMsg(u"意外错误!"_s, u"确定"_s, kMsgFail);
        return;
    }
    const bool alone = StandsAlone(row);
    ResetDlg(kDlgEntry);
    EntryDialog entry;
    entry.isNew = 0;
    entry.id = static_cast<int>(id);
    {
        const FreshView::Own own(fresh_);
        OpenModal(kDlgEntry);
    }
    if (!entry.done) return fresh_.Shown();
    if (!alone || !StandsAlone(row)) return ReloadInPlace();
    ShowOwnChange([&] {
        if (entry.id == -1) return;
        if (auto line = ReadLineAgain(row, entry.id)) return RewriteLine(row, std::move(*line));
        KestroList1->RemoveRows({row});
        ShowDetail();
    });
}

void ListPage::RewriteLine(int row, EntryLine line) {
    line.cells.Set(kColRmb, line.signedAmount);
    for (int column = 0; column < KestroList1->ColumnCount(); ++column)
        KestroList1->SetCell(row, column, line.cells.Text(column));
    KestroList1->SetRowKey(row, line.key, line.subKey);
    ShowDetail();
}

void ListPage::DeleteCurrent() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(WordsOf(lines_).none);
        return;
    }
    if (!CheckLine(row)) return;
    bool done = false;
    {
        const FreshView::Own own(fresh_);
        done = DeleteAsked(State().gDB, lines_, KestroList1->RowKey(row).toLongLong());
    }
    if (!done) return fresh_.Shown();
    ShowOwnChange([&] { RemoveGone({row}); });
}

std::vector<qint64> ListPage::CheckedIds() const {
    std::vector<qint64> ids;
    for (const auto& key : KestroList1->CheckedKeys())
        ids.push_back(key.toLongLong());
    return ids;
}

void ListPage::Print(bool preview, bool checked) {
    const auto info = InfoToPrint(checked ? std::optional(CheckedIds()) : std::nullopt);
    RunPrint({{info}, preview, KestroPGress1->PrintSlot(preview)});
}

void ListPage::DeleteChecked() {
    const auto ids = CheckedIds();
    bool shown = false;
    const auto show = [&] {
        ShowOwnChange([this] { RemoveGone(KestroList1->CheckedRows()); });
        shown = true;
    };
    {
        const FreshView::Own own(fresh_);
        DeleteCheckedAsked(State().gDB, lines_, ids, KestroPGress1->Slots(), show);
    }
    if (!shown) fresh_.Shown();
}

// Of these lines and those of the same entries, what stands for nothing any more leaves the list.
void ListPage::RemoveGone(const std::vector<int>& asked) {
    const std::set<int> wanted(asked.begin(), asked.end());
    std::set<QString> entries;
    if (lines_ == LineKind::records)
        for (const int row : asked)
            entries.insert(KestroList1->RowSubKey(row));
    std::vector<int> rows;
    std::vector<qint64> ids;
    for (int row = 0; row < KestroList1->RowCount(); ++row) {
        if (!wanted.contains(row) && !entries.contains(KestroList1->RowSubKey(row))) continue;
        rows.push_back(row);
        ids.push_back(KestroList1->RowKey(row).toLongLong());
    }
    const auto standing = StillThere(State().gDB, lines_, ids);
    std::vector<int> gone;
    for (size_t i = 0; i < rows.size(); ++i)
        if (!standing.contains(ids[i])) gone.push_back(rows[i]);
    KestroList1->RemoveRows(gone);
    ShowDetail();
}

void ListPage::CopySums() {
    Outside().copyText(sumsTag_);
    ShowMsg(sumsTag_ + u"\n\n已将增加、减少额、差额数字复制到了 Windows 粘贴板！"_s, u"确定"_s, kMsgInfo,
            u"提示"_s, 392, 200);
}

void ListPage::OpenTree() {
    ResetDlg(kDlgTree);
    TreeDialog tree;
    tree.key = TableOf(chart_).table;
    OpenModal(kDlgTree, comKind->mapToGlobal(comKind->rect().bottomLeft()));
    if (tree.done && !tree.key.isEmpty()) ChooseCode(tree.key);
}

void ListPage::ResetFilters() {
    txtSearch->setText({});
    SetPeriod({});
    comKind->SetCurrent(0);
    chkFlag->SetChecked(false);
}

void ListPage::SetPeriod(const Period& period) {
    period_->SetValue(period);
}

void ListPage::pRESETGROUP() {
    for (auto* list : {KestroList1, KestroList2})
        for (int column = 0; column < list->ColumnCount(); ++column)
            if (list->Column(column).type == u"money") list->SetMoneyGroup(column, State().settings.nGroup);
}
