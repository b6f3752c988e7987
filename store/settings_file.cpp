#include "store/settings_file.h"

#include "store/book_box.h"
#include "store/book_images.h"
#include "store/connection.h"
#include "store/dates.h"
#include "store/places.h"
#include "store/state.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString PackageStamp(const QString& file) {
    const QFileInfo info(file);
    return QString::number(info.lastModified().toSecsSinceEpoch()) + u'/' + QString::number(info.size());
}

cRecordset OpenKey(cConnection& settings, const QString& key) {
    return settings.OpenRecordset(u"select * from tSetting2 where Key1="_s + Quote(key));
}

void SetKey(cConnection& settings, const QString& key, const QString& value) {
    auto row = OpenKey(settings, key);
    if (row.Eof()) {
        row.AddRow();
        row.Set(u"Key1", key);
    }
    row.Set(u"Value1", value);
    row.Update();
}

// A newer package renews the sample once, as an installer does by setting FirstRun.
void RenewCopy(const QString& packaged, const QString& copy) {
    const bool fresh = !QFileInfo::exists(copy);
    if (fresh) {
        QFile::copy(packaged, copy);
        QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    }
    cConnection settings;
    settings.Open(copy);
    const QString stamp = PackageStamp(packaged);
    const auto known = OpenKey(settings, u"PackageStamp"_s);
    if (!known.Eof() && known.Text(u"Value1") == stamp) return;
    SetKey(settings, u"PackageStamp"_s, stamp);
    if (!fresh) SetKey(settings, u"FirstRun"_s, u"1"_s);
}

bool TakeFirstRun(cConnection& settings) {
    const auto row = OpenKey(settings, u"FirstRun"_s);
    const bool first = row.Eof() || row.Text(u"Value1") == u"1"_s;
    if (first) SetKey(settings, u"FirstRun"_s, u"0"_s);
    return first;
}

void SetColumn(cConnection& settings, const QString& column, const QString& value) {
    settings.Execute(u"update tSetting set "_s + column + u'=' + Quote(value));
}

}  // namespace

void OpenSettings(const QString& path) {
    auto& state = State();
    state.gSetDB.Open(path);
    ReadSettings(state.gSetDB, state.settings);
}

void LoadSettings() {
    auto& state = State();
    const QString packaged = BesideProgram(u"Set.ini"_s);
    if (SettingsPath() != packaged) RenewCopy(packaged, SettingsPath());
    OpenSettings(SettingsPath());
    const bool firstRun = TakeFirstRun(state.gSetDB);
    state.settings.sDBPath = FixBookPath(state.settings.sDBPath);
    if (!firstRun) return;
    RemoveBookFile(SampleBookPath());
    WriteSampleBook(SampleBookPath());
}

void SaveSetting(const QString& value, int code) {
    auto& file = State().gSetDB;
    const auto& settings = State().settings;
    switch (code) {
        case kSaveAll:
            return WriteSettings(file, settings, SettingGroup::general);
        case kSaveLastBook:
            return SetColumn(file, u"sPreOpenDBFile"_s, value);
        case kSaveHandle:
            return SetColumn(file, u"lHandle"_s, value);
        case kSaveLogTime:
            return SetColumn(file, u"sLogDateTime"_s, NowText());
        case kSaveWebAccount:
            return WriteSettings(file, settings, SettingGroup::web);
        case kSaveBookBox:
            return WriteSettings(file, settings, SettingGroup::box);
        default:
            return;
    }
}

qint32 HandOverToRunning(const QString& path) {
    cConnection settings;
    settings.Open(SettingsPath());
    auto row = settings.OpenRecordset(u"select lHandle,sOutOpenDBFile from tSetting"_s);
    if (row.Eof()) return 0;
    const auto handle = static_cast<qint32>(row.Int(u"lHandle"));
    row.Set(u"sOutOpenDBFile", path.toLower());
    row.Update();
    return handle;
}

QString HandedOverPath() {
    return State().gSetDB.OpenRecordset(u"select sOutOpenDBFile from tSetting"_s).Text(u"sOutOpenDBFile");
}

int OpenAdCount() {
    return State().gSetDB.OpenRecordset(u"select id1,bWakeOk from tAd where bWakeOk=0"_s).RecordCount();
}
