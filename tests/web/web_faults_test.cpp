// Storing, posting and moving on a failing disk, with a failing statement, or in a program that is killed:
// every row waits or is in the history, posted once, and the site forgets only what is stored.

#include "store/errors.h"
#include "store/notices.h"
#include "tests/support/fault_vfs.h"
#include "tests/support/web_fixture.h"
#include "web/conversation.h"

#include <QFile>

#include <functional>
#include <string>

using namespace Qt::StringLiterals;

namespace {

const QString kEntries = u"tAccount where Id1>7 and bIsMain=1"_s,
              kPosted = u"tAccountWebDel where bPassIdChk=1"_s;

class WebFaultsTest : public WebFixture {
 protected:
    void Fetch() {
        boxes.AnswerAll(0);  // what came before is not taken again
        told_ = WebConversation(WebTalk::fetch)
                    .TakeFields({{u"txtRet"_s, u"2"_s},
                                 {u"txtDataRet"_s, u"book"_s},
                                 {u"txtData"_s, lines_.join(u"\r\n"_s)}})
                    .has_value();
    }
    void Post() {
        boxes.AnswerAll(1);
        PostWebRowsAsked(Book(), ReadChartIds(Book()), {});
    }
    void Move() {
        boxes.AnswerAll(1);
        DeleteWebRowsAsked(Book(), WebList::waiting, {1, 2});
    }

    static void Copy(const QString& from, const QString& to) {
        for (const auto& end : {u""_s, u"-journal"_s}) {
            QFile::remove(to + end);
            QFile::copy(from + end, to + end);
        }
    }
    // The book as an action finds it.
    void Begin(const QString& from, const QByteArray& disk) {
        const QString path = Book().Path();
        Book().Close();
        Copy(from, path);
        cConnection::Seams().vfs = disk;
        Book().Open(path);
        Disk() = {};
        told_ = false;
        notified_ = 0;
    }
    // The book on a disk that works again; of a killed program as it stood then.
    void Heal(bool disk, const QString& killed) {
        Disk() = {};
        cConnection::Seams() = {};
        EXPECT_FALSE(Book().InTransaction());
        if (!disk) return;
        const QString path = Book().Path();
        Book().Close();
        if (!killed.isEmpty()) Copy(killed, path);
        Book().Open(path);
        if (!killed.isEmpty()) told_ = false;
    }

    static QStringList Titles(const QString& from) {
        return Dump(u"select Title1 from "_s + from + u" order by Title1"_s);
    }
    static QStringList Here() {
        QStringList here = Titles(u"tAccountWeb"_s) + Titles(u"tAccountWebDel"_s);
        here.sort();
        return here;
    }
    void ExpectWhole(bool fetched) {
        EXPECT_EQ(Titles(kEntries), Titles(kPosted));
        EXPECT_EQ(BalanceBreaks(Book()) + TieBreaks(Book()), QStringList());
        EXPECT_EQ(Dump(u"pragma integrity_check"_s), QStringList{u"ok"_s});
        if (fetched || told_) EXPECT_EQ(Here(), titles_);
        if (!fetched && !told_) EXPECT_TRUE(Here().isEmpty() || Here() == titles_);
    }

    const QStringList titles_{u"a"_s, u"b"_s};
    const QStringList lines_{
        SiteLine(u"a"_s, {{11, u"8"_s}, {12, u"现金"_s}, {13, u"4"_s}, {15, u"12.50"_s}, {16, u"1"_s}}),
        SiteLine(u"b"_s)};
    bool told_ = false;  ///< the site, to forget
    int notified_ = 0;
    NoticeToken token_ = Notices().entriesChanged.Subscribe([this] { ++notified_; });
};

}  // namespace

TEST_F(WebFaultsTest, EveryRowWaitsOrIsPostedOnceAndTheNextTryTakesTheRest) {
    const QString empty = Path(u"empty.jotdb"_s), fetched = Path(u"fetched.jotdb"_s),
                  killed = Path(u"killed.jotdb"_s);
    ASSERT_TRUE(QFile::copy(Book().Path(), empty));
    Fetch();
    ASSERT_TRUE(QFile::copy(Book().Path(), fetched));
    struct Action {
        const char* name;
        QString from;
        std::function<void()> act;
        QString goesTo;
        qsizetype posted;
    };
    struct Fault {
        const char* name;
        DiskFaults::Operation operation;  // kOperations stands for statements
        bool stays, full;
        int least;
        bool kills = false;
    };
    const Fault faults[] = {{"write", DiskFaults::kWrite, false, false, 14},
                            {"full disk", DiskFaults::kWrite, true, true, 14},
                            {"sync", DiskFaults::kSync, false, false, 3},
                            {"open", DiskFaults::kOpen, false, false, 1},
                            {"delete", DiskFaults::kDelete, false, false, 1},
                            {"kill", DiskFaults::kWrite, false, false, 14, true},
                            {"statement", DiskFaults::kOperations, false, false, 4}};
    for (const auto& action : {Action{"store", empty, [this] { Fetch(); }, u"tAccountWeb"_s, 0},
                               {"post", fetched, [this] { Post(); }, u"tAccountWebDel"_s, 2},
                               {"move", fetched, [this] { Move(); }, u"tAccountWebDel"_s, 0}})
        for (const auto& fault : faults) {
            const bool disk = fault.operation != DiskFaults::kOperations;
            int failures = 0;
            bool reached = true;  // so many operations there are
            for (int n = 1; reached; ++n) {
                SCOPED_TRACE(std::string(action.name) + ", " + fault.name + " " + std::to_string(n));
                Begin(action.from, disk ? TestDisk() : QByteArray());
                if (!fault.kills) Disk().failing = fault.operation;
                Disk().failAt = n;
                Disk().stays = fault.stays;
                Disk().full = fault.full;
                int seen = 0;
                if (!disk)
                    cConnection::Seams().beforeStatement = [&](const QString& sql) {
                        if (++seen == n) FailStatement(u"刺探"_s, sql);
                    };
                if (fault.kills)
                    Disk().beforeChange = [&] {
                        if (++seen == n) Copy(Book().Path(), killed);
                    };
                const bool ended = Succeeds(action.act);
                reached = (disk && !fault.kills ? Disk().count[fault.operation] : seen) >= n;
                const bool done = ended && !(fault.kills && reached);
                failures += !done;
                Heal(disk, done || !fault.kills ? QString() : killed);
                ExpectWhole(action.from == fetched);
                if (!fault.kills) EXPECT_EQ(notified_, Titles(kPosted).isEmpty() ? 0 : 1);
                if (!done) action.act();
                EXPECT_EQ(Titles(action.goesTo), titles_);
                EXPECT_EQ(Titles(kEntries).size(), action.posted);
                EXPECT_EQ(told_, action.from == empty);
                EXPECT_EQ(BalanceBreaks(Book()) + TieBreaks(Book()), QStringList());
                ASSERT_FALSE(HasFailure());
            }
            EXPECT_GE(failures, fault.least) << action.name << ", " << fault.name;
        }
}
