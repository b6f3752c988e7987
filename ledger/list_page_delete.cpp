// Deleting lines of a list page: the current one, and the checked ones as a long job.

#include <algorithm>

#include "ledger/entry_delete.h"
#include "ledger/list_page.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

void ListPage::DeleteCurrent() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(noneToDelete_);
        return;
    }
    if (IsBusy() || ShowMsg(askDelete_, u"取消,确定"_s, kMsgAsk) != 1) return;
    if (!DeleteEntry(State().gDB, EntryOf(row))) {
        ShowMsg(u"删除不成功!"_s, u"确定"_s, kMsgFail);
        return;
    }
    KestroList1->RemoveRows({row});
    ShowDetail();
    ShowSums();
}

void ListPage::DoBtnMenuDelAll() {
    const auto rows = KestroList1->CheckedRows();
    if (rows.empty()) {
        ShowMsg(u"【没有选定】任何记录!"_s);
        return;
    }
    if (IsBusy()) return;
    if (ShowMsg(u"您确定要【删除】选定的记录? 若删除的记录较多，则需要一些时间!"_s, u"取消,确定"_s, kMsgAsk) != 1) return;
    std::vector<qint64> ids;
    for (const int row : rows)
        ids.push_back(EntryOf(row));

    int count = 0;
    PendingError failed;
    bool good = true;
    {
        Job job(Bar());
        good = Succeeds([&] { DeleteEntries(State().gDB, ids, job, count); }, &failed);
    }
    RemoveDeleted(rows, ids);
    if (!good) {
        LastError() = failed;
        ReportError({});
    }
    ShowMsg(u"成功删除"_s + QString::number(count) + u"条记账!"_s, u"确定"_s, kMsgDone);
    ShowSums();
}

// Only lines whose entry is gone leave the list.
void ListPage::RemoveDeleted(const std::vector<int>& rows, const std::vector<qint64>& ids) {
    const auto standing = StillThere(State().gDB, ids);
    std::vector<int> gone;
    for (size_t i = 0; i < rows.size(); ++i)
        if (std::find(standing.begin(), standing.end(), ids[i]) == standing.end()) gone.push_back(rows[i]);
    KestroList1->RemoveRows(gone);
    ShowDetail();
}
