// A settings file of an older version gets what this one knows.

#include "store/settings.h"

using namespace Qt::StringLiterals;

namespace {

struct Wanted {
    const char16_t *table, *column, *declared;
};

constexpr Wanted kWanted[] = {
    {u"tSetting", u"nGroup", u"integer default 3"},
    {u"tSetting", u"nHtmPageSize", u"integer default 50"},
    {u"tSetting", u"sWebName", u"text default ''"},
    {u"tSetting", u"sWebPass", u"text default ''"},
    {u"tSetting", u"sWebBook", u"text default ''"},
    {u"tSetting", u"sDBPath", u"text default ''"},
    {u"tSetting", u"nShowAgentIco", u"integer default 1"},
    {u"tSetting", u"sLogDateTime", u"text default ''"},
    {u"tSetting", u"sPreOpenDBFile", u"text default ''"},
    {u"tSetting", u"lHandle", u"text default '0'"},
    {u"tSetting", u"sOutOpenDBFile", u"text default ''"},
    {u"tSetting", u"bWebOk", u"integer default 0"},
    {u"tAd", u"Title1", u"text"},
    {u"tAd", u"Note1", u"text"},
    {u"tAd", u"Date1", u"text"},
    {u"tAd", u"Time1", u"text"},
    {u"tAd", u"bWakeOk", u"integer"},
    {u"tAd", u"iid", u"integer"},
};

const QString kMessages =
    u" (Id1 integer primary key autoincrement, Title1 text, Note1 text, Date1 text, Time1 text,"
    u" bWakeOk integer, iid integer);"_s;

bool HasTable(cConnection& file, const QString& table) {
    return file.Read(u"select 1 from sqlite_master where type='table' and name="_s + Quote(table)).Next();
}

bool HasColumn(cConnection& file, const Wanted& wanted) {
    return file.OpenRecordset(u"select * from "_s + QString::fromUtf16(wanted.table) + u" where 0"_s)
        .Has(wanted.column);
}

bool MessagesHaveAKey(cConnection& file) {
    auto key = file.Read(u"select count(*) from pragma_table_info('tAd') where pk>0"_s);
    return key.Next() && key.Int(0) > 0;
}

// Ids stay; a missing one, or one that came before, is given anew behind all others.
void GiveMessagesAKey(cConnection& file) {
    file.Execute(
        u"create table tAdNew"_s + kMessages +
        u"insert into tAdNew select Id, Title1, Note1, Date1, Time1, bWakeOk, iid from"
        u" (select *, rowid as Row, case when typeof(Id1)='integer' and not exists"
        u" (select 1 from tAd b where b.Id1=a.Id1 and b.rowid<a.rowid) then Id1 end as Id from tAd a)"
        u" order by Id is null, Row;"
        u"drop table tAd; alter table tAdNew rename to tAd"_s);
}

}  // namespace

void UpgradeSettings(cConnection& file) {
    const bool hasMessages = HasTable(file, u"tAd"_s);
    std::vector<const Wanted*> missing;
    for (const auto& wanted : kWanted)
        if ((hasMessages || QString::fromUtf16(wanted.table) != u"tAd") && !HasColumn(file, wanted))
            missing.push_back(&wanted);
    const bool keyed = hasMessages && MessagesHaveAKey(file);
    if (missing.empty() && keyed) return;
    Transaction all(file);
    for (const auto* wanted : missing)
        file.Execute(u"alter table "_s + QString::fromUtf16(wanted->table) + u" add column "_s +
                     QString::fromUtf16(wanted->column) + u' ' + QString::fromUtf16(wanted->declared));
    if (!hasMessages)
        file.Execute(u"create table tAd"_s + kMessages);
    else if (!keyed)
        GiveMessagesAKey(file);
    all.Commit();
}
