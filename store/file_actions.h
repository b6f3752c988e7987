#pragma once
// Deleting a user's file, and the folder that exports are written to.

#include "store/state.h"

#include <QString>

/// Moves a file to the trash, a book's journal along with it. Where there is no trash, says so and asks
/// before deleting for good. False when the file still stands.
bool DeleteToBin(const QString& path);
/// The same with a book's own file; another one that differs by case alone stays.
bool DeleteToBin(const BookRecord& book);

/// Makes Export/Html below gDataDir and copies the pages' files of the skin into it, overwriting. False after
/// its box when that fails.
bool PrepareExportFolder();
