// The windows of books by their controls: making, changing, the sub-pages of the settings, the backup.

#include "app/channel.h"
#include "books/book_change.h"
#include "books/frm_book_new.h"
#include "books/frm_export.h"
#include "shell/commands.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_text.h"
#include "shell/controls/kestro_tiles.h"
#include "shell/file_dialog.h"
#include "shell/frm_main.h"
#include "store/notices.h"
#include "store/outside.h"
#include "tests/books/books_fixture.h"
#include "tests/support/ui_fixture.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;

namespace {

class BookWindows : public BooksStage<UiFixture> {
 protected:
    BookWindows() {
        OpenSettingsStore();
        RegisterAll();
        UseBox();
        for (const auto& name : {u"2016家用"_s, u"另一本"_s})
            PutBook(name);
        OpenBook(u"2016家用"_s);
        Type(QString());
    }
    void Open(bool isNew, const QString& path = {}) {
        ResetDlg(kDlgBook);
        BookDialog record;
        record.isNew = isNew ? 1 : 0;
        record.path = path;
        window_ = std::make_unique<frmBookNew>();
        Present(window_.get());
    }
    /// The backup, which may go to a stick.
    void OpenBackup() {
        QDir().mkpath(Path(u"stick"_s));
        Outside().places = [this] {
            return std::vector<BrowsePlace>{{u"doc"_s, u"我的文档"_s, u"doc"_s, Path(u"gone"_s)},
                                            {u"s"_s, u"stick 盘"_s, u"udisk"_s, Path(u"stick"_s)}};
        };
        ResetDlg(kDlgBackup);
        window_ = std::make_unique<frmExport>();
        window_->show();
    }
    template <typename T>
    T* At(const char* name) {
        return Find<T>(window_.get(), name);
    }
    void Press(const char* name) { Find<QAbstractButton>(window_.get(), name)->click(); }
    void ChooseReference(const QString& name) {
        auto* books = At<KestroCombox>("comBook");
        ASSERT_TRUE(books->SetCurrentKey(name));
        books->onChoose(name, name);
    }
    Page* Settings(const QString& sub) {
        if (!frame_) {
            frame_ = std::make_unique<frmMain>();
            frame_->show();
        }
        frame_->SetFormTab(kTabSetting);
        Host().page(kTabSetting)->OpenSub(sub);
        return dynamic_cast<Page*>(
            Find<QWidget>(Host().page(kTabSetting), sub == u"book" ? "books" : "common"));
    }

    std::unique_ptr<KestroDialog> window_;
    std::unique_ptr<frmMain> frame_;
};

}  // namespace

TEST_F(BookWindows, ANewBookIsTypedWithBalancesOfAnother) {
    Open(true);
    EXPECT_EQ(window_->windowTitle(), u"新建账本"_s);
    EXPECT_EQ(State().gPopups, 1);
    EXPECT_EQ(At<KestroCombox>("comYear")->text(), u"2016"_s);
    EXPECT_EQ(At<KestroLabel>("lblDate")->Text(), u"建于：2016-09-03"_s);
    EXPECT_EQ(At<KestroLabel>("lblSize")->Text(), u"账本大小 0 K"_s);
    EXPECT_EQ(At<KestroEditBox>("editPath")->Text(), Path(u"box/"_s));
    EXPECT_FALSE(At<QWidget>("btnBackUp")->isEnabled() || At<QWidget>("btnZip")->isEnabled());
    TypeInto(At<QWidget>("txtName"), u" New书 "_s);
    EXPECT_EQ(At<KestroEditBox>("editPath")->Text(), BookPath(u"New书"_s).chopped(5) + u"jotDB"_s);
    const int height = window_->NamedSize().height();
    EXPECT_FALSE(At<QWidget>("KestroList1")->isVisible());
    Press("chkOther");
    EXPECT_EQ(window_->NamedSize().height(), height + 130);
    EXPECT_FALSE(At<QWidget>("chkTransfer")->isEnabled());
    EXPECT_EQ(At<KestroCombox>("comBook")->Count(), 2);

    Type(u"wrong"_s);
    boxes.Expect(u"口令不正确!"_s);
    ChooseReference(u"2016家用"_s);
    EXPECT_EQ(At<KestroCombox>("comBook")->text(), QString());
    Type(u""_s);
    ChooseReference(u"2016家用"_s);
    auto* kinds = At<KestroList>("KestroList1");
    EXPECT_EQ(kinds->RowCount(), 15);
    EXPECT_EQ(kinds->RowCells(2), (QStringList{u"3"_s, u"产品收入"_s, u"5000"_s}));
    Type(QString());
    boxes.Expect(u"口令不正确!"_s);
    ChooseReference(u"另一本"_s);
    EXPECT_EQ(At<KestroCombox>("comBook")->text(), u"2016家用"_s);
    EXPECT_EQ(Asked().back(), u"请输入账本口令："_s);
    Press("chkTransfer");
    // A mark means its row, wherever the list shows it.
    kinds->SortBy(2, false);
    const int row = kinds->FindRow(u"2"_s);
    EXPECT_NE(row, 2);
    kinds->SetChecked(row, true);
    TypeInto(At<QWidget>("txtPass0"), u"a"_s);
    boxes.Expect(u"【两次口令】输入不一致!"_s);
    QTest::keyClick(At<QWidget>("txtPass0"), Qt::Key_Return);
    EXPECT_EQ(At<KestroText>("txtPass0")->text() + At<KestroText>("txtPass1")->text(), QString());
    EXPECT_TRUE(At<QWidget>("txtPass0")->hasFocus());
    boxes.Expect(u"创建成功!"_s);
    Press("btnEnter");
    EXPECT_EQ(BookDialog().done, 1);
    EXPECT_EQ(State().gBooks.back().Name, u"new书"_s);
    cConnection made;
    made.Open(BookPath(u"new书"_s));
    EXPECT_EQ(Rows(made, u"select Type1,Value1 from tAccount"_s), QStringList{u"0101|5000"_s});
    window_.reset();
    EXPECT_EQ(State().gPopups, 0);
}

