#include "ledger/entry_delete.h"

#include "store/entry_effect.h"
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

// The main rows of these entries, named by either row.
std::vector<qint64> MainRows(cConnection& book, const std::vector<qint64>& ids) {
    const QString list = Joined(ids);
    auto rows = book.Read(u"select Id1,IID,IIID,IIID1,bIsMain from tAccount where bIsMain=1 and id1 in("_s +
                          list + u") or iid in("_s + list + u')');
    std::vector<qint64> found;
    while (rows.Next())
        found.push_back(rows.Int(0));
    return found;
}

// The entry that a record belongs to by the ties of both; nothing for a record whose entry is gone.
std::optional<qint64> LivingEntry(cConnection& book, qint64 record) {
    const qint64 entry = EntryOfRecord(book, record);
    const auto ties = TiesOf(book, entry);
    if (!ties || (ties->record1 != record && ties->record2 != record)) return {};
    return entry;
}

bool RemoveByRecord(cConnection& book, qint64 record) {
    const auto entry = LivingEntry(book, record);
    return entry ? RemoveEntry(book, *entry) : RemoveRecord(book, record);
}

// One slice after the other, each in a transaction of its own; remove counts for itself.
void InSlices(cConnection& book, const std::vector<qint64>& rows, Job& job, DeleteTally& tally,
              const std::function<void(qint64 row, DeleteTally& tally)>& remove) {
    job.Start(static_cast<int>(rows.size()));
    for (size_t at = 0; at < rows.size() && !job.Stopped(); at += kSlice) {
        const size_t end = std::min(at + kSlice, rows.size());
        DeleteTally done = tally;
        Transaction slice(book);
        for (size_t i = at; i < end; ++i)
            remove(rows[i], done);
        slice.Commit();
        tally = done;
        job.Step(static_cast<int>(end));
    }
}

void DeleteRecords(cConnection& book, const std::vector<qint64>& records, Job& job, DeleteTally& tally) {
    std::set<qint64> wentAlong;  // records of an entry that this job has removed
    InSlices(book, records, job, tally, [&](qint64 record, DeleteTally& done) {
        if (wentAlong.contains(record)) return;
        const auto entry = LivingEntry(book, record);
        const auto ties = entry ? TiesOf(book, *entry) : std::nullopt;
        if (!RemoveByRecord(book, record)) {
            ++done.skipped;
            return;
        }
        done.count += ties && ties->second != -1 ? 2 : 1;
        if (ties) wentAlong.insert({ties->record1, ties->record2});
    });
}

}  // namespace

bool DeleteLine(cConnection& book, LineKind lines, qint64 id) {
    Transaction change(book);
    if (!(lines == LineKind::entries ? RemoveEntry(book, id) : RemoveByRecord(book, id))) return false;
    change.Commit();
    Notices().entriesChanged.Emit();
    return true;
}

bool DeleteEntry(cConnection& book, qint64 id) {
    return DeleteLine(book, LineKind::entries, id);
}

void DeleteLines(cConnection& book, LineKind lines, const std::vector<qint64>& ids, Job& job,
                 DeleteTally& tally) {
    tally = {};
    // An id of -1 would find every entry without a partner.
    std::vector<qint64> real;
    std::copy_if(ids.begin(), ids.end(), std::back_inserter(real), [](qint64 id) { return id > 0; });
    if (real.empty()) return;
    if (lines == LineKind::records) return DeleteRecords(book, real, job, tally);
    InSlices(book, MainRows(book, real), job, tally, [&](qint64 row, DeleteTally& done) {
        RemoveEntry(book, row);
        ++done.count;
    });
}

std::set<qint64> StillThere(cConnection& book, LineKind lines, const std::vector<qint64>& ids) {
    const QString table = lines == LineKind::entries ? u"tAccount"_s : u"tSubAccItem"_s;
    std::set<qint64> there;
    for (auto rows = book.Read(u"select Id1 from "_s + table + u" where Id1 in("_s + Joined(ids) + u')');
         rows.Next();)
        there.insert(rows.Int(0));
    return there;
}

DeleteWords WordsOf(LineKind lines) {
    if (lines == LineKind::entries)
        return {u"【没有选定】需要删除的记录,你需要单击一条记录使其选定!"_s,
                u"确定要【删除】选定的一条记录?　该事情的【分类记录】和【账户记录】、【图片】都将删除!"_s};
    return {u"【没有选定】需要删除的账户记录,你需要单击一条记录使其选定!"_s,
            u"确定要【删除】选定的一条记录? 若确定将删除该事情!"_s};
}

bool DeleteAsked(cConnection& book, LineKind lines, qint64 id) {
    if (IsBusy() || ShowMsg(WordsOf(lines).ask, u"取消,确定"_s, kMsgAsk) != 1) return false;
    if (DeleteLine(book, lines, id)) return true;
    ShowMsg(u"删除不成功!"_s, u"确定"_s, kMsgFail);
    return false;
}

int DeleteCheckedAsked(cConnection& book, LineKind lines, const std::vector<qint64>& ids, const JobBar& bar,
                       const std::function<void()>& afterwards, PendingError* failure) {
    if (ids.empty()) {
        ShowMsg(u"【没有选定】任何记录!"_s);
        return -1;
    }
    if (IsBusy()) return -1;
    if (ShowMsg(u"您确定要【删除】选定的记录? 若删除的记录较多，则需要一些时间!"_s, u"取消,确定"_s,
                kMsgAsk) != 1)
        return -1;
    DeleteTally tally;
    PendingError failed;
    bool good = true;
    {
        Job job(bar);
        if (job.Refused()) return -1;
        good = Succeeds([&] { DeleteLines(book, lines, ids, job, tally); }, &failed);
    }
    Notices().entriesChanged.Emit();
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
    QString told = u"成功删除"_s + QString::number(tally.count) + u"条记账!"_s;
    if (tally.skipped > 0)
        told += u"\n另有"_s + QString::number(tally.skipped) + u"条账户记录已不在账本中!"_s;
    ShowMsg(told, u"确定"_s, kMsgDone);
    return tally.count;
}
