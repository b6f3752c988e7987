// Saving, changing and deleting on a failing disk: the book is as before or as after, never between, and the
// next save works.

#include "ledger/entry_delete.h"
#include "ledger/entry_edit.h"
#include "ledger/posting.h"
#include "tests/support/entries.h"
#include "tests/support/fault_vfs.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QFile>

#include <functional>
#include <map>
#include <string>

using namespace Qt::StringLiterals;

namespace {

// The richest shape: two kinds, two accounts, a picture to claim.
EntryValues FullEntry() {
    auto e = SampleEntry(u"送货"_s, u"12.50"_s);
    SetShape(e, 5);
    e.pictures = u"1"_s;
    return e;
}

class FaultsTest : public Fixture {
 protected:
    // A fresh sample book with an unclaimed picture, on the test disk from the first save on.
    void OpenOnTestDisk() {
        State().gDB.Close();
        cConnection::Seams() = {};
        path_ = OpenSample();
        State().gDB.Execute(
            u"pragma synchronous=off; insert into tPic values (2,x'ff','b.jpg','tAccount',-1,-1)"_s);
        before_ = DumpBook(path_);
        MoveToTestDisk();
        Disk() = {};
    }

    // The user's actions on entries, each in the form that writes the most.
    std::map<std::string, std::function<void()>> Actions() {
        boxes.AnswerAll(1);
        return {{"save", [] { PostEntry(State().gDB, FullEntry()); }},
                {"edit",
                 [] {
                     auto entry = FullEntry();
                     SaveEditedEntry(State().gDB, entry, 7, 7);
                 }},
                {"delete", [] { DeleteEntry(State().gDB, 5); }}};
    }

    // After a failed action: nothing of it is there, the book is whole and takes the next one.
    void ExpectUntouched() {
        State().gDB.Close();
        EXPECT_EQ(DumpBook(path_), before_);
        EXPECT_EQ(CheckBook(path_), u"ok"_s);
        State().gDB.Open(path_);
        PostEntry(State().gDB, FullEntry());
        EXPECT_EQ(BalanceBreaks(State().gDB) + TieBreaks(State().gDB), QStringList());
    }

    QString path_;
    QStringList before_;
};

}  // namespace

TEST_F(FaultsTest, EveryFailingDiskOperationLeavesTheBookAsItWas) {
    struct Case {
        DiskFaults faults;
        int least;  ///< operations of the kind that a save has
    };
    const Case cases[] = {
        {{.failing = DiskFaults::kWrite}, 8},
        {{.failing = DiskFaults::kWrite, .stays = true}, 10},
        {{.failing = DiskFaults::kWrite, .stays = true, .full = true}, 10},
        {{.failing = DiskFaults::kSync}, 2},
        {{.failing = DiskFaults::kSync, .stays = true}, 2},
        {{.failing = DiskFaults::kOpen}, 1},
        {{.failing = DiskFaults::kOpen, .stays = true}, 1},
        {{.failing = DiskFaults::kDelete}, 1},
    };
    const auto check = [this](bool done) {
        if (!done) ExpectUntouched();
    };
    for (const auto& [name, action] : Actions()) {
        for (const auto& c : cases) {
            SCOPED_TRACE(name + ", case " + std::to_string(&c - cases));
            EXPECT_GE(FailEach(c.faults, {[this] { OpenOnTestDisk(); }, action, check}), c.least);
        }
    }
}

// The connection stays open here, so nothing that it remembers of the failed action may come through.
TEST_F(FaultsTest, AfterAnyFailingStatementTheSameActionSucceedsAsIfForTheFirstTime) {
    for (const auto& [name, action] : Actions()) {
        SCOPED_TRACE(name);
        OpenOnTestDisk();
        action();
        const auto after = DumpBook(path_);
        const auto check = [&](bool done) {
            if (done) return;
            EXPECT_EQ(DumpBook(path_), before_);
            action();
            EXPECT_EQ(DumpBook(path_), after);
        };
        EXPECT_GE(FailEachStatement({[this] { OpenOnTestDisk(); }, action, check}), 15);
    }
}

TEST_F(FaultsTest, AProgramKilledAtAnyWriteLeavesTheOldOrTheNewBook) {
    OpenOnTestDisk();
    const QString folder = Path(u"killed"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    int copies = 0;
    const auto copyBook = [&] {
        const QString copy = folder + u'/' + QString::number(++copies) + u".jotdb"_s;
        QFile::copy(path_, copy);
        QFile::copy(path_ + u"-journal"_s, copy + u"-journal"_s);
    };
    Disk().beforeChange = copyBook;
    PostEntry(State().gDB, FullEntry());
    Disk().beforeChange = {};
    copyBook();
    State().gDB.Close();
    const auto after = DumpBook(path_);
    ASSERT_NE(after, before_);
    ASSERT_GT(copies, 10);
    for (int i = 1; i <= copies; ++i) {
        const QString copy = folder + u'/' + QString::number(i) + u".jotdb"_s;
        EXPECT_EQ(CheckBook(copy), u"ok"_s);
        EXPECT_EQ(DumpBook(copy), i == copies ? after : before_) << "at write " << i;
    }
}

TEST_F(FaultsTest, ASaveNeedsFewSyncsAndReadsNoTableOfEntriesThrough) {
    OpenOnTestDisk();
    auto& book = State().gDB;
    book.Execute(
        u"with recursive n(i) as (select 8 union all select i+1 from n where i<1007)"
        u" insert into tAccount (Id1,Title1,Type1,TypeName1,Value1,Date1,Time1,bIsMain)"
        u" select i,'x','0102','项目收入',0,'2016-09-04','08:00',1 from n;"
        u"update tNum set Max1=1008 where Table1='taccount'"_s);
    Disk() = {};
    QStringList passes;
    int chartPasses = 0;
    cConnection::Seams().onScan = [&](const QString& sql) {
        // The id table is asked by the name of a table, which is a text in the statement.
        if (sql.contains(u"taccount"_s, Qt::CaseInsensitive) && !sql.contains(u"from tNum"_s)) passes << sql;
        if (sql.contains(u"tkind"_s)) ++chartPasses;
    };
    auto entry = FullEntry();
    entry.pictures = u"0"_s;
    PostEntry(book, entry);
    EXPECT_EQ(passes, QStringList());
    EXPECT_GT(chartPasses, 0);
    EXPECT_EQ(Disk().count[DiskFaults::kSync], 4);  // the folder's included
}