TEST_F(BookWindows, MoreOptionsThatAreTakenBackForgetTheReference) {
    Open(true);
    Press("chkOther");
    Type(u""_s);
    ChooseReference(u"另一本"_s);
    Press("chkSubAcc");
    Press("chkOther");
    EXPECT_EQ(At<KestroList>("KestroList2")->RowCount(), 0);
    EXPECT_FALSE(At<KestroCheck>("chkSubAcc")->IsChecked());
    Press("chkOther");
    EXPECT_EQ(At<KestroCombox>("comBook")->text(), QString());
    TypeInto(At<QWidget>("txtName"), u"x"_s);
    boxes.Expect(u"选中了【更多选项】"_s);
    Press("btnEnter");
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(BookDialog().done, 0);
}

TEST_F(BookWindows, AStandingBookIsChangedAndCompressed) {
    {
        cConnection other;
        other.Open(BookPath(u"另一本"_s));
        other.Execute(
            u"update tSet set Note1='2003' where Key1='year'; update tSet set Note1='old' where Key1='pass'"_s);
    }
    Open(false, BookPath(u"另一本"_s));
    EXPECT_EQ(window_->windowTitle(), u"修改账本-账本名不可修改"_s);
    EXPECT_TRUE(At<KestroText>("txtName")->isReadOnly());
    EXPECT_EQ(At<KestroCombox>("comYear")->text(), u"2003"_s);
    EXPECT_EQ(At<KestroText>("txtPass1")->text(), u"old"_s);
    EXPECT_EQ(At<KestroLabel>("lblDBVerInfo")->Text(), u"v10.0"_s);
    EXPECT_FALSE(At<QWidget>("chkOther")->isVisible());
    boxes.Expect(u"压缩前: "_s);
    Press("btnZip");
    EXPECT_EQ(boxes.Last().icon, kMsgNone);
    At<KestroEditBox>("editNote")->SetText(u"改过"_s);
    Type(u"wrong"_s);
    boxes.Expect(u"口令不正确!"_s);
    Press("btnEnter");
    EXPECT_TRUE(window_->isVisible());
    Type(u"old"_s);
    boxes.Expect(u"修改成功!"_s);
    Press("btnEnter");
    const auto facts = ReadBookFacts(BookAt(BookPath(u"另一本"_s)));
    EXPECT_EQ(facts.note + facts.year + facts.pass, u"改过2003old"_s);
    EXPECT_EQ(BookDialog().result, BookPath(u"另一本"_s));
}

TEST_F(BookWindows, ABookFromOutsideTheBoxIsNotBackedUpFromItsWindow) {
    const QString outside = Path(u"outside.jotdb"_s);
    ASSERT_TRUE(QFile::copy(BookPath(u"另一本"_s), outside));
    AddOutsideBook(outside);
    Open(false, outside);
    EXPECT_EQ(At<KestroText>("txtName")->text(), u"outside"_s);
    boxes.Expect(u"账本文件没有存在程序指定位置不能备份"_s);
    Press("btnBackUp");
    QString path = u"not asked"_s;
    RegisterDialog(kDlgBackup, [&](QPoint) { path = BackupDialog().path; });
    Open(false, BookPath(u"另一本"_s));
    Press("btnBackUp");
    EXPECT_EQ(path, BookPath(u"另一本"_s));
}

