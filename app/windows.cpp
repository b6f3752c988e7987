#include "app/windows.h"

#include "app/channel.h"
#include "app/desktop.h"
#include "app/frm_about.h"
#include "app/frm_login.h"
#include "app/quiet_close.h"
#include "app/startup.h"
#include "books/frm_book_new.h"
#include "books/frm_export.h"
#include "books/frm_setting.h"
#include "chart/frm_tree.h"
#include "ledger/frm_account.h"
#include "ledger/frm_account_new.h"
#include "ledger/frm_account_template.h"
#include "ledger/frm_sub_acc.h"
#include "notes/frm_note.h"
#include "notes/frm_note_new.h"
#include "notes/frm_wake.h"
#include "output/frm_print.h"
#include "output/search.h"
#include "pictures/frm_import.h"
#include "shell/addresses.h"
#include "shell/commands.h"
#include "shell/frm_main.h"
#include "shell/input_dialog.h"
#include "shell/job_yield.h"
#include "shell/message_box.h"
#include "shell/page.h"
#include "stats/frm_tj.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/places.h"
#include "store/state.h"
#include "web/frm_web_acc.h"
#include "web/web_ledger.h"

#include <QApplication>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Windows {
    std::unique_ptr<frmLogin> login;
    std::unique_ptr<frmMain> main;
    NoticeToken reminders;
    NoticeToken books;
};

// DropWindows ends them. Where the display is gone the toolkit ends the process at once, and with the display
// what they stand on.
Windows& Open() {
    static auto* const windows = new Windows;
    return *windows;
}

void Raise(QWidget* window) {
    window->setWindowState((window->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    window->show();
    window->raise();
    window->activateWindow();
}

// A book for a login is not opened behind the user's back: its window comes to the front.
void TakeMessage(const ChannelMessage& m) {
    if (!m.token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", m.token.toUtf8());
    auto& open = Open();
    if (open.main && (m.code == kCodeRaise || m.handle == State().gRunHandle)) {
        open.main->MyTrak.RaiseReceMsg({}, m.code, m.extra);
        if (m.code == kCodeReminders) TellDueCount();
    } else if (!open.main && open.login && (m.code == kCodeRaise || m.code == kCodeOpenBook)) {
        Raise(open.login.get());
    }
    qunsetenv("XDG_ACTIVATION_TOKEN");  // used up; programs started later must not take it
}

void ShowMain() {
    Open().main = std::make_unique<frmMain>();
    Open().main->onUnloaded = [] {
        MainChannel().Close();
        Web().Drop();
        QApplication::quit();
    };
    Open().main->show();
    Open().reminders = Notices().remindersChanged.Subscribe([] { TellDueCount(); });
    Open().books = Notices().booksChanged.Subscribe([] { TellDueCount(); });
    TellDueCount();
}

void DropMain() {
    Open().reminders.reset();
    Open().books.reset();
    Open().main.reset();
    Host() = {};
}

// A main window that cannot be shown gives the choice of a book back.
void Enter() {
    const bool shown = RunEvent([] { ShowMain(); });
    if (!shown) DropMain();
    Open().login.release()->deleteLater();
    if (!shown) ShowLogin();
}

void OpenWebHome() {
    const QString address = WebHomePage();
    if (address.isEmpty())
        ShowMsg(u"未设置网账服务的地址!"_s);
    else
        OpenAddress(address);
}

void RegisterCommands() {
    auto& commands = Commands();
    commands.tellAgent = [](int code) { TellAgent(code); };
    commands.closeAll = [] { CloseAll(); };
    commands.about = [] { ShowAbout(); };
    commands.openSettings = [](const QString& key) {
        if (auto* page = PageOfCode(kPageSetting)) page->OpenSub(key);
    };
    commands.webCheck = [] { Web().Check(); };
    commands.webStop = [] { Web().Stop(); };
    commands.webHome = [] { OpenWebHome(); };
    commands.webValidate = [](const QString& user, const QString& pass) {
        Web().Begin(WebTalk::validate, user, pass);
    };
    Web().isInFront = [] { return QApplication::activeModalWidget() || QApplication::activePopupWidget(); };
    commands.newBook = [] {
        if (!Host().show) return;
        Host().show(kTabSetting);
        if (auto* page = dynamic_cast<frmSetting*>(Host().page(kTabSetting))) page->pDoScrollMenu();
    };
    // The window that asks is one of those that go.
    commands.closeProgram = [] {
        QTimer::singleShot(0, qApp, [] {
            RunEvent([] {
                if (Open().main) Open().main->FinishApp();
            });
        });
    };
    commands.search = [](const QString& text, const JobBar& bar) { RunSearch(text, bar); };
    commands.openReminders = [] { OpenReminders(); };
    commands.closeReminders = [] { CloseReminders(); };
    commands.resetHeadIco = [] { Outside().launch(BesideProgram(u"JotIco"_s), {}, ProgramFolder()); };
}

}  // namespace

void TellDueCount() {
    if (Open().main) TellAgent(kCodeDueCount, Open().main->LogoNumber());
}

void RegisterWindows() {
    InstallDesktop();
    InstallJobYield();
    InstallMessageBox();
    RegisterCommands();
    RegisterPage(kTabAccount, [](QWidget* parent) { return new frmAccount(parent); });
    RegisterPage(kTabSubAcc, [](QWidget* parent) { return new frmSubAcc(parent); });
    RegisterPage(kTabWeb, [](QWidget* parent) { return new frmWebAcc(parent); });
    RegisterPage(kTabStats, [](QWidget* parent) { return new frmTJ(parent); });
    RegisterPage(kTabNote, [](QWidget* parent) { return new frmNote(parent); });
    RegisterPage(kTabSetting, [](QWidget* parent) { return new frmSetting(parent); });
    RegisterDialog(kDlgEntry, OpenEntryDialog);
    RegisterDialog(kDlgTemplate, OpenTemplateDialog);
    RegisterDialog(kDlgBook, OpenBookDialog);
    RegisterDialog(kDlgBackup, OpenBackupDialog);
    RegisterDialog(kDlgPictures, OpenPictureDialog);
    RegisterDialog(kDlgNote, OpenNoteDialog);
    RegisterDialog(kDlgInput, OpenInputDialog);
    RegisterDialog(kDlgPrint, OpenPrintPreview);
    RegisterDialog(kDlgTree, OpenTreeDialog);
}

void ShowLogin() {
    Open().login = std::make_unique<frmLogin>();
    Open().login->onEntered = [] { Enter(); };
    Open().login->onLeft = [] { QApplication::quit(); };
    Open().login->show();
    MainChannel().onMessage = TakeMessage;
}

void EndQuietly() {
    CloseQuietly([] {
        if (Open().main)
            Open().main->FinishApp();
        else if (Open().login)
            Open().login->BtnCancelClicked();
        else
            QApplication::quit();
    });
}

void DropWindows() {
    MainChannel().Close();
    Web().Drop();
    Web().send = {};
    Web().isInFront = {};
    Open().login.reset();
    DropMain();
}
