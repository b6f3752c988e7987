#include "store/settings.h"

#include "store/book_box.h"
#include "store/book_images.h"
#include "store/connection.h"
#include "store/dates.h"
#include "store/paths.h"
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

bool CanWrite(const QString& file) {
    return QFileInfo(file).isWritable() && QFileInfo(ParentPath(file)).isWritable();
}

void ReadColumns(cConnection& settings) {
    auto& state = State();
    const auto row = settings.OpenRecordset(u"select * from tSetting"_s);
    if (row.Eof()) return;
    state.nGroup = static_cast<int>(row.Int(u"nGroup"));
    state.nHtmPageSize = static_cast<int>(row.Int(u"nHtmPageSize"));
    state.sWebName = row.Text(u"sWebName");
    state.sWebPass = row.Text(u"sWebPass");
    state.sWebBook = row.Text(u"sWebBook");
    state.sDBPath = row.Text(u"sDBPath");
    state.nShowAgentIco = static_cast<int>(row.Int(u"nShowAgentIco"));
    state.sLogDateTime = row.Text(u"sLogDateTime");
    state.sPreOpenDBFile = row.Text(u"sPreOpenDBFile");
}

bool TakeFirstRun(cConnection& settings) {
    const auto row = OpenKey(settings, u"FirstRun"_s);
    const bool first = row.Eof() || row.Text(u"Value1") == u"1"_s;
    if (first) SetKey(settings, u"FirstRun"_s, u"0"_s);
    return first;
}

void SaveGeneral(cConnection& settings) {
    const auto& state = State();
    Transaction all(settings);
    settings.Execute(u"update tSetting set nGroup="_s + QString::number(state.nGroup));
    settings.Execute(u"update tSetting set nHtmPageSize="_s + QString::number(state.nHtmPageSize));
    settings.Execute(u"update tSetting set sWebName="_s + Quote(state.sWebName));
    settings.Execute(u"update tSetting set sWebPass="_s + Quote(state.sWebPass));
    settings.Execute(u"update tSetting set sDBPath="_s + Quote(state.sDBPath));
    settings.Execute(u"update tSetting set nShowAgentIco="_s + QString::number(state.nShowAgentIco));
    settings.Execute(u"update tSetting2 set Value1="_s + Quote(state.LoadDate) + u" where Key1='LoadDate'"_s);
    all.Commit();
}

}  // namespace

QString SettingsPath() {
    auto& settled = State().gSettingsPath;
    if (!settled.isEmpty()) return settled;
    const QString packaged = BesideProgram(u"Set.ini"_s);
    const bool there = CanWrite(packaged) || !QFileInfo::exists(packaged);
    settled = there ? packaged : State().gDataDir + u"/Set.ini"_s;
    return settled;
}

QString SampleBookPath() {
    return State().gDefaultBox + u"/专业版例子.jotdb"_s;
}

void OpenSettings(const QString& path) {
    auto& state = State();
    state.gSetDB.Open(path);
    ReadColumns(state.gSetDB);
    if (const auto row = OpenKey(state.gSetDB, u"LoadDate"_s); !row.Eof())
        state.LoadDate = row.Text(u"Value1");
}

void LoadSettings() {
    auto& state = State();
    const QString packaged = BesideProgram(u"Set.ini"_s);
    if (SettingsPath() != packaged) RenewCopy(packaged, SettingsPath());
    OpenSettings(SettingsPath());
    const bool firstRun = TakeFirstRun(state.gSetDB);
    state.sDBPath = FixBookPath(state.sDBPath);
    if (!firstRun) return;
    RemoveBookFile(SampleBookPath());
    WriteSampleBook(SampleBookPath());
}

void SaveSetting(const QString& value, int code) {
    auto& settings = State().gSetDB;
    const auto& state = State();
    switch (code) {
        case kSaveAll:
            return SaveGeneral(settings);
        case kSaveLastBook:
            return settings.Execute(u"update tSetting set sPreOpenDBFile="_s + Quote(value));
        case kSaveHandle:
            return settings.Execute(u"update tSetting set lHandle="_s + Quote(value));
        case kSaveLogTime:
            return settings.Execute(u"update tSetting set sLogDateTime="_s + Quote(NowText()));
        case kSaveWebAccount:
            return settings.Execute(u"update tSetting set sWebBook="_s + Quote(state.sWebBook) +
                                    u", sWebName="_s + Quote(state.sWebName) + u", sWebPass="_s +
                                    Quote(state.sWebPass));
        case kSaveBookBox:
            return settings.Execute(u"update tSetting set sDBPath="_s + Quote(state.sDBPath));
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
