#include "books/frm_setting.h"

#include "books/book_page.h"
#include "books/common_page.h"
#include "chart/chart_panel.h"
#include "shell/controls/kestro_scroll_menu.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kSection = u"title0"_s;

QString StripTip() {
    return u"1.右边列表中各条目背景若是灰色，代表是第一级!\n2."
           u"右边列表中，只列出最末一级的增加、减少、余额；\n"
           u"3.若要逐级汇总信息，请转到【统计窗口】并切换到『各分类或各账户统计』!"_s;
}

}  // namespace

frmSetting::frmSetting(QWidget* parent) : StripPage(parent) {
    auto* strip = KestroScrollMenu1;
    strip->AddSection(kSection, u"设置管理"_s);
    const auto add = [&](const QString& key, const QString& caption, const QString& icon) {
        strip->AddItem(kSection, {.key = key, .caption = caption, .icon = icon});
    };
    add(u"common"_s, u"通用设置"_s, u"set"_s);
    add(u"kind"_s, u"记账分类"_s, u"kind"_s);
    add(u"account"_s, u"账户管理"_s, u"account"_s);
    add(u"book"_s, u"账本管理"_s, u"book"_s);
    strip->onClick = [this](const QString&, const QString& item) { OpenSub(item); };
    strip->onTip = [this](const QString&, const QString&) { return Panel(page_) ? StripTip() : QString(); };
    common_ = new CommonPage(this);
    kinds_ = new ChartPanel(Chart::kinds, true, this);
    accounts_ = new ChartPanel(Chart::accounts, true, this);
    books_ = new BookPage(this);
    const std::pair<QWidget*, QString> parts[] = {
        {common_, u"common"_s}, {kinds_, u"kinds"_s}, {accounts_, u"accounts"_s}, {books_, u"books"_s}};
    for (const auto& [part, name] : parts) {
        part->setObjectName(name);
        part->hide();
        Room()->addWidget(part, 1);
    }
    OpenSub(u"kind"_s);
}

ChartPanel* frmSetting::Panel(const QString& key) const {
    return key == u"account" ? accounts_ : key == u"kind" ? kinds_ : nullptr;
}

Page* frmSetting::Part(const QString& key) const {
    if (key == u"common") return common_;
    return key == u"book" ? books_ : nullptr;
}

void frmSetting::OpenSub(const QString& key) {
    auto* panel = Panel(key);
    auto* part = Part(key);
    if (!panel && !part) return;
    page_ = key;
    KestroScrollMenu1->Select(kSection, key);
    for (QWidget* one : {static_cast<QWidget*>(common_), static_cast<QWidget*>(kinds_),
                         static_cast<QWidget*>(accounts_), static_cast<QWidget*>(books_)})
        one->setVisible(one == panel || one == part);
    if (panel) panel->Reload();
    if (part) part->Shown();
}

void frmSetting::Shown() {
    if (auto* panel = Panel(page_)) return panel->Shown();
    Part(page_)->Shown();
}

void frmSetting::TabClicked() {
    OpenSub(u"kind"_s);
    TakeFocus();
}

void frmSetting::TakeFocus() {
    if (auto* panel = Panel(page_)) return panel->TakeFocus();
    Part(page_)->TakeFocus();
}

bool frmSetting::Can(Act act) const {
    const auto* panel = Panel(page_);
    return panel ? panel->Can(act) : Part(page_)->Can(act);
}

void frmSetting::Do(Act act) {
    if (auto* panel = Panel(page_)) return panel->Do(act);
    Part(page_)->Do(act);
}

void frmSetting::ReLoadKindAcc(const QString& key) {
    if (auto* panel = Panel(key); panel && key == page_) panel->Reload();
}

void frmSetting::DoKindAcc(Chart chart, const QString& code, Act act) {
    OpenSub(chart == Chart::kinds ? u"kind"_s : u"account"_s);
    if (!code.isEmpty()) Panel(page_)->Select(code);
    TakeFocus();
    Do(act);
}

std::vector<KestroList*> frmSetting::Lists() const {
    auto lists = books_->Lists();
    lists.insert(lists.begin(), {kinds_->List(), accounts_->List()});
    return lists;
}

void frmSetting::pRESETGROUP() {
    kinds_->ResetGroup();
    accounts_->ResetGroup();
}

void frmSetting::pTRANSACCOUNT() {
    OpenSub(page_);
}

void frmSetting::pDoScrollMenu() {
    OpenSub(u"book"_s);
    TakeFocus();
    books_->Do(Act::add);
}
