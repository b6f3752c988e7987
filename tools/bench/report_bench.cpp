#include "tools/bench/report_bench.h"

#include "ledger/entry_query.h"
#include "ledger/list_export.h"
#include "output/export.h"
#include "output/search.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_option.h"
#include "stats/frm_tj.h"
#include "store/outside.h"
#include "store/state.h"
#include "tools/bench/counting_vfs.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <filesystem>
#include <fstream>

using namespace Qt::StringLiterals;

namespace {

constexpr double kSheetBound = 3, kSyncBound = 4;
const std::string kCode = "04";  // the branch of a seventh of the entries

/// What a report's rows cost to write: all of them in one transaction.
std::vector<std::string> WriteOf(const std::string& table, const std::string& columns, size_t count,
                                 const std::string& row) {
    std::vector<std::string> statements{"delete from " + table};
    std::string insert = "insert into " + table + " (" + columns + ") values ";
    for (size_t i = 1; i <= count; ++i)
        insert.append(i > 1 ? ",(" : "(").append(std::to_string(i)).append(row).append(")");
    if (count > 0) statements.push_back(insert);
    return statements;
}

void AddSilence(SpeedTable& table, int entries, const std::function<void()>& work) {
    Pulse pulse;
    work();
    pulse.Beat();
    table.Add({u"  its longest time without an answer"_s, entries, pulse.Longest(), 0, u"ms"_s, kClickBound});
}

void MeasurePeriods(SpeedTable& table, frmTJ& page, RawBook& raw, int entries, int runs) {
    page.ShowMode(u"date"_s);
    page.SetPeriod({});
    auto* chooser = Control<KestroCombox>(page, u"comKind"_s);
    chooser->SetCurrentKey(QString::fromStdString(kCode));
    chooser->onChoose(chooser->text(), chooser->CurrentKey());
    auto* list = Control<KestroList>(page, u"KestroList2"_s);
    const std::pair<const char*, int> lengths[] = {{"optDay", 10}, {"optYear", 4}};
    for (const auto& [option, length] : lengths) {
        auto* choice = Control<KestroOption>(page, QString::fromLatin1(option));
        choice->SetOn();
        choice->onChoose();
        const std::string query = "select sum(Value1) as SumAll,sum(Value1 * nSign) as SumA,substr(Date1,1," +
                                  std::to_string(length) +
                                  ") as DoDate from tAccount where 1 and substr(Type1,1,2)='" + kCode +
                                  "' group by DoDate";
        const auto write = WriteOf("tTjDate", "Id1,Date1,Value1,Value2,ValueC", raw.Rows(query).size(),
                                   ",'2016-09-03',1234.5,1234,0.5");
        const auto ours = [&] {
            QTest::mouseClick(Control<QWidget>(page, u"btnEnter"_s), Qt::LeftButton);
            list->viewport()->repaint();
        };
        const auto theirs = [&] {
            raw.Rows(query);
            raw.Change(write);
        };
        const QString action =
            length == 10 ? u"report of a kind by day, painted"_s : u"report of a kind by year, painted"_s;
        table.Add(Compared(action, entries, InTurns(runs, ours, theirs), kReadBound));
        AddSilence(table, entries, ours);
    }
}

std::vector<QByteArray> Contents(const QStringList& files) {
    std::vector<QByteArray> contents;
    for (const auto& name : files) {
        QFile file(name);
        if (file.open(QIODevice::ReadOnly)) contents.push_back(file.readAll());
    }
    return contents;
}

/// Writes the same bytes into as many files, each whole before it takes its name.
void WriteAll(const std::vector<QByteArray>& contents) {
    const auto folder = State().gDataDir.toStdString();
    for (size_t i = 0; i < contents.size(); ++i) {
        const std::string name = folder + "/raw" + std::to_string(i), part = name + ".part";
        std::ofstream(part, std::ios::binary).write(contents[i].constData(), contents[i].size());
        std::filesystem::rename(part, name);
    }
}

}  // namespace

