// Real processes: a second copy, the agent, killed copies, a program folder that cannot be written. They run
// in a copied program folder and a home of their own.

#include "app/channel.h"
#include "app/single_instance.h"
#include "app/startup.h"
#include "store/book_images.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/session.h"
#include "tests/support/processes.h"

#include <QFile>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <filesystem>
#include <unistd.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

TEST_F(Processes, ASecondCopyHandsItsBookOverAndEnds) {
    BecomeFirstCopy();
    const QString book = PutFile(u"Mein Buch.jotdb"_s, EmptyBookImage());

    // Without a book, or with one that is not there, the running window comes to the front.
    auto* silent = Start(Program(u"KestroJot"_s));
    EXPECT_TRUE(WaitLong([&] { return silent->state() == QProcess::NotRunning; }, 8000));
    auto* missing = Start(Program(u"KestroJot"_s), {Path(u"none.jotdb"_s)});
    EXPECT_TRUE(WaitLong([&] { return missing->state() == QProcess::NotRunning; }, 8000));
    EXPECT_TRUE(WaitLong([&] { return received_.size() == 2; }, 1000));
    EXPECT_EQ(received_, (QList<int>{kCodeRaise, kCodeRaise}));
    {
        cConnection locked;  // nor does a settings file that somebody holds give it anything to say
        locked.Open(SettingsPath());
        locked.Execute(u"begin exclusive"_s);
        auto* barred = Start(Program(u"KestroJot"_s), {book});
        EXPECT_TRUE(WaitLong([&] { return barred->state() == QProcess::NotRunning; }, 8000));
        EXPECT_EQ(barred->exitCode(), 0);
        EXPECT_TRUE(WaitLong([&] { return received_.size() == 3; }, 1000));
        EXPECT_EQ(received_.back(), kCodeRaise);
        EXPECT_EQ(QString::fromUtf8(barred->readAllStandardError()), QString());
    }
    received_.clear();
    handles_.clear();

    auto* second = Start(Program(u"KestroJot"_s), {book});
    EXPECT_TRUE(
        WaitLong([&] { return second->state() == QProcess::NotRunning && !received_.isEmpty(); }, 8000));
    EXPECT_EQ(second->exitCode(), 0);
    EXPECT_EQ(received_, QList<int>{kCodeOpenBook});
    EXPECT_EQ(handles_, QList<qint32>{State().gRunHandle});
    EXPECT_EQ(Rows(State().gSetDB, u"select sOutOpenDBFile from tSetting"_s), QStringList{book.toLower()});
    CloseAll();
}

TEST_F(Processes, TheRoadStandsWhereNoVariableMovesItAndAnswersFromTheLockOn) {
    BecomeFirstCopy();
    const QString road = ChannelName(u"main"_s);
    EXPECT_LE(road.toUtf8().size(), 100);
    qputenv("XDG_RUNTIME_DIR", Path(u"elsewhere"_s).toLocal8Bit());
    qputenv("TMPDIR", Path(u"elsewhere"_s).toLocal8Bit());
    EXPECT_EQ(ChannelName(u"main"_s), road);
    qunsetenv("TMPDIR");
    EXPECT_EQ(QFile::permissions(ParentPath(road)) & (QFile::ReadOther | QFile::ReadGroup), 0);
    // Whoever talks too much is cut off, and others still get through.
    EXPECT_TRUE(SendMessage(road, {State().gRunHandle, kCodeRaise, 0, QString(50000, u'x')}));
    EXPECT_TRUE(SendMessage(road, {State().gRunHandle, kCodeRedraw, 0, {}}));
    EXPECT_TRUE(WaitLong([&] { return !received_.isEmpty(); }, 2000));
    EXPECT_EQ(received_, QList<int>{kCodeRedraw});
    CloseAll();
}

TEST_F(Processes, AChannelThatCannotStandIsToldAndKeepsNobodyOut) {
    InitFolders();
    const QString road = ChannelName(u"main"_s);
    QFile::remove(road);
    ASSERT_TRUE(QDir().mkpath(road + u"/full"_s));
    boxes.Expect(u"程序无法建立通信通道【"_s + road + u"】"_s);
    EXPECT_EQ(StartUp({}), StartResult::login);
    QDir(road).removeRecursively();
    CloseAll();
}

