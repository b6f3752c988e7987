#include "store/platform_messages.h"

#include "store/dates.h"
#include "store/notices.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

namespace {

std::vector<PlatformMessage> Messages(const QString& behindTable) {
    auto& settings = State().gSetDB;
    std::vector<PlatformMessage> found;
    if (!settings.IsOpen()) return found;
    for (auto rows = settings.Read(u"select id1,title1,date1,time1,bWakeOk from tAd"_s + behindTable);
         rows.Next();)
        found.push_back({rows.Int(0), rows.Text(1), rows.Text(2), rows.Text(3)});
    return found;
}

}  // namespace

std::vector<PlatformMessage> UnreadMessages() {
    return Messages(u" where bWakeOk=0 order by date1,time1,id1"_s);
}

std::vector<PlatformMessage> AllMessages() {
    return Messages({});
}

int UnreadMessageCount() {
    auto& settings = State().gSetDB;
    if (!settings.IsOpen()) return 0;
    int count = 0;
    for (auto rows = settings.Read(u"select id1,bWakeOk from tAd where bWakeOk=0"_s); rows.Next();)
        ++count;
    return count;
}

std::optional<PlatformMessage> FindMessage(qint64 id) {
    auto& settings = State().gSetDB;
    if (!settings.IsOpen()) return {};
    const auto row = settings.OpenRecordset(u"select * from tAd where id1="_s + QString::number(id));
    if (row.Eof()) return {};
    return PlatformMessage{id, row.Text(u"Title1"), row.Text(u"Date1"), row.Text(u"Time1"),
                           row.Text(u"Note1")};
}

void MarkMessageRead(qint64 id) {
    State().gSetDB.Execute(u"update tAd set bWakeOk=1 where id1="_s + QString::number(id));
    Notices().remindersChanged.Emit();
}

void RemindOfWebEntries(const QString& title) {
    auto& settings = State().gSetDB;
    if (!settings.IsOpen()) return;
    auto row = settings.OpenRecordset(u"select * from tAd where iid=0"_s);
    if (!row.Eof() && row.Int(u"bWakeOk") == 0) return;
    if (row.Eof()) {
        row.AddRow();
        row.Set(u"iid", 0);
    }
    row.Set(u"Title1", title);
    row.Set(u"Date1", TodayText(u"-"_s));
    row.Set(u"Time1", TimeText(false));
    row.Set(u"bWakeOk", 0);
    row.Update();
    Notices().remindersChanged.Emit();
}

void CloseWebReminder() {
    auto& settings = State().gSetDB;
    if (!settings.IsOpen()) return;
    settings.Execute(u"update tAd set bWakeOk=1 where iid=0"_s);
    Notices().remindersChanged.Emit();
}

int DeleteReadMessages(const std::vector<qint64>& ids) {
    auto& settings = State().gSetDB;
    if (ids.empty() || !settings.IsOpen()) return 0;
    QString list;
    for (const qint64 id : ids)
        list += (list.isEmpty() ? QString() : u","_s) + QString::number(id);
    const qint64 before = settings.Changes();
    settings.Execute(u"delete from tAd where Id1 in("_s + list + u") and bWakeOk=1"_s);
    return static_cast<int>(settings.Changes() - before);
}
