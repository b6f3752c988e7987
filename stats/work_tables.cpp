#include "stats/work_tables.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kRowsPerStatement = 400;

}  // namespace

void ReplaceWorkTable(cConnection& book, const QString& table, const QString& columns,
                      const QStringList& rows) {
    if (book.IsReadOnly())
        book.Execute(u"pragma temp_store=memory; create temp table if not exists "_s + table +
                     u" as select * from main."_s + table + u" where 0"_s);
    Transaction all(book);
    book.Execute(u"delete from "_s + table);
    for (qsizetype at = 0; at < rows.size(); at += kRowsPerStatement)
        book.Execute(u"insert into "_s + table + u" ("_s + columns + u") values "_s +
                     rows.mid(at, kRowsPerStatement).join(u','));
    all.Commit();
}
