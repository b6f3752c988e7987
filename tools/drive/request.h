#pragma once
// One request of the driver and its answer.

#include "ledger/entry_query.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>
#include <span>
#include <vector>

/// The boxes that a request has shown, in order, and how its questions are answered.
class BoxLog {
 public:
    BoxLog();
    ~BoxLog();
    /// Caption of the button to press; empty: the one that goes on.
    void SetAnswer(const QString& caption) { answer_ = caption; }
    const QJsonArray& Boxes() const { return boxes_; }
    QString LastText() const;
    /// What would have been opened by the desktop, empty when nothing.
    QString Opened() const { return opened_; }

 private:
    QString answer_, opened_;
    QJsonArray boxes_;
};

/// Carries out one request on the open book. Never throws.
QJsonObject Answer(const QJsonObject& request);

enum class FieldType { text, flag, number };
struct Field {
    const char16_t* name;
    FieldType type;
    bool required = false;
};

/// A request: its fields are checked before its handler runs, since one of another type, read as empty, would
/// erase what is stored.
struct Request {
    const char16_t* name;
    std::vector<Field> fields;
    QJsonObject (*answer)(const QJsonObject& request);
};
std::span<const Request> EntryRequests();
std::span<const Request> BookRequests();
std::span<const Request> ChartRequests();
std::span<const Request> NoteRequests();
std::span<const Request> OutputRequests();
std::span<const Request> PictureRequests();
std::span<const Request> PrintRequests();
std::span<const Request> TextRequests();
std::span<const Request> WebRequests();

/// The filter fields kind, text, date1, date2, mark; and page.
EntryFilter FilterOf(const QJsonObject& request);
Period PeriodOf(const QJsonObject& request);
int PageOf(const QJsonObject& request);

QJsonArray CellsOf(const RowTexts& cells);

/// The whole numbers of the field "ids", or of another; nullopt when it is no list of such.
std::optional<std::vector<qint64>> IdsOf(const QJsonObject& request,
                                         const QString& field = QStringLiteral("ids"));

QJsonObject Refusal(const QString& message, const QString& focus);
QJsonObject Failure(const QString& error);
