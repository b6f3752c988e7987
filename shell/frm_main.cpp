#include "shell/frm_main.h"

#include "shell/addresses.h"
#include "shell/book_switch.h"
#include "shell/commands.h"
#include "shell/controls/kestro_calculator.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/frm_main_actions.h"
#include "shell/menus.h"
#include "shell/skin.h"
#include "store/book_box.h"
#include "store/dialogs.h"
#include "store/due.h"
#include "store/errors.h"
#include "store/job.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/settings_file.h"
#include "store/state.h"

#include <QApplication>
#include <QMetaObject>
#include <QShortcut>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTickMs = 5000;
constexpr int kCheckEvery = 120;
constexpr int kAfterJobMs = 100;

const QStringList& TabCaptions() {
    static const QStringList captions{u"记  账"_s, u"账  户"_s, u"网  账"_s,
                                      u"统  计"_s, u"记  事"_s, u"设  置"_s};
    return captions;
}

}  // namespace

frmMain::frmMain() {
    setWindowIcon(Skin::WindowIcon());
    MyTrak.hwnd = this;
    MyTrak.ReceMsg = [this](const QString& text, int code, int extra) { MyTrak_ReceMsg(text, code, extra); };
    MyTrak.DragDropFiles = [this](const QString& names, int count) {
        if (locked_) return;
        if (auto* page = GetWinhWnd(kTabAccount)) page->MyTrack_DragDropFiles(count, names);
    };
    TrackAdd(MyTrak);
    SaveForNextStart([] {
        Transaction start(State().gSetDB);  // one flush for both
        SaveSetting(QString::number(State().gRunHandle), kSaveHandle);
        SaveSetting({}, kSaveLogTime);
        start.Commit();
    });
    reminderAfterJob_.setSingleShot(true);
    reminderAfterJob_.setInterval(kAfterJobMs);
    reminderAfterJob_.callOnTimeout([this] { RunEvent([this] { MyTrak_ReceMsg({}, 3, 0); }); });
    Timer1.setInterval(kTickMs);
    Timer1.callOnTimeout([this] { RunEvent([this] { Timer1_Timer(); }); });
    Timer1.start();
    BuildMenus(*this);
    BuildHeader();
    BuildStatusBar();
    BindShortcuts(*this);
    stopKey_ = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    stopKey_->setEnabled(false);
    connect(stopKey_, &QShortcut::activated, this, [] { RunEvent(Commands().webStop); });
    FillHost();
    RefreshBook();
    SetFormTab(kTabAccount);
    if (Commands().tellAgent) Commands().tellAgent(2);
}

frmMain::~frmMain() {
    Host() = {};
    Menus::SetOnMenu({});
    TrackRemove(MyTrak);
}

void frmMain::BuildHeader() {
    SetCaption(u"墨鹊理财专业版"_s, u"v2016.2"_s);
    setWindowTitle(u"墨鹊理财专业版"_s);
    for (int tab = 0; tab < kTabs; ++tab) {
        AddTab(TabCaptions()[tab]);
        SetTabEnabled(tab, HasPageFactory(tab));
    }
    SetDisplayMode(1);
    TakeUpPlace();
    onTab = [this](int tab) {
        KestroToolTip::Hide();
        if (locked_) return;
        SetFormTab(tab);
        if (auto* page = GetWinhWnd(tab)) page->TabClicked();
    };
    onDisplayMode = [this](int mode) {
        SetDisplayMode(mode);
        for (auto* page : pages_)
            if (page) page->SetDisplayMode(mode);
    };
    onHeaderButton = [this](const QString& name) { HeaderButton(name); };
    onLogo = [this] {
        if (due_ > 0 && Commands().openReminders) Commands().openReminders();
    };
    onClose = [this] {
        if (MayLeave(u"有进程在运行，不可退出!"_s)) Unload();
    };
    HeaderWidget(u"web"_s)->setToolTip(
        u"手机电脑访问墨鹊网站平台记账，并导入到账本，以方便随时随地记账\n打开我的网账"_s);
    HeaderWidget(u"calculator"_s)->setToolTip(u"计算器工具"_s);
    KestroCalculator1 = new KestroCalculator(this);
}

