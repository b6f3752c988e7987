#include "tools/bench/box_bench.h"

#include "books/backup.h"
#include "books/book_change.h"
#include "books/book_new.h"
#include "books/carry_forward.h"
#include "store/book_box.h"
#include "store/book_images.h"
#include "store/disk.h"
#include "store/messages.h"
#include "store/state.h"
#include "tools/bench/counting_vfs.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"

#include <QDir>
#include <QFile>

#include <cstdlib>
#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr int kChartRows = 500, kBooks = 200, kBigMegabytes = 200;
constexpr double kCopyBound = 1.5, kCompressBound = 1.3, kGapBound = 100, kSyncBound = 8;

void WriteFile(const QString& path, const QByteArray& bytes, bool flush = false) {
    QFile::remove(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) std::abort();
    if (flush && !FlushToDisk(file)) std::abort();
}

BookForm FormOf(const QString& name) {
    BookForm form;
    form.name = name;
    form.year = u"2017"_s;
    form.note = u"说明"_s;
    return form;
}

const std::vector<std::string> kFourValues{"update tSet set note1='' where key1='pass'",
                                           "update tSet set note1='2017' where key1='year'",
                                           "update tSet set note1='说明' where key1='booknote'",
                                           "update tSet set note1='2016-09-03' where key1='CreateDate'"};

void MeasureNew(SpeedTable& table, const QString& folder, int runs) {
    const QString path = folder + u"/new.jotdb"_s, twin = folder + u"/twin.jotdb"_s;
    const auto make = [&] {
        QFile::remove(path);
        State().gBooks.assign(1, {});
        CreateBook(FormOf(u"new"_s));
    };
    const auto makeRaw = [&] {
        WriteFile(twin, EmptyBookImage(), true);
        RawBook(twin.toStdString()).Change(kFourValues);
    };
    table.Add(Compared(u"books: a new one"_s, 0, InTurns(runs, make, makeRaw), kWriteBound));
}

// What a carry-forward writes, final, a statement for each table.
std::vector<std::string> CarriedRows() {
    QStringList kinds, entries, accounts;
    for (int n = 1; n <= kChartRows; ++n) {
        const int code = 1000 + n;
        kinds << u"(%1,'分类%1','%2','2016-01-01','',0,%1,%1,0)"_s.arg(n).arg(code);
        entries << u"(%1,'新建账本结转余额','%2','分类%1',%1,1,'参考账本:【ref】','2017-01-01','01:01',1)"_s
                       .arg(n)
                       .arg(code);
        accounts << u"(%1,'账户%1','%2',0,'2016-01-01','新建账本转余额：%1',%1,%1,0)"_s.arg(n).arg(code);
    }
    const std::pair<QString, QStringList> tables[] = {
        {u"tKind (Id1,Name1,Sort1,Note1,Note2,nHide,Money,nAdd,nReduce)"_s, kinds},
        {u"tAccount (Id1,Title1,Type1,TypeName1,Value1,Mark1,Note1,Date1,Time1,nSign)"_s, entries},
        {u"tSubAcc (Id1,Name1,Sort1,nHide,Date1,Note1,Money,nAdd,nReduce)"_s, accounts}};
    std::vector<std::string> statements;
    for (const auto& [table, rows] : tables)
        statements.push_back((u"insert into "_s + table + u" values "_s + rows.join(u',')).toStdString());
    return statements;
}

void MeasureCarryForward(SpeedTable& table, const QString& folder, int runs) {
    const QString reference = folder + u"/ref.jotdb"_s, path = folder + u"/next.jotdb"_s,
                  twin = folder + u"/twin.jotdb"_s;
    WriteFile(reference, EmptyBookImage());
    RawBook filled(reference.toStdString());
    auto rows = CarriedRows();
    filled.Change(rows);
    filled.Run("delete from tAccount");
    State().gBooks = {{reference, u"ref"_s, 2016, u"10.0"_s}, {path, u"next"_s, 2017, u"10.0"_s}};
    State().gCurBook = 1;
    auto form = FormOf(u"next"_s);
    form.moreOptions = true;
    form.reference = u"ref"_s;
    const std::vector<bool> marked(kChartRows + 1, true);
    form.carry = {true, true, marked, marked};
    const BookRecord record = State().gBooks.back();
    const auto fill = [&] {
        WriteFile(path, EmptyBookImage());
        FillNewBook(record, form);
    };
    rows.insert(rows.end(), kFourValues.begin(), kFourValues.end());
    const auto fillRaw = [&] {
        WriteFile(twin, EmptyBookImage());
        RawBook(twin.toStdString()).Change(rows);
    };
    table.Add(
        Compared(u"books: 500 kinds and accounts carried"_s, 0, InTurns(runs, fill, fillRaw), kWriteBound));
    WriteFile(path, EmptyBookImage());
    cConnection::Seams().vfs = CountingVfs();
    const int before = Syncs();
    FillNewBook(record, form);
    table.Add({u"  its syncs"_s, 0, static_cast<double>(Syncs() - before), 0, u"times"_s, kSyncBound});
}

