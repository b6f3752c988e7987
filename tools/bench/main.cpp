// bench [--quick] [--beside] [--json FILE]: the speed of the program beside raw SQLite, on books made for it,
// as a table. Needs no display. --quick leaves out the largest book, --beside all books of entries: what is
// left are notes, pictures and books as files. A missed bound shows in the table, not in the exit code.

#include "app/windows.h"
#include "ledger/entry_query.h"
#include "shell/controls/kestro_style.h"
#include "shell/skin.h"
#include "store/state.h"
#include "tools/bench/book_bench.h"
#include "tools/bench/box_bench.h"
#include "tools/bench/change_bench.h"
#include "tools/bench/children.h"
#include "tools/bench/click_bench.h"
#include "tools/bench/note_bench.h"
#include "tools/bench/page_bench.h"
#include "tools/bench/picture_bench.h"
#include "tools/bench/print_bench.h"
#include "tools/bench/report_bench.h"
#include "tools/bench/web_bench.h"
#include "tools/generate/book_maker.h"

#include <QApplication>
#include <QDir>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr double kStartBound = 1.8, kMemoryBound = 1.4, kAgentBound = 15;
constexpr double kReadGrowth = 10, kSortGrowth = 13, kSaveGrowth = 1.25;
constexpr int kBoundBook = 10000;

const QString kStartAction = u"start to the window at rest"_s;

struct Wishes {
    bool quick = false;
    bool beside = false;
    QString json;
    bool understood = true;
};

Wishes ReadArguments(const QStringList& arguments) {
    Wishes wishes;
    for (int i = 1; i < arguments.size(); ++i) {
        if (arguments[i] == u"--quick")
            wishes.quick = true;
        else if (arguments[i] == u"--beside")
            wishes.beside = true;
        else if (arguments[i] == u"--json" && i + 1 < arguments.size())
            wishes.json = arguments[++i];
        else
            wishes.understood = false;
    }
    return wishes;
}

// The bounds hold for a book of ten thousand entries.
void MeasureStart(SpeedTable& table, const Children& children, const QString& book, int entries, int runs) {
    const QString lines = BuildEntryQuery({}).Sql() + u" limit 0,"_s + QString::number(kLinesPerPage);
    const auto least = children.LeastWindow(book, lines, runs);
    const auto program = children.Program(book, runs);
    const auto bound = [entries](double most) {
        return entries == kBoundBook ? std::optional(most) : std::nullopt;
    };
    table.Add({kStartAction, entries, program.milliseconds, least.milliseconds, u"ms"_s, bound(kStartBound)});
    table.Add(
        {u"  its peak memory"_s, entries, program.megabytes, least.megabytes, u"MB"_s, bound(kMemoryBound)});
}

void MeasureBeside(SpeedTable& table, const QString& folder, bool quick) {
    MeasureNotes(table, folder, quick ? 5 : 11);
    MeasurePictures(table, folder + u"/pictures"_s, quick ? 5 : 11);
    MeasureBox(table, folder + u"/books"_s, quick ? 5 : 11);
}

bool MeasureBooks(SpeedTable& table, const QString& folder, bool quick) {
    const Children children(folder, QApplication::applicationDirPath());
    for (const int entries : quick ? std::vector{kBoundBook} : std::vector{kBoundBook, 10 * kBoundBook}) {
        const QString book = folder + u"/book%1.jotdb"_s.arg(entries);
        if (!MakeBook(book, entries)) return false;
        MeasureStart(table, children, book, entries, quick ? 3 : 9);
        MeasureReads(table, book, entries, quick ? 5 : 11);
        MeasureSaves(table, book, entries, quick ? 11 : 31);
        MeasureAccountList(table, book, entries, quick ? 5 : 11);
        MeasurePrint(table, book, entries, quick ? 5 : 11);
        MeasureChanges(table, book, entries, quick ? 11 : 31);
        MeasureKindsPage(table, book, entries, quick ? 5 : 11);
        MeasureReports(table, book, entries, quick ? 5 : 11);
        MeasureExports(table, book, entries, quick ? 3 : 7);
        MeasureClicks(table, book, entries, quick ? 5 : 11);
        MeasureWeb(table, book, entries, quick ? 5 : 11);
        MeasureBulkDeletion(table, book, entries, 3);
    }
    table.Add({u"the agent's peak memory"_s, 0, children.AgentMemory(), 0, u"MB"_s, kAgentBound});
    table.AddGrowth(kStartAction, kSortGrowth);
    table.AddGrowth(kPageAction, kSortGrowth);
    table.AddGrowth(kReloadAction, kSortGrowth);
    table.AddGrowth(kSumsAction, kReadGrowth);
    table.AddGrowth(kKindSumsAction, kReadGrowth);
    table.AddGrowth(kSaveAction, kSaveGrowth);
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*.warning=false");
    QApplication app(argc, argv);
    const auto wishes = ReadArguments(QApplication::arguments());
    if (!wishes.understood) {
        std::fputs("Usage: bench [--quick] [--beside] [--json FILE]\n", stderr);
        return 2;
    }
    const QString tools = QApplication::applicationDirPath();
    State().gProgramFolder = QDir::cleanPath(tools + u"/../bin"_s);
    Skin::Load(State().gProgramFolder, false);
    QApplication::setStyle(new KestroStyle);
    QApplication::setFont(Skin::Font(Type::body));
    RegisterWindows();
    const QString folder = QDir::cleanPath(tools + u"/../bench"_s);
    QDir(folder).removeRecursively();
    SpeedTable table;
    const bool measured =
        QDir().mkpath(folder) && (wishes.beside || MeasureBooks(table, folder, wishes.quick));
    if (measured) MeasureBeside(table, folder, wishes.quick);
    QDir(folder).removeRecursively();
    if (!measured) return 1;
    table.Print();
    return wishes.json.isEmpty() || table.WriteJson(wishes.json) ? 0 : 1;
}
