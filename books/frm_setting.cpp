#include "books/frm_setting.h"

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
    const auto add = [&](const QString& key, const QString& caption, const QString& icon, bool there) {
        ScrollMenuItem item;
        item.key = key;
        item.caption = caption;
        item.icon = icon;
        item.selectable = there;
        item.enabled = there;
        strip->AddItem(kSection, item);
    };
    add(u"common"_s, u"通用设置"_s, u"set"_s, false);
    add(u"kind"_s, u"记账分类"_s, u"kind"_s, true);
    add(u"account"_s, u"账户管理"_s, u"account"_s, true);
    add(u"book"_s, u"账本管理"_s, u"book"_s, false);
    strip->onClick = [this](const QString&, const QString& item) { OpenSub(item); };
    strip->onTip = [](const QString&, const QString&) { return StripTip(); };
    kinds_ = new ChartPanel(Chart::kinds, true, this);
    accounts_ = new ChartPanel(Chart::accounts, true, this);
    kinds_->setObjectName(u"kinds"_s);
    accounts_->setObjectName(u"accounts"_s);
    for (auto* panel : {kinds_, accounts_}) {
        panel->hide();
        Room()->addWidget(panel, 1);
    }
    OpenSub(u"kind"_s);
}

ChartPanel* frmSetting::Panel(const QString& key) const {
    return key == u"account" ? accounts_ : key == u"kind" ? kinds_ : nullptr;
}

void frmSetting::OpenSub(const QString& key) {
    auto* panel = Panel(key);
    if (!panel) return;
    page_ = key;
    KestroScrollMenu1->Select(kSection, key);
    kinds_->setVisible(panel == kinds_);
    accounts_->setVisible(panel == accounts_);
    panel->Reload();
}

void frmSetting::Shown() {
    Current()->Shown();
}

void frmSetting::TabClicked() {
    OpenSub(u"kind"_s);
    TakeFocus();
}

void frmSetting::TakeFocus() {
    Current()->TakeFocus();
}

bool frmSetting::Can(Act act) const {
    return Current()->Can(act);
}

void frmSetting::Do(Act act) {
    Current()->Do(act);
}

void frmSetting::ReLoadKindAcc(const QString& key) {
    if (key == page_) Current()->Reload();
}

void frmSetting::DoKindAcc(Chart chart, const QString& code, Act act) {
    OpenSub(chart == Chart::kinds ? u"kind"_s : u"account"_s);
    if (!code.isEmpty()) Current()->Select(code);
    TakeFocus();
    Do(act);
}

std::vector<KestroList*> frmSetting::Lists() const {
    return {kinds_->List(), accounts_->List()};
}

void frmSetting::pRESETGROUP() {
    kinds_->ResetGroup();
    accounts_->ResetGroup();
}

void frmSetting::pTRANSACCOUNT() {
    OpenSub(page_);
}
