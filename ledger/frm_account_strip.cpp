// The strip of the entry page: statistics, books and kinds.

#include "ledger/frm_account.h"
#include "shell/book_switch.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "shell/menus.h"
#include "shell/skin.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/state.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString kFigures = u"title1"_s;
const QString kBooks = u"title2"_s;
const QString kKinds = u"title3"_s;

}  // namespace

void frmAccount::ConnectStrip() {
    auto* strip = KestroScrollMenu1;
    strip->AddSection(kFigures, u"记账统计"_s);
    strip->AddSection(kBooks, u"账本盒子"_s);
    strip->AddSection(kKinds, u"记账分类"_s);
    const auto figure = [&](const QString& key, const QString& icon, std::optional<Tok> color) {
        ScrollMenuItem item;
        item.key = key;
        item.icon = icon;
        item.markColor = color;
        item.selectable = false;
        strip->AddItem(kFigures, item);
    };
    figure(u"bill"_s, u"bill"_s, {});
    figure(u"money"_s, u"rmb-plus"_s, Tok::add);
    figure(u"sumbill"_s, u"money"_s, Tok::reduce);
    figure(u"summoney"_s, u"rmb-minus"_s, {});
    strip->onClick = [this](const QString& section, const QString& item) { StripClicked(section, item); };
    strip->onDoubleClick = [this](const QString& section, const QString& item) {
        StripDoubleClicked(section, item);
    };
    strip->onTip = [this](const QString& section, const QString& item) { return StripTip(section, item); };
    strip->onContextMenu = [this](const QString& section, const QString& item, const QPoint& at) {
        stripSection_ = section;
        const bool kind = section == kKinds && !item.isEmpty();
        stripKind_ = kind ? item : QString();
        Menus::Popup(kind ? u"scrollkind"_s : u"scroll"_s, at);
    };
}

void frmAccount::LoadComkindData() {
    const QString chosen = sKind;
    comKind->Clear();
    comKind->AddItem(u"全部事情"_s, u"all"_s, u"items"_s);
    for (const auto& kind : ShownCodes(State().gDB, Chart::kinds))
        comKind->AddItem(kind.code + kind.name, kind.code, u"items"_s);
    ShowChosenKind(chosen);
}

void frmAccount::ShowChosenKind(const QString& code) {
    sKind = code;
    if (code != u"all" && comKind->SetCurrentKey(code)) return;
    // A hidden kind is not on the list and may be followed all the same.
    const QString name = code == u"all" ? QString() : NameByCode(State().gDB, code, Chart::kinds);
    if (!name.isEmpty()) return comKind->SetText(code + name);
    sKind = u"all"_s;
    comKind->SetCurrentKey(sKind);
    comKind->ShowAs(u"全部"_s);
}

void frmAccount::ReloadScroll() {
    auto* strip = KestroScrollMenu1;
    kinds_ = ShownRows(State().gDB, Chart::kinds);
    strip->BeginFill();
    strip->Clear(kKinds);
    strip->SetCaption(kKinds, u"记账分类("_s + QString::number(ChartCount(State().gDB, Chart::kinds)) + u')');
    for (const auto& kind : kinds_) {
        ScrollMenuItem item;
        item.key = kind.code;
        item.caption = kind.code + kind.name;
        item.icon = u"kind"_s;
        item.depth = std::max(0, static_cast<int>(kind.code.size()) / 2 - 1);
        strip->AddItem(kKinds, item);
    }
    strip->EndFill();
    SelectKindInStrip();
}

void frmAccount::SelectKindInStrip() {
    KestroScrollMenu1->Select(kKinds, sKind == u"all" ? QString() : sKind);
}

void frmAccount::ReloadScrollBooks() {
    auto* strip = KestroScrollMenu1;
    const auto& books = State().gBooks;
    strip->BeginFill();
    strip->Clear(kBooks);
    int shown = 0;
    for (size_t i = 0; i < books.size(); ++i) {
        if (books[i].Name.isEmpty()) continue;
        const bool open = static_cast<int>(i) == State().gCurBook;
        ScrollMenuItem item;
        item.key = u'_' + QString::number(i);
        item.caption = books[i].Name;
        item.icon = open ? u"finger"_s : u"book"_s;
        item.bold = open;
        strip->AddItem(kBooks, item);
        ++shown;
    }
    strip->SetCaption(kBooks, u"账本盒子("_s + QString::number(shown) + u')');
    strip->EndFill();
}

