#include "tools/bench/click_bench.h"

#include "chart/codes.h"
#include "ledger/entry_query.h"
#include "ledger/frm_account.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "store/dialogs.h"
#include "store/state.h"
#include "tools/bench/book_bench.h"
#include "tools/bench/stage.h"

#include <QDialog>
#include <QKeyEvent>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSomeLine = 5000;

/// Waits for the first painting of the next dialog, then hands it over and closes what is left of it.
class NextDialog : public QObject {
 public:
    explicit NextDialog(std::function<void(QDialog&)> inside) : inside_(std::move(inside)) {
        qApp->installEventFilter(this);
    }
    double shownAt = 0;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint || dialog_) return false;
        dialog_ = dynamic_cast<QDialog*>(watched);
        if (dialog_) QTimer::singleShot(0, dialog_, [this] { Hand(); });
        return false;
    }

 private:
    void Hand() {
        shownAt = Moment();
        if (inside_) inside_(*dialog_);
        if (dialog_->isVisible()) dialog_->reject();
    }

    std::function<void(QDialog&)> inside_;
    QDialog* dialog_ = nullptr;
};

double UntilShown(const std::function<void()>& open) {
    NextDialog next({});
    const double from = Moment();
    open();
    return next.shownAt - from;
}

void PressEnter(QWidget* box) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent key(type, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(box, &key);
    }
}

void PickSomeKind(QWidget& window) {
    const auto kinds = ShownRows(State().gDB, Chart::kinds);
    auto* box = Control<KestroCombox>(window, u"comKind"_s);
    const auto& kind = kinds[kinds.size() / 3];
    box->SetCurrentKey(kind.code);
    box->onChoose(kind.code + kind.name, kind.code);
}

class Clicks {
 public:
    Clicks(SpeedTable& table, int entries, int runs) : table_(table), entries_(entries), runs_(runs) {}

    void Filters() {
        auto* strip = Control<KestroScrollMenu>(Page(), u"KestroScrollMenu1"_s);
        auto* flag = Control<KestroCheck>(Page(), u"chkFlag"_s);
        auto* search = Control<KestroText>(Page(), u"txtSearch"_s);
        Painted(u"reload"_s, kClickBound, [&] { Page().Do(Act::reload); });
        search->setText(u"货款"_s);
        Painted(u"search"_s, kClickBound, [&] { search->onEnter(); });
        search->setText({});
        Painted(u"a kind in the strip"_s, kClickBound, [&] { strip->onClick(u"title3"_s, kMeasuredKind); });
        Painted(u"reload of that kind"_s, kClickBound, [&] { Page().Do(Act::reload); });
        Painted(u"all filters off, book read anew"_s, kClickBound, [&] { Page().pTRANSACCOUNT(); });
        Painted(u"only marked entries"_s, kClickBound, [&] { flag->onChange(true); });
        Page().SetPeriod({QDate(2016, 1, 1), QDate(2016, 12, 31)});
        Painted(u"a year"_s, kClickBound, [&] { Page().Do(Act::runPeriod); });
        Page().pTRANSACCOUNT();
    }

    void Pages() {
        auto* pages = Control<KestroCombox>(Page(), u"comPage"_s);
        const int last = (entries_ - 1) / kLinesPerPage;
        const auto turn = [&](int page) {
            const QString first = u"0"_s;
            if (page == 0) return;
            Measured(page == last ? u"the last page"_s : u"page 2"_s,
                     page == last ? kLastPageBound : kClickBound, [&] {
                         pages->onChoose({}, first);
                         return Milliseconds([&] {
                             pages->onChoose({}, QString::number(page));
                             List()->viewport()->repaint();
                         });
                     });
        };
        if (last > 1) turn(1);
        turn(last);
        Page().pTRANSACCOUNT();
    }

    void Lines() {
        Painted(u"down one line, with its detail"_s, kClickBound, [&] { Stand(kSomeLine); });
        bool ascending = false;
        Painted(u"sorted by the amount"_s, kClickBound, [&] {
            ascending = !ascending;
            List()->SortBy(3, ascending);
        });
        Page().pTRANSACCOUNT();
    }

    void Windows() {
        Stand(kSomeLine);
        const auto opens = [&](const QString& name, const std::function<void()>& open) {
            Measured(name, kWindowBound, [&] { return UntilShown(open); });
        };
        opens(u"新增 until its window shows"_s, [&] { Page().Do(Act::add); });
        opens(u"修改 until its window shows"_s, [&] { Page().Do(Act::edit); });
        opens(u"the tree of kinds"_s, [&] {
            ResetDlg(kDlgTree);
            TreeDialog().key = u"tKind"_s;
            OpenModal(kDlgTree);
        });
        opens(u"the templates"_s, [&] { OpenModal(kDlgTemplate); });
        Measured(u"a kind picked in the entry window"_s, kClickBound, [&] {
            double time = 0;
            NextDialog next([&](QDialog& window) {
                time = Milliseconds([&] {
                    PickSomeKind(window);
                    window.repaint();
                });
            });
            Page().Do(Act::add);
            return time;
        });
    }

    /// The confirmation is answered at once.
    void Save() {
        const Consent consent;
        Measured(u"Enter until the new line stands, with its sums"_s, kWindowBound, [&] {
            double from = 0;
            NextDialog next([&](QDialog& window) {
                auto* thing = Control<KestroText>(window, u"txtThing"_s);
                thing->setText(u"支付货款"_s);
                Control<KestroText>(window, u"txtMoney"_s)->setText(u"350.5"_s);
                PickSomeKind(window);
                from = Moment();
                PressEnter(thing);
            });
            Page().Do(Act::add);
            Page().repaint();
            List()->viewport()->repaint();
            return Moment() - from;
        });
    }

 private:
    frmAccount& Page() { return *stage_.content; }
    KestroList* List() { return Control<KestroList>(Page(), u"KestroList1"_s); }

    void Stand(int line) {
        const int row = List()->CurrentRow() == line ? line + 1 : line;
        List()->SetCurrentRow(row);
        List()->onCurrent(row);
    }

    void Measured(const QString& name, double bound, const std::function<double()>& once) {
        table_.Add({u"click: "_s + name, entries_, MedianTime(runs_, once), 0, u"ms"_s, bound});
    }

    void Painted(const QString& name, double bound, const std::function<void()>& click) {
        Measured(name, bound, [&] {
            return Milliseconds([&] {
                click();
                List()->viewport()->repaint();
            });
        });
    }

    SpeedTable& table_;
    int entries_, runs_;
    Stage<frmAccount> stage_;
};

}  // namespace

void MeasureClicks(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    {
        Clicks clicks(table, entries, runs);
        clicks.Filters();
        clicks.Pages();
        clicks.Lines();
        clicks.Windows();
        clicks.Save();
    }
    State().gDB.Close();
}
