#pragma once
// The settings of the installation in memory, and their columns in the settings file.

#include "store/connection.h"

#include <QString>

#include <optional>

/// The working copy, under the names of the columns of tSetting; LoadDate is a key of tSetting2.
struct Settings {
    int nGroup = 3;  ///< digits per group of an amount: 3 or 4, otherwise none
    int nHtmPageSize = 50;
    QString sWebName, sWebPass, sWebBook;
    int bWebOk = 0;  ///< 1: the web service has accepted the user
    QString sDBPath;
    int nShowAgentIco = 1;
    QString sLogDateTime;    ///< the last start of the main window
    QString sPreOpenDBFile;  ///< lower-case path of the book open at the last exit
    QString LoadDate;        ///< key of the period that lists begin with
};

/// Reads every value; what the file does not have, or holds as null, stays as it is.
void ReadSettings(cConnection& file, Settings& settings);

/// Columns that are written together.
enum class SettingGroup { general, web, box };
/// Writes the columns of a group in one transaction: LoadDate with the general ones, and the box's real
/// spelling where the box is. A web flag
/// that the file has no column for stays in memory.
void WriteSettings(cConnection& file, const Settings& settings, SettingGroup group);

/// A value of tSetting2; nullopt when the key is missing.
std::optional<QString> SettingKey(cConnection& file, const QString& key);
void SetSettingKey(cConnection& file, const QString& key, const QString& value);

/// Takes out what belongs to one user (names, paths, passwords) and leaves the defaults of the installation.
void ForgetUser(Settings& settings);
/// The same in a file, its messages and all keys but LoadDate included, in one transaction.
void ForgetUser(cConnection& file);

/// Adds the columns that the file lacks, and builds tAd anew when it has no key; in one transaction.
void UpgradeSettings(cConnection& file);
