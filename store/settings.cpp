#include "store/settings.h"

#include "store/paths.h"

#include <QStringList>

#include <algorithm>
#include <initializer_list>
#include <span>
#include <variant>

using namespace Qt::StringLiterals;

namespace {

struct Column {
    const char16_t* name;
    std::variant<int Settings::*, QString Settings::*> member;
    std::initializer_list<SettingGroup> groups;
};

constexpr auto kGeneral = SettingGroup::general;
constexpr auto kWeb = SettingGroup::web;
constexpr auto kWebOk = u"bWebOk";

std::span<const Column> Columns() {
    static const Column columns[] = {
        {u"nGroup", &Settings::nGroup, {kGeneral}},
        {u"nHtmPageSize", &Settings::nHtmPageSize, {kGeneral}},
        {u"sWebName", &Settings::sWebName, {kGeneral, kWeb}},
        {u"sWebPass", &Settings::sWebPass, {kGeneral, kWeb}},
        {u"sWebBook", &Settings::sWebBook, {kWeb}},
        {kWebOk, &Settings::bWebOk, {kWeb}},
        {u"sDBPath", &Settings::sDBPath, {kGeneral, SettingGroup::box}},
        {u"nShowAgentIco", &Settings::nShowAgentIco, {kGeneral}},
        {u"sLogDateTime", &Settings::sLogDateTime, {}},
        {u"sPreOpenDBFile", &Settings::sPreOpenDBFile, {}},
    };
    return columns;
}

QString SqlValue(const Settings& settings, const Column& column) {
    if (const auto* number = std::get_if<int Settings::*>(&column.member))
        return QString::number(settings.*(*number));
    return Quote(settings.*std::get<QString Settings::*>(column.member));
}

QString Assignment(const Settings& settings, const Column& column) {
    return QString::fromUtf16(column.name) + u'=' + SqlValue(settings, column);
}

// A file of an older version that could not be upgraded has no column for the web flag.
bool IsThere(cConnection& file, const Column& column) {
    return column.name != kWebOk || file.OpenRecordset(u"select * from tSetting where 0"_s).Has(column.name);
}

bool BelongsToUser(const Column& column) {
    return std::holds_alternative<QString Settings::*>(column.member);
}

}  // namespace

void ReadSettings(cConnection& file, Settings& settings) {
    const auto row = file.OpenRecordset(u"select * from tSetting"_s);
    for (const auto& column : Columns()) {
        if (row.Eof() || row.IsNull(column.name)) continue;
        if (const auto* number = std::get_if<int Settings::*>(&column.member))
            settings.*(*number) = static_cast<int>(row.Int(column.name));
        else
            settings.*std::get<QString Settings::*>(column.member) = row.Text(column.name);
    }
    if (const auto period = SettingKey(file, u"LoadDate"_s)) settings.LoadDate = *period;
}

void WriteSettings(cConnection& file, const Settings& settings, SettingGroup group) {
    QStringList values;
    for (const auto& column : Columns())
        if (std::ranges::find(column.groups, group) != std::end(column.groups) && IsThere(file, column))
            values << Assignment(settings, column);
    Transaction all(file);
    file.Execute(u"update tSetting set "_s + values.join(u','));
    // In lower case alone the box is not found below a folder that cannot be listed.
    if (group != SettingGroup::web) SetSettingKey(file, u"BoxFolder"_s, RealPath(settings.sDBPath).path);
    if (group == SettingGroup::general)
        file.Execute(u"update tSetting2 set Value1="_s + Quote(settings.LoadDate) +
                     u" where Key1='LoadDate'"_s);
    all.Commit();
}

std::optional<QString> SettingKey(cConnection& file, const QString& key) {
    const auto row = file.OpenRecordset(u"select * from tSetting2 where Key1="_s + Quote(key));
    if (row.Eof()) return {};
    return row.Text(u"Value1");
}

void SetSettingKey(cConnection& file, const QString& key, const QString& value) {
    auto row = file.OpenRecordset(u"select * from tSetting2 where Key1="_s + Quote(key));
    if (row.Eof()) {
        row.AddRow();
        row.Set(u"Key1", key);
    }
    row.Set(u"Value1", value);
    row.Update();
}

void ForgetUser(Settings& settings) {
    settings.bWebOk = 0;
    for (const auto& column : Columns())
        if (BelongsToUser(column)) (settings.*std::get<QString Settings::*>(column.member)).clear();
}

void ForgetUser(cConnection& file) {
    QStringList values{u"lHandle='0'"_s, u"sOutOpenDBFile=''"_s, u"bWebOk=0"_s};
    for (const auto& column : Columns())
        if (BelongsToUser(column)) values << Assignment({}, column);
    Transaction all(file);
    file.Execute(u"update tSetting set "_s + values.join(u','));
    file.Execute(u"delete from tSetting2 where Key1<>'LoadDate'; delete from tAd"_s);
    all.Commit();
}
