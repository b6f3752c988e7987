#pragma once
// The other side of every comparison: a book through SQLite's C interface and nothing else.

#include <array>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <vector>

/// Values of an entry of two kinds and two accounts, final: nothing of it is looked up.
struct LeanEntry {
    std::string title, date, time;
    std::array<std::string, 2> kinds, kindNames, accounts, accountNames;
    std::string amount;
};

class RawBook {
 public:
    using Row = std::array<std::string, 12>;

    explicit RawBook(const std::string& path);

    /// Every row of a query as texts, the first twelve columns.
    std::vector<Row> Rows(const std::string& sql);
    double Number(const std::string& sql);
    /// Count and both sums that a list page shows, of the rows that fit, in one pass.
    void ReadSums(const std::string& table, const std::string& where);
    /// One entry in one transaction: rows with their ties, id counters, balances.
    void Save(const LeanEntry& entry);
    /// Statements in one transaction.
    void Change(const std::vector<std::string>& statements);
    void Run(const std::string& sql);

 private:
    struct Closing {
        void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Closing>;
    Statement Prepare(const std::string& sql);
    std::unique_ptr<sqlite3, Closing> db_;
};
