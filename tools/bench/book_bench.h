#pragma once
// What is measured on one open book, each beside the same work through SQLite's C interface.

#include "tools/bench/speed_table.h"

#include <QString>

/// Names of the actions, under which the table also finds their growth.
inline const QString kPageAction = QStringLiteral("page of 10,000 lines: query to painted list");
inline const QString kReloadAction = QStringLiteral("reload: page, count, sums, painted");
inline const QString kSumsAction = QStringLiteral("sums of the whole book");
inline const QString kKindSumsAction = QStringLiteral("sums of one kind with its subtree");
inline const QString kSaveAction = QStringLiteral("save one entry, durable");

/// A kind with a subtree: the codes from 04 up to 05.
inline const QString kMeasuredKind = QStringLiteral("04");

/// Reads of the book at path: page, reload, sums.
void MeasureReads(SpeedTable& table, const QString& path, int entries, int runs);
/// Saves into the book at path, which grows by them.
void MeasureSaves(SpeedTable& table, const QString& path, int entries, int runs);
