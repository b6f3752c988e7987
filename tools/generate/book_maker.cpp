#include "tools/generate/book_maker.h"

#include "store/book_images.h"
#include "tools/generate/made_chart.h"

#include <QDate>
#include <QFile>

#include <array>
#include <cstdio>
#include <memory>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDaysOfYear = 366;  // 2016, the year of an empty book
constexpr int kPictureEvery = 333;

const std::array kDeeds{u"购买"_s, u"支付"_s, u"收到"_s, u"报销"_s, u"赊销"_s, u"预付"_s, u"退回"_s};
const std::array kThings{u"办公桌"_s, u"一季度房租"_s,   u"水电费"_s, u"货款"_s, u"工资"_s,
                         u"差旅费"_s, u"软件定制收入"_s, u"运费"_s,   u"茶叶"_s, u"选果机控制系统"_s};
const std::array kOddTitles{u"O'Neil 的报价单"_s, u"“双十一”团购 😀"_s, u"5% 折扣_特价品"_s,
                            u"书名《a'b\"c》"_s};
const std::array kNotes{u"合同号：98"_s, u"富华家俱城，1.2米"_s, u"发票第 3 联\n已入账"_s,
                        u"备注 🧾 见附件"_s};

// One statement, run once for each row.
class RowWriter {
 public:
    RowWriter(sqlite3* db, const char* sql) : db_(db) {
        sqlite3_prepare_v2(db, sql, -1, &statement_, nullptr);
    }
    ~RowWriter() { sqlite3_finalize(statement_); }
    RowWriter(const RowWriter&) = delete;
    RowWriter& operator=(const RowWriter&) = delete;

    template <class... Values>
    bool Write(const Values&... values) {
        int place = 0;
        (Bind(++place, values), ...);
        const bool done = sqlite3_step(statement_) == SQLITE_DONE;
        if (!done) std::fprintf(stderr, "%s\n", sqlite3_errmsg(db_));
        sqlite3_reset(statement_);
        return done;
    }

 private:
    void Bind(int place, qint64 value) { sqlite3_bind_int64(statement_, place, value); }
    void Bind(int place, int value) { sqlite3_bind_int(statement_, place, value); }
    void Bind(int place, double value) { sqlite3_bind_double(statement_, place, value); }
    void Bind(int place, const QString& text) {
        const QByteArray bytes = text.toUtf8();
        sqlite3_bind_text(statement_, place, bytes.constData(), static_cast<int>(bytes.size()),
                          SQLITE_TRANSIENT);
    }
    void Bind(int place, const QByteArray& bytes) {
        sqlite3_bind_blob(statement_, place, bytes.constData(), static_cast<int>(bytes.size()),
                          SQLITE_TRANSIENT);
    }

    sqlite3* db_;
    sqlite3_stmt* statement_ = nullptr;
};

