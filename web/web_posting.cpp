#include "web/web_posting.h"

#include "store/entry_effect.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/notices.h"
#include "store/state.h"
#include "web/waiting_rows.h"

#include <cmath>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kNoId = 0, kUnknownId = -1;

/// A kind or an account of a row: its id, its code in the chart, and the sign of the entry on it.
struct Place {
    bool used = false;
    QString code;
    int sign = 1;
};

/// A waiting row with what it needs of the charts.
struct Postable {
    Place kind, related, account;
    double value = 0, accountValue = 0;
};

// The id in a column; anything that is no whole number is no id of a chart.
qint64 IdIn(const cRecordset& row, QStringView column) {
    const QString text = row.Text(column).trimmed();
    if (text.isEmpty()) return kNoId;
    const auto number = NumericValue(text);
    if (!number) return kUnknownId;
    if (*number <= 0) return kNoId;
    return *number == std::floor(*number) && *number < kTooMuch ? static_cast<qint64>(*number) : kUnknownId;
}

int SignIn(const cRecordset& row, QStringView column) {
    return NumericValue(row.Text(column)) == 1 ? 1 : -1;
}

std::optional<QString> CodeOf(cConnection& book, Chart chart, const QSet<qint64>& known, qint64 id) {
    if (!known.contains(id)) return {};
    auto row =
        book.Read(u"select Sort1 from "_s + TableOf(chart).table + u" where id1="_s + QString::number(id));
    return row.Next() ? std::optional(row.Text(0)) : std::nullopt;
}

// False when the place names what the book does not have.
bool Fill(cConnection& book, Place& place, Chart chart, const QSet<qint64>& known, qint64 id) {
    place.used = id != kNoId;
    if (!place.used) return true;
    const auto code = CodeOf(book, chart, known, id);
    if (code) place.code = *code;
    return code.has_value();
}

std::optional<Postable> Examine(cConnection& book, const cRecordset& row, const ChartIds& ids) {
    Postable found;
    found.kind.sign = SignIn(row, u"nSign1");
    found.related.sign = SignIn(row, u"nSign2");
    found.account.sign = SignIn(row, u"AccSign");
    const bool known = Fill(book, found.kind, Chart::kinds, ids.kinds, IdIn(row, u"Type1")) &&
                       found.kind.used &&
                       Fill(book, found.related, Chart::kinds, ids.kinds, IdIn(row, u"Type2")) &&
                       Fill(book, found.account, Chart::accounts, ids.accounts, IdIn(row, u"AccId"));
    if (!known) return {};
    const auto value = NumericValue(row.Text(u"Value1"));
    const auto accountValue = found.account.used ? NumericValue(row.Text(u"AccValue")) : 0;
    if (!value || !accountValue) return {};
    found.value = Val(MoneyText(*value));
    found.accountValue = *accountValue;
    const bool fits = std::fabs(found.value) < kTooMuch && std::fabs(found.accountValue) < kTooMuch;
    return fits ? std::optional(found) : std::nullopt;
}

AccountRow KindRow(const cRecordset& row, const Postable& from, bool main) {
    AccountRow made;
    made.Title1 = row.Text(u"Title1");
    made.Type1 = main ? from.kind.code : from.related.code;
    made.TypeName1 = row.Text(main ? u"TypeName1" : u"TypeName2");
    made.Value1 = MoneyText(from.value);
    made.nSign = main ? from.kind.sign : from.related.sign;
    made.Note1 = row.Text(u"Note1");
    made.Date1 = row.Text(u"Date1");
    made.Time1 = row.Text(u"Time1");
    made.bIsMain = main;
    made.sPic = u"-1"_s;
    return made;
}

SubAccItemRow RecordRow(const cRecordset& row, const Postable& from) {
    SubAccItemRow made;
    made.Title1 = row.Text(u"Title1");
    made.SubAccKey = from.account.code;
    made.SubAccName1 = row.Text(u"AccName");
    made.TypeName1 = row.Text(u"TypeName1");
    made.Value1 = MoneyText(from.accountValue);
    made.nSign = from.account.sign;
    made.Date1 = row.Text(u"Date1");
    made.Time1 = row.Text(u"Time1");
    return made;
}

