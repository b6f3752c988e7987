#pragma once
// Keeping the two charts: checks and changes as logic. Table names may come in any case. Refusals have been
// shown when a check fails. The statements of one change run one by one; a failing one leaves the earlier ones
// applied, as settled.

#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

#include "chart/codes.h"

/// What travels between the routines of one change.
struct ChartRecord {
    QString code;
    QString name;
    double oldOpening = 0;
    double added = 0, reduced = 0, balance = 0;
    bool hide = false;
    QString note;
    double newOpening = 0;
};

/// One line of a chart's list: eight cells from the running number to the note.
struct ChartLine {
    QStringList cells;
    QString code;
    qint64 id = 0;
    bool firstLevel = false;
};

/// All rows in order of their codes. Only last-level rows show figures.
std::vector<ChartLine> ReadChart(cConnection& book, const QString& table);
/// Cells of a line from its record; the figures are "-" where the row is no leaf.
QStringList ChartCells(int number, const ChartRecord& record, bool leaf);

std::optional<ChartRecord> ReadChartRecord(cConnection& book, qint64 id, const QString& table);

/// All checks of adding, in their order. An empty code after a refusal.
CodeName CheckNewRow(cConnection& book, const QString& text, const QString& table);
/// Adds a checked row with its opening entry; its id.
qint64 AddChartRow(cConnection& book, const QString& table, const CodeName& row, double opening, const QString& note,
                   bool hide);

/// The checks of a changed code; may ask whether all entries shall follow.
bool CheckCodeChange(cConnection& book, const QString& newCode, const QString& oldCode, const QString& table);
bool CheckNameChange(cConnection& book, const QString& code, const QString& name, const QString& table);

/// Applies a change and returns the row's new figures; nullopt after "意外错误!" when the row is gone.
std::optional<ChartRecord> SaveKindChange(cConnection& book, const ChartRecord& record, bool codeChanged,
                                          bool nameChanged, const QString& oldCode, const QString& oldName);
std::optional<ChartRecord> SaveAccountChange(cConnection& book, const ChartRecord& record, bool codeChanged,
                                             bool nameChanged, const QString& oldCode, const QString& oldName);

/// What a user types for a row: code, blank and name in one text.
struct TypedRow {
    QString text;
    double opening = 0;
    QString note;
    bool hide = false;
};

struct AddedRow {
    qint64 id = 0;
    ChartRecord record;
};
/// Checks and adds what was typed. nullopt after a refusal, or for an empty text.
std::optional<AddedRow> NewRow(cConnection& book, const QString& table, const TypedRow& typed);
/// Checks and applies what was typed for a stored row. The row's new figures, or nullopt after a refusal.
std::optional<ChartRecord> ChangeRow(cConnection& book, const QString& table, const ChartRecord& stored,
                                     const TypedRow& typed);

/// The checks and the question of a deletion.
bool MayDeleteRow(cConnection& book, const QString& code, const QString& table);
/// Deletes a row that may go, with what hangs on it.
void DeleteChartRow(cConnection& book, const QString& code, const QString& table);
/// Both, then afterwards and the word that it is done. False after a refusal.
bool DeleteRowAsked(cConnection& book, const QString& code, const QString& table,
                    const std::function<void()>& afterwards);
/// What is said when no row is chosen to be deleted.
QString NoneChosen(const QString& table);
