// The way of printed pages: preview, printer, PDF.

#include "ledger/list_print.h"
#include "output/frm_print.h"
#include "output/print_run.h"
#include "output/print_target.h"
#include "shell/commands.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/file_dialog.h"
#include "shell/frm_main.h"
#include "shell/menus.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/outside.h"
#include "tests/support/ui_fixture.h"

#include <QMenu>
#include <QPrinterInfo>
#include <QProcess>
#include <QScrollBar>
#include <QWheelEvent>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMmPerPoint = 25.4 / 72;

struct Word {
    double left, right, middle;  // millimetres
};

/// A PDF's words by their texts, as a foreign reader finds them, and the width of its first sheet.
struct ReadPdf {
    explicit ReadPdf(const QString& path) {
        QProcess reader;
        reader.start(u"pdftotext"_s, {u"-bbox"_s, path, u"-"_s});
        EXPECT_TRUE(reader.waitForFinished());
        QXmlStreamReader xml(reader.readAllStandardOutput());
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement) continue;
            const auto mm = [&](const QString& name) {
                return xml.attributes().value(name).toDouble() * kMmPerPoint;
            };
            if (xml.name() == u"page" && pages++ == 0) width = mm(u"width"_s);
            if (xml.name() != u"word") continue;
            const Word word{mm(u"xMin"_s), mm(u"xMax"_s), (mm(u"yMin"_s) + mm(u"yMax"_s)) / 2};
            words.emplace(xml.readElementText(), word);
        }
    }
    std::multimap<QString, Word> words;
    double width = 0;
    int pages = 0;
};

class PrintPreview : public SampleStage {
 protected:
    ~PrintPreview() override { TargetSlot() = platform_; }

    static void Execute(const QString& sql) { State().gDB.Execute(sql); }
    static PrintInfo Entries(const QString& kind = u"all"_s) {
        return EntryPrintInfo(BuildEntryQuery({.kind = kind, .text = {}, .period = {}}), kind, {});
    }
    /// Entries that fill three pages.
    static void AddEntries() {
        Execute(
            u"insert into tAccount (Id1,Title1,Type1,TypeName1,Value1,Date1,Time1,nSign,bIsMain)"
            u" with recursive n(i) as (select 100 union all select i+1 from n where i<199)"
            u" select i,'打印纸','030201','农行',i,'2016-09-10','16:40',1,1 from n"_s);
    }
    /// Opens the preview of the entries and runs body in it.
    void Preview(const std::function<void(QWidget* window)>& body) {
        bool opened = false;
        OnNextModal([&](QWidget* window) {
            opened = true;
            EXPECT_TRUE(State().gBusy);
            EXPECT_EQ(State().gPage, int(kDlgPrint));
            body(window);
        });
        RunPrint({{Entries()}, true, [this](int, int, int state) { states_ << state; }});
        EXPECT_TRUE(opened);
        EXPECT_FALSE(State().gBusy);
        EXPECT_FALSE(Commands().zoomPreview);
    }
    static void Key(QWidget* window, Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(window->focusWidget(), key, with);
    }

    QList<int> states_;

 private:
    TargetChooser platform_ = TargetSlot();
};

}  // namespace

