#pragma once
// The pictures of one owner row: read from the book into temporary files, and stored anew as a whole.

#include "pictures/picture_files.h"
#include "store/connection.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

struct OwnerRow {
    QString table;        ///< tAccount or tNoteBook
    qint64 id = -1;       ///< -1 for a row that is not yet saved
    bool single = false;  ///< its pictures are looked for by their first owner id alone
};

/// An item of the window's list.
struct OwnerPicture {
    QString path;
    QString note;
    std::optional<QByteArray> held = {};  ///< what the book holds, which a save keeps; absent for a new file
};

/// Reads the owner's pictures in row order and writes each to the temporary file KestroJotPic‹n›.jpg.
std::vector<OwnerPicture> LoadOwnerPictures(cConnection& book, const OwnerRow& owner);
/// Writes the temporary file again when it no longer holds the stored bytes; one that is gone stays away.
void RefreshTempFile(const OwnerPicture& picture);

/// Why a file cannot join the list; empty when it can.
QString ComplaintOfAdding(const std::vector<QString>& paths, const QString& path);
/// A new item for a file, described by its name without folder and extension.
OwnerPicture NewPicture(const QString& path);

/// Replaces the owner's stored pictures by the list in one transaction, puts their number on the owner's row
/// and tells of it. Returns the number. A file that is gone or too large by now yields a row without bytes.
int SaveOwnerPictures(cConnection& book, const OwnerRow& owner, const std::vector<OwnerPicture>& pictures);
