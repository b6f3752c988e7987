#pragma once
// Keeping the two charts as a user does: checked, asked, and written in one transaction, so that a failure or
// a kill leaves the book as it was. Refusals have been shown. After the commit the notice goes out.

#include "chart/chart_list.h"

#include <functional>
#include <optional>

/// What a user types for a row: code, blank and name in one text.
struct TypedRow {
    QString text;
    double opening = 0;  ///< yuan
    QString note;
    bool hide = false;
};

struct AddedRow {
    qint64 id = 0;
    ChartRecord record;
};
/// Checks and adds what was typed. nullopt after a refusal, or for an empty text.
std::optional<AddedRow> NewRow(cConnection& book, Chart chart, const TypedRow& typed);

/// Checks and applies what was typed for a stored row. The row's new figures, or nullopt after a refusal.
/// The statement that would change an account's opening balance names columns that its table does not have.
/// With the opening untouched it runs after the commit: all else is kept and the failure is told. With
/// another opening it fails inside and the change is undone; the way is by 0.
std::optional<ChartRecord> ChangeRow(cConnection& book, Chart chart, const ChartRecord& stored,
                                     const TypedRow& typed);

/// Checks, asks and deletes a row with what hangs on it, then afterwards and the word that it is done. False
/// after a refusal.
bool DeleteRowAsked(cConnection& book, Chart chart, const QString& code,
                    const std::function<void()>& afterwards);
/// What is said when no row is chosen to be deleted.
QString NoneChosen(Chart chart);
