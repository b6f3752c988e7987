#include "shell/actions.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Action Row(Act act, Doer doer, const QString& menu, const QString& key, const QString& caption,
           const QString& icon = {}) {
    return {.act = act, .doer = doer, .menu = menu, .key = key, .caption = caption, .icon = icon};
}

Action Keyed(Action row, const QString& shortcut, bool bound = true) {
    row.shortcut = shortcut;
    row.bound = bound;
    return row;
}

Action OnToolbar(Action row, const QString& button, const QString& icon) {
    row.button = button;
    row.icon = icon;
    return row;
}

Action Line(const QString& menu) {
    return Row(Act::menu, Doer::frame, menu, {}, {});
}

std::vector<Action> FileRows() {
    const QString file = u"File"_s, about = u"About"_s, books = u"opendb"_s;
    const auto row = [](const QString& menu, Act act, const QString& key, const QString& caption,
                        const QString& icon) { return Row(act, Doer::frame, menu, key, caption, icon); };
    return {
        row(file, Act::settings, u"set"_s, u"设置管理"_s, u"set"_s),
        row(file, Act::resetHead, u"ResetHeadIco"_s, u"重设头像"_s, u"user"_s),
        Line(file),
        Keyed(row(file, Act::openBook, u"OpenDbFile"_s, u"打开账本文件"_s, u"book"_s), u"Ctrl+O"_s),
        row(file, Act::newBook, u"CreateDbFile"_s, u"新建账本文件"_s, u"booknew"_s),
        Line(file),
        row(file, Act::newNote, u"newdiary"_s, u"增加记事"_s, u"note"_s),
        Row(Act::newEntry, Doer::entryPage, file, u"newaccount"_s, u"增加记账"_s, u"new"_s),
        row(file, Act::templates, u"templatelist"_s, u"记账模板"_s, u"template"_s),
        Line(file),
        row(file, Act::about, u"About"_s, u"关于..."_s, u"about"_s),
        row(file, Act::help, u"Help"_s, u"帮助"_s, u"help"_s),
        row(file, Act::exit, u"exit"_s, u"退出"_s, {}),
        row(about, Act::help, u"help"_s, u"使用帮助"_s, u"help"_s),
        row(about, Act::about, u"about"_s, u"关于..."_s, u"about"_s),
        row(books, Act::openBook, u"opendbfilex"_s, u"打开账本文件"_s, u"book"_s),
        row(books, Act::newBook, u"createdbfilex"_s, u"新建账本文件"_s, u"booknew"_s),
    };
}

std::vector<Action> StripRows() {
    const QString strip = u"scroll"_s, kind = u"scrollkind"_s;
    const auto row = [](const QString& menu, Act act, const QString& key, const QString& caption,
                        const QString& icon) { return Row(act, Doer::entryPage, menu, key, caption, icon); };
    return {
        row(strip, Act::fold, u"zip"_s, u"收起"_s, u"minus"_s),
        row(strip, Act::unfold, u"extract"_s, u"展开"_s, u"plus"_s),
        row(kind, Act::kindAdd, u"scrollnew"_s, u"新增分类"_s, u"new"_s),
        row(kind, Act::kindEdit, u"scrolledit"_s, u"修改分类"_s, u"edit"_s),
        row(kind, Act::kindDelete, u"scrolldel"_s, u"删除分类"_s, u"del"_s),
        row(kind, Act::kindMoney, u"scrollmoney"_s, u"查看分类余额"_s, {}),
    };
}