void frmMain::HeaderButton(const QString& name) {
    if (name == u"menu") return OpenMenu();
    if (name == u"web") return RunEvent(Commands().webHome), void();
    if (Outside().calculator && Outside().calculator()) return;
    KestroCalculator1->Open(HeaderWidget(name), State().settings.nGroup);
}

void frmMain::OpenMenu() {
    const auto* button = HeaderWidget(u"menu"_s);
    Menus::Popup(u"File"_s, button->mapToGlobal(button->rect().bottomLeft()));
}

void frmMain::FillHost() {
    Host().page = [this](int tab) { return GetWinhWnd(tab); };
    Host().show = [this](int tab) { SetFormTab(tab); };
    Host().dropOtherPages = [this] {
        if (tab_ != kTabAccount) SetFormTab(kTabAccount);
        for (int tab = kTabSubAcc; tab < kTabs; ++tab)
            DropPage(tab);
    };
    Host().refresh = [this] { RefreshBook(); };
    if (HasDialog(kDlgBook)) onBookLabel = [this] { OpenBook(); };
    booksChanged_ = Notices().booksChanged.Subscribe([this] { ShowBookLabel(); });
    groupingChanged_ = Notices().groupingChanged.Subscribe([this] { pRESETGROUP(); });
    remindersChanged_ = Notices().remindersChanged.Subscribe([this] { SetLogoNumber(); });
    webTip_ = Notices().webTip.Subscribe([this](int kind, const QString& text) { SetWebTip(kind, text); });
    webBusy_ = Notices().webBusy.Subscribe([this](bool busy) { SetLocked(busy); });
}

void frmMain::SetFormTab(int index) {
    if (index < 0 || index >= kTabs || index == tab_ || !HasPageFactory(index)) return;
    ShowPage(index, true);
    if (tab_ >= 0) ShowPage(tab_, false);
    tab_ = index;
    SelectTab(index);
    if (locked_) ShowWaiting(tab_ != kTabWeb);
    GetWinhWnd(index)->TakeFocus();
    GetWinhWnd(index)->Shown();
}

Page* frmMain::LoadPage(int index) {
    auto& page = pages_.at(static_cast<size_t>(index));
    if (!page) {
        page = MakePage(index, Body());
        page->SetDisplayMode(DisplayMode());
        page->SetLocked(locked_);
        TakeUpColumns(index);
    }
    return page;
}

void frmMain::ShowPage(int index, bool show) {
    Page* page = show ? LoadPage(index) : GetWinhWnd(index);
    if (!page) return;
    if (show) State().gPage = CodeOfTab(index);
    if (show) page->setGeometry(Body()->rect());
    page->setVisible(show);
}

void frmMain::resizeEvent(QResizeEvent* event) {
    KestroForm::resizeEvent(event);
    if (auto* page = tab_ < 0 ? nullptr : GetWinhWnd(tab_)) page->setGeometry(Body()->rect());
}

void frmMain::NextTab(int step) {
    for (int tab = (tab_ + step + kTabs) % kTabs; tab != tab_; tab = (tab + step + kTabs) % kTabs)
        if (HasPageFactory(tab)) return SetFormTab(tab);
}

void frmMain::SetLogoNumber() {
    // A note that cannot be read keeps nobody from the entries.
    RunEvent([this] { due_ = DueCount(); });
    SetBadge(due_);
    if (auto* logo = HeaderWidget(u"logo"_s))
        logo->setToolTip(due_ > 0 ? u"您有【"_s + QString::number(due_) + u"】个提醒或需要处理事项!"_s
                                  : QString());
}

