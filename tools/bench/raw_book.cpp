#include "tools/bench/raw_book.h"

#include "tools/bench/counting_vfs.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void Give(const std::string& what) {
    std::fprintf(stderr, "bench: %s\n", what.c_str());
    std::exit(1);
}

}  // namespace

RawBook::RawBook(const std::string& path) {
    sqlite3* db = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, CountingVfs());
    db_.reset(db);
    if (code != SQLITE_OK) Give("cannot open " + path);
    Run("pragma synchronous=extra");
}

RawBook::Statement RawBook::Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db_.get(), sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        Give(sqlite3_errmsg(db_.get()) + (": " + sql));
    return Statement(statement);
}

void RawBook::Run(const std::string& sql) {
    if (sqlite3_exec(db_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Give(sqlite3_errmsg(db_.get()) + (": " + sql));
}

std::vector<RawBook::Row> RawBook::Rows(const std::string& sql) {
    const auto statement = Prepare(sql);
    std::vector<Row> rows;
    const auto columns = static_cast<size_t>(sqlite3_column_count(statement.get()));
    while (sqlite3_step(statement.get()) == SQLITE_ROW) {
        auto& row = rows.emplace_back();
        for (size_t i = 0; i < std::min(columns, row.size()); ++i) {
            const auto* text =
                reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), static_cast<int>(i)));
            if (text)
                row[i].assign(
                    text, static_cast<size_t>(sqlite3_column_bytes(statement.get(), static_cast<int>(i))));
        }
    }
    return rows;
}

double RawBook::Number(const std::string& sql) {
    const auto statement = Prepare(sql);
    return sqlite3_step(statement.get()) == SQLITE_ROW ? sqlite3_column_double(statement.get(), 0) : 0;
}

void RawBook::ReadSums(const std::string& table, const std::string& where) {
    Rows(
        "select count(*),sum(case when nSign=1 then Value1 end),sum(case when nSign=-1 then Value1 end) "
        "from " +
        table + " where 1" + where);
}

void RawBook::Change(const std::vector<std::string>& statements) {
    Run("begin immediate");
    for (const auto& statement : statements)
        Run(statement);
    Run("commit");
}

void RawBook::Save(const LeanEntry& e) {
    Run("begin immediate");
    const auto next = [this](const std::string& table) {
        return static_cast<long long>(Number("select Max1 from tNum where Table1='" + table + "'"));
    };
    const long long main = next("taccount");
    const long long record = next("tsubaccitem");
    const auto text = [](long long id) { return std::to_string(id); };
    const std::string moment = ",'" + e.date + "','" + e.time + "'";
    const auto kindRow = [&](size_t i, long long id, long long partner) {
        Run("insert into tAccount "
            "(Id1,IID,IIID,IIID1,Title1,Type1,TypeName1,Value1,nSign,Mark1,Note1,bIsMain,Date1,"
            "Time1) values (" +
            text(id) + ',' + text(partner) + ',' + text(record) + ',' + text(record + 1) + ",'" + e.title +
            "','" + e.kinds[i] + "','" + e.kindNames[i] + "'," + e.amount + ",1,0,''," +
            (i == 0 ? "1" : "0") + moment + ')');
        Run("update tKind set nAdd=nAdd+" + e.amount + ",Money=Money+" + e.amount + " where Sort1='" +
            e.kinds[i] + "'");
    };
    const auto accountRow = [&](size_t i) {
        Run("insert into tSubAccItem "
            "(Id1,AccId,Title1,SubAccKey,SubAccName1,TypeName1,Value1,nSign,Date1,Time1) values (" +
            text(record + static_cast<long long>(i)) + ',' + text(main) + ",'" + e.title + "','" +
            e.accounts[i] + "','" + e.accountNames[i] + "','" + e.kindNames[0] + "'," + e.amount + ",1" +
            moment + ')');
        Run("update tSubAcc set nAdd=nAdd+" + e.amount + ",Money=Money+" + e.amount + " where Sort1='" +
            e.accounts[i] + "'");
    };
    kindRow(0, main, main + 1);
    kindRow(1, main + 1, main);
    accountRow(0);
    accountRow(1);
    Run("update tNum set Max1=" + text(main + 2) + " where Table1='taccount'");
    Run("update tNum set Max1=" + text(record + 2) + " where Table1='tsubaccitem'");
    Run("commit");
}
