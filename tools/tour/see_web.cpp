#include "tools/tour/see_web.h"

#include "shell/commands.h"
#include "shell/controls/kestro_list.h"
#include "shell/page.h"
#include "store/state.h"
#include "tests/support/web_service.h"
#include "tools/tour/tour.h"
#include "web/network.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

WebService& Service() {
    static WebService service;
    return service;
}

QWidget* PageInFront(int code) {
    auto* page = PageOfCode(code);
    return page && page->isVisible() && !QApplication::activeModalWidget() && !Web().IsRunning() ? page
                                                                                                 : nullptr;
}

QWidget* WebInFront() {
    return PageInFront(kPageWeb);
}

KestroList* ListOf(QWidget* page, int which = 0) {
    return dynamic_cast<Page*>(page)->Lists()[static_cast<size_t>(which)];
}

void Confirm(Tour& tour, const QString& name, const QString& picture = {}) {
    tour.Add(
        name, [] { return MessageWith(u"确定"_s); },
        [&tour, picture](QWidget* w) {
            if (!picture.isEmpty()) tour.Picture(w, picture);
            Key(w, Qt::Key_Return);
        });
}

// Three entries under kinds and an account of the open book, and one of a kind that it does not have.
QStringList Entries() {
    const auto find = [](const QString& chart, const QString& code) {
        auto row = State().gDB.Read(u"select Id1,Name1 from "_s + chart + u" where Sort1='"_s + code + u'\'');
        return row.Next() ? row.Text(0) + u'∴' + row.Text(1) : u"0∴"_s;
    };
    const QString bank = find(u"tKind"_s, u"030201"_s), cash = find(u"tKind"_s, u"0301"_s);
    const QString income = find(u"tKind"_s, u"0102"_s), office = find(u"tKind"_s, u"0201"_s);
    const QString customer = find(u"tSubAcc"_s, u"01"_s);
    return {u"1∴青禾设计二期首付款∴"_s + bank + u"∴1∴30000∴∴2016-09-17∴10:21∴首付款⊙合同号：98∴1∴"_s +
                income + u"∴0∴∴∴1∴"_s,
            u"2∴客户来访午餐∴"_s + cash + u"∴-1∴326.50∴∴2016-09-17∴12:46∴∴1∴"_s + office + u"∴0∴∴∴1∴"_s,
            u"3∴退回押金∴"_s + cash + u"∴1∴500∴∴2016-09-20∴08:47∴∴1∴0∴∴"_s + customer + u"∴500∴-1∴"_s,
            u"4∴已删分类的一笔∴32000∴无此分类∴1∴36∴∴2016-09-21∴09:08∴∴1∴0∴∴0∴∴∴1∴"_s};
}

void SeeOutage(Tour& tour) {
    tour.Add(
        u"books left"_s, [] { return WindowWith("barTip"); },
        [](QWidget* w) {
            qputenv("JOT_WEB_BASE", Service().Base().toLatin1());
            Web().send = NetworkSend();
            State().settings.sWebName = u"lin"_s;
            State().settings.sWebPass = u"geheim"_s;
            Service().book = CurrentBook().Name;
            Service().entries = Entries();
            Service().moods = {{u"getListCount.asp"_s, Mood::reset}};
            Click(Tab(w, u"网  账"_s));
        });
    tour.Add(u"web page"_s, WebInFront, [&tour](QWidget* page) {
        tour.Picture(page->window(), u"40-web-empty"_s);
        Commands().webCheck();
    });
    Confirm(tour, u"no network"_s, u"41-web-no-network"_s);
    tour.Add(u"web page without a network"_s, WebInFront, [&tour](QWidget* page) {
        tour.Picture(page->window(), u"42-web-outage"_s);
        Service().moods.clear();
        Commands().webCheck();
    });
}

void FetchAndPost(Tour& tour) {
    tour.Add(
        u"the count"_s, [] { return State().web.count == u"4" ? WebInFront() : nullptr; },
        [&tour](QWidget* page) {
            Service().moods = {{u"getListData.asp"_s, Mood::late}};
            Click(Control(page, "btnCheck"));
            tour.Picture(page->window(), u"43-web-fetching"_s);
        });
    Confirm(tour, u"entries received"_s, u"44-web-received"_s);
    tour.Add(
        u"waiting entries"_s,
        [] {
            auto* page = WebInFront();
            return page && ListOf(page)->RowCount() == 4 ? page : nullptr;
        },
        [&tour](QWidget* page) {
            tour.Picture(page->window(), u"45-web-waiting"_s);
            Click(Control(page, "btnToBill"));
        });
    Confirm(tour, u"question before posting"_s);
    Confirm(tour, u"all posted"_s);
    tour.Add(
        u"history"_s,
        [] {
            auto* page = WebInFront();
            return page && ListOf(page, 1)->RowCount() == 4 ? page : nullptr;
        },
        [&tour](QWidget* page) {
            auto* strip = Control(page, "KestroScrollMenu1");
            for (const int key : {Qt::Key_Home, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
                Key(strip, key);
            tour.Picture(page->window(), u"46-web-history"_s);
            if (ListOf(page, 1)->Cell(3, 9) != u"未入账") return tour.Fail(u"an unknown kind was posted"_s);
            Click(Control(page, "btnSet"));
        });
}

void UploadAndLook(Tour& tour) {
    Confirm(tour, u"question before the upload"_s);
    Confirm(tour, u"uploaded"_s, u"47-web-uploaded"_s);
    tour.Add(u"web page at the end"_s, WebInFront, [&tour](QWidget* page) {
        if (Service().uploads.size() != 1 || !Service().uploads[0][u"txtKind"_s].contains(u"∴0301∴现金"_s))
            return tour.Fail(u"the upload has not arrived as expected"_s);
        Click(Tab(page->window(), u"记  账"_s));
    });
    tour.Add(
        u"entries from the web"_s,
        [] {
            auto* page = PageInFront(kPageAccount);
            if (!page || State().gBusy) return static_cast<QWidget*>(nullptr);
            for (int row = 0; row < ListOf(page)->RowCount(); ++row)
                if (ListOf(page)->RowCells(row).contains(u"客户来访午餐"_s)) return page;
            return static_cast<QWidget*>(nullptr);
        },
        [&tour](QWidget* page) { tour.Picture(page->window(), u"48-web-entries"_s); });
}

}  // namespace

void SeeWeb(Tour& tour) {
    SeeOutage(tour);
    FetchAndPost(tour);
    UploadAndLook(tour);
}
