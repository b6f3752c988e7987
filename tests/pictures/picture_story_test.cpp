// What the book holds of an owner's pictures at each step of its life, worked through the windows.

#include "ledger/entry_delete.h"
#include "ledger/frm_account_new.h"
#include "notes/frm_note_new.h"
#include "notes/note_change.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/png_button.h"
#include "store/notices.h"
#include "tests/pictures/picture_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class PictureStory : public PictureStage {
 protected:
    PictureStory() {
        State().gDB.Execute(
            u"delete from tPic; delete from tNotebook; update tNum set Max1=1 where Table1='tnotebook'"_s);
        for (const auto& name : {u"a"_s, u"b"_s, u"c"_s})
            PutPicture(name + u".jpg"_s, name.toLatin1());
    }

    /// Opens the pictures of an owner, adds the file in that row, and saves.
    static void Add(QWidget* owner, int row) {
        OnNextModal([row](QWidget* pictures) {
            auto* files = Find<KestroList>(pictures, "KestroList1");
            files->SetCurrentRow(row);
            QTest::keyClick(files, Qt::Key_Return);
            Press(pictures, "btnSave");
        });
        Press(owner, "btnCamera");
    }
    /// The frame's own close box.
    static void CloseByFrame(QWidget* owner) {
        for (auto* button : owner->findChildren<PngButton*>(QString(), Qt::FindDirectChildrenOnly))
            if (button->accessibleName() == u"关闭") QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_FALSE(owner->isVisible());
    }
    static QStringList Stored() {
        return Rows(State().gDB,
                    u"select Note1,hex(bitPic),sFromTable,lFromId,lFromId1 from tPic order by rowid"_s);
    }

    std::unique_ptr<frmAccountNew> Entry(int id) {
        ResetDlg(kDlgEntry);
        EntryDialog entry;
        entry.isNew = id < 0 ? 1 : 0;
        entry.id = id;
        return Presented<frmAccountNew>();
    }
    std::unique_ptr<frmNoteNew> Note(int id) {
        ResetDlg(kDlgNote);
        NoteDialog note;
        note.isNew = id < 0 ? 1 : 0;
        note.id = id;
        note.mode = u"wake"_s;
        return Presented<frmNoteNew>();
    }

 private:
    template <class Window>
    static std::unique_ptr<Window> Presented() {
        auto window = std::make_unique<Window>();
        Present(window.get());
        return window;
    }
};

const QString kWaiting = u"|tAccount|-1|-1"_s, kNoteWaiting = u"|tNoteBook|-1|-1"_s;

}  // namespace

TEST_F(PictureStory, OfAnEntry) {
    auto window = Entry(-1);
    Add(window.get(), 0);
    EXPECT_EQ(Stored(), QStringList{u"a|61"_s + kWaiting});
    EXPECT_EQ(Find<KestroButton>(window.get(), "btnCamera")->text(), u"图片 1"_s);
    Press(window.get(), "btnCancel");
    EXPECT_EQ(Stored(), QStringList());

    window = Entry(-1);
    Add(window.get(), 0);
    CloseByFrame(window.get());
    EXPECT_EQ(Stored(), QStringList{u"a|61"_s + kWaiting});

    // What the frame's road left shows with the next new entry and goes with it.
    window = Entry(-1);
    TypeInto(Find<QWidget>(window.get(), "txtThing"), u"买笔"_s);
    TypeInto(Find<QWidget>(window.get(), "txtMoney"), u"12.5"_s);
    Find<QWidget>(window.get(), "comKind")->setFocus();
    TypeInto(Find<QWidget>(window.get(), "comKind"), u"0201"_s);
    QTest::keyClick(Find<QWidget>(window.get(), "comKind"), Qt::Key_Return);
    Add(window.get(), 1);
    EXPECT_EQ(Stored(), (QStringList{u"a|61"_s + kWaiting, u"b|62"_s + kWaiting}));
    boxes.Expect(u"【事情】：买笔"_s);
    Press(window.get(), "btnEnter");
    const int id = EntryDialog().id;
    const QString owned = u"|tAccount|%1|-1"_s.arg(id), both = u"|tAccount|%1|%1"_s.arg(id);
    EXPECT_EQ(Stored(), (QStringList{u"a|61"_s + owned, u"b|62"_s + owned}));

    window = Entry(id);
    Add(window.get(), 2);
    EXPECT_EQ(Stored(), (QStringList{u"a|61"_s + both, u"b|62"_s + both, u"c|63"_s + both}));
    Press(window.get(), "btnCancel");
    EXPECT_EQ(Rows(State().gDB, u"select sPic from tAccount where Id1=%1"_s.arg(id)), QStringList{u"3"_s});
    EXPECT_EQ(Stored().size(), 3);
    EXPECT_TRUE(DeleteEntry(State().gDB, id));
    EXPECT_EQ(Stored(), QStringList());
}

TEST_F(PictureStory, OfANote) {
    int told = 0;
    const auto token = Notices().remindersChanged.Subscribe([&] { ++told; });
    auto window = Note(-1);
    Add(window.get(), 0);
    EXPECT_EQ(Find<KestroButton>(window.get(), "btnCamera")->text(), u"图片 1"_s);
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_EQ(NoteDialog().done, 0);
    EXPECT_EQ(Stored(), QStringList{u"a|61"_s + kNoteWaiting});
    window = Note(-1);
    EXPECT_EQ(Stored(), QStringList());
    Add(window.get(), 1);
    CloseByFrame(window.get());
    EXPECT_EQ(Stored(), QStringList{u"b|62"_s + kNoteWaiting});

    window = Note(-1);
    Add(window.get(), 0);
    TypeInto(Find<QWidget>(window.get(), "txtTitle"), u"房租"_s);
    boxes.Expect(u"新增成功!"_s);
    EXPECT_EQ(told, 0);
    Press(window.get(), "btnEnter");
    EXPECT_EQ(told, 1);
    EXPECT_EQ(Stored(), QStringList{u"a|61|tNoteBook|1|-1"_s});

    window = Note(1);
    Add(window.get(), 2);
    EXPECT_EQ(told, 2);
    Press(window.get(), "btnCancel");
    EXPECT_EQ(Stored(), (QStringList{u"a|61|tNoteBook|1|1"_s, u"c|63|tNoteBook|1|1"_s}));
    EXPECT_EQ(Rows(State().gDB, u"select sPic from tNotebook"_s), QStringList{u"2"_s});
    // An entry of the same id keeps its pictures when the note goes.
    State().gDB.Execute(u"insert into tPic values (99,x'00','e','tAccount',1,1)"_s);
    boxes.AnswerAll(1);
    EXPECT_TRUE(DeleteNoteAsked(State().gDB, NoteList::note, NoteKey{1, kTagNote}));
    EXPECT_EQ(Stored(), QStringList{u"e|00|tAccount|1|1"_s});
}
