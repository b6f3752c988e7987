#include "books/common_page.h"

#include "books/general_settings.h"
#include "output/export_files.h"
#include "shell/commands.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_text.h"
#include "shell/file_dialog.h"
#include "store/book_box.h"
#include "store/book_format.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/state.h"

#include <algorithm>

using namespace Qt::StringLiterals;

CommonPage::CommonPage(QWidget* parent) : Page(parent) {
    Build();
    Connect();
    ShowSettings();
}

void CommonPage::Connect() {
    comHtmItems->onChoose = [](const QString&, const QString& key) {
        State().settings.nHtmPageSize = key.toInt();
    };
    comLoad->onChoose = [](const QString&, const QString& key) { State().settings.LoadDate = key; };
    chkAgent->onChange = [](bool on) { State().settings.nShowAgentIco = on ? 1 : 0; };
    btnRestHeadIco->onClick = [] {
        if (Commands().resetHeadIco) Commands().resetHeadIco();
    };
    btnValidate->onClick = [this] { Commands().webValidate(txtWebUserName->text(), txtWebPass->text()); };
    btnAccount->onClick = [] { Commands().webHome(); };
    btnPath->onClick = [this] { ChoosePath(); };
    btnOpenPath->onClick = [this] { OpenPath(); };
    btnSave->onClick = [this] { Save(); };
}

void CommonPage::ShowSettings() {
    const auto& settings = State().settings;
    optSplit[settings.nGroup == 3 ? 0 : settings.nGroup == 4 ? 1 : 2]->SetOn();
    const QString items = QString::number(settings.nHtmPageSize);
    if (!comHtmItems->SetCurrentKey(items)) comHtmItems->SetText(items + u" 条"_s);
    comLoad->SetCurrentKey(settings.LoadDate);
    chkAgent->SetChecked(settings.nShowAgentIco != 0);
    txtWebUserName->setText(settings.sWebName);
    txtWebPass->setText(settings.sWebPass);
    editNote->SetText(settings.sDBPath);
}

void CommonPage::Shown() {
    bool locked = false;
    Succeeds([&] { locked = !BookKey(State().gDB, u"pass"_s).value_or(QString()).isEmpty(); });
    lblDBVer->setText(u"v"_s + CurrentBook().Version);
    lblLogin_->setText(locked ? u"需要输入密码才能打开"_s : u"不用输密码直接打开账本"_s);
}

void CommonPage::TakeFocus() {
    btnSave->setFocus();
}

void CommonPage::ChoosePath() {
    const QString chosen = ChooseFolder(u"选择目录"_s, editNote->Text());
    if (chosen.isEmpty()) return;
    if (const auto found = SpelledPath(chosen); !found.rivals.isEmpty()) {
        ShowMsg(RivalBoxText(found.rivals), u"确定"_s, kMsgFail);
        return;
    }
    const QString folder = chosen.toLower();
    if (const QString forbidden = ForbiddenBoxText(folder); !forbidden.isEmpty())
        ShowMsg(forbidden, u"确定"_s, kMsgWarn, u"提示"_s, 392, 220);
    editNote->SetText(folder);
}

void CommonPage::OpenPath() {
    const auto folder = RealPath(editNote->Text().trimmed());
    if (folder.exists && FolderExists(folder.path)) return OpenOutside(folder.path);
    ShowMsg(u"目录不存在!"_s);
}

void CommonPage::Save() {
    GeneralForm form;
    const auto chosen = std::ranges::find_if(optSplit, [](const auto* option) { return option->IsOn(); });
    form.nGroup = GroupOfOption(static_cast<int>(chosen - optSplit.begin()));
    form.path = editNote->Text();
    form.webName = txtWebUserName->text();
    form.webPass = txtWebPass->text();
    const auto saved = SaveGeneralSettings(form);
    editNote->SetText(saved.box);
    if (!saved.message.isEmpty()) ShowMsg(saved.message, u"确定"_s, saved.icon);
    if (saved.restart.isEmpty()) return;
    ShowMsg(saved.restart, u"确定"_s, kMsgWarn, u"提示"_s, 400, 200);
    if (Commands().closeProgram) Commands().closeProgram();
}