void frmMain::RefreshBook() {
    ShowBookLabel();
    ClearSearch();
    SetLogoNumber();
}

void frmMain::ShowBookLabel() {
    const auto& book = CurrentBook();
    SetBookLabel(u"账本: "_s + book.Name);
    if (auto* label = HeaderWidget(u"label"_s))
        label->setToolTip(u"账本版本: 【"_s + book.Version + u"】\n核算年度: 【"_s +
                          QString::number(book.Year) + u"】\n单击【查看、修改、备份】账本\n账本位置："_s +
                          book.Path);
}

void frmMain::OpenBook() {
    if (IsBusy()) return;
    ResetDlg(kDlgBook);
    BookDialog record;
    record.isNew = 0;
    record.path = FileOf(CurrentBook()).path;
    OpenModal(kDlgBook);
}

void frmMain::pRESETGROUP() {
    for (auto* page : pages_)
        if (page) page->pRESETGROUP();
}

// The day changes by itself.
void frmMain::LookWhatIsDue() {
    if (State().gBusy) return;
    int now = due_;
    if (Succeeds([&] { now = DueCount(); }) && now != due_) Notices().remindersChanged.Emit();
}

void frmMain::Timer1_Timer() {
    LookWhatIsDue();
    if (timerTag_.isEmpty()) timerTag_ = QString::number(kCheckEvery);
    const int ticks = timerTag_.toInt();
    if (ticks < kCheckEvery) {
        timerTag_ = QString::number(ticks + 1);
        return;
    }
    timerTag_ = u"1"_s;
    if (Commands().webCheck) Commands().webCheck();
}

void frmMain::ResetHeadIco() {
    if (Commands().closeReminders) Commands().closeReminders();
    if (Commands().resetHeadIco) Commands().resetHeadIco();
}

void frmMain::MyTrak_ReceMsg(const QString&, int code, int) {
    switch (code) {
        case 1:
            BringToFront();
            return TakeHandedBook();
        case 2:
            return update();
        case 3:
            if (State().gBusy) return reminderAfterJob_.start();
            SetLogoNumber();
            if (auto* notes = PageOfCode(kPageNote)) notes->pTRANSACCOUNT();
            return;
        case 16:
            return BringToFront();
        default:
            return;
    }
}

void frmMain::BringToFront() {
    if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
    if (windowHandle()) windowHandle()->requestActivate();
}

void frmMain::TakeHandedBook() {
    if (State().gPopups > 0 || QApplication::activeModalWidget()) {
        ShowMsg(u"当前有【弹出窗口】正在操作, 无法打开!"_s);
        return;
    }
    const QString path = HandedOverPath();
    if (path.isEmpty()) return;
    OpenDBFile(path);
}

bool frmMain::MayLeave(const QString& refusal) {
    if (!State().gBusy) return true;
    ShowMsg(refusal);
    return false;
}

bool frmMain::FinishApp() {
    if (!MayLeave(u"有别的进程在运行，不可退出!"_s)) return false;
    Unload();
    return true;
}

void frmMain::DropPage(int tab) {
    auto& page = pages_.at(static_cast<size_t>(tab));
    if (!page) return;
    KeepColumns(tab);
    delete page;
    page = nullptr;
}

void frmMain::Unload() {
    SaveForNextStart([] { SaveSetting(CurrentBook().Path, kSaveLastBook); });
    Timer1.stop();
    TrackRemove(MyTrak);
    KeepPlace();
    if (Commands().closeReminders) Commands().closeReminders();
    for (const Tab tab : {kTabAccount, kTabSubAcc, kTabStats, kTabNote, kTabSetting, kTabWeb})
        DropPage(tab);
    hide();
    if (Commands().closeAll) Commands().closeAll();
    if (Commands().tellAgent) {
        Commands().tellAgent(1);
        Commands().tellAgent(3);
    }
    if (onUnloaded) onUnloaded();
}
