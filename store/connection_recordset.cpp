#include "store/connection_core.h"
#include "store/money.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kRowColumn = "select rowid as \"row number\",";

struct Cell {
    int type = SQLITE_NULL;
    qint64 whole = 0;
    double number = 0;
    QByteArray bytes;  // text as UTF-8, or a blob
};

Cell ReadCell(sqlite3_stmt* s, int column) {
    Cell cell;
    cell.type = sqlite3_column_type(s, column);
    cell.whole = sqlite3_column_int64(s, column);
    cell.number = sqlite3_column_double(s, column);
    if (cell.type != SQLITE_TEXT && cell.type != SQLITE_BLOB) return cell;
    // The text first, then its length: a book may hold UTF-16, which is converted by the first call.
    const void* bytes = cell.type == SQLITE_TEXT ? static_cast<const void*>(sqlite3_column_text(s, column))
                                                 : sqlite3_column_blob(s, column);
    const int length = sqlite3_column_bytes(s, column);
    cell.bytes = QByteArray(static_cast<const char*>(bytes), length);
    return cell;
}

void BindCell(sqlite3_stmt* s, int at, const Cell& cell) {
    if (cell.type == SQLITE_INTEGER)
        sqlite3_bind_int64(s, at, cell.whole);
    else if (cell.type == SQLITE_BLOB)
        sqlite3_bind_blob64(s, at, cell.bytes.constData(), static_cast<sqlite3_uint64>(cell.bytes.size()),
                            SQLITE_TRANSIENT);
    else if (cell.type == SQLITE_TEXT)
        sqlite3_bind_text64(s, at, cell.bytes.constData(), static_cast<sqlite3_uint64>(cell.bytes.size()),
                            SQLITE_TRANSIENT, SQLITE_UTF8);
}

// The table of "select … from TABLE …".
QString TableOf(const QString& sql) {
    const auto words = sql.simplified().split(u' ');
    const auto from = words.indexOf(u"from"_s, 0);
    return from >= 0 && from + 1 < words.size() ? words[from + 1] : QString();
}

bool ReadsPlainRows(const QString& sql) {
    const auto lower = sql.left(sql.indexOf(u" where "_s, 0, Qt::CaseInsensitive)).toLower();
    return lower.startsWith(u"select "_s) && !lower.contains(u"count("_s) && !lower.contains(u"sum("_s) &&
           !lower.contains(u" group by "_s) && !lower.contains(u" union "_s) &&
           !lower.contains(u"sqlite_master"_s) && !lower.contains(u"distinct"_s);
}

}  // namespace

struct cRecordset::Body {
    ConnectionCore* core = nullptr;
    QString table;
    QStringList names;
    QStringList declared;
    QHash<QString, int> columns;  // lower-case name → column
    std::vector<std::vector<Cell>> rows;
    std::vector<qint64> rowIds;
    size_t at = 0;
    bool adding = false;
    std::map<QString, Cell> pending;

    const Cell* Find(QStringView column) const {
        const auto found = columns.constFind(column.toString().toLower());
        if (found == columns.constEnd() || at >= rows.size()) return nullptr;
        return &rows[at][static_cast<size_t>(*found)];
    }
    int Column(QStringView column) const;
    void Write(const QString& sql);
    void Insert();
    void Change();
    void TakeOver();
};

int cRecordset::Body::Column(QStringView column) const {
    const auto found = columns.constFind(column.toString().toLower());
    if (found == columns.constEnd())
        throw DbError(-1, core->source, u"没有这一列："_s + column.toString(), table);
    return *found;
}

cRecordset cConnection::OpenRecordset(const QString& sql) {
    auto body = std::make_unique<cRecordset::Body>();
    auto& core = Core();
    body->core = &core;
    body->table = TableOf(sql);
    const bool withRows = ReadsPlainRows(sql);
    const QByteArray text = withRows ? kRowColumn + sql.mid(7).toUtf8() : sql.toUtf8();
    const auto statement = core.Prepare(text);
    const int first = withRows ? 1 : 0;
    const int count = sqlite3_column_count(statement.get());
    for (int i = first; i < count; ++i) {
        const auto name = QString::fromUtf8(sqlite3_column_name(statement.get(), i));
        body->names << name;
        body->declared << QString::fromUtf8(sqlite3_column_decltype(statement.get(), i)).toLower();
        body->columns.insert(name.toLower(), i - first);
    }
    while (core.Step(statement.get(), sql)) {
        std::vector<Cell> row;
        row.reserve(static_cast<size_t>(count));
        for (int i = first; i < count; ++i)
            row.push_back(ReadCell(statement.get(), i));
        body->rows.push_back(std::move(row));
        body->rowIds.push_back(withRows ? sqlite3_column_int64(statement.get(), 0) : -1);
    }
    return cRecordset(std::move(body));
}

