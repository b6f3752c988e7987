#include "tools/bench/web_bench.h"

#include "shell/controls/kestro_list.h"
#include "store/state.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"
#include "web/conversation.h"
#include "web/frm_web_acc.h"

#include <QFile>

#include <gumbo.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDelivered = 1000, kListed = 10000, kLargeBook = 100000;

/// Ids and codes of the book that the entries are posted under.
struct Under {
    QString kind, kindCode, related, relatedCode, account, accountCode;
};

Under Places(RawBook& raw) {
    const auto kinds = raw.Rows("select ID1,Sort1 from tKind where length(Sort1)=4 order by Sort1 limit 2");
    const auto account =
        raw.Rows("select Id1,Sort1 from tSubAcc order by length(Sort1) desc limit 1").front();
    const auto text = [](const std::string& from) { return QString::fromStdString(from); };
    return {text(kinds[0][0]), text(kinds[0][1]), text(kinds[1][0]),
            text(kinds[1][1]), text(account[0]),  text(account[1])};
}

QString SiteLine(const Under& under, int number) {
    return u"%1∴网上记的第 %1 笔∴%2∴分类∴1∴12.50∴∴2016-09-03∴08:15∴备注⊙二∴-1∴%3∴关联∴%4∴账户∴12.50∴1∴注"_s
        .arg(QString::number(number), under.kind, under.related, under.account);
}

QByteArray Page(const Under& under) {
    QString lines;
    for (int i = 0; i < kDelivered; ++i)
        lines += SiteLine(under, i) + u"\r\n"_s;
    return (u"<html><body><input name=txtRet value=2><input name=txtDataRet value=bench><textarea name=txtData>"_s +
            lines + u"</textarea></body></html>"_s)
        .toUtf8();
}

/// The columns of a waiting row, or of the history, with final values.
std::string Inserted(const Under& under, int number, const std::string& table) {
    const auto text = [](const QString& from) { return from.toStdString(); };
    return "insert into " + table +
           " (Title1,Type1,TypeName1,nSign1,Value1,Date1,Time1,Note1,nSign2,Type2,TypeName2,AccId,AccName,"
           "AccValue,"
           "AccSign,AccNote) values ('网上记的第 " +
           std::to_string(number) + " 笔'," + text(under.kind) +
           ",'分类',1,12.5,'2016-09-03','08:15','备注\r\n二',-1," + text(under.related) + ",'关联'," +
           text(under.account) + ",'账户',12.5,1,'注')";
}

const std::vector<std::string> kEmpty{"delete from tAccountWeb", "delete from tAccountWebDel"};

/// By the program's own connection, which would otherwise have to look at the whole book again.
void Change(const std::vector<std::string>& statements) {
    Transaction all(State().gDB);
    for (const auto& statement : statements)
        State().gDB.Execute(QString::fromStdString(statement));
    all.Commit();
}

std::vector<std::string> Waiting(const Under& under) {
    std::vector<std::string> rows;
    for (int i = 0; i < kDelivered; ++i)
        rows.push_back(Inserted(under, i, "tAccountWeb"));
    return rows;
}

/// One row posted with final values and moved, without a look at anything.
std::vector<std::string> LeanPosting(const Under& under, long long waiting, long long main,
                                     long long record) {
    const auto text = [](const QString& from) { return "'" + from.toStdString() + "'"; };
    const auto number = [](long long id) { return std::to_string(id); };
    const auto row = [&](long long id, long long partner, const QString& code, int sign, int isMain) {
        return "insert into tAccount "
               "(Id1,IID,IIID,Title1,Type1,TypeName1,Value1,nSign,Mark1,Note1,Date1,Time1,bIsMain,"
               "sPic) values (" +
               number(id) + ',' + number(partner) + ',' + number(record) + ",'网上记的一笔'," + text(code) +
               ",'分类',12.5," + std::to_string(sign) + ",0,'备注\r\n二','2016-09-03','08:15'," +
               std::to_string(isMain) + ",'-1')";
    };
    const std::string where = " where ID1=" + number(waiting);
    return {row(main, main + 1, under.kindCode, 1, 1),
            row(main + 1, main, under.relatedCode, -1, 0),
            "insert into tSubAccItem "
            "(Id1,AccId,Title1,SubAccKey,SubAccName1,TypeName1,Value1,nSign,Date1,Time1) values (" +
                number(record) + ',' + number(main) + ",'网上记的一笔'," + text(under.accountCode) +
                ",'账户','分类',12.5,1,'2016-09-03','08:15')",
            "update tKind set nAdd=nAdd+12.5,Money=Money+12.5 where Sort1=" + text(under.kindCode),
            "update tKind set nReduce=nReduce+12.5,Money=Money-12.5 where Sort1=" + text(under.relatedCode),
            "update tSubAcc set nAdd=nAdd+12.5,Money=Money+12.5 where Sort1=" + text(under.accountCode),
            "update tNum set Max1=" + number(main + 2) + " where Table1='taccount'",
            "update tNum set Max1=" + number(record + 1) + " where Table1='tsubaccitem'",
            "insert into tAccountWebDel select *,'2016-09-03 14:16:20' from tAccountWeb" + where,
            "delete from tAccountWeb" + where};
}

