#include "store/book_format.h"

#include "store/messages.h"
#include "store/state.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
const QString kVersion = u"10.0"_s;
}

qint64 NextId(cConnection& book, const QString& table) {
    static const QStringList tables{u"taccount"_s,    u"tkind"_s,     u"tsubacc"_s,
                                    u"tsubaccitem"_s, u"tnotebook"_s, u"tpic"_s};
    if (!tables.contains(table)) return -1;
    auto row = book.OpenRecordset(u"select * from tNum where table1="_s + Quote(table));
    if (row.Eof()) return -1;
    const qint64 id = row.Int(u"Max1");
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

PassCheck CheckPass(cConnection& book, const QString& text) {
    const auto pass = BookKey(book, u"pass"_s);
    if (!pass) return PassCheck::missing;
    return *pass == text ? PassCheck::right : PassCheck::wrong;
}

bool CheckBookVersion(int index) {
    const auto& books = State().gBooks;
    const int wanted = index == -1 ? State().gCurBook : index;
    if (wanted < 0 || wanted >= static_cast<int>(books.size())) {
        ShowMsg(u"未指定账本 或 指定的【账本文件】不存在!"_s);
        return false;
    }
    const auto& version = books[static_cast<size_t>(wanted)].Version;
    if (version == kVersion) return true;
    ShowMsg(u"程序要求账本版本是：【"_s + kVersion + u"】\n当前账本版本是：【"_s + version +
            u"】\n账本版本不符不能打开! 请与开发商联系!"_s);
    return false;
}
