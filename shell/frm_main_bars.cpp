// Status bar and keys of the frame.

#include "shell/addresses.h"
#include "shell/book_switch.h"
#include "shell/commands.h"
#include "shell/controls/kestro_pgress.h"
#include "shell/controls/kestro_status_bar.h"
#include "shell/controls/kestro_text.h"
#include "shell/frm_main.h"
#include "shell/job_yield.h"
#include "shell/menus.h"
#include "store/errors.h"
#include "store/job.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/state.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {
enum Panel { kSearchPanel, kWebPanel, kWaitingPanel, kWebNamePanel, kBoxPanel };
}

void frmMain::BuildStatusBar() {
    barTip = new KestroStatusBar(this);
    barTip->AddPanel(u"搜索"_s, 230);
    barTip->AddPanel(u"网账：未连接"_s, 120);
    barTip->AddPanel(u"未收网账： 笔"_s, 140, false, u"new"_s);
    barTip->AddPanel({}, 30, false, u"money"_s);
    barTip->AddPanel(u" 账本盒位置："_s + State().settings.sDBPath, 40, true);
    barTip->SetPanelDot(kWebPanel, StatusDot::warn);
    barTip->setToolTip(State().settings.sDBPath + u"\n单击打开【账本盒文件夹】"_s);
    barTip->onClick = [this](int panel) { StatusClicked(panel); };
    txtSearch = new KestroText(TextMode::search, barTip);
    txtSearch->SetPrompt(u"搜索"_s);
    txtSearch->setEnabled(static_cast<bool>(Commands().search));
    txtSearch->onEnter = [this] {
        if (Commands().search) Commands().search(txtSearch->text());
    };
    KestroPGress1 = new KestroPGress(barTip);
    KestroPGress1->onClick = [] { Job::Stop(); };
    KestroPGress1->hide();
    AllowDuringJob(KestroPGress1);
    barTip->SetOver(txtSearch);
    barTip->SetOver(KestroPGress1);
    SetFooter(barTip);
}

void frmMain::StatusClicked(int panel) {
    if (panel == kSearchPanel || panel == kWebPanel) Outside().open(kHomePage);
    if (panel == kBoxPanel) Outside().open(RealPath(State().settings.sDBPath).path);
}

void frmMain::SetWebTip(int kind, const QString& text) {
    if (kind == 0) {
        barTip->SetPanelText(kWebPanel, u"网账：正常"_s);
        barTip->SetPanelDot(kWebPanel, StatusDot::good);
    }
    if (kind == 1) barTip->SetPanelText(kWaitingPanel, u"未收网账："_s + text + u" 笔"_s);
    if (kind == 2) barTip->SetPanelText(kWebNamePanel, State().settings.sWebName);
}

void frmMain::ClearSearch() {
    if (txtSearch) txtSearch->setText({});
}

void frmMain::BuildShortcuts() {
    const auto key = [this](const QKeySequence& keys, std::function<void()> act) {
        auto* shortcut = new QShortcut(keys, this);
        connect(shortcut, &QShortcut::activated, this, [act = std::move(act)] { RunEvent(act); });
    };
    for (int tab = 0; tab < kTabs; ++tab)
        key(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + tab)), [this, tab] { SetFormTab(tab); });
    key(QKeySequence(u"Ctrl+Tab"_s), [this] { NextTab(1); });
    key(QKeySequence(u"Ctrl+Shift+Tab"_s), [this] { NextTab(-1); });
    key(QKeySequence(u"Ctrl+O"_s), [] { OpenDBFile({}); });
    key(QKeySequence(u"F10"_s), [this] { onHeaderButton(u"menu"_s); });
    for (const auto& road : {std::pair{u"Ctrl+N"_s, u"new"_s},
                             {u"Ctrl+E"_s, u"edit"_s},
                             {u"Ctrl+F"_s, u"find"_s},
                             {u"F5"_s, u"reload"_s}})
        key(QKeySequence(road.first), [this, name = road.second] {
            if (auto* page = GetWinhWnd(tab_)) page->DoMenu(u"key"_s, name);
        });
}
