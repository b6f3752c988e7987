#include "store/connection.h"

#include "store/connection_core.h"
#include "store/money.h"
#include "store/paths.h"

#include <QFileInfo>

#include <cmath>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kOwnError = -1;

QString SqlOf(sqlite3_stmt* statement) {
    return QString::fromUtf8(sqlite3_sql(statement));
}

// A file is data: what its schema would run stays still.
void DistrustSchema(sqlite3* db) {
    for (const int option :
         {SQLITE_DBCONFIG_ENABLE_VIEW, SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_TRUSTED_SCHEMA})
        sqlite3_db_config(db, option, 0, nullptr);
}

}  // namespace

void FailStatement(const QString& description, const QString& statement, const QString& hint) {
    DbError failed(kOwnError, u"KestroJot"_s, description, statement);
    failed.hint = hint;
    throw failed;
}

DbFault FaultOf(int number) {
    switch (number) {
        case SQLITE_READONLY_DBMOVED:
        case SQLITE_IOERR_FSTAT:
        case SQLITE_CANTOPEN:
            return DbFault::moved;
        default:
            break;
    }
    switch (number & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return number > 0 ? DbFault::busy : DbFault::other;
        case SQLITE_READONLY:
            return number > 0 ? DbFault::readOnly : DbFault::other;
        case SQLITE_ERROR:
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return number > 0 ? DbFault::noBook : DbFault::other;
        default:
            return DbFault::other;
    }
}

QString Quote(const QString& text) {
    QString quoted = text;
    quoted.remove(QChar::Null);  // it would end the statement
    return u'\'' + quoted.replace(u'\'', u"''"_s) + u'\'';
}

QString SqlNumber(double x) {
    if (!std::isfinite(x)) FailStatement(u"数值超出范围"_s, {});
    return MoneyText(x);
}

Statement ConnectionCore::Prepare(const QByteArray& sql, const char** rest) {
    sqlite3_stmt* statement = nullptr;
    if (asking) FailStatement(u"账本正在读取"_s, QString::fromUtf8(sql));
    if (const auto& hook = cConnection::Seams().beforeStatement) hook(QString::fromUtf8(sql));
    if (sqlite3_prepare_v2(db, sql.constData(), static_cast<int>(sql.size()) + 1, &statement, rest) !=
        SQLITE_OK)
        Fail(QString::fromUtf8(sql));
    return Statement(statement);
}

bool ConnectionCore::Step(sqlite3_stmt* statement, const QString& sql, StepEnd end) {
    const int code = sqlite3_step(statement);
    if (const auto& onScan = cConnection::Seams().onScan)
        if (sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_FULLSCAN_STEP, 1) > 0) onScan(sql);
    if (code == SQLITE_ROW) return true;
    if (thrown) std::rethrow_exception(std::exchange(thrown, nullptr));
    if (code == SQLITE_INTERRUPT && ended && end == StepEnd::early) return false;
    if (code != SQLITE_DONE) Fail(sql);
    return false;
}

void ConnectionCore::NoteAdded(const QString& table, qint64 id, qint64 row) {
    if (sqlite3_get_autocommit(db) == 0) added[table].insert(id, row);
    const auto known = order.find(table);
    if (known == order.end()) return;
    known->second.rising = known->second.rising && id > known->second.last;
    known->second.last = id;
}

std::optional<FoundRow> ConnectionCore::RowFrom(RowOrder& table, const QString& name, qint64 row) {
    const QString sql = u"select rowid, Id1 from "_s + name + u" where rowid>=? order by rowid limit 1"_s;
    if (!table.probe) table.probe = Prepare(sql.toUtf8());
    auto* probe = table.probe.get();
    sqlite3_bind_int64(probe, 1, row);
    const struct Rest {
        ~Rest() { sqlite3_reset(probe); }  // no lock stays behind
        sqlite3_stmt* probe;
    } rest{probe};
    if (!Step(probe, sql)) return {};
    return FoundRow{sqlite3_column_int64(probe, 0), sqlite3_column_int64(probe, 1)};
}

void ConnectionCore::Fail(const QString& sql) const {
    throw DbError(sqlite3_extended_errcode(db), source, QString::fromUtf8(sqlite3_errmsg(db)), sql);
}

cConnection::cConnection() = default;
cConnection::~cConnection() = default;
cConnection::cConnection(cConnection&&) noexcept = default;
cConnection& cConnection::operator=(cConnection&&) noexcept = default;

cConnection::Probe& cConnection::Seams() {
    static struct Probe probe;
    return probe;
}