TEST_F(BookWindows, TheBackupGoesThroughItsThreeSteps) {
    OpenBackup();
    auto* places = At<KestroListView>("KestroListView1");
    EXPECT_EQ(places->Count(), 1);
    EXPECT_TRUE(places->HasPicture(0));
    boxes.Expect(u"这已经是第一步了!"_s);
    Press("btnBack");
    boxes.Expect(u"请选择备份到【哪里】?"_s);
    Press("btnNext");
    places->SetCurrent(0);
    Press("btnNext");
    EXPECT_EQ(At<KestroLabel>("lblTitle")->Text(), u"备份数据文件"_s);
    EXPECT_EQ(At<KestroEditBox>("editNote")->Text().split(u'\n').size(), 2);
    EXPECT_FALSE(places->isVisible() || At<QWidget>("btnFresh")->isVisible());
    Press("btnBack");
    EXPECT_TRUE(places->isVisible());
    Press("btnNext");
    boxes.Expect(u"备份成功【2】本!"_s, 1, [this] {
        EXPECT_EQ(At<KestroLabel>("lblTitle")->Text(), u"数据文件成功备份"_s);
        EXPECT_TRUE(At<QWidget>("pngbtnPath")->isVisible());
        EXPECT_TRUE(State().gDB.IsOpen());
        EXPECT_FALSE(State().gBusy);
    });
    Press("btnNext");
    EXPECT_FALSE(window_->isVisible());
    // A second one on the day goes back to the choice of the place.
    OpenBackup();
    At<KestroListView>("KestroListView1")->SetCurrent(0);
    Press("btnNext");
    boxes.Expect(Path(u"stick/墨鹊账本备份20160903"_s) + u"该文件夹已存在"_s);
    Press("btnNext");
    EXPECT_TRUE(At<QWidget>("KestroListView1")->isVisible());
}

// A second copy, the clock and the agent may come while the open book is closed for its copy.
TEST_F(BookWindows, NothingReadsTheBookWhileItIsCopied) {
    Settings(u"book"_s);
    {
        cConnection large;
        large.Open(BookPath(u"2016家用"_s));
        large.Execute(
            u"with n(i) as (select 1 union all select i+1 from n where i<300) insert into tPic"
            u" (ID1,bitPic) select i+10,randomblob(100000) from n"_s);
    }
    OpenBackup();
    At<KestroListView>("KestroListView1")->SetCurrent(0);
    Press("btnNext");
    int turns = 0;
    const auto yield = Outside().yield;
    Outside().yield = [&] {
        if (turns++ == 0) {
            EXPECT_FALSE(State().gDB.IsOpen());
            boxes.Expect(u"当前有【弹出窗口】正在操作, 无法打开!"_s);
            frame_->MyTrak.RaiseReceMsg({}, kCodeOpenBook, 0);
            Notices().remindersChanged.Emit();
            Notices().entriesChanged.Emit();
            boxes.Expect(u"有别的进程在运行，不可退出!"_s);
            EXPECT_FALSE(frame_->FinishApp());
            window_->close();  // a window manager's close asks the job to stop
            EXPECT_TRUE(window_->isVisible());
            EXPECT_TRUE(std::exchange(State().gStop, false));
            boxes.Expect(u"备份成功【2】本!"_s);
        }
        yield();
    };
    Press("btnNext");
    EXPECT_GT(turns, 0);
    EXPECT_TRUE(State().gDB.IsOpen());
}

TEST_F(BookWindows, TheBooksAreListedMadeAndDeleted) {
    auto* page = Settings(u"book"_s);
    auto* list = Find<KestroList>(page, "KestroList2");
    ASSERT_EQ(list->RowCount(), 2);
    const QString shown = list->RowCells(0).join(u'|') + u' ' + list->RowCells(1).join(u'|');
    EXPECT_TRUE(shown.contains(u"1|2016|"_s) && shown.contains(u"|2016家用|10.0"_s)) << qPrintable(shown);
    RegisterDialog(kDlgBook, [](QPoint) {
        frmBookNew window;
        window.show();
        TypeInto(Find<QWidget>(&window, "txtName"), u"第三本"_s);
        Find<QAbstractButton>(&window, "btnEnter")->click();
    });
    boxes.Expect(u"创建成功!"_s);
    frame_->SetFormTab(kTabAccount);
    Commands().newBook();
    EXPECT_EQ(frame_->CurrentTab(), kTabSetting);
    EXPECT_EQ(list->RowCount(), 3);
    EXPECT_EQ(list->CurrentKey(), BookPath(u"第三本"_s).toLower());
    EXPECT_TRUE(page->Can(Act::remove));
    Type(u""_s);
    Outside().trash = [](const QString& file) { return QFile::remove(file); };
    boxes.Expect(u"你确定要删除【选定的账本】?"_s);
    boxes.Expect(u"成功删除【"_s + BookPath(u"第三本"_s).toLower() + u"】!"_s);
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(list->RowCount(), 2);
    EXPECT_EQ(list->CurrentRow(), 0);
    EXPECT_EQ(CurrentBook().Name, u"2016家用"_s);
}