TEST_F(PrintPreview, PagesChangeByKeysAndChooserWithoutAStatement) {
    AddEntries();
    Preview([](QWidget* window) {
        auto* pages = Find<KestroCombox>(window, "comPage");
        auto* picture = Find<QWidget>(window, "picPreview");
        QStringList items;
        for (int i = 0; i < pages->Count(); ++i)
            items << pages->Item(i).text;
        EXPECT_EQ(items, (QStringList{u"第 1 页"_s, u"第 2 页"_s, u"第 3 页"_s}));
        int statements = 0;
        cConnection::Seams().beforeStatement = [&](const QString&) { ++statements; };
        const auto first = picture->grab().toImage();
        const std::pair<Qt::Key, int> keys[] = {
            {Qt::Key_PageDown, 1}, {Qt::Key_PageDown, 2}, {Qt::Key_PageDown, 2}, {Qt::Key_PageUp, 1},
            {Qt::Key_End, 2},      {Qt::Key_Home, 0},     {Qt::Key_PageUp, 0}};
        for (const auto& [key, page] : keys) {
            Key(window, key);
            EXPECT_EQ(pages->Current(), page);
            EXPECT_EQ(picture->grab().toImage() == first, page == 0);
        }
        pages->onChoose(u"第 3 页"_s, u"2"_s);
        EXPECT_NE(picture->grab().toImage(), first);
        cConnection::Seams().beforeStatement = {};
        EXPECT_EQ(statements, 0);
        Key(window, Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_EQ(states_, (QList<int>{-1, 0, 1, 1, 2, 3}));
    const PrintDialog record;
    EXPECT_EQ(record.info, u"tAccount/1/【all】账务列表/ and bIsMain=1/1"_s);
    EXPECT_EQ(record.preview, 1);
    EXPECT_EQ(record.start, 0);
    EXPECT_EQ(record.listKind, 14);
}

TEST_F(PrintPreview, ZoomStepsTickTheirItemAndSetTheScrollBars) {
    frmMain frame;
    frame.show();
    const auto ticked = [] {
        Menus::Popup(u"percent"_s, {});
        QStringList keys;
        auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        for (const auto* action : menu ? menu->actions() : QList<QAction*>())
            if (action->isChecked()) keys << action->objectName();
        if (menu) menu->close();
        return keys.join(u',');
    };
    Preview([&](QWidget* window) {
        auto* picture = Find<QWidget>(window, "picPreview");
        auto* across = Find<QScrollBar>(window, "ScrollH");
        auto* down = Find<QScrollBar>(window, "ScrollV");
        auto* canvas = Find<QWidget>(window, "canvas");
        const auto expect = [&](int percent, QSize size) {
            EXPECT_EQ(Find<KestroLabel>(window, "lblPercent")->Text(), u"预览比例：%1 %"_s.arg(percent));
            EXPECT_EQ(ticked(), QString::number(percent) + u'%');
            EXPECT_EQ(picture->size(), size);
            // 18 pixels of ground round the sheet, 12 of a bar where it shows.
            const QSize room(canvas->width() - (down->isHidden() ? 0 : 12),
                             canvas->height() - (across->isHidden() ? 0 : 12));
            EXPECT_EQ(across->maximum(), qMax(0, size.width() + 36 - room.width()));
            EXPECT_EQ(down->maximum(), qMax(0, size.height() + 36 - room.height()));
            EXPECT_EQ(across->isHidden(), across->maximum() == 0);
            EXPECT_EQ(down->isHidden(), down->maximum() == 0);
        };
        expect(70, {556, 786});
        EXPECT_FALSE(down->isHidden());
        Key(window, Qt::Key_Down);
        EXPECT_EQ(down->value(), 40);
        Press(window, "btnZoom");
        expect(100, {794, 1123});
        Key(window, Qt::Key_Plus);
        expect(120, {952, 1347});
        Key(window, Qt::Key_Right);
        EXPECT_GT(across->value(), 0);
        Menus::Choose(u"percent"_s, u"20%"_s);
        expect(20, {159, 225});
        EXPECT_TRUE(down->isHidden() && across->isHidden());
        Key(window, Qt::Key_Minus);
        expect(20, {159, 225});
        QWheelEvent wheel(QPointF(9, 9), canvas->mapToGlobal(QPointF(9, 9)), {}, {0, 240}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(canvas, &wheel);
        expect(50, {397, 561});
    });
    EXPECT_EQ(ticked(), QString());
}

TEST_F(PrintPreview, TheWholeOrThePageOnShowGoesToThePrinter) {
    AddEntries();
    QStringList asked;
    TargetSlot() = [&](const PrintDocument& document) {
        asked << QString::number(document.pages.size());
        return asked.size() == 3 ? PrintTarget{} : PdfTarget(Path(asked.join(u'-') + u".pdf"_s), document);
    };
    Preview([&](QWidget* window) {
        Key(window, Qt::Key_PageDown);
        Press(window, "btnCurr");
        Press(window, "btnPrint");
        Press(window, "btnPrint");  // cancelled
        EXPECT_TRUE(window->isVisible());
        EXPECT_TRUE(State().gBusy);
        Press(window, "btnExit");
        EXPECT_FALSE(window->isVisible());
    });
    EXPECT_EQ(asked.join(u'-'), u"1-3-3"_s);
    const ReadPdf one(Path(u"1.pdf"_s)), all(Path(u"1-3.pdf"_s));
    EXPECT_EQ(one.pages, 1);
    EXPECT_TRUE(one.words.contains(u"页码:2"_s));
    EXPECT_EQ(all.pages, 3);
    EXPECT_EQ(all.words.count(u"打印纸"_s), 100);
}

TEST_F(PrintPreview, EveryWayOutLeavesNothingBusy) {
    AddEntries();
    const QString path = Path(u"out.pdf"_s);
    const auto run = [&](TargetChooser target) {
        states_.clear();
        TargetSlot() = std::move(target);
        RunEvent([&] { RunPrint({{Entries()}, false, [this](int, int, int state) { states_ << state; }}); });
        EXPECT_FALSE(State().gBusy);
        EXPECT_EQ(states_.last(), 3);
        EXPECT_FALSE(QFile::exists(path));
    };
    run([](const PrintDocument&) { return PrintTarget{}; });
    const auto yield = Outside().yield;
    run([&](const PrintDocument& document) {
        QTest::qSleep(30);  // the first page is written then, and the event loop gets its turn
        Outside().yield = [] { Job::Stop(); };
        return PdfTarget(path, document);
    });
    Outside().yield = yield;
    boxes.Expect(u"意外错误"_s);
    run([&](const PrintDocument& document) { return PdfTarget(Path(u"none/out.pdf"_s), document); });
    boxes.Expect(u"意外错误"_s);
    run([&](const PrintDocument& document) { return PdfTarget(Path({}), document); });
    std::optional<FullDisk> full;
    boxes.Expect(u"意外错误"_s);
    run([&](const PrintDocument& document) {
        full.emplace(2000);
        return PdfTarget(path, document);
    });
    full.reset();

    const Job other;
    states_.clear();
    boxes.Expect(u"有进程在运行"_s);
    RunPrint({{Entries()}, false, [this](int, int, int state) { states_ << state; }});
    EXPECT_TRUE(states_.isEmpty());
}

TEST_F(PrintPreview, WithoutAPrinterAPdfIsOffered) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "this machine has a printer";
    QString answer;
    FileDialogSlot() = [&](const FileRequest& request) {
        EXPECT_EQ(request.suffix, u"pdf"_s);
        EXPECT_EQ(request.name, u"墨鹊理财打印.pdf"_s);
        return answer;
    };
    RunPrint({{Entries()}});
    EXPECT_FALSE(State().gBusy);
    answer = Path(u"offered.pdf"_s);
    RunPrint({{Entries()}});
    EXPECT_EQ(ReadPdf(answer).pages, 1);
}

// Columns of an entry: title 28–58, code –78, name –98, sign –106, amount –122, date –143, time –155, mark
// –166, note –206; rows of 6 from 41 on.
TEST_F(PrintPreview, APdfHoldsEveryTextInItsPlace) {
    Execute(
        u"update tAccount set Mark1=1 where Id1=7;"
        u"update tAccount set Value1=123456789012, Note1='电脑/配件 <b>&#3/4"
        u"一二三四五六七八九十一二三四五六七八九十' where Id1=5"_s);
    const QString path = Path(u"entries.pdf"_s);
    TargetSlot() = [&](const PrintDocument& document) { return PdfTarget(path, document); };
    RunPrint({{Entries(u"03"_s)}});
    const ReadPdf pdf(path);
    EXPECT_NEAR(pdf.width, 210, 0.5);
    struct Place {
        QString word;
        double left, right, middle;  // -1: not looked at
    };
    const Place places[] = {
        {u"【03】账务列表"_s, 20, -1, 30},
        {u"￥金额"_s, 106.5, -1, 38},
        {u"购买办公桌"_s, 28.5, -1, 44},
        {u"2,100"_s, -1, 121.5, 44},
        {u"2016-01-01"_s, 122.5, -1, 44},
        {u"富华家俱城，1.2米"_s, 166.5, -1, 44},
        {u"0303"_s, -1, 77.5, 50},
        {u"√"_s, 155.5, -1, 50},
        {u"123,456,789,012"_s, 106.5, 121.5, 56},
        {u"电脑/配件"_s, 166.5, -1, 56},
        {u"【墨鹊理财v2016.2】"_s, 20, -1, 290},
        {u"14:16:20"_s, -1, 200, 290},
    };
    for (const auto& place : places) {
        ASSERT_TRUE(pdf.words.contains(place.word)) << place.word.toStdString();
        const Word word = pdf.words.find(place.word)->second;
        if (place.left >= 0) EXPECT_NEAR(word.left, place.left, 0.1) << place.word.toStdString();
        if (place.right >= 0) EXPECT_NEAR(word.right, place.right, 0.1) << place.word.toStdString();
        EXPECT_NEAR(word.middle, place.middle, 0.3) << place.word.toStdString();
    }
    const Word minus = pdf.words.find(u"－"_s)->second;
    EXPECT_NEAR((minus.left + minus.right) / 2, 102, 0.5);
    const Word number = pdf.words.find(u"页码:1"_s)->second;
    EXPECT_NEAR(number.left, 104, 8);

    // A stop ends the layout; what is laid out by then is printed.
    Job::StopAfter(1);
    RunPrint({{Entries(u"03"_s)}});
    Job::StopAfter(-1);
    const ReadPdf stopped(path);
    EXPECT_TRUE(stopped.words.contains(u"购买办公桌"_s) && !stopped.words.contains(u"软件定制收入"_s));

    RunPrint({{{.table = u"tNoteBook"_s, .title = u"记事列表"_s}}});
    EXPECT_NEAR(ReadPdf(path).width, 297, 0.5);
}
