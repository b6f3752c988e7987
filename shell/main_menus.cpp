#include "shell/main_menus.h"

#include <functional>
#include <map>
#include <vector>

#include "shell/addresses.h"
#include "shell/book_switch.h"
#include "shell/commands.h"
#include "shell/frm_main.h"
#include "shell/menus.h"
#include "store/dialogs.h"
#include "store/notices.h"
#include "store/outside.h"

using namespace Qt::StringLiterals;

namespace {

struct MenuLine {
    QString menu, key, caption, icon, hint;
};

const std::vector<MenuLine>& Lines() {
    static const std::vector<MenuLine> lines{
        {u"File"_s, u"set"_s, u"设置管理"_s, u"set"_s, {}},
        {u"File"_s, u"ResetHeadIco"_s, u"重设头像"_s, u"user"_s, {}},
        {u"File"_s, {}, {}, {}, {}},
        {u"File"_s, u"OpenDbFile"_s, u"打开账本文件"_s, u"book"_s, {}},
        {u"File"_s, u"CreateDbFile"_s, u"新建账本文件"_s, u"booknew"_s, {}},
        {u"File"_s, {}, {}, {}, {}},
        {u"File"_s, u"newdiary"_s, u"增加记事"_s, u"note"_s, {}},
        {u"File"_s, u"newaccount"_s, u"增加记账"_s, u"new"_s, {}},
        {u"File"_s, u"templatelist"_s, u"记账模板"_s, u"template"_s, {}},
        {u"File"_s, {}, {}, {}, {}},
        {u"File"_s, u"About"_s, u"关于..."_s, u"about"_s, {}},
        {u"File"_s, u"Help"_s, u"帮助"_s, u"help"_s, {}},
        {u"File"_s, u"exit"_s, u"退出"_s, {}, {}},
        {u"About"_s, u"help"_s, u"使用帮助"_s, u"help"_s, {}},
        {u"About"_s, u"about"_s, u"关于..."_s, u"about"_s, {}},
        {u"scroll"_s, u"zip"_s, u"收起"_s, u"minus"_s, {}},
        {u"scroll"_s, u"extract"_s, u"展开"_s, u"plus"_s, {}},
        {u"scrollkind"_s, u"scrollnew"_s, u"新增分类"_s, u"new"_s, {}},
        {u"scrollkind"_s, u"scrolledit"_s, u"修改分类"_s, u"edit"_s, {}},
        {u"scrollkind"_s, u"scrolldel"_s, u"删除分类"_s, u"del"_s, {}},
        {u"scrollkind"_s, u"scrollmoney"_s, u"查看分类余额"_s, {}, {}},
        {u"export"_s, u"html"_s, u"网页格式"_s, {}, {}},
        {u"export"_s, u"txt"_s, u"文本格式"_s, {}, {}},
        {u"export"_s, u"excel"_s, u"Excel格式"_s, {}, {}},
        {u"edit"_s, u"new"_s, u"新增"_s, u"new"_s, {}},
        {u"edit"_s, u"edit"_s, u"修改(查看)"_s, u"edit"_s, {}},
        {u"edit"_s, u"del"_s, u"删除"_s, u"del"_s, {}},
        {u"edit"_s, u"template"_s, u"加入模板"_s, u"template"_s, {}},
        {u"print"_s, u"print"_s, u"打印列表"_s, u"print"_s, {}},
        {u"print"_s, u"printview"_s, u"打印预览"_s, {}, {}},
        {u"print"_s, u"printcheck"_s, u"打印选中记录"_s, {}, {}},
        {u"print"_s, u"printviewcheck"_s, u"选中记录预览"_s, {}, {}},
        {u"shortdate"_s, u"Today"_s, u"今天"_s, {}, {}},
        {u"shortdate"_s, u"Yestoday"_s, u"昨天"_s, {}, {}},
        {u"shortdate"_s, u"Week"_s, u"这个星期"_s, {}, {}},
        {u"shortdate"_s, u"Rcently"_s, u"最近十天"_s, {}, {}},
        {u"shortdate"_s, u"Month"_s, u"这个月"_s, {}, {}},
        {u"shortdate"_s, u"PreMonth"_s, u"上个月"_s, {}, {}},
        {u"shortdate"_s, u"Year"_s, u"今年"_s, {}, {}},
        {u"shortdate"_s, u"All"_s, u"全部"_s, {}, {}},
        {u"percent"_s, u"20%"_s, u"20% "_s, {}, {}},
        {u"percent"_s, u"30%"_s, u"30% "_s, {}, {}},
        {u"percent"_s, u"50%"_s, u"50% "_s, {}, {}},
        {u"percent"_s, u"70%"_s, u"70% "_s, {}, {}},
        {u"percent"_s, u"80%"_s, u"80% "_s, {}, {}},
        {u"percent"_s, u"100%"_s, u"100% "_s, {}, {}},
        {u"percent"_s, u"120%"_s, u"120% "_s, {}, {}},
        {u"percent"_s, u"200%"_s, u"200% "_s, {}, {}},
        {u"delete"_s, u"deletesele"_s, u"删除勾选记录"_s, u"delall"_s, {}},
        {u"opendb"_s, u"opendbfilex"_s, u"打开账本文件"_s, u"book"_s, {}},
        {u"opendb"_s, u"createdbfilex"_s, u"新建账本文件"_s, u"booknew"_s, {}},
    };
    return lines;
}

// Doers that may be missing; everything else is always there.
bool CanDo(const QString& menu, const QString& key) {
    static const std::map<QString, std::function<bool()>> needs{
        {u"set"_s, [] { return HasPageFactory(5); }},
        {u"createdbfile"_s, [] { return HasPageFactory(5); }},
        {u"createdbfilex"_s, [] { return HasPageFactory(5); }},
        {u"resetheadico"_s, [] { return static_cast<bool>(Commands().resetHeadIco); }},
        {u"newdiary"_s, [] { return HasDialog(kDlgNote); }},
        {u"newaccount"_s, [] { return HasDialog(kDlgEntry); }},
        {u"templatelist"_s, [] { return HasDialog(kDlgTemplate); }},
        {u"template"_s, [] { return HasDialog(kDlgTemplate); }},
        {u"scrollnew"_s, [] { return static_cast<bool>(Commands().openSettings); }},
        {u"scrolledit"_s, [] { return static_cast<bool>(Commands().openSettings); }},
        {u"scrolldel"_s, [] { return static_cast<bool>(Commands().openSettings); }},
    };
    if (menu == u"export") return static_cast<bool>(Commands().exportList);
    if (menu == u"print") return static_cast<bool>(Commands().printList);
    const auto need = needs.find(key.toLower());
    return need == needs.end() || need->second();
}

// Keys that act whatever the menu is.
bool RouteKey(frmMain& frame, const QString& key) {
    if (key == u"about") {
        if (Commands().about) Commands().about();
    } else if (key == u"help") {
        Outside().open(kHelpPage);
    } else if (key == u"deletesele") {
        DeleteChecked(State().gPage);
    } else if (key == u"createdbfile" || key == u"createdbfilex") {
        frame.SetFormTab(5);
        if (Commands().openSettings) Commands().openSettings(u"book"_s);
    } else if (key == u"opendbfile" || key == u"opendbfilex") {
        OpenDBFile({});
    } else if (key == u"resetheadico") {
        frame.ResetHeadIco();
    } else if (key == u"exit") {
        frame.FinishApp();
    } else {
        return false;
    }
    return true;
}

void NewEntryFromMenu() {
    ResetDlg(kDlgEntry);
    EntryDialog entry;
    entry.isNew = 1;
    if (OpenModal(kDlgEntry) && entry.done) Notices().entrySaved.Emit(entry.id);
}

void NewNoteFromMenu() {
    ResetDlg(kDlgNote);
    State().gDlg[kDlgNote].Flag2 = 1;
    State().gDlg[kDlgNote].Text1 = u"note"_s;
    OpenModal(kDlgNote);
}

void RouteFile(frmMain& frame, const QString& key) {
    if (key == u"set") frame.SetFormTab(5);
    if (key == u"newdiary") NewNoteFromMenu();
    if (key == u"newaccount") NewEntryFromMenu();
    if (key == u"templatelist") OpenModal(kDlgTemplate);
}

void RouteToPage(const QString& menu, const QString& key, const std::vector<int>& pages) {
    for (const int code : pages)
        if (code == State().gPage)
            if (auto* page = PageOfCode(code)) page->DoMenu(menu, key);
}

void Route(frmMain& frame, const QString& menu, const QString& key) {
    if (RouteKey(frame, key)) return;
    if (menu == u"shortdate") return QuickPeriod(State().gPage, key, true);
    if (menu == u"edit") return RouteToPage(menu, key, {kPageAccount, kPageSubAcc});
    if (menu == u"export") return RouteToPage(menu, key, {kPageAccount, kPageSetting, kPageSubAcc, kPageStats});
    if (menu == u"print") return RouteToPage(menu, key, {kPageAccount, kPageNote, kPageSubAcc, kPageStats});
    if (menu == u"file") return RouteFile(frame, key);
    if (menu != u"scrollkind" && menu != u"scroll") return;
    if (auto* page = PageOfCode(kPageAccount)) page->DoMenu(menu, key);
}

}  // namespace

void BuildMainMenus() {
    QString last;
    for (const auto& line : Lines()) {
        if (line.menu != last) Menus::AddMenu(line.menu);
        last = line.menu;
        if (line.key.isEmpty()) {
            Menus::AddSeparator(line.menu);
            continue;
        }
        Menus::AddItem(line.menu, line.key, line.caption, line.icon, line.hint);
        Menus::SetEnabled(line.menu, line.key, CanDo(line.menu, line.key));
    }
}

void RouteMainMenus(frmMain& frame) {
    Menus::SetOnMenu([&frame](const QString& menu, const QString& key) { Route(frame, menu, key); });
}
