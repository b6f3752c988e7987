#include "tools/tour/see_answers.h"

#include "output/export_files.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_text.h"
#include "shell/file_dialog.h"
#include "stats/frm_tj.h"
#include "store/outside.h"
#include "store/state.h"
#include "tools/tour/tour.h"

#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

frmTJ* Stats() {
    return dynamic_cast<frmTJ*>(PageOfCode(kPageStats));
}

QWidget* StatsInFront() {
    auto* page = Stats();
    return page && page->isVisible() && !State().gBusy ? page : nullptr;
}

// What the desktop would be asked to open.
QStringList& Opened() {
    static QStringList opened;
    return opened;
}

QString PdfPath() {
    return State().gDataDir + u"/report.pdf"_s;
}

void Choose(QWidget* page, const char* box, const QString& text) {
    auto* combox = Control(page, box);
    combox->setFocus();
    TypeText(combox, text);
    Key(combox, Qt::Key_Return);
    dynamic_cast<KestroCombox*>(combox)->Settle();
}

void ShowModes(Tour& tour) {
    struct Mode {
        QString mode;
        const char* box;
        QString code;
        const char* list;
        int rows;
    };
    const Mode modes[] = {{u"kind"_s, nullptr, {}, "KestroList1", 16},
                          {u"date"_s, "comKind", u"03"_s, "KestroList2", 3},
                          {u"acckind"_s, nullptr, {}, "KestroList3", 4},
                          {u"accdate"_s, "comAcc", u"02"_s, "KestroList4", 1}};
    int number = 15;
    for (const auto& m : modes) {
        tour.Add(u"statistics "_s + m.mode, StatsInFront, [&tour, m, number](QWidget* page) {
            Stats()->ShowMode(m.mode);
            Stats()->SetPeriod({});
            if (m.box) Choose(page, m.box, m.code);
            Click(Control(page, "btnEnter"));
            tour.Picture(page->window(), QString::number(number) + u"-statistics-"_s + m.mode);
            const int rows = dynamic_cast<KestroList*>(Control(page, m.list))->RowCount();
            if (rows != m.rows) tour.Fail(u"a report has "_s + QString::number(rows) + u" lines"_s);
        });
        ++number;
    }
}

void ExportPage(Tour& tour) {
    tour.Add(u"export"_s, StatsInFront, [](QWidget* page) {
        Outside().open = [](const QString& path) {
            Opened() << path;
            return true;
        };
        Click(Control(page, "btnExport"));
    });
    tour.Add(
        u"what to open"_s, [] { return MessageWith(u"打开文件"_s); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"19-export-question"_s);
            Key(w, Qt::Key_Return);
        });
}

// The last report in the preview, at two sizes, and as a PDF.
void PrintReport(Tour& tour) {
    tour.Add(u"preview"_s, StatsInFront, [](QWidget* page) {
        FileDialogSlot() = [](const FileRequest&) { return PdfPath(); };
        auto* stats = dynamic_cast<frmTJ*>(page);
        stats->ShowMode(u"kind"_s);
        stats->SetPeriod({});
        Click(Control(page, "btnEnter"));
        stats->Do(Act::preview);
    });
    tour.Add(
        u"preview window"_s, [] { return WindowWith("btnZoom"); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"20-preview-70"_s);
            Click(Control(w, "btnZoom"));
            tour.Picture(w, u"21-preview-100"_s);
            Click(Control(w, "btnPrint"));
            Click(Control(w, "btnExit"));
        });
    tour.Add(u"the printed report"_s, StatsInFront, [&tour](QWidget*) {
        QFile pdf(PdfPath());
        if (!pdf.open(QIODevice::ReadOnly) || !pdf.read(4).startsWith("%PDF"))
            return tour.Fail(u"no PDF was made"_s);
        std::printf("%s\n", qUtf8Printable(PdfPath()));
    });
}

void Search(Tour& tour) {
    tour.Add(u"search"_s, StatsInFront, [&tour](QWidget* page) {
        auto* bar = Control(page->window(), "barTip");
        auto* box = Control(bar, "txtSearch");
        box->setFocus();
        TypeText(box, u"办公"_s);
        Key(box, Qt::Key_Return);
        const QStringList told{ExportPath(u"统计(期间)_1.html"_s), ExportPath(u"Query_1.html"_s)};
        if (Opened() != told) return tour.Fail(u"opened instead: "_s + Opened().join(u", "_s));
        QFile found(told.last());
        if (!found.open(QIODevice::ReadOnly) || !found.readAll().contains("#FFFF00"))
            return tour.Fail(u"the search marks nothing"_s);
        std::printf("%s\n", qUtf8Printable(told.join(u'\n')));
    });
}

}  // namespace

void SeeAnswers(Tour& tour) {
    ShowModes(tour);
    ExportPage(tour);
    PrintReport(tour);
    Search(tour);
}