void cConnection::Open(const QString& path, Options options) {
    auto core = std::make_unique<ConnectionCore>();
    core->path = path;
    core->source = QFileInfo(path).fileName();
    const auto real = options.exact ? FoundPath{path, QFileInfo::exists(path), {}} : RealPath(path);
    if (!real.rivals.isEmpty())
        throw DbError(kOwnError, core->source, u"有只差大小写的同名文件："_s + real.rivals.join(u"，"_s),
                      u"open "_s + path);
    // SQLite would make a temporary database for an empty name and one in memory for a special one.
    if (!real.exists)
        throw DbError(SQLITE_CANTOPEN, core->source, u"文件不存在："_s + path, u"open "_s + path);
    const auto& vfs = Seams().vfs;
    const int flags = options.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if (sqlite3_open_v2(real.path.toUtf8().constData(), &core->db, flags,
                        vfs.isEmpty() ? nullptr : vfs.constData()) != SQLITE_OK) {
        // The file is there: what keeps it shut is no vanishing.
        DbError failed(sqlite3_extended_errcode(core->db), core->source,
                       QString::fromUtf8(sqlite3_errmsg(core->db)), u"open "_s + path);
        failed.hint = u"没有打开该文件的权限"_s;
        throw failed;
    }
    sqlite3_extended_result_codes(core->db, 1);
    sqlite3_busy_timeout(core->db, options.waitMs);
    RegisterTextFunctions(core->db);
    DistrustSchema(core->db);
    core_ = std::move(core);
    try {
        // extra: the folder is flushed as well, or a power cut could bring a deleted journal back.
        Execute(u"pragma synchronous=extra; pragma cache_size=-32768; select count(*) from sqlite_master"_s);
    } catch (...) {
        Close();
        throw;
    }
}

void cConnection::Close() noexcept {
    core_.reset();
}

bool cConnection::IsOpen() const {
    return core_ != nullptr;
}

QString cConnection::Path() const {
    return core_ ? core_->path : QString();
}

ConnectionCore& cConnection::Core() const {
    if (!core_) FailStatement(u"没有打开的账本"_s, {});
    return *core_;
}

void cConnection::Execute(const QString& sql) {
    auto& core = Core();
    const QByteArray text = sql.toUtf8();
    const char* rest = text.constData();
    while (*rest) {
        const auto statement = core.Prepare(QByteArray(rest), nullptr);
        if (!statement) return;
        const auto length = qstrlen(sqlite3_sql(statement.get()));
        const auto one = SqlOf(statement.get());
        while (core.Step(statement.get(), one)) {
        }
        rest += length;
    }
}

void cConnection::Execute(const QString& sql, const QString& hint) {
    try {
        Execute(sql);
    } catch (DbError& error) {
        error.hint = hint;
        throw;
    }
}

void cConnection::Begin() {
    Execute(u"begin immediate"_s);
    Core().added.clear();
    Core().version.reset();
}

void cConnection::Commit() {
    try {
        Execute(u"commit"_s);
    } catch (...) {
        Rollback();
        throw;
    }
    Core().added.clear();
}

void cConnection::Rollback() noexcept {
    if (!core_) return;
    core_->added.clear();
    core_->serial = ConnectionCore::NextSerial();
    core_->order.clear();  // ids that were given out come again
    if (InTransaction()) sqlite3_exec(core_->db, "rollback", nullptr, nullptr, nullptr);
}

bool cConnection::IsReadOnly() const {
    if (sqlite3_db_readonly(Core().db, "main") == 1) return true;
    return !QFileInfo(QFileInfo(QString::fromUtf8(sqlite3_db_filename(Core().db, "main"))).path())
                .isWritable();
}

qint64 ConnectionCore::NextSerial() {
    static qint64 last = 0;
    return ++last;
}

qint64 cConnection::Serial() const {
    return core_ ? core_->serial : -1;
}

qint64 cConnection::DataVersion() {
    auto& core = Core();
    if (!InTransaction()) core.version.reset();
    if (core.version) return *core.version;
    auto row = Read(u"pragma data_version"_s);
    core.version = row.Next() ? row.Int(0) : 0;
    return *core.version;
}

qint64 cConnection::Changes() const {
    return sqlite3_total_changes64(Core().db);
}

bool cConnection::InTransaction() const {
    return core_ && sqlite3_get_autocommit(core_->db) == 0;
}

void cConnection::Compact() {
    Execute(u"vacuum"_s);
    Core().order.clear();
}

struct cReader::Body {
    Statement statement;
    ConnectionCore* core = nullptr;
    QString sql;
    std::vector<char> bits;  // which columns are declared bit; found at the first question

    bool IsBit(int column) {
        if (bits.empty())
            for (int i = 0; i < sqlite3_column_count(statement.get()); ++i) {
                const char* const declared = sqlite3_column_decltype(statement.get(), i);
                bits.push_back(declared && sqlite3_stricmp(declared, "bit") == 0);
            }
        const auto at = static_cast<size_t>(column);
        return at < bits.size() && bits[at];
    }
};