TEST_F(BookWindows, TheLabelOfTheFrameOpensTheOpenBook) {
    Settings(u"book"_s);
    QString path;
    RegisterDialog(kDlgBook, [&](QPoint) {
        path = BookDialog().path;
        EXPECT_EQ(BookDialog().isNew, 0);
    });
    frame_->onBookLabel();
    EXPECT_EQ(path, BookPath(u"2016家用"_s));
}

TEST_F(BookWindows, GeneralSettingsChangeMemoryAtOnceAndTheFileAtSaving) {
    auto* page = Settings(u"common"_s);
    auto& settings = State().settings;
    auto* items = Find<KestroCombox>(page, "comHtmItems");
    EXPECT_EQ(items->text(), u"50 条"_s);
    items->onChoose({}, u"70"_s);
    Find<KestroCombox>(page, "comLoad")->onChoose({}, u"rcently"_s);
    QTest::keyClick(Find<QWidget>(page, "chkAgent"), Qt::Key_Space);
    EXPECT_EQ(settings.nHtmPageSize, 70);
    EXPECT_EQ(settings.LoadDate, u"rcently"_s);
    EXPECT_EQ(settings.nShowAgentIco, 0);
    const auto stored = [] {
        return Rows(State().gSetDB, u"select nHtmPageSize,nGroup,nShowAgentIco from tSetting"_s);
    };
    EXPECT_EQ(stored(), QStringList{u"50|3|1"_s});
    Find<KestroOption>(page, "optSplit2")->SetOn();
    boxes.Expect(u"保存成功！"_s);
    Find<QAbstractButton>(page, "btnSave")->click();
    EXPECT_EQ(stored(), QStringList{u"70|0|0"_s});
    EXPECT_EQ(settings.nGroup, 0);
    QStringList typed;
    Commands().webValidate = [&](const QString& user, const QString& pass) { typed = {user, pass}; };
    Find<KestroText>(page, "txtWebUserName")->setText(u"lin"_s);
    Find<KestroText>(page, "txtWebPass")->setText(u"geheim"_s);
    Find<QAbstractButton>(page, "btnValidate")->click();
    EXPECT_EQ(typed, (QStringList{u"lin"_s, u"geheim"_s}));
    EXPECT_TRUE(Find<QWidget>(page, "btnAccount")->isEnabled());
    EXPECT_TRUE(Find<KestroLabel>(page, "lblTip10")->toolTip().startsWith(u"如数字【８１２００】"_s));
}

TEST_F(BookWindows, ABoxThatIsChosenIsWarnedOfAndAsksForANewStart) {
    auto* page = Settings(u"common"_s);
    bool closed = false;
    Commands().closeProgram = [&] { closed = true; };
    auto* path = Find<KestroEditBox>(page, "editNote");
    FileDialogSlot() = [](const FileRequest& request) {
        EXPECT_EQ(request.title, u"选择目录"_s);
        return u"/usr/share"_s;
    };
    boxes.Expect(u"『禁止』将账本盒路径指定到"_s);
    Find<QAbstractButton>(page, "btnPath")->click();
    EXPECT_EQ(path->Text(), u"/usr/share"_s);
    path->SetText(Path(u"nowhere"_s));
    boxes.Expect(u"目录不存在!"_s);
    Find<QAbstractButton>(page, "btnOpenPath")->click();
    boxes.Expect(u"指定的账本盒【存储路径】不存在!"_s);
    Find<QAbstractButton>(page, "btnSave")->click();
    EXPECT_FALSE(closed);
    QDir().mkpath(Path(u"New"_s));
    path->SetText(Path(u"New"_s));
    boxes.Expect(u"账本盒存储位置有改变"_s);
    Find<QAbstractButton>(page, "btnSave")->click();
    EXPECT_EQ(boxes.Last().width, 400);
    EXPECT_TRUE(closed);
    EXPECT_EQ(State().settings.sDBPath, Path(u"New"_s).toLower());
}
