#pragma once
// One table of everything that a menu item, a key or a toolbar button sets off. Who reads a row finds its
// words, its icon, its key and who does it; nobody else spells them.

#include <QString>

#include <vector>

/// The tabs of the frame from left to right.
enum Tab { kTabAccount, kTabSubAcc, kTabWeb, kTabStats, kTabNote, kTabSetting, kTabs };

enum class Act {
    settings,
    resetHead,
    openBook,
    newBook,
    newNote,
    newEntry,
    templates,
    about,
    help,
    exit,
    fold,
    unfold,
    kindAdd,
    kindEdit,
    kindDelete,
    kindMoney,
    exportHtml,
    exportText,
    exportSheet,
    add,
    edit,
    remove,
    remember,
    print,
    preview,
    printChecked,
    previewChecked,
    period,     ///< the row's key names the period
    runPeriod,  ///< shows what the dates that were set ask for
    zoom,       ///< the row's key names the percentage
    deleteChecked,
    reload,
    find,
    tab,  ///< the row's key is the tab's number
    nextTab,
    previousTab,
    menu
};

enum class Doer {
    frame,
    page,       ///< the page in front
    entryPage,  ///< the entry page, wherever the user is
    preview     ///< the print preview, which fills its own slot
};

struct Action {
    Act act;
    Doer doer = Doer::page;
    QString menu = {};     ///< empty: no menu shows it
    QString key = {};      ///< name of the row in its menu
    QString caption = {};  ///< empty in a menu: a separator
    QString icon = {};
    QString shortcut = {};  ///< shown in the menu
    bool bound = true;      ///< the frame listens for the shortcut; otherwise the control in focus does
    QString button = {};    ///< what a toolbar says, when it is not the caption
};

const std::vector<Action>& Actions();

/// The row of a menu's item; names in any case. Null when there is none.
const Action* FindAction(const QString& menu, const QString& key);

/// The first row of an act.
const Action& ActionOf(Act act);