cReader::cReader(std::unique_ptr<Body> body) : body_(std::move(body)) {}
cReader::cReader(cReader&&) noexcept = default;
cReader::~cReader() = default;

cReader cConnection::Read(const QString& sql) {
    auto body = std::make_unique<cReader::Body>();
    body->core = &Core();
    body->sql = sql;
    body->statement = Core().Prepare(sql.toUtf8());
    return cReader(std::move(body));
}

bool cReader::Next() {
    return body_->core->Step(body_->statement.get(), body_->sql, StepEnd::early);
}

int cReader::ColumnCount() const {
    return sqlite3_column_count(body_->statement.get());
}

int cReader::ColumnOf(QStringView name) const {
    for (int column = 0; column < ColumnCount(); ++column)
        if (name.compare(QString::fromUtf8(sqlite3_column_name(body_->statement.get(), column)),
                         Qt::CaseInsensitive) == 0)
            return column;
    return -1;
}

bool cReader::IsNull(int column) const {
    return sqlite3_column_type(body_->statement.get(), column) == SQLITE_NULL;
}

bool cReader::IsNumber(int column) const {
    const int type = sqlite3_column_type(body_->statement.get(), column);
    return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

QString cReader::Shown(int column) const {
    if (body_->IsBit(column)) return Int(column) ? u"True"_s : u"False"_s;
    return Text(column);
}

QString cReader::Text(int column) const {
    auto* statement = body_->statement.get();
    if (sqlite3_column_type(statement, column) == SQLITE_FLOAT) return PlainNumber(Number(column));
    return QString::fromUtf8(Bytes(column));
}

QByteArrayView cReader::Bytes(int column) const {
    auto* statement = body_->statement.get();
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text, static_cast<qsizetype>(sqlite3_column_bytes(statement, column))};
}

qint64 cReader::Int(int column) const {
    return sqlite3_column_int64(body_->statement.get(), column);
}

double cReader::Number(int column) const {
    return sqlite3_column_double(body_->statement.get(), column);
}

std::optional<qint64> cConnection::RowOf(const QString& table, qint64 id) {
    if (id < 0) return {};
    auto& core = Core();
    const auto name = table.toLower();
    const auto added = core.added.value(name);
    if (const auto found = added.constFind(id); found != added.constEnd()) {
        // A row deleted since has left its number to another.
        const auto there = core.RowFrom(core.order[name], name, *found);
        if (there && there->row == *found && there->id == id) return *found;
    }
    if (!IdsRise(name)) {
        auto row = Read(u"select rowid from "_s + table + u" where Id1="_s + QString::number(id));
        return row.Next() ? std::optional(row.Int(0)) : std::nullopt;
    }
    auto& order = core.order[name];
    // Most rows stand as far from their id as the one found before.
    qint64 likely = 0;
    if (!__builtin_add_overflow(id, order.ahead, &likely)) {
        const auto guess = core.RowFrom(order, name, likely);
        if (guess && guess->id == id) return guess->row;
    }
    auto edges = Read(u"select min(rowid), (select max(rowid) from "_s + table + u") from "_s + table);
    if (!edges.Next()) return {};
    qint64 low = edges.Int(0);
    qint64 high = edges.Int(1);
    while (low <= high) {
        const qint64 middle = std::midpoint(low, high);
        const auto there = core.RowFrom(order, name, middle);
        if (!there) return {};
        if (there->id == id) {
            if (__builtin_sub_overflow(there->row, id, &order.ahead)) order.ahead = 0;
            return there->row;
        }
        const bool below = there->id < id;
        if (below ? there->row >= high : middle <= low) return {};
        if (below)
            low = there->row + 1;
        else
            high = middle - 1;
    }
    return {};
}

bool cConnection::IdsRise(const QString& table) {
    const qint64 version = DataVersion();
    auto& order = Core().order[table];
    if (order.dataVersion == version) return order.rising;
    bool rising = true;
    qint64 last = -1;
    for (auto ids = Read(u"select Id1 from "_s + table + u" order by rowid"_s); rising && ids.Next();) {
        rising = ids.Int(0) > last;
        last = ids.Int(0);
    }
    order.dataVersion = version;
    order.rising = rising;
    order.last = last;
    return rising;
}

QString cConnection::WhereIds(const QString& table, const std::vector<qint64>& ids) {
    QStringList rows;
    for (const auto id : ids)
        if (const auto row = RowOf(table, id)) rows << QString::number(*row);
    return u"rowid in ("_s + rows.join(u',') + u')';
}
