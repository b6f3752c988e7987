#include "tools/bench/print_bench.h"

#include "output/print_canvas.h"
#include "output/print_layout.h"
#include "output/print_painter.h"
#include "store/state.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kLayoutBound = 3, kPreviewBound = 30;  // the second in milliseconds
constexpr int kRows = 10000;

QString ConditionOfRows(RawBook& raw) {
    const double last = raw.Number("select max(id1) from (select id1 from tAccount where bIsMain=1 limit " +
                                   std::to_string(kRows) + ')');
    return u" and bIsMain=1 and id1<="_s + QString::number(static_cast<qint64>(last));
}

}  // namespace

void MeasurePrint(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    RawBook raw(path.toStdString());
    const Consent consent;
    const std::vector<PrintInfo> documents{{u"tAccount"_s, true, u"账务列表"_s, ConditionOfRows(raw), {}}};
    const std::string sql =
        "select Title1,Type1,TypeName1,nSign,Value1,Date1,Time1,Mark1,Note1 from tAccount where 1" +
        documents[0].condition.toStdString() + " order by date1,time1,id1";
    PrintDocument document;
    const auto ours = [&] {
        Job job;
        document = PrintAll(State().gDB, documents, job, {.textWidth = PrintTextWidth});
    };
    const auto theirs = [&] { raw.Rows(sql); };
    table.Add(Compared(u"print: layout of the list"_s, entries, InTurns(runs, ours, theirs), kLayoutBound));
    table.Add({u"  its pages"_s, entries, static_cast<double>(document.pages.size()), 0, u"pages"_s, {}});

    const Stage<PrintCanvas> stage(document);
    auto* picture = Control<QWidget>(*stage.content, u"picPreview"_s);
    for (const int percent : {70, 100}) {
        stage.content->SetZoom(percent / 100.0);
        size_t page = 0;
        const auto turn = [&] {
            return Milliseconds([&] {
                stage.content->ShowPage(page = (page + 7) % document.pages.size());
                picture->repaint();
            });
        };
        table.Add({u"print: a preview page at %1 %"_s.arg(percent), entries, MedianTime(runs, turn), 0,
                   u"ms"_s, kPreviewBound});
    }
    State().gDB.Close();
}
