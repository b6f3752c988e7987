// Real processes: a second copy, the agent, killed copies, a program folder that cannot be written. They run
// in a copied program folder and a home of their own.

#include "app/single_instance.h"
#include "app/startup.h"
#include "store/book_images.h"
#include "store/outside.h"
#include "tests/support/ui_fixture.h"

#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QTest>

#include <csignal>
#include <filesystem>
#include <unistd.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

class Processes : public UiFixture {
 protected:
    Processes() {
        const fs::path bin = QCoreApplication::applicationDirPath().toStdString();
        const fs::path copy = Path(u"program"_s).toStdString();
        fs::create_directories(copy);
        for (const char* name : {"KestroJot", "JotAgent", "JotIco", "Ico.ico", "Jot.ico", "HeadIco.ico"}) {
            std::error_code failed;
            fs::create_hard_link(bin / name, copy / name, failed);
            if (failed) fs::copy_file(bin / name, copy / name);
        }
        fs::copy(bin / "Skin", copy / "Skin", fs::copy_options::recursive);
        fs::copy_file(bin / ".." / "data" / "Set.ini", copy / "Set.ini");
        fs::create_directories(Path(u"run"_s).toStdString());
        for (const auto& [name, value] : World())
            qputenv(name, value.toLocal8Bit());
        State().gProgramFolder = Path(u"program"_s);
    }
    ~Processes() override {
        for (auto* process : started_) {
            process->kill();
            process->waitForFinished(3000);
            delete process;
        }
        for (const auto& [name, value] : World())
            qunsetenv(name);
    }

    std::vector<std::pair<const char*, QString>> World() const {
        return {{"HOME", Path(u"home"_s)},
                {"XDG_RUNTIME_DIR", Path(u"run"_s)},
                {"XDG_DATA_HOME", Path(u"home/data"_s)}};
    }
    QProcess* Start(const QString& program, const QStringList& arguments = {}) {
        auto* process = new QProcess;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        process->setProcessEnvironment(environment);
        process->start(program, arguments);
        EXPECT_TRUE(process->waitForStarted(5000));
        started_.push_back(process);
        return process;
    }
    QString Program(const QString& name) const { return Path(u"program/"_s + name); }
    /// The test process as the first copy, with its main channel.
    void BecomeFirstCopy(ChannelServer& channel) {
        Outside().launch = [](const QString&, const QStringList&, const QString&) { return true; };
        ASSERT_EQ(StartUp({}), StartResult::login);
        SaveHandle();
        channel.onMessage = [this](const ChannelMessage& m) {
            received_ << m.code;
            handles_ << m.handle;
        };
        ASSERT_TRUE(channel.Listen(ChannelName(u"main"_s)));
    }
    void SaveHandle() {
        State().gSetDB.Execute(u"update tSetting set lHandle="_s +
                               Quote(QString::number(State().gRunHandle)));
    }
    bool AgentAnswers() {
        QLocalSocket probe;
        probe.connectToServer(ChannelName(u"agent"_s));
        return probe.waitForConnected(50);
    }
    static bool WaitLong(const std::function<bool()>& done, int ms) { return QTest::qWaitFor(done, ms); }

    QList<int> received_;
    QList<qint32> handles_;

 private:
    std::vector<QProcess*> started_;
};

}  // namespace

TEST_F(Processes, ASecondCopyHandsItsBookOverAndEnds) {
    ChannelServer channel;
    BecomeFirstCopy(channel);
    const QString book = Path(u"Mein Buch.jotdb"_s);
    QFile file(book);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(EmptyBookImage());
    file.close();

    auto* silent = Start(Program(u"KestroJot"_s));
    EXPECT_TRUE(WaitLong([&] { return silent->state() == QProcess::NotRunning; }, 8000));
    auto* missing = Start(Program(u"KestroJot"_s), {Path(u"none.jotdb"_s)});
    EXPECT_TRUE(WaitLong([&] { return missing->state() == QProcess::NotRunning; }, 8000));
    QTest::qWait(50);
    EXPECT_TRUE(received_.isEmpty());

    auto* second = Start(Program(u"KestroJot"_s), {book});
    EXPECT_TRUE(
        WaitLong([&] { return second->state() == QProcess::NotRunning && !received_.isEmpty(); }, 8000));
    EXPECT_EQ(second->exitCode(), 0);
    EXPECT_EQ(received_, QList<int>{kCodeOpenBook});
    EXPECT_EQ(handles_, QList<qint32>{State().gRunHandle});
    EXPECT_EQ(Rows(State().gSetDB, u"select sOutOpenDBFile from tSetting"_s), QStringList{book.toLower()});
    CloseAll();
}

// The answer opens a box, and the sender's socket goes while it stands.
TEST_F(Processes, AnAnswerMayRunALoopOfItsOwn) {
    ChannelServer channel;
    BecomeFirstCopy(channel);
    int answered = 0;
    channel.onMessage = [&answered](const ChannelMessage&) {
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
    EXPECT_TRUE(QFile::exists(Path(u"home/KestroData/墨鹊理财/专业版例子.jotdb"_s)));
    ::kill(static_cast<pid_t>(first->processId()), SIGKILL);
    EXPECT_TRUE(WaitLong([this] { return !AgentAnswers(); }, 8000));
    auto* next = Start(Program(u"KestroJot"_s));
    EXPECT_TRUE(WaitLong([this] { return AgentAnswers(); }, 10000));
    EXPECT_EQ(next->state(), QProcess::Running);
}

TEST_F(Processes, TheAgentTakesOverAStaleChannelAndAnswersItsCodes) {
    ChannelServer channel;
    BecomeFirstCopy(channel);
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
    const fs::path home = Path(u"home"_s).toStdString();
    fs::create_directories(home / "data");
    fs::permissions(program / "Set.ini",
                    fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    fs::permissions(program, fs::perms(0555));
    QProcess* process = nullptr;
    if (geteuid() == 0) {
        constexpr uid_t kNobody = 65534;
        for (const auto& folder : {home, home / "data", fs::path(Path(u"run"_s).toStdString())})
            ASSERT_EQ(chown(folder.c_str(), kNobody, kNobody), 0);
        fs::permissions(program.parent_path(), fs::perms(0755));
        process = Start(u"setpriv"_s, {u"--reuid=65534"_s, u"--regid=65534"_s, u"--clear-groups"_s,
                                       Program(u"KestroJot"_s)});
    } else {
        process = Start(Program(u"KestroJot"_s));
    }
    const QString copy = Path(u"home/data/KestroJot/Set.ini"_s);
    const QString sample = Path(u"home/KestroData/墨鹊理财/专业版例子.jotdb"_s);
    EXPECT_TRUE(WaitLong([&] { return QFile::exists(sample) && QFile::exists(copy); }, 10000));
    EXPECT_EQ(process->state(), QProcess::Running);
    fs::permissions(program, fs::perms(0755));
}

TEST_F(Processes, VersionAndHelpNeedNoDisplay) {
    for (const QString& option : {u"--version"_s, u"--help"_s}) {
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"no such platform"_s);
        process.setProcessEnvironment(environment);
        process.start(Program(u"KestroJot"_s), {option});
        ASSERT_TRUE(process.waitForFinished(5000));
        EXPECT_EQ(process.exitCode(), 0);
        EXPECT_TRUE(QString::fromUtf8(process.readAllStandardOutput()).contains(u"KestroJot"_s));
    }
}
