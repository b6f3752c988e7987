// Deleting lines of a list page: the current one, and the checked ones as a long job.

#include "ledger/list_page.h"
#include "store/messages.h"
#include "store/state.h"

#include <set>

void ListPage::DeleteCurrent() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(deleteWords_.none);
        return;
    }
    if (!DeleteAsked(State().gDB, EntryOf(row), deleteWords_)) return;
    KestroList1->RemoveRows({row});
    ShowDetail();
    ShowSums();
}

void ListPage::DoBtnMenuDelAll() {
    const auto rows = KestroList1->CheckedRows();
    std::vector<qint64> ids;
    for (const int row : rows)
        ids.push_back(EntryOf(row));
    const int count = DeleteCheckedAsked(State().gDB, ids, Bar(), [&] { RemoveDeleted(rows, ids); });
    if (count >= 0) ShowSums();
}

// Only lines whose entry is gone leave the list.
void ListPage::RemoveDeleted(const std::vector<int>& rows, const std::vector<qint64>& ids) {
    const auto there = StillThere(State().gDB, ids);
    const std::set<qint64> standing(there.begin(), there.end());
    std::vector<int> gone;
    for (size_t i = 0; i < rows.size(); ++i)
        if (!standing.contains(ids[i])) gone.push_back(rows[i]);
    KestroList1->RemoveRows(gone);
    ShowDetail();
}
