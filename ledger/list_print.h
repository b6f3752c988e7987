#pragma once
// What the two list pages hand to the print engine.

#include "ledger/entry_query.h"
#include "output/print_info.h"

#include <QString>

#include <optional>
#include <vector>

/// The lines that query finds; of them those with the ids in checked, when it is given. chosenText is what
/// the page's chooser shows.
PrintInfo EntryPrintInfo(const EntryQuery& query, const QString& chosenText,
                         const std::optional<std::vector<qint64>>& checked);
PrintInfo RecordPrintInfo(const EntryQuery& query, const QString& chosenText,
                          const std::optional<std::vector<qint64>>& checked);
