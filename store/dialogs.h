#pragma once
// The fields of each dialog's record by name, and the slot table that opens a dialog by its code.

#include "store/state.h"

#include <QPoint>

#include <functional>

/// Indices of gDlg, which are the page codes of the dialogs where they have one.
enum DialogCode {
    kDlgEntry = 2,
    kDlgTemplate = 3,
    kDlgBook = 4,
    kDlgBackup = 5,
    kDlgPictures = 6,
    kDlgInput = 7,
    kDlgNote = 10,
    kDlgPrint = 11,
    kDlgTree = 17
};

/// frmAccountNew.
struct EntryDialog {
    explicit EntryDialog(DialogRecord& r = State().gDlg[kDlgEntry])
        : done(r.Flag1), isNew(r.Flag2), id(r.Num1), secondId(r.Num2) {}
    int& done;
    int& isNew;
    int& id;        ///< in: the row to change; out: the main row, -1 when the opened row is gone
    int& secondId;  ///< out: the second kind row, -1 none
};

/// frmAccountTemplate.
struct TemplateDialog {
    explicit TemplateDialog(DialogRecord& r = State().gDlg[kDlgTemplate])
        : done(r.Flag1), row(r.Num1), title(r.Text1) {}
    int& done;
    int& row;  ///< of the list, -1 none
    QString& title;
};

/// frmBookNew.
struct BookDialog {
    explicit BookDialog(DialogRecord& r = State().gDlg[kDlgBook])
        : done(r.Flag1), isNew(r.Flag2), path(r.Text1), result(r.Text2) {}
    int& done;
    int& isNew;
    QString& path;    ///< the book to show when isNew is 0
    QString& result;  ///< out: path of the changed book
};

/// frmExport.
struct BackupDialog {
    explicit BackupDialog(DialogRecord& r = State().gDlg[kDlgBackup]) : path(r.Text1) {}
    QString& path;  ///< of one book; empty: all books of the box
};

/// The picture window.
struct PictureDialog {
    explicit PictureDialog(DialogRecord& r = State().gDlg[kDlgPictures])
        : done(r.Flag1), single(r.Flag2), id(r.Num1), table(r.Text1), count(r.Text2) {}
    int& done;
    int& single;     ///< the pictures hang on the owner's first id alone; set for a row that is not yet saved
    int& id;         ///< of the owner row, -1 while it is not saved
    QString& table;  ///< tAccount or tNoteBook
    QString& count;  ///< out: how many were saved
};

/// frmInput.
struct InputDialog {
    explicit InputDialog(DialogRecord& r = State().gDlg[kDlgInput])
        : done(r.Flag1),
          prompt(r.Text1),
          label2(r.Text2),
          label3(r.Text3),
          text(r.Text4),
          memo(r.Text5),
          startText(r.Text6),
          money(r.Num1),
          mode(r.Num2),
          otherDisabled(r.Flag2),
          moneyTyped(r.Flag2),
          other(r.Flag3),
          otherChecked(r.Flag4) {}
    int& done;  ///< in: show the memo row; out: confirmed
    QString& prompt;
    QString& label2;
    QString& label3;
    QString& text;       ///< in: caption; out: the text typed
    QString& memo;       ///< in and out
    QString& startText;  ///< in: the text that stands in the box at first
    int& money;          ///< whole hundredths, in and out
    int& mode;  ///< below 0: a plain text; 0: a password; 1 or more: a plain text with amount and check box
    int& otherDisabled;  ///< in
    int& moneyTyped;     ///< out: the amount was typed, which a value alone does not tell
    int& other;
    int& otherChecked;
};

/// frmNoteNew.
struct NoteDialog {
    explicit NoteDialog(DialogRecord& r = State().gDlg[kDlgNote])
        : done(r.Flag1), isNew(r.Flag2), isPlatform(r.Flag3), id(r.Num1), mode(r.Text1) {}
    int& done;
    int& isNew;
    int& isPlatform;  ///< a message of the service, not a note of the book
    int& id;
    QString& mode;
};

/// frmPrint.
struct PrintDialog {
    explicit PrintDialog(DialogRecord& r = State().gDlg[kDlgPrint])
        : preview(r.Flag1), start(r.Num1), listKind(r.Num2), info(r.Text1) {}
    int& preview;  ///< 0: straight to the printer
    int& start;
    int& listKind;
    QString& info;  ///< the documents as one text
};

/// frmTree.
struct TreeDialog {
    explicit TreeDialog(DialogRecord& r = State().gDlg[kDlgTree])
        : done(r.Flag1), key(r.Text1), name(r.Text2) {}
    int& done;
    QString& key;  ///< in: the table, tKind or tSubAcc; out: the chosen code
    QString& name;
};

using DialogOpener = std::function<void(QPoint at)>;

/// Puts in what OpenModal(code) calls.
void RegisterDialog(int code, DialogOpener opener);
bool HasDialog(int code);
void ClearDialogs();

/// Shows the dialog modally with its code in gPage, and puts the old page code back. False when no dialog
/// of that code is there. at is a point of the screen for dialogs that open beside a control.
bool OpenModal(int code, QPoint at = {});
