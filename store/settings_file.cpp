#include "store/settings_file.h"

#include "store/book_box.h"
#include "store/connection.h"
#include "store/dates.h"
#include "store/errors.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/sample_book.h"
#include "store/settings.h"
#include "store/state.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kFirstRun = u"FirstRun"_s;
const QString kVersionKey = u"Version"_s;
// The book box as it is spelled.
const QString kBoxFolder = u"BoxFolder"_s;

// The user's own copy begins with the defaults of the installation, not with what its last user left there.
void MakeCopy(const QString& packaged, const QString& copy) {
    const QString fresh = copy + u".new"_s;
    QFile::remove(fresh);
    QFile::copy(packaged, fresh);
    QFile::setPermissions(fresh, QFile::ReadOwner | QFile::WriteOwner);
    cConnection file;
    file.Open(fresh);
    UpgradeSettings(file);
    ForgetUser(file);
    file.Close();
    if (!QFile::rename(fresh, copy)) QFile::remove(fresh);
}

// As an installer sets FirstRun in the packaged file.
void NoteVersion(cConnection& copy) {
    const QString version = QStringLiteral(KESTRO_VERSION);
    if (SettingKey(copy, kVersionKey) == version) return;
    Transaction both(copy);
    SetSettingKey(copy, kVersionKey, version);
    SetSettingKey(copy, kFirstRun, u"1"_s);
    both.Commit();
}

// Without a place for a copy the packaged file is read alone.
void OpenCopy(const QString& packaged, const QString& copy) {
    auto& state = State();
    if (!QFileInfo::exists(copy)) Succeeds([&] { MakeCopy(packaged, copy); });
    const bool own = QFileInfo::exists(copy);
    state.gSetDB.Open(own ? copy : packaged, {.readOnly = !own});
    if (own) Succeeds([&] { NoteVersion(state.gSetDB); });
    Succeeds([&] { UpgradeSettings(state.gSetDB); });
    ReadSettings(state.gSetDB, state.settings);
    if (!own) ForgetUser(state.settings);
}

bool TakeFirstRun(cConnection& settings) {
    const auto marker = SettingKey(settings, kFirstRun);
    if (marker && *marker != u"1") return false;
    SetSettingKey(settings, kFirstRun, u"0"_s);
    return true;
}

void SetColumn(cConnection& settings, const QString& column, const QString& value) {
    settings.Execute(u"update tSetting set "_s + column + u'=' + Quote(value));
}

// A file that holds a password is read by nobody else.
void KeepToUser(const cConnection& file, const Settings& settings) {
    if (!settings.sWebPass.isEmpty())
        QFile::setPermissions(file.Path(), QFile::ReadOwner | QFile::WriteOwner);
}

}  // namespace

void OpenSettings(const QString& path) {
    auto& state = State();
    state.gSetDB.Open(path);
    Succeeds([&] { UpgradeSettings(state.gSetDB); });
    ReadSettings(state.gSetDB, state.settings);
}

void LoadSettings() {
    auto& state = State();
    const QString packaged = BesideProgram(u"Set.ini"_s);
    if (SettingsPath() == packaged)
        OpenSettings(packaged);
    else
        OpenCopy(packaged, SettingsPath());
    Succeeds([&] { KnowFolder(SettingKey(state.gSetDB, kBoxFolder).value_or(QString())); });
    state.settings.sDBPath = FixBookPath(state.settings.sDBPath);
    // A file that cannot be written bars nobody from the books.
    bool firstRun = false;
    Succeeds([&] { firstRun = TakeFirstRun(state.gSetDB); });
    Succeeds([&] { RenewSampleBook(state.gSetDB, firstRun); });
}

void SaveSetting(const QString& value, int code) {
    auto& file = State().gSetDB;
    const auto& settings = State().settings;
    switch (code) {
        case kSaveAll:
            KeepToUser(file, settings);
            return WriteSettings(file, settings, SettingGroup::general);
        case kSaveLastBook:
            return SetColumn(file, u"sPreOpenDBFile"_s, value);
        case kSaveHandle:
            return SetColumn(file, u"lHandle"_s, value);
        case kSaveLogTime:
            return SetColumn(file, u"sLogDateTime"_s, NowText());
        case kSaveWebAccount:
            KeepToUser(file, settings);
            return WriteSettings(file, settings, SettingGroup::web);
        case kSaveBookBox:
            return WriteSettings(file, settings, SettingGroup::box);
        default:
            return;
    }
}

void SaveForNextStart(const std::function<void()>& body) {
    PendingError failed;
    if (Succeeds(body, &failed) || std::exchange(State().gSettingsTold, true)) return;
    TellFailure(failed);
}

qint32 HandOverToRunning(const QString& path) {
    cConnection settings;
    settings.Open(SettingsPath());
    auto row = settings.OpenRecordset(u"select lHandle,sOutOpenDBFile from tSetting"_s);
    if (row.Eof()) return 0;
    const auto handle = static_cast<qint32>(row.Int(u"lHandle"));
    // The running copy has to tell what lower case would lead elsewhere, or nowhere.
    const auto lower = RealPath(path.toLower());
    const bool elsewhere = QFileInfo::exists(path) && !(lower.exists && IsSameFile(lower.path, path));
    const bool plain = SpelledPath(path).rivals.isEmpty() && !elsewhere;
    row.Set(u"sOutOpenDBFile", plain ? path.toLower() : path);
    row.Update();
    return handle;
}

QString HandedOverPath() {
    return State().gSetDB.OpenRecordset(u"select sOutOpenDBFile from tSetting"_s).Text(u"sOutOpenDBFile");
}
