// The program is killed at random moments of a fetch and of a posting: service, waiting rows, history and
// book hold every entry once.

#include "tests/support/drive_fixture.h"
#include "tests/support/web_fixture.h"
#include "tests/support/web_service.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int kKills = 10, kMostRuns = 100, kEntriesOfRun = 12;

class KilledTest : public DriveTest {
 protected:
    KilledTest() { service_.book = u"->drive"_s; }

    void AddEntries() {
        for (int i = 0; i < kEntriesOfRun; ++i) {
            sent_ << u"e%1"_s.arg(sent_.size(), 4, 10, QChar(u'0'));
            service_.entries << SiteLine(sent_.last(), i % 3 ? QMap<int, QString>() : FullFields());
        }
    }

    // Fetches and posts on the book, and is killed this long after the service has been reached; below 0
    // never. True when the kill came before the end.
    bool Play(int killAfterMs) {
        QProcess process;
        auto world = QProcessEnvironment::systemEnvironment();
        world.insert(u"JOT_WEB_BASE"_s, service_.Base());
        process.setProcessEnvironment(world);
        QElapsedTimer reached;
        QObject::connect(&process, &QProcess::readyReadStandardOutput, [&] {
            if (!reached.isValid() && killAfterMs >= 0)
                QTimer::singleShot(killAfterMs, Qt::PreciseTimer, &process, &QProcess::kill);
            if (!reached.isValid()) reached.start();
        });
        QEventLoop loop;
        QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
        process.start(QString::fromUtf8(KESTRO_DRIVE), {u"--data"_s, Path(u"data"_s), path_});
        process.write(
            R"({"cmd":"web","op":"validate","user":"lin","pass":"geheim"}
{"cmd":"web","op":"fetch","answer":"取消"}
{"cmd":"webPost"}
)");
        process.closeWriteChannel();
        loop.exec();
        lasted_ = static_cast<int>(reached.elapsed());
        // What had left the program by then is still on its way to the service.
        QElapsedTimer clock;
        clock.start();
        do
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        while ((clock.elapsed() < 20 || service_.open > 0) && clock.elapsed() < 5000);
        return process.exitStatus() != QProcess::NormalExit;
    }

    // Every entry that was sent is in the book once; or, before it was stored, still with the service.
    void ExpectAllOnce() {
        const auto titles = [&](const QString& from) {
            return Stored(u"select Title1 from "_s + from + u" order by Title1"_s);
        };
        const QStringList history = titles(u"tAccountWebDel"_s);
        QStringList here = titles(u"tAccountWeb"_s) + history;
        EXPECT_EQ(here.removeDuplicates(), 0);
        for (const auto& line : service_.entries)
            if (const QString title = line.section(u'∴', 1, 1); !here.contains(title)) here << title;
        here.sort();
        EXPECT_EQ(here, sent_);
        EXPECT_EQ(titles(u"tAccount where bIsMain=1 and Title1 like 'e%'"_s), history);
    }

    WebService service_;
    QStringList sent_;
    int lasted_ = 0;
};

}  // namespace

TEST_F(KilledTest, KillsLoseAndDoubleNothing) {
    AddEntries();
    ASSERT_FALSE(Play(-1));
    const int whole = lasted_ + 1;
    std::mt19937 dice(std::random_device{}());
    int kills = 0;
    for (int run = 0; kills < kKills && run < kMostRuns; ++run) {
        SCOPED_TRACE(run);
        AddEntries();
        kills += Play(static_cast<int>(dice() % static_cast<unsigned>(whole)));
        ExpectAllOnce();
    }
    EXPECT_EQ(kills, kKills);
    for (int turn = 0; turn < 2; ++turn)
        EXPECT_FALSE(Play(-1));
    ExpectAllOnce();
    EXPECT_EQ(service_.entries, QStringList());
    const QString total = QString::number(12.5 * static_cast<double>(sent_.size()));
    EXPECT_EQ(Stored(u"select nAdd,Money from tKind where Sort1='0102'"_s),
              QStringList{total + u'|' + total});
    cConnection book;
    book.Open(path_);
    EXPECT_EQ(TieBreaks(book), QStringList());
}
