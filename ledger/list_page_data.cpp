// What both list pages do with their query, their lines and their search box.

#include "ledger/entry_columns.h"
#include "ledger/list_page.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_text.h"
#include "store/dates.h"
#include "store/dialogs.h"
#include "store/messages.h"
#include "store/outside.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

void ListPage::ConnectShared(const ListPageWords& words) {
    chart_ = words.chart;
    txtSearch->onEnter = [this] { ReloadData(); };
    txtSearch->onEndButton = [this] { ReloadData(); };
    txtSearch->onKey = [this](QKeyEvent* event) {
        if (event->key() != Qt::Key_Space && event->key() != Qt::Key_Escape) return false;
        txtSearch->setText({});
        return true;
    };
    txtSearch->setToolTip(u"1.关键词限于【事情标题】\n2.这是模糊搜索\n3.单击重新载入、刷新"_s);
    comKind->onChoose = [this](const QString&, const QString& key) { ChooseCode(key); };
    comKind->onBrowse = [this] { OpenTree(); };
    comKind->SetBrowse(u"tree"_s, words.treeTip);
    lblValue->setToolTip(u"【单击】查看增加、减少额、差额！会自动复制到 Windows 粘贴板。"_s);
    lblValue->onClick = [this] { CopySums(); };
    for (auto* later : {btnPrint, btnExport})
        later->setEnabled(false);
}

void ListPage::ReloadInPlace() {
    if (State().gBusy) return;
    const QString current = KestroList1->CurrentKey();
    ReloadData();
    const int row = current.isEmpty() ? -1 : KestroList1->FindRow(current);
    if (row < 0) return;
    KestroList1->SetCurrentRow(row);
    KestroList1->ScrollToRow(row);
    ShowDetail();
}

void ListPage::ReloadData() {
    if (IsBusy()) return;
    EntryFilter filter;
    filter.kind = sKind;
    filter.text = txtSearch->text();
    filter.marked = chkFlag->IsChecked();
    if (btnDate0->Date().isValid()) filter.date1 = DateText(btnDate0->Date());
    if (btnDate1->Date().isValid()) filter.date2 = DateText(btnDate1->Date());
    query_ = BuildQuery(filter);
    LoadList(false);
}

void ListPage::ShowDetail() {
    const int row = KestroList1->CurrentRow();
    const auto detail = ReadDetail(State().gDB, row < 0 ? -1 : EntryOf(row));
    const int number = row < 0 ? 0 : KestroList1->Cell(row, kColNo).toInt();
    FillDetail(row < 0 ? QString() : u"列表NO【"_s + QString::number(number) + u"】"_s, detail.title,
               detail.rows);
}

void ListPage::EditCurrent() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(u"没有选中任何记录!"_s);
        return;
    }
    if (!CheckLine(row)) return;
    ResetDlg(kDlgEntry);
    EntryDialog entry;
    entry.isNew = 0;
    entry.id = static_cast<int>(EntryOf(row));
    OpenModal(kDlgEntry);
    if (!entry.done) return;
    ShowSums();
    if (entry.id == -1) return;
    if (auto line = ReadLineAgain(row, entry.id))
        RewriteLine(row, std::move(*line));
    else
        ShowDetail();
}

void ListPage::RewriteLine(int row, EntryLine line) {
    if (query_.all) line.cells[kColRmb] = line.signedAmount;
    for (int column = 0; column < KestroList1->ColumnCount(); ++column)
        KestroList1->SetCell(row, column, line.cells[static_cast<size_t>(column)]);
    KestroList1->SetRowKey(row, line.key, line.subKey);
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
