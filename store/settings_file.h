#pragma once
// Set.ini, the file that holds the settings of the installation. A SQLite file in spite of its name.

#include <QString>

#include <functional>

/// Opens gSetDB on a settings file, adds what it lacks of this version where it can be written, and reads its
/// values into State().settings. Throws DbError when it cannot be read.
void OpenSettings(const QString& path);
/// Opens and reads the settings of this user, from a copy of the packaged ones where those cannot be written.
/// On the first run of a version the sample book is renewed unless the user has changed it. Throws DbError
/// when the file is broken; one that cannot be written is read all the same.
void LoadSettings();

enum SettingCode {
    kSaveAll = -1,      ///< the general settings, in one transaction
    kSaveLastBook = 1,  ///< value: the path
    kSaveHandle = 2,    ///< value: the handle
    kSaveLogTime = 3,
    kSaveWebAccount = 4,
    kSaveBookBox = 5
};
void SaveSetting(const QString& value, int code);
/// Runs body, which saves what the next start wants to know. Where that cannot be written nobody is kept from
/// the books, and the session tells it once.
void SaveForNextStart(const std::function<void()>& body);

/// Puts path where the running copy reads it and returns that copy's handle; 0 without a row. For a second
/// copy, which has loaded nothing.
qint32 HandOverToRunning(const QString& path);
/// The path that a second copy has left.
QString HandedOverPath();
