#pragma once
// What the files of the connection share. Included by store/connection*.cpp alone.

#include <sqlite3.h>

#include <QHash>
#include <QString>

#include <vector>

#include "store/connection.h"

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
    qint64 last = -1;  ///< id of the last row
};

struct ConnectionCore {
    sqlite3* db = nullptr;
    QString path;
    QString source;  ///< file name, told in errors
    AddedRows added;
    QHash<QString, RowOrder> order;
    qint64 serial = NextSerial();

    static qint64 NextSerial();

    ~ConnectionCore() { sqlite3_close_v2(db); }

    /// Prepares the first statement of sql; rest is what follows it. Null for blanks and comments.
    Statement Prepare(const QByteArray& sql, const char** rest = nullptr);
    /// True while there is a row.
    bool Step(sqlite3_stmt* statement, const QString& sql);
    /// Takes note of a row that this connection has added to a table (lower-case name).
    void NoteAdded(const QString& table, qint64 id, qint64 row);
    [[noreturn]] void Fail(const QString& sql) const;
};

/// Registers left$ and Mid$ on a connection.
void RegisterTextFunctions(sqlite3* db);
