#include "books/frm_book_new.h"

#include "books/book_new.h"
#include "books/book_password.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_indicator.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_text.h"
#include "store/book_check.h"
#include "store/dates.h"
#include "store/job.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/outside.h"
#include "store/paths.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

void Fill(KestroList* list, const std::vector<CarryRow>& rows) {
    const ListFill fill(*list);
    list->Clear();
    for (size_t i = 0; i < rows.size(); ++i)
        list->AddRow({QString::number(i + 1), rows[i].name, rows[i].money}, QString::number(i));
}

// By place in the book, however the list is sorted.
std::vector<bool> MarksOf(const KestroList* list) {
    std::vector<bool> marks(static_cast<size_t>(list->RowCount()));
    for (const auto& key : list->CheckedKeys())
        marks[key.toULong()] = true;
    return marks;
}

}  // namespace

frmBookNew::frmBookNew(QWidget* parent)
    : KestroDialog(DialogKind::common, {}, parent), isNew_(record_.isNew != 0), path_(record_.path) {
    record_.done = 0;
    setObjectName(u"frmBookNew"_s);
    SetCaption(isNew_ ? u"新建账本"_s : u"修改账本-账本名不可修改"_s);
    Build();
    if (isNew_)
        ShowNew();
    else
        ShowBook();
}

frmBookNew::~frmBookNew() = default;

void frmBookNew::Connect() {
    txtName->onChange = [this](const QString&) { ShowPath(); };
    chkOther->onChange = [this](bool on) { SetMore(on); };
    comBook->onChoose = [this](const QString& name, const QString&) { ChooseReference(name); };
    btnBackUp->onClick = [this] { BackUp(); };
    btnZip->onClick = [this] { Zip(); };
    btnCancel->onClick = [this] { reject(); };
    btnEnter->onClick = [this] { EnterClicked(); };
}

void frmBookNew::ShowNew() {
    comYear->SetCurrentKey(QString::number(Outside().now().date().year()));
    lblDate->SetText(u"建于："_s + TodayText(u"-"_s));
    btnBackUp->setEnabled(false);
    btnZip->setEnabled(false);
    FillBooks();
    ClearReference();
    ShowPath();
    ShowBookSize();
    txtName->setFocus();
}

void frmBookNew::ShowBook() {
    chkOther->hide();
    txtName->setReadOnly(true);
    if (!path_.isEmpty()) {
        const auto book = BookAt(path_);
        const auto facts = ReadBookFacts(book);
        txtName->setText(facts.name);
        if (!comYear->SetCurrentKey(facts.year)) comYear->SetText(facts.year);
        editNote->SetText(facts.note);
        for (auto* box : txtPass)
            box->setText(facts.pass);
        lblDBVerInfo->SetText(u"v"_s + facts.version);
        lblDate->SetText(u"建于："_s + facts.created);
        editPath->SetText(FileOf(book).path);
    }
    ShowBookSize();
    comYear->setFocus();
}

void frmBookNew::ShowPath() {
    const QString name = txtName->text().trimmed();
    editPath->SetText(BoxPath(name.isEmpty() ? QString() : name + u".jotDB"_s));
}

void frmBookNew::FillBooks() {
    for (const auto& book : State().gBooks)
        if (!book.Name.isEmpty() && !book.Name.startsWith(u"->"_s))
            comBook->AddItem(book.Name, book.Name, u"book"_s);
}

void frmBookNew::ClearReference() {
    reference_.clear();
    comBook->SetCurrent(-1);
    for (auto* check : {chkTransfer, chkSubAcc}) {
        check->SetChecked(false);
        check->setEnabled(false);
    }
    KestroList1->Clear();
    KestroList2->Clear();
}

void frmBookNew::ChooseReference(const QString& name) {
    const auto back = qScopeGuard([this] {
        if (!comBook->SetCurrentKey(reference_)) comBook->SetCurrent(-1);
    });
    const auto& books = State().gBooks;
    const auto* book = BookOfBox(name);
    if (!book || !CheckBook(static_cast<int>(book - books.data()))) return;
    if (!AskBookPassword(*book)) {
        ShowMsg(u"口令不正确!"_s);
        return;
    }
    const auto lists = ReadCarryLists(*book);
    Fill(KestroList1, lists.kinds);
    Fill(KestroList2, lists.accounts);
    chkTransfer->setEnabled(true);
    chkSubAcc->setEnabled(true);
    reference_ = name;
}

BookForm frmBookNew::Gather() const {
    BookForm form;
    form.name = txtName->text();
    form.year = comYear->text();
    form.note = editNote->Text();
    form.pass = txtPass[0]->text();
    form.passAgain = txtPass[1]->text();
    form.moreOptions = isNew_ && chkOther->IsChecked();
    form.reference = reference_;
    form.carry = {chkTransfer->IsChecked(), chkSubAcc->IsChecked(), MarksOf(KestroList1),
                  MarksOf(KestroList2)};
    return form;
}

void frmBookNew::EnterClicked() {
    if (IsBusy()) return;
    const auto form = Gather();
    const auto saved = isNew_ ? CreateBook(form) : SaveBookChange(path_, form);
    if (saved.done) {
        record_.done = 1;
        record_.result = saved.path;
        return accept();
    }
    if (saved.focus == BookField::name) txtName->setFocus(Qt::OtherFocusReason);
    if (saved.focus != BookField::pass) return;
    if (form.pass != form.passAgain)
        for (auto* box : txtPass)
            box->clear();
    txtPass[0]->setFocus(Qt::OtherFocusReason);
}

void frmBookNew::Zip() {
    Job job;
    if (job.Refused()) return;
    const auto book = BookAt(path_);
    const qint64 before = ShowBookSize();
    const auto end = [&] {
        running_->Run(true);
        const auto stop = qScopeGuard([this] { running_->Run(false); });
        return CompressBook(book, job);
    }();
    const qint64 after = ShowBookSize();
    if (end == Compression::done) ShowMsg(CompressedText(before, after), u"确定"_s, kMsgNone);
    if (end == Compression::stopped) ShowMsg(u"已停止压缩, 账本没有改变!"_s);
}

void frmBookNew::BackUp() {
    if (BookAt(path_).Name.startsWith(u"->"_s)) {
        ShowMsg(u"账本文件没有存在程序指定位置不能备份"_s);
        return;
    }
    ResetDlg(kDlgBackup);
    BackupDialog().path = path_;
    OpenModal(kDlgBackup);
}

qint64 frmBookNew::ShowBookSize() {
    const qint64 bytes = isNew_ || path_.isEmpty() ? 0 : BookFileSize(BookAt(path_));
    lblSize->SetText(u"账本大小 "_s + SizeText(bytes));
    return bytes;
}

void OpenBookDialog(QPoint) {
    frmBookNew window(QApplication::activeWindow());
    window.exec();
}