void MeasureFetch(SpeedTable& table, RawBook& twin, const Under& under, int entries, int runs) {
    const QByteArray page = Page(under);
    const auto rows = Waiting(under);
    std::vector<double> ours, theirs;
    for (int run = 0; run <= runs; ++run) {
        Change(kEmpty);
        twin.Change(kEmpty);
        const double our = Milliseconds([&] {
            WebConversation talk(WebTalk::fetch);
            talk.Take({.contentType = u"text/html; charset=utf-8"_s, .body = page});
        });
        const double lean = Milliseconds([&] {
            gumbo_destroy_output(&kGumboDefaultOptions,
                                 gumbo_parse_with_options(&kGumboDefaultOptions, page.constData(),
                                                          static_cast<size_t>(page.size())));
            twin.Change(rows);
        });
        if (run == 0) continue;
        ours.push_back(our);
        theirs.push_back(lean);
    }
    table.Add(Compared(u"web: 1,000 entries read and stored"_s, entries, {Median(ours), Median(theirs)},
                       kReadBound));
}

void PutWaiting(RawBook& twin, const std::vector<std::string>& rows) {
    for (const auto& statements : {kEmpty, rows}) {
        Change(statements);
        twin.Change(statements);
    }
}

double PostedIn(const JobBar& bar) {
    return Milliseconds([&] { PostWebRowsAsked(State().gDB, ReadChartIds(State().gDB), bar); });
}

double LeanlyPostedIn(RawBook& twin, const Under& under) {
    const auto number = [&](const std::string& sql) { return static_cast<long long>(twin.Number(sql)); };
    const auto waiting = number("select min(ID1) from tAccountWeb");
    const auto main = number("select Max1 from tNum where Table1='taccount'");
    const auto record = number("select Max1 from tNum where Table1='tsubaccitem'");
    return Milliseconds([&] {
        for (int i = 0; i < kDelivered; ++i)
            twin.Change(LeanPosting(under, waiting + i, main + 2 * i, record + i));
    });
}

void MeasurePosting(SpeedTable& table, RawBook& twin, const Under& under, int entries) {
    auto rows = Waiting(under);
    PutWaiting(twin, {rows.front()});  // the first one looks the book's ids through, once for all
    PostedIn({});
    PutWaiting(twin, rows);
    const EntryPasses passes;
    Pulse pulse;
    double moves = 0;
    const double ours = PostedIn({.start = {}, .value = [&](int) { ++moves; }, .end = {}});
    pulse.Beat();
    const double theirs = LeanlyPostedIn(twin, under);
    const double silence = pulse.Longest(), seen = passes.Count();
    table.Add(Compared(u"web: 1,000 waiting rows posted"_s, entries, {ours, theirs}, kWriteBound));
    table.Add({u"  its longest time without an answer"_s, entries, silence, 0, u"ms"_s, kClickBound});
    table.Add({u"  its moves of the bar"_s, entries, moves, 0, u"moves"_s, {}});
    table.Add({u"  its passes over the entries"_s, entries, seen, 0, u"reads"_s, 0});
}

void MeasureLists(SpeedTable& table, RawBook& mine, const Under& under, int entries, int runs) {
    Change(kEmpty);
    std::vector<std::string> rows;
    for (int i = 0; i < kListed; ++i)
        for (const char* list : {"tAccountWeb", "tAccountWebDel"})
            rows.push_back(Inserted(under, i, list));
    Change(rows);
    Stage<frmWebAcc> stage;
    const auto ours = [&] {
        stage.content->Do(Act::reload);
        for (const auto list : {WebList::waiting, WebList::history}) {
            stage.content->ShowList(list);
            stage.content->Lists()[static_cast<size_t>(list)]->viewport()->repaint();
        }
    };
    const auto theirs = [&] {
        for (const char* list : {"tAccountWeb", "tAccountWebDel"})
            mine.Rows(
                "select ID1,Title1,Date1,Time1,TypeName1,Value1,nSign1,Type2,TypeName2,nSign2,AccId,AccName,"
                "AccValue,AccSign,bPassIdChk from " +
                std::string(list));
    };
    table.Add(Compared(u"web: both lists of 10,000 rows, painted"_s, entries, InTurns(runs, ours, theirs),
                       kReadBound));
}

}  // namespace

void MeasureWeb(SpeedTable& table, const QString& path, int entries, int runs) {
    const QString copies[] = {path + u".web"_s, path + u".lean"_s};
    for (const auto& copy : copies)
        QFile::copy(path, copy);
    OpenBook(copies[0]);
    const Consent consent;
    auto& settings = State().settings;
    settings.sWebName = u"bench"_s;
    settings.sWebBook = u"bench"_s;
    settings.bWebOk = 1;
    {
        RawBook mine(copies[0].toStdString()), twin(copies[1].toStdString());
        const auto under = Places(mine);
        MeasureFetch(table, twin, under, entries, runs);
        if (entries == kLargeBook) MeasurePosting(table, twin, under, entries);
        MeasureLists(table, mine, under, entries, runs);
    }
    State().gDB.Close();
    for (const auto& copy : copies)
        QFile::remove(copy);
}