TEST_F(Processes, OnlyADeadCopysLockIsTakenOver) {
    InitFolders();
    const QString path = ChannelName(u"lock"_s);
    const auto leave = [&](qint64 pid, const QByteArray& host) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(QByteArray::number(pid) + "\nKestroJot\n" + host + "\n");
    };
    constexpr qint64 kNobody = 4194303;  // above the largest number that processes get here
    const QByteArray former = "a-former-name-of-this-machine";
    leave(kNobody, former);
    EXPECT_EQ(InstanceLock().Take(), InstanceLock::State::taken);
    QFile empty(path);  // what a power cut leaves
    ASSERT_TRUE(empty.open(QIODevice::WriteOnly | QIODevice::Truncate));
    empty.close();
    EXPECT_EQ(InstanceLock().Take(), InstanceLock::State::taken);

    leave(QCoreApplication::applicationPid(), former);
    boxes.Expect(u"程序无法建立运行锁【"_s + path + u"】!"_s);
    EXPECT_EQ(StartUp({}), StartResult::failed);
    QFile::remove(path);
}

TEST_F(Processes, TheSystemsSignalsCloseTheProgramAndItsAgent) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        auto* program = Start(Program(u"KestroJot"_s));
        ASSERT_TRUE(WaitLong([this] { return AgentAnswers(); }, 10000));
        ::kill(static_cast<pid_t>(program->processId()), signal);
        EXPECT_TRUE(WaitLong([&] { return program->state() == QProcess::NotRunning; }, 5000)) << signal;
        EXPECT_EQ(program->exitStatus(), QProcess::NormalExit) << signal;
        EXPECT_EQ(program->exitCode(), 0) << signal;
        EXPECT_TRUE(WaitLong([this] { return !AgentAnswers(); }, 1500)) << signal;
        EXPECT_FALSE(QFile::exists(ChannelName(u"lock"_s))) << signal;
    }
}

// The answer opens a box, and the sender's socket goes while it stands.
TEST_F(Processes, AnAnswerMayRunALoopOfItsOwn) {
    BecomeFirstCopy();
    int answered = 0;
    MainChannel().onMessage = [&answered](const ChannelMessage&) {
        QTest::qWait(150);
        ++answered;
    };
    EXPECT_TRUE(SendMessage(ChannelName(u"main"_s), {State().gRunHandle, kCodeOpenBook, 0, {}}));
    EXPECT_TRUE(WaitLong([&] { return answered == 1; }, 3000));
    CloseAll();
}

TEST_F(Processes, AKilledCopyLeavesTheRoadFreeAndItsAgentGoes) {
    auto* first = Start(Program(u"KestroJot"_s));
    ASSERT_TRUE(WaitLong([this] { return AgentAnswers(); }, 10000));
    EXPECT_TRUE(QFile::exists(Path(u"Home/KestroData/墨鹊理财/专业版例子.jotdb"_s)));
    ::kill(static_cast<pid_t>(first->processId()), SIGKILL);
    EXPECT_TRUE(WaitLong([this] { return !AgentAnswers(); }, 8000));
    auto* next = Start(Program(u"KestroJot"_s));
    EXPECT_TRUE(WaitLong([this] { return AgentAnswers(); }, 10000));
    EXPECT_EQ(next->state(), QProcess::Running);
}

TEST_F(Processes, TheAgentTakesOverAStaleChannelAndAnswersItsCodes) {
    BecomeFirstCopy();
    auto* killed = Start(Program(u"JotAgent"_s));
    ASSERT_TRUE(WaitLong([this] { return AgentAnswers(); }, 8000));
    ::kill(static_cast<pid_t>(killed->processId()), SIGKILL);
    ASSERT_TRUE(WaitLong([&] { return killed->state() == QProcess::NotRunning; }, 5000));
    auto* agent = Start(Program(u"JotAgent"_s));
    ASSERT_TRUE(WaitLong([this] { return AgentAnswers(); }, 8000));
    auto* twin = Start(Program(u"JotAgent"_s));
    EXPECT_TRUE(WaitLong([&] { return twin->state() == QProcess::NotRunning; }, 8000));
    TellAgent(kCodeDueCount, 5);
    TellAgent(2);
    QTest::qWait(100);
    EXPECT_EQ(agent->state(), QProcess::Running);
    TellAgent(1);
    EXPECT_TRUE(WaitLong([&] { return agent->state() == QProcess::NotRunning; }, 5000));
    TellAgent(3);  // nobody there: harmless
    CloseAll();
}