// The account's balance moves by the entry's amount, whatever its record holds.
void Post(cConnection& book, const cRecordset& row, const Postable& from) {
    EntryRows rows{KindRow(row, from, true), {}, {}, {}};
    if (from.related.used) rows.second = KindRow(row, from, false);
    if (from.account.used) rows.record1 = RecordRow(row, from);
    AddRows(book, rows);
    const auto move = [&](const Place& place, Chart chart) {
        if (place.used) MoveChartRow(book, chart, place.code, from.value, place.sign, Effect::apply);
    };
    move(from.kind, Chart::kinds);
    move(from.account, Chart::accounts);
    move(from.related, Chart::kinds);
}

std::vector<qint64> WaitingIds(cConnection& book) {
    std::vector<qint64> ids;
    for (auto rows = book.Read(u"select ID1 from tAccountWeb order by ID1"_s); rows.Next();)
        ids.push_back(rows.Int(0));
    return ids;
}

/// Posts one row; nullopt when it is not waiting any more.
std::optional<bool> PostOne(cConnection& book, qint64 id, const ChartIds& ids) {
    Transaction one(book);
    auto row = book.OpenRecordset(u"select * from tAccountWeb where ID1="_s + QString::number(id));
    if (row.Eof()) return {};
    const auto postable = Examine(book, row, ids);
    if (postable) Post(book, row, *postable);
    row.Set(u"bPassIdChk", postable ? 1 : 0);
    row.Update();
    MoveToHistory(book, {id});
    one.Commit();
    return postable.has_value();
}

/// Tells at the end of a posting, however it ends, what has changed.
class TellAtEnd {
 public:
    explicit TellAtEnd(const WebPosted& done) : done_(done) {}
    ~TellAtEnd() {
        if (done_.posted > 0) Notices().entriesChanged.Emit();
        if (done_.posted + done_.notPosted > 0) Notices().webRowsChanged.Emit();
    }
    TellAtEnd(const TellAtEnd&) = delete;
    TellAtEnd& operator=(const TellAtEnd&) = delete;

 private:
    const WebPosted& done_;
};

WebPosted PostWebRows(cConnection& book, const ChartIds& ids, const JobBar& bar, bool& stopped) {
    WebPosted done;
    const TellAtEnd tell(done);
    Job job(bar);
    if (job.Refused()) return done;
    const auto waiting = WaitingIds(book);
    job.Start(static_cast<int>(waiting.size()));
    int number = 0;
    for (const qint64 id : waiting) {
        const auto posted = PostOne(book, id, ids);
        if (posted) ++(*posted ? done.posted : done.notPosted);
        job.Step(++number);
        stopped = job.Stopped() && number < static_cast<int>(waiting.size());
        if (stopped) break;
    }
    return done;
}

}  // namespace

ChartIds ReadChartIds(cConnection& book) {
    const auto read = [&](Chart chart) {
        QSet<qint64> ids;
        for (auto rows = book.Read(u"select id1 from "_s + TableOf(chart).table); rows.Next();)
            ids.insert(rows.Int(0));
        return ids;
    };
    return {read(Chart::kinds), read(Chart::accounts)};
}

std::optional<WebPosted> PostWebRowsAsked(cConnection& book, const ChartIds& ids, const JobBar& bar) {
    if (IsBusy()) return {};
    if (WebRowCount(book, WebList::waiting) == 0) {
        ShowMsg(u"【没有】需要入账的记录!"_s);
        return {};
    }
    if (ShowMsg(u"您确定要将当前【所有记录】入账?"_s, u"取消,确定"_s, kMsgAsk) != 1) return {};
    if (State().settings.bWebOk == 0) {
        ShowMsg(u"与网账同名的账本不存在!"_s);
        return {};
    }
    bool stopped = false;
    const auto done = PostWebRows(book, ids, bar, stopped);
    if (stopped)
        ShowMsg(u"已停止! 已处理【"_s + QString::number(done.posted + done.notPosted) +
                u"】条记录，其余的仍在等待入账。"_s);
    else
        ShowMsg(u"已全部入账!"_s, u"确定"_s, kMsgDone);
    return done;
}
