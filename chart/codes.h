#pragma once
// Hierarchical codes of the two charts: pairs of digits, one pair a level, at most
// 9 levels. Nothing of the tree is stored; it is read off the codes.

#include "store/chart.h"
#include "store/connection.h"

#include <QString>
#include <QStringList>

#include <vector>

/// The reserved kind 余额调整, other side of the accounts' opening balances.
inline const QString kReservedKind = QStringLiteral("00");

struct CodeName {
    QString code;
    QString name;
};

/// Code and name typed as one text, "0102 生产成本". Both are empty after any failure, which has been shown.
CodeName ParseCodeName(const QString& text);

/// The condition of rows at or below a code, for any code column: a range, which is quicker than cutting each
/// code. All rows for an empty code.
QString AtOrBelow(const QString& column, const QString& code);

/// True when at most one row stands at or below the code; also for a code without a row.
bool IsLeafCode(cConnection& book, const QString& code, Chart chart);

/// Name of the row with this code, or an empty text.
QString NameByCode(cConnection& book, const QString& code, Chart chart);

/// "03资产-0302银行存款-030201农行"; levels without a row are left out. details: sums of the branch and the
/// row's note on further lines.
QString CodePathText(cConnection& book, Chart chart, const QString& code, bool details);

/// Sums over the rows of the subtree as texts of MoneyText.
struct BranchTexts {
    QString added, reduced, balance;
};
BranchTexts BranchSums(cConnection& book, Chart chart, const QString& code);

/// Signed opening balance that a chart row's link leads to: the posted row (of the chart's rows table) with
/// this id. Nothing when there is none, or when an edit has given it another code.
std::optional<double> GetOpeningBalance(cConnection& book, qint64 entryId, Chart chart, const QString& code);

/// Code of a chart row by its id, and the other way; nothing when there is none.
std::optional<QString> CodeOfId(cConnection& book, Chart chart, qint64 id);
std::optional<qint64> IdOfCode(cConnection& book, Chart chart, const QString& code);

/// Codes and names of the children of code, two characters longer; the first level for an empty code.
std::vector<CodeName> ChildCodes(cConnection& book, Chart chart, const QString& code);

/// All rows, hidden ones too, in order of their codes.
std::vector<CodeName> AllCodes(cConnection& book, Chart chart);

/// Rows that pickers offer (nHide=0) in order of their codes.
std::vector<CodeName> ShownCodes(cConnection& book, Chart chart);

/// One row of a chart for the strip of a page.
struct ChartRow {
    qint64 id = 0;
    QString code;
    QString name;
};
std::vector<ChartRow> ShownRows(cConnection& book, Chart chart);
int ChartCount(cConnection& book, Chart chart);

/// The stored totals of a chart row, or nullopt when the row is gone.
struct ChartMoney {
    QString name;
    double added = 0, reduced = 0, balance = 0;
};
std::optional<ChartMoney> StoredMoney(cConnection& book, Chart chart, qint64 id);