TEST_F(Processes, AnUnwritableProgramFolderGetsItsSettingsInTheDataFolder) {
    const fs::path program = Path(u"program"_s).toStdString();
    const fs::path home = Path(u"Home"_s).toStdString();
    fs::create_directories(home / "data");
    fs::permissions(program / "Set.ini",
                    fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    fs::permissions(program, fs::perms(0555));
    QProcess* process = nullptr;
    if (geteuid() == 0) {
        constexpr uid_t kNobody = 65534;
        for (const auto& folder : {home, home / "data", fs::path(Path(u"run"_s).toStdString())})
            ASSERT_EQ(chown(folder.c_str(), kNobody, kNobody), 0);
        // A folder above that cannot be listed, with capitals in the path below it.
        fs::permissions(program.parent_path(), fs::perms(0711));
        process = Start(u"setpriv"_s, {u"--reuid=65534"_s, u"--regid=65534"_s, u"--clear-groups"_s,
                                       Program(u"KestroJot"_s)});
    } else {
        process = Start(Program(u"KestroJot"_s));
    }
    const QString copy = Path(u"Home/data/KestroJot/Set.ini"_s);
    const QString sample = Path(u"Home/KestroData/墨鹊理财/专业版例子.jotdb"_s);
    EXPECT_TRUE(WaitLong([&] { return QFile::exists(sample) && QFile::exists(copy); }, 10000));
    State().gDataDir = Path(u"Home/data/KestroJot"_s);
    cConnection settings;
    const auto chosen = [&] {
        settings.Open(copy);
        return Rows(settings, u"select Value1 from tSetting2 where Key1='SampleHash'"_s).size() == 1;
    };
    EXPECT_TRUE(WaitLong(chosen, 5000));
    QTest::qWait(500);
    EXPECT_EQ(process->state(), QProcess::Running);
    EXPECT_EQ(QString::fromUtf8(process->readAllStandardError()), QString());
    process->terminate();
    EXPECT_TRUE(WaitLong([&] { return process->state() == QProcess::NotRunning; }, 5000));
    fs::permissions(program, fs::perms(0755));
}

TEST_F(Processes, TheCommandLineIsAnsweredWithoutADisplay) {
    struct Case {
        QStringList arguments;
        int code;
        QString out, error;  ///< beginnings
    };
    const Case cases[] = {
        {{u"--version"_s}, 0, u"KestroJot 2016.2"_s, {}},
        {{u"-v"_s}, 0, u"KestroJot 2016.2"_s, {}},
        {{u"--help"_s}, 0, u"Usage: KestroJot [BOOK]"_s, {}},
        {{u"-h"_s}, 0, u"Usage: KestroJot [BOOK]"_s, {}},
        {{u"--frob"_s}, 2, {}, u"KestroJot: unknown option --frob\n"_s},
        {{u"-x"_s, u"a.jotdb"_s}, 2, {}, u"KestroJot: unknown option -x\n"_s},
        {{u"a.jotdb"_s, u"b.jotdb"_s}, 2, {}, u"KestroJot: one book at most\n"_s},
        {{}, 1, {}, u"KestroJot: no display can be opened\n"_s},
        {{u"--"_s, u"-x.jotdb"_s}, 1, {}, u"KestroJot: no display can be opened\n"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(qPrintable(c.arguments.join(u' ')));
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"QT_QPA_PLATFORM"_s);
        environment.remove(u"WAYLAND_DISPLAY"_s);
        environment.insert(u"DISPLAY"_s, u":4077"_s);  // where nothing listens
        process.setProcessEnvironment(environment);
        process.start(Program(u"KestroJot"_s), c.arguments);
        ASSERT_TRUE(process.waitForFinished(5000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), c.code);
        const QString out = QString::fromUtf8(process.readAllStandardOutput());
        const QString error = QString::fromUtf8(process.readAllStandardError());
        EXPECT_TRUE(c.out.isEmpty() ? out.isEmpty() : out.startsWith(c.out)) << qPrintable(out);
        EXPECT_TRUE(c.error.isEmpty() ? error.isEmpty() : error.startsWith(c.error)) << qPrintable(error);
        EXPECT_TRUE(c.code != 1 || error.count(u'\n') == 1) << qPrintable(error);
    }
}
