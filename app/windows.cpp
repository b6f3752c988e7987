#include "app/windows.h"

#include "app/desktop.h"
#include "app/frm_about.h"
#include "app/frm_login.h"
#include "app/single_instance.h"
#include "app/startup.h"
#include "books/frm_setting.h"
#include "chart/frm_tree.h"
#include "ledger/frm_account.h"
#include "ledger/frm_account_new.h"
#include "ledger/frm_account_template.h"
#include "ledger/frm_sub_acc.h"
#include "shell/commands.h"
#include "shell/frm_main.h"
#include "shell/input_dialog.h"
#include "shell/job_yield.h"
#include "shell/message_box.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/outside.h"
#include "store/places.h"
#include "store/state.h"

#include <QApplication>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Windows {
    std::unique_ptr<frmLogin> login;
    std::unique_ptr<frmMain> main;
    ChannelServer channel;
    NoticeToken reminders;
    NoticeToken books;
};

Windows& Open() {
    static Windows windows;
    return windows;
}

void TellDueCount() {
    if (Open().main) TellAgent(kCodeDueCount, Open().main->LogoNumber());
}

void ListenForOthers() {
    auto& channel = Open().channel;
    channel.onMessage = [](const ChannelMessage& m) {
        if (m.handle != State().gRunHandle || !Open().main) return;
        if (!m.token.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", m.token.toUtf8());
        Open().main->MyTrak.RaiseReceMsg({}, m.code, m.extra);
        qunsetenv("XDG_ACTIVATION_TOKEN");  // used up; programs started later must not take it
        if (m.code == kCodeReminders) TellDueCount();
    };
    channel.Listen(ChannelName(u"main"_s));
}

void ShowMain() {
    Open().main = std::make_unique<frmMain>();
    Open().main->onUnloaded = [] {
        Open().channel.Close();
        QApplication::quit();
    };
    ListenForOthers();
    Open().main->show();
    Open().reminders = Notices().remindersChanged.Subscribe([] { TellDueCount(); });
    Open().books = Notices().booksChanged.Subscribe([] { TellDueCount(); });
    TellDueCount();
}

void RegisterCommands() {
    auto& commands = Commands();
    commands.tellAgent = [](int code) { TellAgent(code); };
    commands.closeAll = [] { CloseAll(); };
    commands.about = [] { ShowAbout(); };
    commands.openSettings = [](const QString& key) {
        if (auto* page = PageOfCode(kPageSetting)) page->OpenSub(key);
    };
    commands.resetHeadIco = [] { Outside().launch(BesideProgram(u"JotIco"_s), {}, ProgramFolder()); };
}

}  // namespace

void RegisterWindows() {
    InstallDesktop();
    InstallJobYield();
    InstallMessageBox();
    RegisterCommands();
    RegisterPage(kTabAccount, [](QWidget* parent) { return new frmAccount(parent); });
    RegisterPage(kTabSubAcc, [](QWidget* parent) { return new frmSubAcc(parent); });
    RegisterPage(kTabSetting, [](QWidget* parent) { return new frmSetting(parent); });
    RegisterDialog(kDlgEntry, OpenEntryDialog);
    RegisterDialog(kDlgTemplate, OpenTemplateDialog);
    RegisterDialog(kDlgInput, OpenInputDialog);
    RegisterDialog(kDlgTree, OpenTreeDialog);
}

void ShowLogin() {
    Open().login = std::make_unique<frmLogin>();
    Open().login->onEntered = [] {
        RunEvent([] { ShowMain(); });
        if (!Open().main) QApplication::exit(1);
        Open().login.release()->deleteLater();
    };
    Open().login->onLeft = [] { QApplication::quit(); };
    Open().login->show();
}

void DropWindows() {
    Open().reminders.reset();
    Open().books.reset();
    Open().login.reset();
    Open().main.reset();
}
