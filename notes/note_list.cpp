#include "notes/note_list.h"

#include "store/entry_rows.h"
#include "store/platform_messages.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

const QString kWakeColumns =
    u"select Id1,Title1,Mark1,Date1,Time1,Mark1,bWake,bWakeOk,WakeDate from tNoteBook"_s;
const QString kNoteColumns = u"select Id1,Date1,Title1,Mark1,Time1,bWake from tNoteBook"_s;
const QString kOpen = u" and bWake=1 and bWakeOk=0"_s;
const QString kOrder = u" order by date1,time1,id1"_s;

QByteArrayView Flag(bool on) {
    return on ? "flag" : QByteArrayView();
}

QString Moment(const QString& date, const QString& time) {
    return date + u' ' + time;
}

NoteLine WakeLine(const cReader& row, int number) {
    NoteLine line{{row.Int(0), kTagWake}, {}};
    line.cells.AddNumber(number).AddUtf8({row.Bytes(3), " ", row.Bytes(4)}).AddUtf8(row.Bytes(8));
    line.cells.AddUtf8(row.Bytes(1)).AddUtf8(Flag(row.Int(2) != 0));
    return line;
}

NoteLine PlainLine(const cReader& row, int number) {
    NoteLine line{{row.Int(0), kTagNote}, {}};
    line.cells.AddNumber(number).AddUtf8({row.Bytes(1), " ", row.Bytes(4)});
    line.cells.AddUtf8(row.Int(5) != 0 ? "提醒" : "记事")
        .AddUtf8(row.Bytes(2))
        .AddUtf8(Flag(row.Int(3) != 0));
    return line;
}

NoteLine LineOf(NoteList list, const cReader& row, int number) {
    return list == NoteList::wake ? WakeLine(row, number) : PlainLine(row, number);
}

NoteLine WebLine(NoteList list, const PlatformMessage& message, int number) {
    return {{message.id, kTagWeb},
            {QString::number(number), Moment(message.date, message.time),
             list == NoteList::wake ? QString() : u"平台"_s, message.title, QString()}};
}

}  // namespace

QString NoteCondition(const NoteFilter& filter) {
    QString condition;
    if (filter.flag) condition += u" and Mark1=1"_s;
    if (filter.wake) condition += u" and bWake=1"_s;
    const QString text = filter.text.trimmed();
    if (!text.isEmpty()) condition += u" and Title1 like "_s + Quote(u'%' + text + u'%');
    return condition + PeriodCondition(filter.period);
}

void ReadNotes(cConnection& book, NoteList list, const QString& condition, Job& job, const TakeNote& take) {
    const bool wake = list == NoteList::wake;
    int number = 0;
    auto rows = book.Read((wake ? kWakeColumns : kNoteColumns) + u" where 1 "_s + (wake ? kOpen : condition) +
                          kOrder);
    while (rows.Next()) {
        ++number;
        take(LineOf(list, rows, number));
        job.Step(number);
        if (job.Stopped()) return;
    }
    if (!wake && !condition.isEmpty()) return;
    for (const auto& message : wake ? UnreadMessages() : AllMessages())
        take(WebLine(list, message, ++number));
}

std::optional<NoteLine> ReadNote(cConnection& book, NoteList list, qint64 id, int number) {
    const auto at = book.RowOf(u"tNotebook"_s, id);
    if (!at) return {};
    const bool wake = list == NoteList::wake;
    auto row = book.Read((wake ? kWakeColumns : kNoteColumns) + u" where rowid="_s + QString::number(*at) +
                         (wake ? kOpen : QString()));
    if (!row.Next()) return {};
    return LineOf(list, row, number);
}

QString NoteTipText(cConnection& book, const NoteKey& key) {
    const auto text = [](const QString& title, const QString& date, const QString& time,
                         const QString& note) {
        return title + u'(' + Moment(date, time) + u")\r\n"_s + note;
    };
    if (key.IsWeb()) {
        const auto found = FindMessage(key.id);
        return found ? text(found->title, found->date, found->time, found->note) : QString();
    }
    const auto row = FindRow(book, u"tNotebook"_s, key.id);
    if (!row) return {};
    return text(row->Text(u"Title1"), row->Text(u"Date1"), row->Text(u"Time1"), row->Text(u"Note1"));
}

PrintInfo NotePrintInfo(NoteList list, const QString& condition,
                        const std::optional<std::vector<NoteKey>>& ticked) {
    PrintInfo info{.table = u"tNoteBook"_s, .list = true, .title = u"记事列表"_s, .mark = u"1"_s};
    if (!ticked) {
        info.condition = list == NoteList::wake ? kOpen : condition;
        return info;
    }
    QStringList ids;
    for (const auto& key : *ticked)
        if (!key.IsWeb()) ids << QString::number(key.id);
    info.condition = ids.isEmpty() ? u" and id1=-1"_s : u" and id1 in("_s + ids.join(u',') + u')';
    return info;
}

PrintInfo NoteRecordInfo(qint64 id) {
    return {.table = u"tNoteBook"_s,
            .list = false,
            .title = u"记事（提醒）"_s,
            .condition = u" and id1="_s + QString::number(id),
            .mark = u"1"_s};
}
