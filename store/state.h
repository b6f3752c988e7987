#pragma once
// The program-wide state, one record for as long as the process lives.

#include "store/connection.h"
#include "store/settings.h"

#include <QString>

#include <array>
#include <vector>

struct BookRecord {
    QString Path;  ///< always lower case
    QString Name;  ///< lower case, without extension; "->" in front for a book outside the book box
    int Year = 0;
    QString Version;
    QString File = {};  ///< the spelling by which the book came in; empty: the one that Path leads to
};

/// Through these records a caller and a dialog talk; store/dialogs.h names the fields of each dialog.
struct DialogRecord {
    QString Text1, Text2, Text3, Text4;
    int Flag1 = 0;
    int Num1 = -1, Num2 = -1;
    int Flag2 = 0, Flag3 = 0, Flag4 = 0;
    QString Text5, Text6;
};

/// What is known of the web ledger's service, as the main window tells it.
struct WebStatus {
    QString word;   ///< empty until the first answer
    QString count;  ///< entries that wait on the site; empty while unknown
};

struct ProgramState {
    std::vector<BookRecord> gBooks{1};
    int gCurBook = 0;
    int gCmdBook = -1;  ///< book named on the command line, -1 none
    cConnection gSetDB;
    cConnection gDB;
    bool gBusy = false;
    bool gStop = false;  ///< the running job has been asked to stop
    int gStopAfter = -1;
    int gPopups = 0;  ///< open pop-up windows, never below 0
    int gPage = 0;    ///< code of the page or dialog in front
    int gMsgResult = 0;
    std::array<DialogRecord, 18> gDlg;
    QString gDefaultBox;
    QString gDataDir;
    int gTwipsX = 15, gTwipsY = 15;  ///< logical units per pixel
    QString gProgramFolder;          ///< empty: the folder of the executable
    QString gSettingsPath;           ///< empty until it is first asked for
    QString gCommandLine;            ///< the book path given to the program, absolute, or empty
    bool gSettingsTold = false;      ///< that the settings file cannot be written has been told
    qint32 gRunHandle = 0;           ///< random number of this run, the channel's name to a second copy
    Settings settings;
    WebStatus web;
};

ProgramState& State();

/// The record of gCurBook; an empty one when the index is out of range.
const BookRecord& CurrentBook();

void ResetDlg(int code);
void AddPopup(int delta);

/// Counts a pop-up window for as long as it lives.
class PopupScope {
 public:
    PopupScope() { AddPopup(1); }
    ~PopupScope() { AddPopup(-1); }
    PopupScope(const PopupScope&) = delete;
    PopupScope& operator=(const PopupScope&) = delete;
};

/// Puts another page code in front and the old one back.
class PageScope {
 public:
    explicit PageScope(int code) : old_(State().gPage) { State().gPage = code; }
    ~PageScope() { State().gPage = old_; }
    PageScope(const PageScope&) = delete;
    PageScope& operator=(const PageScope&) = delete;

 private:
    int old_;
};
