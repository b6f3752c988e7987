#include "output/search.h"

#include "output/export_files.h"
#include "output/web_page.h"
#include "store/connection.h"
#include "store/messages.h"
#include "store/state.h"
#include "store/text.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QString kStem = u"Query"_s;

struct Hit {
    QString title, date, time, note, origin;
};

std::vector<Hit> FindHits(cConnection& book, const QString& key, Job& job) {
    const QString pattern = Quote(u'%' + key + u'%');
    const QString matches = u"(title1 like "_s + pattern + u" or note1 like "_s + pattern + u')';
    const StatementWatch watch(book, [&job] { return job.GoOn(); });
    auto rows = book.Read(
        u"select Id1,Title1,Date1,Time1,Note1,sMe,bIsMain from tAccount where bIsMain=1 and "_s + matches +
        u" union select id1,title1,date1,Time1,note1,sMe,bIsMain from tnotebook where "_s + matches +
        u" order by date1,time1,id1"_s);
    std::vector<Hit> hits;
    while (rows.Next())
        hits.push_back(
            {OneLine(rows.Text(1)), rows.Text(2), rows.Text(3), OneLine(rows.Text(4)), rows.Text(5)});
    return hits;
}

QString HeadRow() {
    return u"<tr align='left'>"
           "<td class='sa2' width='40'>No</td>"
           "<td class='sa2' width='120'>日期</td>"
           "<td class='sa2' width='50'>类型</td>"
           "<td class='sa2' width='140'>标题</td>"
           "<td class='sa2'           >备注</td>"
           "</tr>"_s;
}

void AddRow(QByteArray& row, const Hit& hit, int number, const QString& key) {
    const QByteArray shade = number % 2 == 0 ? "0'>" : "1'>";
    row += "<tr><td width='40'  class='s" + shade + QByteArray::number(number);
    row += "</td><td width='120'  class='s" + shade + PageBytes(PageText(hit.date + u' ' + hit.time));
    row += "</td><td width='50' class='s" + shade + PageBytes(PageText(hit.origin));
    row += "</td><td width='140'  class='s" + shade + PageBytes(Highlight(hit.title, key));
    row += "</td><td             class='s" + shade + PageBytes(Highlight(hit.note, key)) + "</td></tr>";
}

QStringList WriteHits(const std::vector<Hit>& hits, const QString& key, Job& job) {
    const int count = static_cast<int>(hits.size());
    WebPages pages(kStem, HeadRow(), PageCount(count, RowsPerPage()), RowsPerPage());
    for (int i = 0; i < count && !job.Stopped(); ++i) {
        AddRow(pages.BeginRow(), hits[static_cast<size_t>(i)], i + 1, key);
        job.Step(i + 1);
    }
    return pages.Close();
}

}  // namespace

QString Highlight(const QString& text, const QString& key) {
    const auto at = key.isEmpty() ? -1 : text.indexOf(key, 0, Qt::CaseInsensitive);
    if (at < 0) return PageText(text);
    return PageText(text.left(at)) + u"<font color=#FF0000><span style='background-color:#FFFF00'>"_s +
           PageText(key) + u"</span></font>"_s + PageText(text.mid(at + key.size()));
}

SearchResult RunSearch(const QString& typed, const JobBar& bar) {
    const QString key = typed.trimmed();
    Job job(bar);
    if (job.Refused()) return {};
    job.Start(1);
    const auto hits = FindHits(State().gDB, key, job);
    if (job.Stopped()) {
        TellStopped();
        return {};
    }
    SearchResult result{static_cast<int>(hits.size()), {}};
    job.Start(result.count);
    if (hits.empty()) {
        ShowMsg(u"没有符合条件的记录!"_s);
        return result;
    }
    if (!EnsureExportFolder(true, u"创建临时目录出现错误!"_s)) return result;
    result.files = WriteHits(hits, key, job);
    if (job.Stopped()) TellStopped();
    OpenOutside(result.files[0]);
    return result;
}
