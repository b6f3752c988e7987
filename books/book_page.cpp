#include "books/book_page.h"

#include "books/book_change.h"
#include "books/book_delete.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/parts/kept_place.h"
#include "shell/parts/toolbar.h"
#include "shell/skin.h"
#include "store/book_box.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/job.h"
#include "store/messages.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

BookPage::BookPage(QWidget* parent) : Page(parent), fresh_(this, [this] { Reload(); }) {
    BuildToolbar();
    BuildList();
    LayOut();
    fresh_.Loading();
    books_ = Notices().booksChanged.Subscribe([this] { fresh_.MarkStale(); });
}

void BookPage::BuildToolbar() {
    toolbar_ = new Toolbar(this);
    const std::tuple<Act, QString, QString> acts[] = {
        {Act::add, u"btnNew"_s, u"新增账本到当前账本【盒】"_s},
        {Act::edit, u"btnEdit"_s, u"修改/查看　选中的列表记录"_s},
        {Act::remove, u"btnDel"_s, u"删除当前列表记录"_s}};
    for (const auto& [act, name, tip] : acts)
        toolbar_->Add(
            act, name, [this, act = act] { Do(act); }, tip);
    toolbar_->Add(
        u"备份"_s, u"BackUp"_s, u"btnBackUp"_s, [this] { BackUp(); }, u"账本备份"_s);
}

void BookPage::BuildList() {
    KestroList2 = new KestroList(this);
    KestroList2->setObjectName(u"KestroList2"_s);
    KestroList2->setAccessibleName(u"账本列表"_s);
    KestroList2->DefineColumn({u"no"_s, u"NO"_s, 50, 30, u"number"_s, ListColor::dim, false, {}});
    KestroList2->DefineColumn({u"year"_s, u"记账年度"_s, 100, 60, u"number"_s, ListColor::none, false, {}});
    KestroList2->DefineColumn({u"name"_s, u"账本名称"_s, 300, 100, u"string"_s, ListColor::none, true, {}});
    KestroList2->DefineColumn(
        {u"version"_s, u"账本版本"_s, 100, 60, u"string"_s, ListColor::none, false, {}});
    KestroList2->SetEmptyText(u"账本盒里没有账本"_s);
    KestroList2->onCurrent = [this](int) { ShowFacts(); };
    KestroList2->onDoubleClick = [this](int, int) { Edit(); };
    KestroList2->onDelete = [this] { Delete(); };
}

void BookPage::LayOut() {
    lblPath_ = new KestroLabel({}, LabelKind::caption, this);
    lblSize_ = new KestroLabel({}, LabelKind::caption, this);
    lblCreated_ = new KestroLabel({}, LabelKind::caption, this);
    auto* facts = new QHBoxLayout;
    facts->setSpacing(Skin::Space::kDialog);
    for (auto* label : {lblPath_, lblSize_, lblCreated_})
        facts->addWidget(label);
    facts->addStretch();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(Skin::Space::kField);
    column->addWidget(toolbar_);
    column->addWidget(KestroList2, 1);
    column->addLayout(facts);
}

void BookPage::Shown() {
    fresh_.Shown();
}

void BookPage::TakeFocus() {
    KestroList2->setFocus();
}

bool BookPage::Can(Act act) const {
    switch (act) {
        case Act::add:
        case Act::reload:
            return true;
        case Act::edit:
        case Act::remove:
            return Chosen() >= 0;
        default:
            return false;
    }
}

void BookPage::Do(Act act) {
    switch (act) {
        case Act::add:
            return New();
        case Act::edit:
            return Edit();
        case Act::remove:
            return Delete();
        case Act::reload:
            return Reload();
        default:
            return;
    }
}

std::vector<KestroList*> BookPage::Lists() const {
    return {KestroList2};
}

void BookPage::Reload() {
    const KeptPlace place(*KestroList2);
    {
        const ListFill fill(*KestroList2);
        KestroList2->Clear();
        const auto& books = State().gBooks;
        for (size_t i = 0; i < books.size(); ++i) {
            const auto& book = books[i];
            if (book.Name.isEmpty()) continue;
            KestroList2->AddRow({QString::number(KestroList2->RowCount() + 1), QString::number(book.Year),
                                 book.Name, book.Version},
                                book.Path, QString::number(i));
        }
    }
    place.PutBack(*KestroList2);
    fresh_.MarkFresh();
    ShowFacts();
}

int BookPage::Chosen() const {
    const int row = KestroList2->CurrentRow();
    return row < 0 ? -1 : KestroList2->RowSubKey(row).toInt();
}

// A file that cannot be read says so when it is opened, not here.
void BookPage::ShowFacts() {
    QString path, size, created;
    if (const int index = Chosen(); index >= 0) {
        const auto& book = State().gBooks[static_cast<size_t>(index)];
        path = u"账本位置："_s + FileOf(book).path;
        size = u"账本大小 "_s + SizeText(BookFileSize(book));
        Succeeds([&] { created = u"建于："_s + ReadBookFacts(book, 0).created; });
    }
    lblPath_->SetText(path);
    lblSize_->SetText(size);
    lblCreated_->SetText(created);
}

void BookPage::New() {
    ResetDlg(kDlgBook);
    BookDialog record;
    record.isNew = 1;
    OpenModal(kDlgBook);
    if (record.done == 0) return;
    const int row = KestroList2->FindRow(record.result);
    KestroList2->SetCurrentRow(row);
    KestroList2->ScrollToRow(row);
    ShowFacts();
}

void BookPage::Edit() {
    const int index = Chosen();
    if (index < 0) {
        ShowMsg(u"请【选定一条】需修改的记录!"_s);
        return;
    }
    ResetDlg(kDlgBook);
    BookDialog record;
    record.isNew = 0;
    record.path = FileOf(State().gBooks[static_cast<size_t>(index)]).path;
    OpenModal(kDlgBook);
}

void BookPage::Delete() {
    if (IsBusy() || !DeleteSelectedBook(Chosen())) return;
    KestroList2->SetCurrentRow(0);
    ShowFacts();
}

void BookPage::BackUp() {
    ResetDlg(kDlgBackup);
    OpenModal(kDlgBackup);
}
