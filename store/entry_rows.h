#pragma once
// The two row records of an entry and their inserts, for all who write such rows: posting, the charts'
// opening balances, new books, the web ledger.

#include <QString>

#include "store/connection.h"

/// One kind row. Ids of -1 mean that there is no such row.
struct AccountRow {
    qint64 Id1 = -1;
    qint64 IID = -1;    ///< the partner row
    qint64 IIID = -1;   ///< first account record
    qint64 IIID1 = -1;  ///< second account record
    QString Title1;
    QString Type1;  ///< code of the kind
    QString TypeName1;
    QString Value1;  ///< text of MoneyText
    int nSign = 1;   ///< 1 increase, -1 decrease
    bool Mark1 = false;
    QString Note1;
    QString Date1;
    QString Time1;
    bool bIsMain = true;
    QString sPic;  ///< picture count as text
};

/// One account record.
struct SubAccItemRow {
    qint64 Id1 = -1;
    qint64 AccId = -1;  ///< the main row of its entry
    QString Title1;
    QString SubAccKey;
    QString SubAccName1;
    QString TypeName1;  ///< name of the entry's first kind
    QString Value1;
    int nSign = 1;
    QString Date1;
    QString Time1;
};

/// Adds the row under its Id1. The recordset stands on it afterwards, so that a tie can be set and stored.
cRecordset InsertAccountRow(cConnection& book, const AccountRow& row);
void InsertSubAccItemRow(cConnection& book, const SubAccItemRow& row);

/// The row with this id of tAccount or tSubAccItem, or nullopt.
std::optional<cRecordset> FindRow(cConnection& book, const QString& table, qint64 id);

/// Writes a stored row anew: what was typed. Ids, ties and bIsMain stay. A vanished row is left alone.
void RewriteAccountRow(cConnection& book, qint64 id, const AccountRow& row);
void RewriteSubAccItemRow(cConnection& book, qint64 id, const SubAccItemRow& row);
