#pragma once
// One fixture for all tests: a fresh program state, a temporary folder as the user's world, a fake clock, and
// boxes that must be expected.

#include "store/messages.h"
#include "store/state.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <ostream>
#include <sys/resource.h>

/// How failures print texts.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

/// The boxes a test expects, in order. An unexpected and a missing box fail the test.
class Script {
 public:
    Script();
    ~Script();
    /// text: the beginning of the box's text; answer: number of the button.
    /// meanwhile: what happens while the box stands.
    void Expect(const QString& text, int answer = 1, std::function<void()> meanwhile = {});
    /// From now on every box is answered so, and kept in Seen.
    void AnswerAll(int answer) { all_ = answer; }
    const QStringList& Seen() const { return seen_; }
    const MessageRequest& Last() const { return last_; }

 private:
    struct Box {
        QString text;
        int answer;
        std::function<void()> meanwhile;
    };
    int Answer(const MessageRequest& request);
    std::deque<Box> boxes_;
    std::optional<int> all_;
    QStringList seen_;
    MessageRequest last_;
};

class Fixture : public ::testing::Test {
 protected:
    Fixture();
    ~Fixture() override;

    /// A path in the temporary folder.
    QString Path(const QString& name) const { return folder_.filePath(name); }
    /// Writes a file of the temporary folder, with the folders above it. Answers its path.
    QString PutFile(const QString& name, const QByteArray& bytes = "x") const;
    /// A fresh copy of the sample or the empty book, opened as the current book.
    QString OpenSample(const QString& name = QStringLiteral("book.jotdb"));
    QString OpenEmpty(const QString& name = QStringLiteral("book.jotdb"));
    void SetClock(const QString& moment);
    static cConnection& Book() { return State().gDB; }

    Script boxes;

 private:
    QString OpenCopy(const QByteArray& image, const QString& name);
    QTemporaryDir folder_;
};

/// The bytes of a file; none where it cannot be read.
QByteArray BytesOf(const QString& path);

/// For as long as it lives the process may not do what only root may.
class WithoutRights {
 public:
    WithoutRights();
    ~WithoutRights();
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;

 private:
    bool lowered_ = false;
};

/// For as long as it lives no file grows beyond a number of bytes, as on a disk that is full.
class FullDisk {
 public:
    explicit FullDisk(qint64 most);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

 private:
    rlimit before_{};
    void (*handler_)(int);
};

/// Rows of a query as lines of "a|b|c"; null as "-".
QStringList Rows(cConnection& book, const QString& sql);
/// What the stored totals of a chart row have more than its rows; balance is added less reduced.
struct BalanceGap {
    double added = 0, reduced = 0, balance = 0;
};
/// The gaps that are not 0, by table and code: "tKind 0101".
std::map<QString, BalanceGap> BalanceGaps(cConnection& book);
/// The same as lines of text.
QStringList BalanceBreaks(cConnection& book);
/// One line per broken tie between the rows of entries.
QStringList TieBreaks(cConnection& book);
