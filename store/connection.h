#pragma once
// The one data access layer over SQLite. It alone throws (DbError).

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

/// A failing statement or open. number is the extended result code of SQLite, or -1 for our own refusals.
class DbError : public std::exception {
 public:
    DbError(int number, QString source, QString description, QString statement)
        : number(number),
          source(std::move(source)),
          description(std::move(description)),
          statement(std::move(statement)),
          what_(this->description.toUtf8()) {}
    const char* what() const noexcept override { return what_.constData(); }

    int number;
    QString source;
    QString description;
    QString statement;
    QString hint;  ///< the likely reason, where the failing place knows it

 private:
    QByteArray what_;
};

/// Fails an action for a reason of our own, as a failing statement does.
[[noreturn]] void FailStatement(const QString& description, const QString& statement,
                                const QString& hint = {});

/// What the number of a DbError says about the file.
enum class DbFault {
    other,
    busy,
    readOnly,
    moved,
    noBook  ///< no database at all, a damaged one, or one without the tables asked for
};
DbFault FaultOf(int number);

/// 'text' with its quotes doubled: the only way for an outside value into a statement.
QString Quote(const QString& text);

/// A number for a statement: the sign never meets an operator. Throws DbError when x is not finite.
QString SqlNumber(double x);

struct ConnectionCore;

/// Rows read by column name in any case. All rows are read at open, so no lock stays behind.
class cRecordset {
 public:
    cRecordset(cRecordset&&) noexcept;
    cRecordset& operator=(cRecordset&&) noexcept;
    ~cRecordset();

    int RecordCount() const;
    bool Eof() const;
    void MoveNext();
    void MoveFirst();

    bool Has(QStringView column) const;
    bool IsNull(QStringView column) const;
    /// Text of a cell; a number as plain number text, null as empty.
    QString Text(QStringView column) const;
    /// Whole number of a cell as SQLite casts it; null is 0.
    qint64 Int(QStringView column) const;
    double Number(QStringView column) const;
    QByteArray Blob(QStringView column) const;
    /// A column declared bit reads "True" or "False", any other as Text.
    QString Shown(QStringView column) const;

    /// A new row that takes Set until Update. Columns not set keep their defaults.
    void AddRow();
    void Set(QStringView column, const QString& text);
    void Set(QStringView column, qint64 value);
    void Set(QStringView column, int value) { Set(column, static_cast<qint64>(value)); }
    void SetBlob(QStringView column, const QByteArray& bytes);
    /// Writes what was set: a new row by insert, the current row by its row number. A row just added can be
    /// set and updated again.
    void Update();
    /// Row number of the current row.
    qint64 RowId() const;

 private:
    friend class cConnection;
    struct Body;
    explicit cRecordset(std::unique_ptr<Body> body);
    std::unique_ptr<Body> body_;
};

/// Streaming read of a long list by column number. Lives inside one action; finalised when it goes.
class cReader {
 public:
    cReader(cReader&&) noexcept;
    ~cReader();
    bool Next();
    int ColumnCount() const;
    /// Number of a column by its name in any case, -1 when there is none.
    int ColumnOf(QStringView name) const;
    bool IsNull(int column) const;
    /// The row holds a number here, not a text.
    bool IsNumber(int column) const;
    QString Text(int column) const;
    /// A column declared bit reads "True" or "False", any other as Text.
    QString Shown(int column) const;
    /// A text column as the UTF-8 that the file holds, good until Next.
    QByteArrayView Bytes(int column) const;
    qint64 Int(int column) const;
    double Number(int column) const;

 private:
    friend class cConnection;
    struct Body;
    explicit cReader(std::unique_ptr<Body> body);
    std::unique_ptr<Body> body_;
};

class cConnection {
 public:
    struct Options {
        bool readOnly = false;
        int waitMs = 2000;   ///< how long to wait for another program's lock
        bool exact = false;  ///< the path stands in its real spelling; no other is looked for
    };

    cConnection();
    ~cConnection();
    cConnection(cConnection&&) noexcept;
    cConnection& operator=(cConnection&&) noexcept;

    /// Opens an existing file and reads its header at once. Never creates a file. Throws DbError.
    void Open(const QString& path, Options options);
    void Open(const QString& path) { Open(path, Options{}); }
    void Close() noexcept;
    bool IsOpen() const;
    /// The path that was given to Open.
    QString Path() const;

    /// Runs every statement of the text.
    void Execute(const QString& sql);
    /// The same; a failure carries the hint.
    void Execute(const QString& sql, const QString& hint);
    cRecordset OpenRecordset(const QString& sql);
    cReader Read(const QString& sql);

    /// begin immediate: takes the write lock at once.
    void Begin();
    /// On failure rolls back and throws.
    void Commit();
    /// Never throws; accepts that SQLite has rolled back already.
    void Rollback() noexcept;
    bool InTransaction() const;
    /// Rewrites the file without free pages.
    void Compact();

    /// Row number of the row with this id in tAccount, tSubAccItem or tNotebook; nullopt when there is none.
    /// Found by halving, since ids rise with row numbers; where they do not, by the id itself.
    std::optional<qint64> RowOf(const QString& table, qint64 id);
    /// The where part that names the rows of these ids: "rowid in (…)". Ids below 0 are left out.
    QString WhereIds(const QString& table, const std::vector<qint64>& ids);

    /// Whether the file, or the folder that its journal needs, cannot be written.
    bool IsReadOnly() const;

    /// Changes with every open and every rollback: what was remembered of the contents no longer holds.
    qint64 Serial() const;
    /// Changes when another connection has changed the file.
    qint64 DataVersion();
    /// Rows that this connection has written since it was opened.
    qint64 Changes() const;

    /// Seams of tests: the VFS that Open uses, hooks before each statement and at each step of one that
    /// passes over a whole table.
    struct Probe {
        QByteArray vfs;
        std::function<void(const QString& sql)> beforeStatement;
        std::function<void(const QString& sql)> onScan;
    };
    static Probe& Seams();

 private:
    friend class StatementWatch;
    ConnectionCore& Core() const;
    bool IdsRise(const QString& table);
    std::unique_ptr<ConnectionCore> core_;
};

/// While it lives, long statements of a connection ask about every millisecond whether to go on. After a "no"
/// its readers (cReader) end early, as if there were no more rows; any other statement fails. The question
/// must not use the connection; what it throws comes out of the statement.
class StatementWatch {
 public:
    StatementWatch(cConnection& connection, std::function<bool()> goOn);
    ~StatementWatch();
    StatementWatch(const StatementWatch&) = delete;
    StatementWatch& operator=(const StatementWatch&) = delete;

 private:
    ConnectionCore& core_;
    std::function<bool()> outer_;
};

/// One user action: begins at once, rolls back unless committed.
class Transaction {
 public:
    explicit Transaction(cConnection& connection) : connection_(connection) { connection_.Begin(); }
    ~Transaction() {
        if (open_) connection_.Rollback();
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit() {
        open_ = false;
        connection_.Commit();
    }

 private:
    cConnection& connection_;
    bool open_ = true;
};
