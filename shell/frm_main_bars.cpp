// Status bar of the frame, and its lock while the web ledger is waited for.

#include "shell/commands.h"
#include "shell/controls/kestro_pgress.h"
#include "shell/controls/kestro_status_bar.h"
#include "shell/controls/kestro_text.h"
#include "shell/frm_main.h"
#include "shell/job_yield.h"
#include "store/errors.h"
#include "store/job.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/state.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {
constexpr int kLongestSearch = 200;
enum Panel { kSearchPanel, kWebPanel, kWaitingPanel, kWebNamePanel, kBoxPanel };
}  // namespace

void frmMain::BuildStatusBar() {
    barTip = new KestroStatusBar(this);
    barTip->setObjectName(u"barTip"_s);
    barTip->AddPanel(u"搜索"_s, 230);
    barTip->AddPanel(u"网账：未连接"_s, 120);
    barTip->AddPanel(u"未收网账： 笔"_s, 140, false, u"new"_s);
    barTip->AddPanel({}, 30, false, u"money"_s);
    barTip->AddPanel(u" 账本盒位置："_s + State().settings.sDBPath, 40, true);
    barTip->SetPanelDot(kWebPanel, StatusDot::warn);
    barTip->setToolTip(State().settings.sDBPath + u"\n单击打开【账本盒文件夹】"_s);
    barTip->onClick = [this](int panel) { StatusClicked(panel); };
    txtSearch = new KestroText(TextMode::search, barTip);
    txtSearch->setObjectName(u"txtSearch"_s);
    txtSearch->SetPrompt(u"搜索"_s);
    txtSearch->setEnabled(static_cast<bool>(Commands().search));
    txtSearch->setToolTip(
        u"1.搜记账、记事/提醒、其它\n2.搜索结果形成网页\n3.模糊搜索，搜标题和内容\n4.回车开始搜索\n"
        u"5.单击进度条停止搜索“"_s);
    txtSearch->setMaxLength(kLongestSearch);
    txtSearch->onEnter = [this] { RunSearch(); };
    txtSearch->onEndButton = [this] { RunSearch(); };
    txtSearch->onEmptied = [] {};
    KestroPGress1 = new KestroPGress(barTip);
    KestroPGress1->setObjectName(u"KestroPGress1"_s);
    KestroPGress1->onClick = [this] {
        if (State().gBusy) return Job::Stop();
        if (locked_) RunEvent(Commands().webStop);
    };
    KestroPGress1->hide();
    AllowDuringJob(KestroPGress1);
    barTip->SetOver(txtSearch);
    barTip->SetOver(KestroPGress1);
    SetFooter(barTip);
}

void frmMain::SetWebTip(int kind, const QString& text) {
    switch (kind) {
        case 0:
            barTip->SetPanelText(kWebPanel, u"网账："_s + text);
            return barTip->SetPanelDot(kWebPanel, text == u"正常" ? StatusDot::good : StatusDot::warn);
        case 1:
            return barTip->SetPanelText(kWaitingPanel, u"未收网账："_s + text + u" 笔"_s);
        case 2:
            return barTip->SetPanelText(kWebNamePanel, text);
        default:
            return;
    }
}

void frmMain::SetLocked(bool locked) {
    if (locked == locked_) return;
    locked_ = locked;
    if (locked) focusBeforeLock_ = focusWidget();
    for (auto* page : pages_)
        if (page) page->SetLocked(locked);
    stopKey_->setEnabled(locked);
    ShowWaiting(locked && tab_ != kTabWeb);
    txtSearch->setEnabled(!locked && Commands().search);
    for (const auto& name : {u"logo"_s, u"label"_s, u"web"_s, u"calculator"_s, u"menu"_s})
        HeaderWidget(name)->setEnabled(!locked);
    for (int tab = 0; tab < kTabs; ++tab)
        SetTabEnabled(tab, !locked && HasPageFactory(tab));
    if (locked) return;
    if (focusBeforeLock_ && focusBeforeLock_->isVisible())
        focusBeforeLock_->setFocus();
    else if (auto* page = GetWinhWnd(tab_))
        page->TakeFocus();
}

void frmMain::ShowWaiting(bool waiting) {
    KestroPGress1->SetWaiting(waiting ? u"正在连接网站…"_s : QString());
    KestroPGress1->setVisible(waiting);
    txtSearch->setVisible(!waiting);
}

void frmMain::StatusClicked(int panel) {
    if (locked_) return;
    const bool onBox = txtSearch->geometry().contains(barTip->mapFromGlobal(QCursor::pos()));
    if (panel == kWebPanel || (panel == kSearchPanel && !onBox)) RunEvent(Commands().webHome);
    if (panel == kBoxPanel) Outside().open(RealPath(State().settings.sDBPath).path);
}

// The bar stands in the place of the box while the search runs.
void frmMain::RunSearch() {
    if (!Commands().search) return;
    Commands().search(txtSearch->text(), {.start =
                                              [this](int maximum) {
                                                  KestroPGress1->SetMaximum(maximum);
                                                  KestroPGress1->SetValue(1);
                                                  KestroPGress1->show();
                                                  txtSearch->hide();
                                              },
                                          .value = [this](int value) { KestroPGress1->SetValue(value); },
                                          .end =
                                              [this] {
                                                  KestroPGress1->hide();
                                                  txtSearch->show();
                                                  txtSearch->setFocus();
                                              }});
}

void frmMain::ClearSearch() {
    if (txtSearch) txtSearch->setText({});
}
