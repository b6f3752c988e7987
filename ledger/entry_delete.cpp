#include "ledger/entry_delete.h"

#include "store/entry_effect.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/notices.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kSlice = 50;

QString Joined(const std::vector<qint64>& ids) {
    QStringList texts;
    for (const qint64 id : ids)
        texts << QString::number(id);
    return texts.join(u',');
}

std::vector<qint64> RowsOf(cConnection& book, const std::vector<qint64>& ids) {
    const QString list = Joined(ids);
    auto rows = book.Read(u"select Id1,IID,IIID,IIID1,bIsMain from tAccount where bIsMain=1 and id1 in("_s +
                          list + u") or iid in("_s + list + u')');
    std::vector<qint64> found;
    while (rows.Next())
        found.push_back(rows.Int(0));
    return found;
}

}  // namespace

bool DeleteEntry(cConnection& book, qint64 id) {
    Transaction change(book);
    if (!RemoveEntry(book, id)) return false;
    change.Commit();
    Notices().entriesChanged.Emit();
    return true;
}

void DeleteEntries(cConnection& book, const std::vector<qint64>& ids, Job& job, int& count) {
    count = 0;
    // An id of -1 would find every entry without a partner.
    std::vector<qint64> real;
    std::copy_if(ids.begin(), ids.end(), std::back_inserter(real), [](qint64 id) { return id > 0; });
    if (real.empty()) return;
    const auto rows = RowsOf(book, real);
    job.Start(static_cast<int>(rows.size()));
    for (size_t at = 0; at < rows.size() && !job.Stopped(); at += kSlice) {
        const size_t end = std::min(at + kSlice, rows.size());
        Transaction slice(book);
        for (size_t i = at; i < end; ++i)
            RemoveEntry(book, rows[i]);
        slice.Commit();
        count = static_cast<int>(end);
        job.Step(count);
    }
}

std::vector<qint64> StillThere(cConnection& book, const std::vector<qint64>& ids) {
    std::vector<qint64> there;
    for (auto rows = book.Read(u"select Id1 from tAccount where Id1 in("_s + Joined(ids) + u')');
         rows.Next();)
        there.push_back(rows.Int(0));
    return there;
}

DeleteWords EntryDeleteWords() {
    return {u"【没有选定】需要删除的记录,你需要单击一条记录使其选定!"_s,
            u"确定要【删除】选定的一条记录?　该事情的【分类记录】和【账户记录】、【图片】都将删除!"_s};
}

DeleteWords RecordDeleteWords() {
    return {u"【没有选定】需要删除的账户记录,你需要单击一条记录使其选定!"_s,
            u"确定要【删除】选定的一条记录? 若确定将删除该事情!"_s};
}

bool DeleteAsked(cConnection& book, qint64 id, const DeleteWords& words) {
    if (IsBusy() || ShowMsg(words.ask, u"取消,确定"_s, kMsgAsk) != 1) return false;
    if (DeleteEntry(book, id)) return true;
    ShowMsg(u"删除不成功!"_s, u"确定"_s, kMsgFail);
    return false;
}

int DeleteCheckedAsked(cConnection& book, const std::vector<qint64>& ids, const JobBar& bar,
                       const std::function<void()>& afterwards, PendingError* failure) {
    if (ids.empty()) {
        ShowMsg(u"【没有选定】任何记录!"_s);
        return -1;
    }
    if (IsBusy()) return -1;
    if (ShowMsg(u"您确定要【删除】选定的记录? 若删除的记录较多，则需要一些时间!"_s, u"取消,确定"_s,
                kMsgAsk) != 1)
        return -1;
    int count = 0;
    PendingError failed;
    bool good = true;
    {
        Job job(bar);
        if (job.Refused()) return -1;
        good = Succeeds([&] { DeleteEntries(book, ids, job, count); }, &failed);
    }
    // What cannot be shown any more must hide neither the first failure nor the count.
    PendingError later;
    if (afterwards && !Succeeds(afterwards, &later) && good) {
        failed = later;
        good = false;
    }
    if (!good) {
        if (failure) *failure = failed;
        TellFailure(failed);
    }
    ShowMsg(u"成功删除"_s + QString::number(count) + u"条记账!"_s, u"确定"_s, kMsgDone);
    return count;
}