cRecordset::cRecordset(std::unique_ptr<Body> body) : body_(std::move(body)) {}
cRecordset::cRecordset(cRecordset&&) noexcept = default;
cRecordset& cRecordset::operator=(cRecordset&&) noexcept = default;
cRecordset::~cRecordset() = default;

int cRecordset::RecordCount() const {
    return static_cast<int>(body_->rows.size());
}

bool cRecordset::Eof() const {
    return body_->at >= body_->rows.size();
}

void cRecordset::MoveNext() {
    if (!Eof()) ++body_->at;
}

void cRecordset::MoveFirst() {
    body_->at = 0;
}

bool cRecordset::Has(QStringView column) const {
    return body_->columns.contains(column.toString().toLower());
}

bool cRecordset::IsNull(QStringView column) const {
    const auto* cell = body_->Find(column);
    return !cell || cell->type == SQLITE_NULL;
}

QString cRecordset::Text(QStringView column) const {
    const auto* cell = body_->Find(column);
    if (!cell) return {};
    switch (cell->type) {
        case SQLITE_INTEGER:
            return QString::number(cell->whole);
        case SQLITE_FLOAT:
            return PlainNumber(cell->number);
        default:
            return QString::fromUtf8(cell->bytes);
    }
}

qint64 cRecordset::Int(QStringView column) const {
    const auto* cell = body_->Find(column);
    return cell ? cell->whole : 0;
}

double cRecordset::Number(QStringView column) const {
    const auto* cell = body_->Find(column);
    return cell ? cell->number : 0;
}

QByteArray cRecordset::Blob(QStringView column) const {
    const auto* cell = body_->Find(column);
    return cell ? cell->bytes : QByteArray();
}

QString cRecordset::Shown(QStringView column) const {
    const auto index = body_->columns.value(column.toString().toLower(), -1);
    if (index >= 0 && body_->declared[index] == u"bit"_s) return Int(column) ? u"True"_s : u"False"_s;
    return Text(column);
}

void cRecordset::AddRow() {
    body_->adding = true;
    body_->pending.clear();
}

void cRecordset::Set(QStringView column, const QString& text) {
    body_->Column(column);
    body_->pending[column.toString()] = {SQLITE_TEXT, text.toLongLong(), text.toDouble(), text.toUtf8()};
}

void cRecordset::Set(QStringView column, qint64 value) {
    body_->Column(column);
    body_->pending[column.toString()] = {SQLITE_INTEGER, value, static_cast<double>(value), {}};
}

void cRecordset::SetBlob(QStringView column, const QByteArray& bytes) {
    body_->Column(column);
    body_->pending[column.toString()] = {SQLITE_BLOB, 0, 0, bytes};
}

void cRecordset::Update() {
    if (body_->adding)
        body_->Insert();
    else
        body_->Change();
    body_->pending.clear();
}

qint64 cRecordset::RowId() const {
    return Eof() ? -1 : body_->rowIds[body_->at];
}

void cRecordset::Body::Write(const QString& sql) {
    const auto statement = core->Prepare(sql.toUtf8());
    int place = 0;
    for (const auto& [name, cell] : pending)
        BindCell(statement.get(), ++place, cell);
    core->Step(statement.get(), sql);
}

void cRecordset::Body::Insert() {
    QStringList names;
    QStringList marks;
    for (const auto& [name, cell] : pending) {
        names << name;
        marks << u"?"_s;
    }
    Write(u"insert into "_s + table + u" ("_s + names.join(u',') + u") values ("_s + marks.join(u',') + u')');
    rows.emplace_back(columns.size());
    rowIds.push_back(sqlite3_last_insert_rowid(core->db));
    at = rows.size() - 1;
    adding = false;
    TakeOver();
    if (const auto* id = Find(u"id1")) core->NoteAdded(table.toLower(), id->whole, rowIds[at]);
}

void cRecordset::Body::Change() {
    if (pending.empty()) return;
    if (at >= rows.size() || rowIds[at] < 0) throw DbError(-1, core->source, u"没有当前记录"_s, table);
    QStringList sets;
    for (const auto& [name, cell] : pending)
        sets << name + u"=?"_s;
    Write(u"update "_s + table + u" set "_s + sets.join(u',') + u" where rowid="_s +
          QString::number(rowIds[at]));
    TakeOver();
}

void cRecordset::Body::TakeOver() {
    for (const auto& [name, cell] : pending)
        rows[at][static_cast<size_t>(columns.value(name.toLower()))] = cell;
}