void frmAccount::SelectBook(int index) {
    KestroScrollMenu1->Select(kBooks, u'_' + QString::number(index));
}

void frmAccount::StripClicked(const QString& section, const QString& item) {
    if (section == kKinds && !item.isEmpty()) ChooseKind(item);
}

void frmAccount::StripDoubleClicked(const QString& section, const QString& item) {
    if (section == kBooks && !item.isEmpty()) SwitchBook(item.mid(1));
    if (section == kFigures && (item == u"money" || item == u"summoney")) CopySums();
}

void frmAccount::ChooseKind(const QString& code) {
    ShowChosenKind(code);
    SelectKindInStrip();
    txtSearch->setText({});
    chkFlag->SetChecked(false);
    ReloadData();
}

QString frmAccount::BookTip(const QString& key) const {
    const auto index = static_cast<size_t>(key.mid(1).toInt());
    if (index >= State().gBooks.size()) return {};
    const auto& book = State().gBooks[index];
    QString tip = u"账本版本: "_s + book.Version + u"\n核算年度: "_s + QString::number(book.Year);
    if (book.Name.startsWith(u"->"_s)) tip += u"\n该账本不是【账本盒中的账本】\n账本位置："_s + book.Path;
    return tip + u"\n双击切换账本"_s;
}

QString frmAccount::StripTip(const QString& section, const QString& item) const {
    if (section == kBooks)
        return item.isEmpty() ? u"账本盒位置："_s + State().settings.sDBPath : BookTip(item);
    if (item.isEmpty()) return {};
    if (section == kFigures)
        return item == u"money" || item == u"summoney"
                   ? u"双击将增加、减少、余额数据复制到 Windows 粘贴板！"_s
                   : QString();
    return CodePathText(State().gDB, Chart::kinds, item, false);
}

void frmAccount::ShowKindMoney() {
    const auto* row = ChosenKind();
    if (!row) {
        ShowMsg(u"未选定任何【分类】!"_s);
        return;
    }
    const auto money = StoredMoney(State().gDB, Chart::kinds, row->id);
    if (!money) {
        ShowMsg(u"【检索分类】意外错误!"_s, u"确定"_s, kMsgFail);
        return;
    }
    ShowMsg(u"分类名称: "_s + money->name + u"\n增加额: "_s + MoneyText(money->added) + u" 元\n减少额: "_s +
                MoneyText(money->reduced) + u" 元\n余　额: "_s + MoneyText(money->balance) + u" 元"_s,
            u"确定"_s, kMsgInfo);
}

// The kind under the pointer when its menu opened, otherwise the one that is followed.
const ChartRow* frmAccount::ChosenKind() const {
    const bool followed = KestroScrollMenu1->SelectedSection() == kKinds;
    const QString code = !stripKind_.isEmpty() ? stripKind_
                         : followed            ? KestroScrollMenu1->SelectedKey()
                                               : QString();
    const auto found =
        std::find_if(kinds_.begin(), kinds_.end(), [&](const ChartRow& kind) { return kind.code == code; });
    return found == kinds_.end() ? nullptr : &*found;
}

void frmAccount::ShowFigures(const EntrySums& figures) {
    const auto sums = ShowSumTexts(figures, query_.all);
    ShowSumLabels(sums.count, sums.value);
    sumsTag_ = sums.tag;
    // "增加 1,200" stands as a word at the left and its number at the right.
    const auto put = [&](const QString& key, const QString& text) {
        const auto blank = text.indexOf(u' ');
        KestroScrollMenu1->SetItemCaption(kFigures, key, text.left(blank));
        KestroScrollMenu1->SetMark(kFigures, key, text.mid(blank + 1));
    };
    put(u"bill"_s, sums.bill);
    put(u"money"_s, sums.money);
    put(u"sumbill"_s, sums.sumbill);
    put(u"summoney"_s, sums.summoney);
}

void frmAccount::FoldStrip(bool folded) {
    KestroScrollMenu1->Fold(stripSection_, folded);
}
