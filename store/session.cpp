#include "store/session.h"

#include "store/book_box.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/sample_book.h"
#include "store/state.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString FromEnvironment(const char* name, const QString& otherwise) {
    const QString value = qEnvironmentVariable(name);
    return value.isEmpty() ? otherwise : value;
}

QString DataHome() {
    return FromEnvironment("XDG_DATA_HOME", QDir::homePath() + u"/.local/share"_s);
}

}  // namespace

void ReopenDB() {
    cConnection fresh;
    OpenFileOf(CurrentBook(), fresh, {});
    State().gDB = std::move(fresh);
}

ClosedBook::ClosedBook() : wasOpen_(State().gDB.IsOpen()) {
    State().gDB.Close();
}

ClosedBook::~ClosedBook() {
    // The second try is for what passes, such as another program's look at the file.
    PendingError failed;
    if (!wasOpen_ || Succeeds([] { ReopenDB(); }) || Succeeds([] { ReopenDB(); }, &failed)) return;
    TellFailure(failed, u"请重新打开账本"_s);
}

QString UsualDataFolder() {
    return FromEnvironment("APPDATA", DataHome()) + u"/KestroJot"_s;
}

QString UsualBookBox() {
    return FromEnvironment("SystemDrive", QDir::homePath()) + u"/KestroData/墨鹊理财"_s;
}

void InitFolders() {
    auto& state = State();
    for (int code = 0; code < static_cast<int>(state.gDlg.size()); ++code)
        ResetDlg(code);
    state.gPopups = 0;
    state.settings = {};
    state.gCurBook = 0;
    state.gCmdBook = -1;
    state.gBooks.assign(1, {});
    state.gSettingsPath.clear();
    state.gDataDir = UsualDataFolder();
    MakeFolders(state.gDataDir);
    state.gDefaultBox = UsualBookBox();
    for (const auto& folder : {QDir::homePath(), state.gDataDir, state.gDefaultBox, ProgramFolder()})
        KnowFolder(folder);
}

bool CheckFiles() {
    QString report;
    int missing = 0;
    if (!FolderExists(State().gDefaultBox)) {
        report = MakeFolders(State().gDefaultBox);
        if (report.isEmpty())
            PutSampleBook();
        else
            ++missing;
    }
    for (const auto& name :
         {u"JotAgent"_s, u"Set.ini"_s, u"Ico.ico"_s, u"Jot.ico"_s, u"HeadIco.ico"_s, u"JotIco"_s}) {
        const QString path = BesideProgram(name);
        if (QFileInfo::exists(path)) continue;
        ++missing;
        report += u"\n    缺少【"_s + path + u"】文件!"_s;
    }
    if (missing == 0) return true;
    ShowMsg(report, u"确定"_s, kMsgFail, u"严重错误!"_s, 500, missing * 25 + 100);
    return false;
}

void ForgetSession() {
    auto& state = State();
    state.gSetDB.Close();
    state.gDB.Close();
    for (int code = 0; code < static_cast<int>(state.gDlg.size()); ++code)
        ResetDlg(code);
    state.gBooks.assign(1, {});
}
