#include "shell/frm_main_actions.h"

#include "shell/actions.h"
#include "shell/addresses.h"
#include "shell/book_switch.h"
#include "shell/commands.h"
#include "shell/frm_main.h"
#include "shell/menus.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/outside.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

Page* PageFor(const frmMain& frame, const Action& action) {
    return action.doer == Doer::entryPage ? frame.GetWinhWnd(kTabAccount)
                                          : frame.GetWinhWnd(frame.CurrentTab());
}

bool FrameCan(const Action& action) {
    switch (action.act) {
        case Act::settings:
            return HasPageFactory(kTabSetting);
        case Act::newBook:
            return static_cast<bool>(Commands().newBook);
        case Act::resetHead:
            return static_cast<bool>(Commands().resetHeadIco);
        case Act::newNote:
            return HasDialog(kDlgNote);
        case Act::templates:
            return HasDialog(kDlgTemplate);
        case Act::about:
            return static_cast<bool>(Commands().about);
        case Act::tab:
            return HasPageFactory(action.key.toInt());
        case Act::period: {
            const auto* page = PageOfCode(State().gPage);
            return page && page->Can(Act::period);
        }
        default:
            return true;
    }
}

void NewNote() {
    ResetDlg(kDlgNote);
    NoteDialog note;
    note.isNew = 1;
    note.mode = u"note"_s;
    OpenModal(kDlgNote);
}

void FrameDoes(frmMain& frame, const Action& action) {
    switch (action.act) {
        case Act::settings:
            return frame.SetFormTab(kTabSetting);
        case Act::resetHead:
            return frame.ResetHeadIco();
        case Act::openBook:
            return OpenDBFile({});
        case Act::newBook:
            return Commands().newBook();
        case Act::newNote:
            return NewNote();
        case Act::templates:
            OpenModal(kDlgTemplate);
            return;
        case Act::about:
            return Commands().about();
        case Act::help:
            OpenAddress(kHelpPage);
            return;
        case Act::exit:
            frame.FinishApp();
            return;
        case Act::period:
            return QuickPeriod(State().gPage, action.key.toLower(), true);
        case Act::tab:
            return frame.SetFormTab(action.key.toInt());
        case Act::nextTab:
            return frame.NextTab(1);
        case Act::previousTab:
            return frame.NextTab(-1);
        case Act::menu:
            return frame.OpenMenu();
        default:
            return;
    }
}

}  // namespace

bool CanDo(const frmMain& frame, const Action& action) {
    if (frame.IsLocked() && action.act != Act::exit) return false;
    if (action.doer == Doer::frame) return FrameCan(action);
    if (action.doer == Doer::preview) return static_cast<bool>(Commands().zoomPreview);
    const auto* page = PageFor(frame, action);
    return page && page->Can(action.act);
}

void DoAction(frmMain& frame, const Action& action) {
    if (!CanDo(frame, action)) return;
    if (action.doer == Doer::frame) return FrameDoes(frame, action);
    if (action.doer == Doer::preview) return Commands().zoomPreview(action.key);
    PageFor(frame, action)->Do(action.act);
}

void BuildMenus(frmMain& frame) {
    QString last;
    for (const auto& row : Actions()) {
        if (row.menu.isEmpty()) continue;
        if (row.menu != last) Menus::AddMenu(row.menu);
        last = row.menu;
        if (row.caption.isEmpty())
            Menus::AddSeparator(row.menu);
        else
            Menus::AddItem(row.menu, row.key, row.caption, row.icon, row.shortcut,
                           [&frame, &row] { return CanDo(frame, row); });
    }
    Menus::SetOnMenu([&frame](const QString& menu, const QString& key) {
        if (const auto* action = FindAction(menu, key)) DoAction(frame, *action);
    });
}

void BindShortcuts(frmMain& frame) {
    for (const auto& row : Actions()) {
        if (row.shortcut.isEmpty() || !row.bound) continue;
        auto* shortcut = new QShortcut(QKeySequence(row.shortcut), &frame);
        QObject::connect(shortcut, &QShortcut::activated, &frame,
                         [&frame, &row] { RunEvent([&] { DoAction(frame, row); }); });
    }
}
