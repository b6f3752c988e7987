// Storing, posting and moving on a failing disk, with a failing statement, or in a program that is killed:
// every row waits or is in the history, posted once, and the site forgets only what is stored.

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
    void Begin(const QString& from) {
        const QString path = Book().Path();
        Book().Close();
        Copy(from, path);
        Book().Open(path);
        told_ = false;
        notified_ = 0;
    }
    void Reopen(const QString& from = {}) {
        const QString path = Book().Path();
        Book().Close();
        if (!from.isEmpty()) Copy(from, path);
        Book().Open(path);
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
    Copy(Book().Path(), empty);
    Fetch();
    Copy(Book().Path(), fetched);
    struct Action {
        const char* name;
        QString from, to;
        std::function<void()> act;
        qsizetype posted;
        int statements;
    };
    const std::pair<DiskFaults, int> faults[] = {
        {{.failing = DiskFaults::kWrite}, 14},
        {{.failing = DiskFaults::kWrite, .stays = true, .full = true}, 14},
        {{.failing = DiskFaults::kSync}, 3},
        {{.failing = DiskFaults::kOpen}, 1},
        {{.failing = DiskFaults::kDelete}, 1}};
    for (const auto& [name, from, to, act, posted, statements] :
         {Action{"store", empty, u"tAccountWeb"_s, [this] { Fetch(); }, 0, 5},
          {"post", fetched, u"tAccountWebDel"_s, [this] { Post(); }, 2, 40},
          {"move", fetched, u"tAccountWebDel"_s, [this] { Move(); }, 0, 4}}) {
        SCOPED_TRACE(name);
        const auto check = [&](bool done) {
            ExpectWhole(from == fetched);
            if (!done) act();
            EXPECT_EQ(Titles(to), titles_);
            EXPECT_EQ(Titles(kEntries).size(), posted);
            EXPECT_EQ(told_, from == empty);
            EXPECT_EQ(BalanceBreaks(Book()) + TieBreaks(Book()), QStringList());
        };
        const FaultStory onDisk{[&] {
                                    Begin(from);
                                    MoveToTestDisk();
                                },
                                act,
                                [&](bool done) {
                                    EXPECT_EQ(notified_, Titles(kPosted).isEmpty() ? 0 : 1);
                                    Reopen();
                                    check(done);
                                }};
        for (const auto& [fault, least] : faults)
            EXPECT_GE(FailEach(fault, onDisk), least) << fault.failing;
        EXPECT_GE(FailEachStatement({[&] { Begin(from); }, act, check}), statements);

        int n = 1;
        for (bool reached = true; reached; ++n) {
            SCOPED_TRACE("killed at write " + std::to_string(n));
            onDisk.prepare();
            int changes = 0;
            Disk().beforeChange = [&] {
                if (++changes == n) Copy(Book().Path(), killed);
            };
            act();
            Disk() = {};
            cConnection::Seams() = {};
            reached = changes >= n;
            told_ = told_ && !reached;
            Reopen(reached ? killed : QString());
            check(!reached);
            ASSERT_FALSE(HasFailure());
        }
        EXPECT_GT(n, 14);
    }
}
