#include "store/book_format.h"

#include <QStringList>

#include <limits>

using namespace Qt::StringLiterals;

qint64 NextId(cConnection& book, const QString& table) {
    static const QStringList tables{u"taccount"_s,    u"tkind"_s,     u"tsubacc"_s,
                                    u"tsubaccitem"_s, u"tnotebook"_s, u"tpic"_s};
    if (!tables.contains(table)) return -1;
    auto row = book.OpenRecordset(u"select * from tNum where table1="_s + Quote(table));
    if (row.Eof()) return -1;
    const qint64 id = row.Int(u"Max1");
    if (id == std::numeric_limits<qint64>::max()) FailStatement(u"tNum 中的编号已用完"_s, table);
    row.Set(u"Max1", id + 1);
    row.Update();
    return id;
}

qint64 NewId(cConnection& book, const QString& table) {
    const qint64 id = NextId(book, table);
    if (id < 0) FailStatement(u"tNum 中没有可用的编号"_s, table);
    return id;
}

std::optional<QString> BookKey(cConnection& book, const QString& key) {
    const auto row = book.OpenRecordset(u"select Key1,Note1 from tSet where Key1="_s + Quote(key));
    if (row.Eof()) return {};
    return row.Text(u"Note1");
}

void SetBookKey(cConnection& book, const QString& key, const QString& value) {
    book.Execute(u"update tSet set note1="_s + Quote(value) + u" where key1="_s + Quote(key));
}

PassCheck CheckPass(cConnection& book, const QString& text) {
    const auto pass = BookKey(book, u"pass"_s);
    if (!pass) return PassCheck::missing;
    return *pass == text ? PassCheck::right : PassCheck::wrong;
}