void MeasureReports(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    RawBook raw(path.toStdString());
    const Consent consent;
    Stage<frmTJ> stage;
    auto& page = *stage.content;
    MeasurePeriods(table, page, raw, entries, runs);
    page.ShowMode(u"kind"_s);
    page.SetPeriod({QDate(2000, 1, 1), {}});
    auto* list = Control<KestroList>(page, u"KestroList1"_s);
    const auto ours = [&] {
        QTest::mouseClick(Control<QWidget>(page, u"btnEnter"_s), Qt::LeftButton);
        list->viewport()->repaint();
    };
    ours();
    const auto write =
        WriteOf("tTjKind", "ID1,Sort1,Name1,nAdd,nReduce,Money,nHasData",
                static_cast<size_t>(list->RowCount()), ",'040101','生产成本0101',1234.5,1234,0.5,1");
    const auto theirs = [&] {
        for (const std::string sign : {"1", "-1"})
            raw.Rows("select Type1,nSign,Value1, sum(Value1) as SumData from tAccount where nSign=" + sign +
                     " and Date1>='2000-01-01' group by Type1");
        raw.Change(write);
    };
    table.Add(Compared(u"report of all kinds with a bound, painted"_s, entries, InTurns(runs, ours, theirs),
                       kReadBound));
    table.Add({u"  its lines"_s, entries, static_cast<double>(list->RowCount()), 0, u"lines"_s, {}});
    AddSilence(table, entries, ours);
    const int before = Syncs();
    ours();
    table.Add({u"  its syncs (bound on the number)"_s, entries, static_cast<double>(Syncs() - before), 0,
               u"syncs"_s, kSyncBound});
    State().gDB.Close();
}

void MeasureExports(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    RawBook raw(path.toStdString());
    const Consent consent;
    State().gDataDir = QFileInfo(path).path() + u"/data"_s;
    Outside().open = [](const QString&) { return true; };
    const auto query = BuildEntryQuery({});
    std::vector<RowTexts> rows;
    {
        Job job;
        ReadLines(State().gDB, query, 0, job,
                  [&](EntryLine&& line) { rows.push_back(std::move(line.cells)); });
    }
    const std::string lines = query.Sql().toStdString() + " limit 0,10000";
    const std::tuple<ExportFormat, QString, double> formats[] = {
        {ExportFormat::web, u"export of 10,000 lines as web pages"_s, kReadBound},
        {ExportFormat::text, u"export of 10,000 lines as text"_s, kReadBound},
        {ExportFormat::sheet, u"export of 10,000 lines as a spreadsheet"_s, kSheetBound}};
    for (const auto& [format, action, bound] : formats) {
        const auto ours = [&, format = format] {
            return Export(LinesExport(LineKind::entries, rows), format, {});
        };
        const auto bytes = Contents(ours());
        const auto theirs = [&] {
            raw.Rows(lines);
            WriteAll(bytes);
        };
        table.Add(Compared(action, entries,
                           InTurns(
                               runs, [&] { ours(); }, theirs),
                           bound));
        AddSilence(table, entries, [&] { ours(); });
    }
    const std::pair<QString, QString> searches[] = {{u"5%"_s, u"a search that finds little"_s},
                                                    {{}, u"a search that finds all"_s}};
    for (const auto& [text, action] : searches) {
        const auto ours = [&, text = text] { return RunSearch(text, {}); };
        const auto found = ours();
        const auto bytes = Contents(found.files);
        const QString sql =
            u"select Id1,Title1,Date1,Time1,Note1,sMe,bIsMain from tAccount where bIsMain=1 and (title1 like "
            u"%1"
            u" or note1 like %1) union select id1,title1,date1,Time1,note1,sMe,bIsMain from tnotebook where"
            u" title1 like %1 or note1 like %1 order by date1,time1,id1"_s;
        const std::string query = QString(sql).replace(u"%1"_s, u"'%"_s + text + u"%'"_s).toStdString();
        const auto theirs = [&] {
            raw.Rows(query);
            WriteAll(bytes);
        };
        table.Add(Compared(action, entries,
                           InTurns(
                               runs, [&] { ours(); }, theirs),
                           kReadBound));
        table.Add({u"  its hits"_s, entries, static_cast<double>(found.count), 0, u"rows"_s, {}});
        AddSilence(table, entries, [&] { ours(); });
    }
    State().gDB.Close();
}