void MakeBig(const QString& path) {
    WriteFile(path, EmptyBookImage());
    RawBook book(path.toStdString());
    book.Run("begin; with n(i) as (select 1 union all select i+1 from n where i<" +
             std::to_string(kBigMegabytes * 10) +
             ") insert into tPic select i,randomblob(100000),'p','tAccount',i,-1 from n; commit");
}

void MeasureBackup(SpeedTable& table, const QString& folder, int runs) {
    const QString path = folder + u"/big.jotdb"_s, place = folder + u"/place"_s,
                  twin = folder + u"/copy.jotdb"_s;
    MakeBig(path);
    QDir().mkpath(place);
    State().gBooks = {{path, u"big"_s, 2016, u"10.0"_s}};
    State().gCurBook = 0;
    const QString target = BackupFolder(place);
    double longest = 0;
    const auto backUp = [&] {
        QDir(target).removeRecursively();
        Pulse pulse;
        Job job;
        if (RunBackup(target, {}, job).count != 1) std::abort();
        pulse.Beat();
        longest = std::max(longest, pulse.Longest());
    };
    const auto copyRaw = [&] {
        QFile::remove(twin);
        if (!QFile::copy(path, twin)) std::abort();
        QFile copy(twin);
        if (!copy.open(QIODevice::ReadWrite) || !FlushToDisk(copy)) std::abort();
        copy.close();
        RawBook(twin.toStdString()).Rows("pragma quick_check(1)");
    };
    table.Add(Compared(u"books: 200 MB backed up"_s, 0, InTurns(runs, backUp, copyRaw), kCopyBound));
    table.Add({u"  longest time without an answer"_s, 0, longest, 0, u"ms"_s, kGapBound});
    const auto compress = [&] {
        Job job;
        CompressBook(State().gBooks.front(), job);
    };
    const auto compressRaw = [&] { RawBook(twin.toStdString()).Run("vacuum"); };
    table.Add(
        Compared(u"books: 200 MB compressed"_s, 0, InTurns(runs, compress, compressRaw), kCompressBound));
    QDir(target).removeRecursively();
    for (const auto& file : {path, twin})
        QFile::remove(file);
}

void MeasureScan(SpeedTable& table, const QString& folder, int runs) {
    const QString box = folder + u"/box"_s;
    QDir().mkpath(box);
    for (int i = 0; i < kBooks; ++i)
        WriteFile(box + u"/book%1.jotdb"_s.arg(i), SampleBookImage());
    const auto read = [&] {
        State().gBooks.assign(1, {});
        ScanFolder(box);
        ReadBookInfo();
    };
    const auto readRaw = [&] {
        for (const auto& name : QDir(box).entryList(QDir::Files))
            RawBook((box + u'/' + name).toStdString())
                .Rows("select Key1,Note1 from tSet where Key1 in ('year','dbversion')");
    };
    table.Add(Compared(u"books: a box of 200 read"_s, 0, InTurns(runs, read, readRaw), kReadBound));
}

}  // namespace

void MeasureBox(SpeedTable& table, const QString& folder, int runs) {
    QDir().mkpath(folder);
    const Consent consent;
    State().gDB.Close();
    State().settings.sDBPath = folder;
    MeasureNew(table, folder, 3 * runs);
    MeasureCarryForward(table, folder, runs);
    MeasureScan(table, folder, runs);
    MeasureBackup(table, folder, 3);
    QDir(folder).removeRecursively();
}
