#pragma once
// frmTJ: the page of statistics. Four modes, each with its own list, bounds and caption; a switch between
// them computes nothing and loses nothing.

#include "shell/parts/fresh_view.h"
#include "shell/parts/strip_page.h"
#include "stats/period_report.h"
#include "stats/report_mode.h"
#include "store/notices.h"

#include <array>

class KestroButton;
class KestroCombox;
class KestroLabel;
class KestroOption;
class PageJobBar;
class PeriodButtons;
class QHBoxLayout;
class Toolbar;

class frmTJ : public StripPage {
 public:
    explicit frmTJ(QWidget* parent);

    void Shown() override;
    void TakeFocus() override;
    bool Can(Act act) const override;
    void Do(Act act) override;
    void pRESETGROUP() override;
    void SetPeriod(const Period& period) override;
    std::vector<KestroList*> Lists() const override;

    void ShowMode(const QString& mode);
    /// Fills the two choosers; what is chosen stays while its row stands.
    void LoadComkindData();

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    /// What the page remembers of a mode.
    struct ModeState {
        Period period;
        QString title;
        bool ran = false;
        bool stale = false;  ///< the book has changed since it ran
    };

    void BuildStrip();
    void BuildChoosers();
    void BuildLists();
    void LayOut();
    void PutMore(QHBoxLayout& row);
    void Arrange();
    KestroCombox* MakeChooser(Chart chart);
    KestroList* MakeList(const ReportModeRow& mode);
    void FillChooser(KestroCombox* box, Chart chart, QString& code);
    void OpenTree(Chart chart);
    void Run();
    std::array<std::pair<KestroOption*, PeriodLength>, 3> LengthOptions() const {
        return {
            {{optYear, PeriodLength::year}, {optMonth, PeriodLength::month}, {optDay, PeriodLength::day}}};
    }
    PeriodQuestion Question() const;
    void ShowReport(const Report& report);
    void ShowTitle();
    void MarkStale();
    void Export(Act act);
    void Print(bool preview);
    ModeState& Now() { return states_[static_cast<size_t>(mode_)]; }
    const ReportModeRow& Row() const { return ModeRow(mode_); }
    KestroList* List() const { return lists_[static_cast<size_t>(mode_)]; }
    size_t SideOfMode() const { return Row().chart == Chart::kinds ? 0 : 1; }

    KestroCombox* comKind;
    KestroCombox* comAcc;
    QWidget* lengths_;
    KestroOption* optYear;
    KestroOption* optMonth;
    KestroOption* optDay;
    PeriodButtons* period_;
    KestroButton* btnEnter;
    Toolbar* toolbar_;
    KestroButton* btnPrint;
    KestroButton* btnExport;
    KestroLabel* lblTip;
    QHBoxLayout* asked_ = nullptr;
    QHBoxLayout* more_ = nullptr;
    bool narrow_ = false;  ///< the second half of asked_ stands in more_
    PageJobBar* KestroPGress1;
    std::array<KestroList*, 4> lists_{};  ///< in the order of ReportMode

    ReportMode mode_ = ReportMode::kind;
    std::array<ModeState, 4> states_;
    std::array<PeriodLength, 2> bPeriod{PeriodLength::month, PeriodLength::month};  ///< of kinds and accounts
    QString sKindKey, sAccKey;
    FreshView fresh_;
    std::vector<NoticeToken> notices_;
};
