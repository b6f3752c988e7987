#pragma once
// Where the program's own files lie.

#include <QString>

/// The folder of the executable, where the skin, the icons and Set.ini lie.
QString ProgramFolder();
/// name in the program folder.
QString BesideProgram(const QString& name);

/// Set.ini in the program folder; its copy in gDataDir when the program is installed in the system or that
/// folder cannot be written. Decided once for the process.
QString SettingsPath();

/// The sample book's file in the default book box.
QString SampleBookPath();

/// What is said of a book box in a folder of the system; empty for other folders. path in lower case.
QString ForbiddenBoxText(const QString& path);