QByteArray SamplePicture() {
    QFile file(QStringLiteral(KESTRO_SAMPLE_PICTURE));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What all rows of one entry share.
struct MadeEntry {
    QString title, note, date, time;
    qint64 hundredths = 0;
    bool marked = false;
    bool secondKind = false;
    int records = 0;
    bool picture = false;
};

double Yuan(qint64 hundredths) {
    return static_cast<double>(hundredths) / 100;
}

class BookMaker {
 public:
    BookMaker(sqlite3* db, int count, unsigned seed) : db_(db), count_(count), dice_(seed) {}
    bool Make();

 private:
    MadeEntry NextEntry(int number);
    QString DateOf(int number);
    QString Title();
    bool Post(const MadeEntry& e);
    bool AddKindRow(const MadeEntry& e, size_t kind, qint64 id, qint64 partner,
                    const std::array<qint64, 2>& records);
    bool AddRecord(const MadeEntry& e, size_t account, const QString& firstKind, qint64 id, qint64 main);
    size_t OtherThan(const std::vector<size_t>& leaves, size_t taken);
    bool WriteCharts();
    bool WriteNumbers();
    int Sign() { return dice_.Percent(60) ? 1 : -1; }

    sqlite3* db_;
    int count_;
    Dice dice_;
    std::vector<MadeRow> kinds_ = MakeKinds(), accounts_ = MakeAccounts();
    std::vector<size_t> kindLeaves_ = LeavesOf(kinds_), accountLeaves_ = LeavesOf(accounts_);
    qint64 nextRow_ = 1, nextRecord_ = 1, nextPicture_ = 1;
    const QByteArray picture_ = SamplePicture();
    RowWriter rows_{
        db_,
        "insert into tAccount (Id1,IID,IIID,IIID1,Title1,Type1,TypeName1,Value1,nSign,Mark1,Date1,Time1,"
        "Note1,sPic,bIsMain) values (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)"};
    RowWriter records_{
        db_,
        "insert into tSubAccItem (Id1,AccId,Title1,SubAccKey,SubAccName1,TypeName1,Value1,nSign,Date1,"
        "Time1) values (?,?,?,?,?,?,?,?,?,?)"};
    RowWriter pictures_{db_,
                        "insert into tPic (ID1,bitPic,Note1,sFromTable,lFromId,lFromId1) "
                        "values (?,?,'选果机.jpg','tAccount',?,?)"};
};

// Along the year, with one in twenty on any day.
QString BookMaker::DateOf(int number) {
    const int along = static_cast<int>(static_cast<qint64>(number) * kDaysOfYear / count_);
    const int day = dice_.Percent(5) ? dice_.Below(kDaysOfYear) : along;
    return QDate(2016, 1, 1).addDays(day).toString(u"yyyy-MM-dd"_s);
}

QString BookMaker::Title() {
    if (dice_.Percent(2)) return dice_.Of(kOddTitles);
    const QString title = dice_.Of(kDeeds) + dice_.Of(kThings);
    return dice_.Percent(20) ? title + QString::number(dice_.Below(1000)) : title;
}

MadeEntry BookMaker::NextEntry(int number) {
    const auto two = [](int x) { return QString::number(x).rightJustified(2, u'0'); };
    MadeEntry e;
    e.title = Title();
    e.note = dice_.Percent(30) ? dice_.Of(kNotes) : QString();
    e.date = DateOf(number);
    e.time = two(8 + dice_.Below(12)) + u':' + two(dice_.Below(60));
    e.hundredths = dice_.Percent(50) ? (1 + dice_.Below(5000)) * 100 : 1 + dice_.Below(2000000);
    e.marked = dice_.Percent(3);
    e.secondKind = dice_.Percent(50);
    const int places = dice_.Below(10);
    e.records = places < 6 ? 0 : places < 8 ? 1 : 2;
    e.picture = number % kPictureEvery == kPictureEvery / 2;
    return e;
}

bool BookMaker::AddKindRow(const MadeEntry& e, size_t kind, qint64 id, qint64 partner,
                           const std::array<qint64, 2>& records) {
    const int sign = Sign();
    auto& row = kinds_[kind];
    row.Post(e.hundredths, sign);
    const bool main = partner < 0 || id < partner;
    return rows_.Write(id, partner, records[0], records[1], e.title, row.code, row.name, Yuan(e.hundredths),
                       sign, e.marked ? 1 : 0, e.date, e.time, e.note, e.picture ? u"1"_s : u"0"_s,
                       main ? 1 : 0);
}

bool BookMaker::AddRecord(const MadeEntry& e, size_t account, const QString& firstKind, qint64 id,
                          qint64 main) {
    const int sign = Sign();
    auto& row = accounts_[account];
    row.Post(e.hundredths, sign);
    return records_.Write(id, main, e.title, row.code, row.name, firstKind, Yuan(e.hundredths), sign, e.date,
                          e.time);
}

// The two kinds of an entry differ, and so do its two accounts.
size_t BookMaker::OtherThan(const std::vector<size_t>& leaves, size_t taken) {
    const size_t leaf = dice_.Of(leaves);
    return leaf == taken ? OtherThan(leaves, taken) : leaf;
}

bool BookMaker::Post(const MadeEntry& e) {
    const qint64 main = nextRow_++;
    const qint64 second = e.secondKind ? nextRow_++ : -1;
    std::array<qint64, 2> records{-1, -1};
    for (int i = 0; i < e.records; ++i)
        records[static_cast<size_t>(i)] = nextRecord_++;
    const size_t kind = dice_.Of(kindLeaves_);
    bool good = AddKindRow(e, kind, main, second, records);
    if (e.secondKind) good = good && AddKindRow(e, OtherThan(kindLeaves_, kind), second, main, records);
    size_t account = accounts_.size();
    for (int i = 0; i < e.records; ++i) {
        account = OtherThan(accountLeaves_, account);
        good = good && AddRecord(e, account, kinds_[kind].name, records[static_cast<size_t>(i)], main);
    }
    if (e.picture) good = good && pictures_.Write(nextPicture_++, picture_, main, second);
    return good;
}

bool BookMaker::WriteCharts() {
    RowWriter kinds(db_,
                    "insert into tKind (ID1,Name1,Sort1,Note1,Money,nAdd,nReduce,Note2) values "
                    "(?,?,?,'2016-01-01',?,?,?,'')");
    RowWriter accounts(
        db_,
        "insert into tSubAcc (Id1,Name1,Sort1,Date1,Money,nAdd,nReduce,Note1,nHide,IID) values "
        "(?,?,?,'2016-01-01',?,?,?,'',0,0)");
    bool good = true;
    const auto write = [&](RowWriter& writer, const std::vector<MadeRow>& chart, int id) {
        for (const auto& row : chart)
            good = good && writer.Write(id++, row.name, row.code, Yuan(row.added - row.reduced),
                                        Yuan(row.added), Yuan(row.reduced));
    };
    write(kinds, kinds_, 2);
    write(accounts, accounts_, 1);
    return good;
}

bool BookMaker::WriteNumbers() {
    RowWriter numbers(db_, "update tNum set Max1=? where Table1=?");
    return numbers.Write(nextRow_, u"taccount"_s) && numbers.Write(nextRecord_, u"tsubaccitem"_s) &&
           numbers.Write(nextPicture_, u"tpic"_s) &&
           numbers.Write(static_cast<qint64>(kinds_.size()) + 2, u"tkind"_s) &&
           numbers.Write(static_cast<qint64>(accounts_.size()) + 1, u"tsubacc"_s);
}

bool BookMaker::Make() {
    for (int number = 0; number < count_; ++number)
        if (!Post(NextEntry(number))) return false;
    return WriteCharts() && WriteNumbers();
}

bool WriteImage(const QString& path) {
    QFile::remove(path);
    QFile file(path);
    const QByteArray image = EmptyBookImage();
    return file.open(QIODevice::WriteOnly) && file.write(image) == image.size();
}

}  // namespace

bool MakeBook(const QString& path, int count, unsigned seed) {
    sqlite3* db = nullptr;
    if (!WriteImage(path) || sqlite3_open(path.toUtf8().constData(), &db) != SQLITE_OK) {
        std::fprintf(stderr, "cannot write %s\n", qUtf8Printable(path));
        return false;
    }
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close_v2)> closing(db, sqlite3_close_v2);
    sqlite3_exec(db, "begin immediate", nullptr, nullptr, nullptr);
    const bool made = BookMaker(db, count, seed).Make();
    return made && sqlite3_exec(db, "commit", nullptr, nullptr, nullptr) == SQLITE_OK;
}
