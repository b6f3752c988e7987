#include "app/frm_login.h"

#include "app/login_hero.h"
#include "app/startup.h"
#include "shell/addresses.h"
#include "shell/commands.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_text.h"
#include "shell/file_dialog.h"
#include "store/book_box.h"
#include "store/book_check.h"
#include "store/book_format.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/session.h"
#include "store/settings_file.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QDir>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {
constexpr int kFocusDelayMs = 50;
}

frmLogin::frmLogin() : KestroDialog(DialogKind::common) {
    setWindowTitle(u"墨鹊登录"_s);
    Build();
    BuildStrip();
    LayOut();
    Arrange();
    for (auto* button : findChildren<QAbstractButton*>())
        button->installEventFilter(this);
    onEscape = [this] { Leave(false); };
    onClose = [this] { Leave(false); };
    Timer1.setSingleShot(true);
    Timer1.setInterval(kFocusDelayMs);
    Timer1.callOnTimeout([this] { txtPass->setFocus(Qt::OtherFocusReason); });
    Menus::SetOnMenu([](const QString&, const QString& key) {
        if (key == u"about" && Commands().about) Commands().about();
        if (key == u"help") OpenAddress(kHelpPage);
    });
    LoadBooks();
}

frmLogin::~frmLogin() = default;

void frmLogin::LoadBooks() {
    FillBooks();
    if (!CurrentBook().Name.isEmpty()) {
        ShowBook(State().gCurBook);
        RunEvent([this] { OpenChosen(); });
    }
    editNote->SetText(State().settings.sDBPath);
}

void frmLogin::showEvent(QShowEvent* event) {
    KestroDialog::showEvent(event);
    if (welcomed_) return;
    welcomed_ = true;
    if (!State().gBooks.front().Name.isEmpty()) {
        Timer1.start();
        return;
    }
    QTimer::singleShot(0, this, [] {
        RunEvent([] { ShowMsg(u"您目前没有任何【账本】,请先点击账本右边的【新】按钮,新建账本!"_s); });
    });
}

void frmLogin::resizeEvent(QResizeEvent* event) {
    KestroDialog::resizeEvent(event);
    if (strip_) PlaceHero();
}

void frmLogin::FillBooks() {
    comBook->Clear();
    const auto& books = State().gBooks;
    if (books.front().Name.isEmpty()) return;
    for (size_t i = 0; i < books.size(); ++i)
        if (!books[i].Name.isEmpty()) comBook->AddItem(books[i].Name, QString::number(i), u"book"_s);
}

void frmLogin::ShowBook(int index) {
    if (!comBook->SetCurrentKey(QString::number(index)))
        comBook->SetText(State().gBooks[static_cast<size_t>(index)].Name);
}

void frmLogin::OpenChosen() {
    State().gDB.Close();
    ReopenDB();
}

void frmLogin::ChooseBookItem(const QString& key) {
    bool number = false;
    const int index = key.toInt(&number);
    if (!number) return;
    State().gCurBook = index;
    txtPass->setText({});
    OpenChosen();
}

void frmLogin::OpenBookFile(QString path) {
    if (path.isEmpty())
        path = ChooseFile(u"选择墨鹊账本文件"_s, u"墨鹊账本文件|*.jotdb\n所有文件|*.*"_s,
                          State().settings.sDBPath);
    if (path.isEmpty()) return;
    const auto taken = TakeBookFile(path);
    if (taken.door != BookDoor::added) return;
    const QString key = QString::number(taken.index);
    comBook->AddItem(State().gBooks[static_cast<size_t>(taken.index)].Name, key, u"book"_s);
    ShowBook(taken.index);
    ChooseBookItem(key);
}

bool frmLogin::CheckPassword() {
    const auto check = CheckPass(State().gDB, txtPass->text());
    if (check == PassCheck::right) return true;
    ShowMsg(check == PassCheck::missing ? u"口令检测错误!"_s : u"口令错误!"_s, u"确定"_s, kMsgFail);
    return false;
}

void frmLogin::BtnEnterClicked() {
    if (comBook->text().isEmpty()) return;
    if (!CheckBook(-1)) return;
    if (!State().gDB.IsOpen()) OpenChosen();
    if (!CheckPassword()) {
        txtPass->setText({});
        txtPass->setFocus(Qt::OtherFocusReason);
        return;
    }
    SaveForNextStart([] { SaveSetting(CurrentBook().Path, kSaveLastBook); });
    hide();
    popup_.reset();
    const auto entered = onEntered;
    if (entered) entered();
}

void frmLogin::BtnCancelClicked() {
    Leave(true);
}

void frmLogin::Leave(bool tellAgent) {
    if (tellAgent) TellAgent(1);
    CloseAll();
    hide();
    if (onLeft) onLeft();
}

void frmLogin::BtnNewClicked() {
    ResetDlg(kDlgBook);
    BookDialog record;
    record.isNew = 1;
    const QString shown = comBook->text();
    OpenModal(kDlgBook);
    FillBooks();
    comBook->SetText(shown);
    if (!shown.isEmpty()) ShowBook(State().gCurBook);
    if (record.done == 0) return;
    const int last = static_cast<int>(State().gBooks.size()) - 1;
    ShowBook(last);
    ChooseBookItem(QString::number(last));
}

void frmLogin::BtnPathClicked() {
    const QString chosen = ChooseFolder(u"选择目录"_s, State().settings.sDBPath);
    const QString folder = chosen.toLower();
    if (folder.isEmpty()) return;
    if (const QString forbidden = ForbiddenBoxText(folder); !forbidden.isEmpty()) {
        ShowMsg(forbidden, u"确定"_s, kMsgFail, u"提示"_s, 392, 220);
        return;
    }
    if (const auto found = SpelledPath(chosen); !found.rivals.isEmpty()) {
        ShowMsg(RivalBoxText(found.rivals), u"确定"_s, kMsgFail);
        return;
    }
    MoveBookBox(folder);
}

void frmLogin::MoveBookBox(const QString& folder) {
    auto& state = State();
    editNote->SetText(folder);
    state.gBooks.assign(1, {});
    state.settings.sDBPath = folder;
    state.gCurBook = 0;
    ScanFolder(folder);
    ReadBookInfo();
    FillBooks();
    comBook->SetText({});
    SaveSetting(CurrentBook().Path, kSaveBookBox);
}

// Buttons would take Enter for themselves when the focus came to them by key.
bool frmLogin::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return KestroDialog::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (enter) keyPressEvent(key);
    return enter;
}

void frmLogin::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        RunEvent([this] { BtnEnterClicked(); });
        return;
    }
    KestroDialog::keyPressEvent(event);
}

void frmLogin::contextMenuEvent(QContextMenuEvent* event) {
    Menus::Popup(u"login"_s, event->globalPos());
}
