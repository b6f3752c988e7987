#include "tests/support/fixture.h"

#include "store/book_images.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/notices.h"
#include "store/outside.h"
#include "store/paths.h"

#include <QFile>

#include <cmath>
#include <csignal>
#include <unistd.h>

using namespace Qt::StringLiterals;

Script::Script() {
    MessageSlot() = [this](const MessageRequest& request) { return Answer(request); };
}

Script::~Script() {
    MessageSlot() = {};
    for (const auto& box : boxes_)
        ADD_FAILURE() << "missing box: " << qUtf8Printable(box.text);
}

void Script::Expect(const QString& text, int answer, std::function<void()> meanwhile) {
    boxes_.push_back({text, answer, std::move(meanwhile)});
}

int Script::Answer(const MessageRequest& request) {
    last_ = request;
    seen_ << request.text;
    if (all_) return *all_;
    if (boxes_.empty()) {
        ADD_FAILURE() << "unexpected box: " << qUtf8Printable(request.text);
        return 0;
    }
    const Box box = boxes_.front();
    boxes_.pop_front();
    if (box.meanwhile) box.meanwhile();
    EXPECT_TRUE(request.text.startsWith(box.text))
        << qUtf8Printable(request.text) << "\nexpected: " << qUtf8Printable(box.text);
    return box.answer;
}

Fixture::Fixture() {
    State() = ProgramState{};
    State().gDataDir = Path(u"data"_s);
    State().gDefaultBox = Path(u"box"_s);
    auto& world = Outside();
    world = OutsideWorld{};
    const auto refuse = [](const char* what) { ADD_FAILURE() << "the outside world was asked: " << what; };
    world.open = [refuse](const QString&) { return refuse("open"), false; };
    world.trash = [refuse](const QString&) { return refuse("trash"), false; };
    world.launch = [refuse](const QString&, const QStringList&, const QString&) {
        return refuse("launch"), false;
    };
    SetClock(u"2016-09-03 14:16:20"_s);
}

Fixture::~Fixture() {
    cConnection::Seams() = {};
    State() = ProgramState{};
    Outside() = OutsideWorld{};
    ClearDialogs();
    ForgetFolders();
    LastError() = {};
    Notices().chartChanged.Clear();
    Notices().booksChanged.Clear();
    Notices().entriesChanged.Clear();
    Notices().groupingChanged.Clear();
    Notices().remindersChanged.Clear();
    Notices().webRowsChanged.Clear();
    Notices().webTip.Clear();
    Notices().webBusy.Clear();
}

void Fixture::SetClock(const QString& moment) {
    const auto now = QDateTime::fromString(moment, u"yyyy-MM-dd HH:mm:ss"_s);
    Outside().now = [now] { return now; };
}

QString Fixture::PutFile(const QString& name, const QByteArray& bytes) const {
    const QString path = Path(name);
    QDir().mkpath(ParentPath(path));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    EXPECT_EQ(file.write(bytes), bytes.size());
    return path;
}

QString Fixture::OpenCopy(const QByteArray& image, const QString& name) {
    const QString path = PutFile(name, image);
    State().gBooks.assign(1, {path.toLower(), name.chopped(6), 2016, u"10.0"_s});
    State().gCurBook = 0;
    State().gDB.Open(path);
    return path;
}

QString Fixture::OpenSample(const QString& name) {
    return OpenCopy(SampleBookImage(), name);
}

QString Fixture::OpenEmpty(const QString& name) {
    return OpenCopy(EmptyBookImage(), name);
}

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

WithoutRights::WithoutRights() {
    if (geteuid() != 0) return;
    lowered_ = seteuid(65534) == 0;
    EXPECT_TRUE(lowered_);
}

WithoutRights::~WithoutRights() {
    if (lowered_) EXPECT_EQ(seteuid(0), 0);
}

FullDisk::FullDisk(qint64 most) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &before_), 0);
    const rlimit limit{static_cast<rlim_t>(most), before_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

FullDisk::~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
}

QStringList Rows(cConnection& book, const QString& sql) {
    QStringList lines;
    auto rows = book.Read(sql);
    while (rows.Next()) {
        QStringList cells;
        for (int column = 0; column < rows.ColumnCount(); ++column)
            cells << (rows.IsNull(column) ? u"-"_s : rows.Text(column));
        lines << cells.join(u'|');
    }
    return lines;
}

namespace {

void ComparePlace(cConnection& book, const QString& chart, const QString& rows, const QString& column,
                  std::map<QString, BalanceGap>& gaps) {
    auto found = book.Read(
        u"select c.Sort1, c.nAdd, c.nReduce, c.Money,"
        u" (select total(Value1) from "_s +
        rows + u" r where r."_s + column +
        u"=c.Sort1 and r.nSign=1),"
        u" (select total(Value1) from "_s +
        rows + u" r where r."_s + column + u"=c.Sort1 and r.nSign=-1) from "_s + chart + u" c"_s);
    while (found.Next()) {
        const double in = found.Number(4);
        const double out = found.Number(5);
        const BalanceGap gap{found.Number(1) - in, found.Number(2) - out, found.Number(3) - (in - out)};
        for (const double part : {gap.added, gap.reduced, gap.balance})
            if (std::fabs(part) >= 0.005) gaps[chart + u' ' + found.Text(0)] = gap;
    }
}

}  // namespace

std::map<QString, BalanceGap> BalanceGaps(cConnection& book) {
    std::map<QString, BalanceGap> gaps;
    ComparePlace(book, u"tKind"_s, u"tAccount"_s, u"Type1"_s, gaps);
    ComparePlace(book, u"tSubAcc"_s, u"tSubAccItem"_s, u"SubAccKey"_s, gaps);
    return gaps;
}

QStringList BalanceBreaks(cConnection& book) {
    QStringList breaks;
    for (const auto& [row, gap] : BalanceGaps(book))
        breaks << u"%1: stored %2 %3 %4 more than its rows"_s.arg(row)
                      .arg(gap.added)
                      .arg(gap.reduced)
                      .arg(gap.balance);
    return breaks;
}

QStringList TieBreaks(cConnection& book) {
    return Rows(
        book,
        u"select 'partner', a.Id1 from tAccount a where a.IID<>-1 and not exists"
        u" (select 1 from tAccount b where b.Id1=a.IID and b.IID=a.Id1 and b.bIsMain<>a.bIsMain)"
        u" union all select 'record', r.Id1 from tSubAccItem r where not exists"
        u" (select 1 from tAccount a where a.Id1=r.AccId and a.bIsMain=1 and r.Id1 in (a.IIID,a.IIID1))"
        u" union all select 'lost', a.Id1 from tAccount a where a.bIsMain=1 and a.IIID<>-1 and not exists"
        u" (select 1 from tSubAccItem r where r.Id1=a.IIID and r.AccId=a.Id1)"_s);
}
