#include "ledger/list_print.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString CheckedPiece(const std::optional<std::vector<qint64>>& checked) {
    if (!checked) return {};
    if (checked->empty()) return u" and id1=-1"_s;
    QStringList ids;
    for (const qint64 id : *checked)
        ids << QString::number(id);
    return u" and id1 in("_s + ids.join(u',') + u')';
}

PrintInfo ListInfo(const QString& table, const QString& title, const EntryQuery& query,
                   const std::optional<std::vector<qint64>>& checked) {
    return {.table = table,
            .list = true,
            .title = title,
            .condition = query.where + CheckedPiece(checked),
            .mark = u"1"_s};
}

}  // namespace

PrintInfo EntryPrintInfo(const EntryQuery& query, const QString& chosenText,
                         const std::optional<std::vector<qint64>>& checked) {
    return ListInfo(u"tAccount"_s, u'【' + chosenText + u"】账务列表"_s, query, checked);
}

PrintInfo RecordPrintInfo(const EntryQuery& query, const QString& chosenText,
                          const std::optional<std::vector<qint64>>& checked) {
    return ListInfo(u"tSubAccItem"_s, u'【' + chosenText + u"】账户记录列表"_s, query, checked);
}
