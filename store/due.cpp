#include "store/due.h"

#include "store/dates.h"
#include "store/platform_messages.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

namespace {

// Moves with every write to a file, by whomever.
struct Stand {
    qint64 serial = -1, version = -1, changes = -1;
    bool operator==(const Stand&) const = default;
};

struct Known {
    Stand book, settings;
    QString today;
    int count = 0;
};

Known& Kept() {
    static Known known;
    return known;
}

Stand StandOf(cConnection& file) {
    if (!file.IsOpen()) return {};
    return {file.Serial(), file.DataVersion(), file.Changes()};
}

QString Condition(const QString& today) {
    return u" from tNoteBook where bWake=1 and bWakeOk=0 and wakedate<="_s + Quote(today);
}

int DueNotes(const QString& today) {
    auto& book = State().gDB;
    int count = 0;
    if (!book.IsOpen()) return count;
    for (auto rows = book.Read(u"select bWake,bWakeOk"_s + Condition(today)); rows.Next();)
        ++count;
    return count;
}

}  // namespace

int DueCount() {
    const QString today = TodayText(u"-"_s);
    const Stand book = StandOf(State().gDB);
    const Stand settings = StandOf(State().gSetDB);
    auto& known = Kept();
    if (known.today != today || known.book != book || known.settings != settings)
        known = {book, settings, today, DueNotes(today) + UnreadMessageCount()};
    return known.count;
}

QString DueTypeText(const DueLine& line) {
    return line.tag == u"web" ? u"平台"_s : u"提醒"_s;
}

std::vector<DueLine> ReadDueLines() {
    std::vector<DueLine> lines;
    auto& book = State().gDB;
    if (book.IsOpen())
        for (auto rows = book.Read(u"select Id1,Title1"_s + Condition(TodayText(u"-"_s)) +
                                   u" order by date1,time1,Id1"_s);
             rows.Next();)
            lines.push_back({u"wake"_s, rows.Int(0), rows.Text(1)});
    for (const auto& message : UnreadMessages())
        lines.push_back({u"web"_s, message.id, message.title});
    return lines;
}