std::vector<Action> ListRows() {
    const QString edit = u"edit"_s, print = u"print"_s, out = u"export"_s;
    const auto row = [](const QString& menu, Act act, const QString& key, const QString& caption,
                        const QString& icon = {}) { return Row(act, Doer::page, menu, key, caption, icon); };
    return {
        Keyed(OnToolbar(row(out, Act::exportHtml, u"html"_s, u"网页格式"_s), u"导出"_s, u"export"_s),
              u"Ctrl+Shift+E"_s),
        row(out, Act::exportText, u"txt"_s, u"文本格式"_s),
        row(out, Act::exportSheet, u"excel"_s, u"Excel格式"_s),
        Keyed(row(edit, Act::add, u"new"_s, u"新增"_s, u"new"_s), u"Ctrl+N"_s),
        Keyed(OnToolbar(row(edit, Act::edit, u"edit"_s, u"修改(查看)"_s), u"修改"_s, u"edit"_s), u"Ctrl+E"_s),
        Keyed(row(edit, Act::remove, u"del"_s, u"删除"_s, u"del"_s), u"Delete"_s, false),
        row(edit, Act::remember, u"template"_s, u"加入模板"_s, u"template"_s),
        Keyed(OnToolbar(row(print, Act::print, u"print"_s, u"打印列表"_s), u"打印"_s, u"print"_s),
              u"Ctrl+P"_s),
        row(print, Act::preview, u"printview"_s, u"打印预览"_s),
        row(print, Act::printChecked, u"printcheck"_s, u"打印选中记录"_s),
        row(print, Act::previewChecked, u"printviewcheck"_s, u"选中记录预览"_s),
        row(u"delete"_s, Act::deleteChecked, u"deletesele"_s, u"删除勾选记录"_s, u"delall"_s),
    };
}

std::vector<Action> ArgumentRows() {
    std::vector<Action> rows;
    const std::pair<QString, QString> periods[] = {{u"Today"_s, u"今天"_s},    {u"Yestoday"_s, u"昨天"_s},
                                                   {u"Week"_s, u"这个星期"_s}, {u"Rcently"_s, u"最近十天"_s},
                                                   {u"Month"_s, u"这个月"_s},  {u"PreMonth"_s, u"上个月"_s},
                                                   {u"Year"_s, u"今年"_s},     {u"All"_s, u"全部"_s}};
    for (const auto& [key, caption] : periods)
        rows.push_back(Row(Act::period, Doer::frame, u"shortdate"_s, key, caption));
    for (const int percent : {20, 30, 50, 70, 80, 100, 120, 200}) {
        const QString text = QString::number(percent) + u'%';
        rows.push_back(Row(Act::zoom, Doer::preview, u"percent"_s, text, text + u' '));
    }
    return rows;
}

std::vector<Action> KeyRows() {
    const auto row = [](Act act, Doer doer, const QString& shortcut, const QString& key = {}) {
        return Keyed(Row(act, doer, {}, key, {}), shortcut);
    };
    std::vector<Action> rows{
        OnToolbar(row(Act::reload, Doer::page, u"F5"_s), u"刷新"_s, u"reload"_s),
        row(Act::find, Doer::page, u"Ctrl+F"_s),
        row(Act::nextTab, Doer::frame, u"Ctrl+Tab"_s),
        row(Act::previousTab, Doer::frame, u"Ctrl+Shift+Tab"_s),
        row(Act::menu, Doer::frame, u"F10"_s),
    };
    for (int tab = 0; tab < kTabs; ++tab)
        rows.push_back(
            row(Act::tab, Doer::frame, u"Ctrl+"_s + QString::number(tab + 1), QString::number(tab)));
    return rows;
}

std::vector<Action> AllRows() {
    std::vector<Action> all;
    for (const auto& rows : {FileRows(), StripRows(), ListRows(), ArgumentRows(), KeyRows()})
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

}  // namespace

const std::vector<Action>& Actions() {
    static const std::vector<Action> rows = AllRows();
    return rows;
}

const Action* FindAction(const QString& menu, const QString& key) {
    const auto& rows = Actions();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Action& row) {
        return !key.isEmpty() && row.menu.compare(menu, Qt::CaseInsensitive) == 0 &&
               row.key.compare(key, Qt::CaseInsensitive) == 0;
    });
    return found == rows.end() ? nullptr : &*found;
}

const Action& ActionOf(Act act) {
    const auto& rows = Actions();
    return *std::find_if(rows.begin(), rows.end(), [act](const Action& row) {
        return row.act == act && (!row.key.isEmpty() || row.menu.isEmpty());
    });
}
