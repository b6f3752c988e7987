#pragma once
// What the files of the connection share. Included by store/connection*.cpp alone.

#include "store/connection.h"

#include <QHash>
#include <QString>

#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <sqlite3.h>
#include <vector>

struct StatementEnd {
    void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};
using Statement = std::unique_ptr<sqlite3_stmt, StatementEnd>;

/// Row numbers of the rows that the running transaction added, by table and id.
using AddedRows = QHash<QString, QHash<qint64, qint64>>;

/// Whether a table's ids rise with its row numbers, as seen at a data version of the file.
struct RowOrder {
    qint64 dataVersion = -1;
    bool rising = false;
    qint64 last = -1;   ///< id of the last row
    qint64 ahead = 0;   ///< row number less id of the row found last: a guess for the next one
    Statement probe{};  ///< the first row from a row number on
};

struct FoundRow {
    qint64 row = 0;
    qint64 id = 0;
};

/// Whether a statement that was told to end counts as read or as failed.
enum class StepEnd { whole, early };

struct ConnectionCore {
    sqlite3* db = nullptr;
    QString path;
    QString source;  ///< file name, told in errors
    AddedRows added;
    std::map<QString, RowOrder> order;
    std::optional<qint64> version;  ///< the data version, which stands still in a transaction
    qint64 serial = NextSerial();
    std::function<bool()> goOn;  ///< asked by long statements while a watch lives
    bool asking = false;         ///< no statement may start while the question is being answered
    bool ended = false;          ///< a watched reader was told to end
    std::exception_ptr thrown;   ///< what answering the question failed with

    static qint64 NextSerial();

    ~ConnectionCore() {
        order.clear();
        sqlite3_close_v2(db);
    }

    /// Prepares the first statement of sql; rest is what follows it. Null for blanks and comments.
    Statement Prepare(const QByteArray& sql, const char** rest = nullptr);
    /// True while there is a row.
    bool Step(sqlite3_stmt* statement, const QString& sql, StepEnd end = StepEnd::whole);
    /// Takes note of a row that this connection has added to a table (lower-case name).
    void NoteAdded(const QString& table, qint64 id, qint64 row);
    /// The first row from a row number on.
    std::optional<FoundRow> RowFrom(RowOrder& table, const QString& name, qint64 row);
    [[noreturn]] void Fail(const QString& sql) const;
};

/// Registers left$ and Mid$ on a connection.
void RegisterTextFunctions(sqlite3* db);
