#pragma once
// Where the pictures of a book belong. tPic keeps its owner behind the picture itself, so asking the table
// walks every picture's pages; the owners are read once for an open book and kept in memory.

#include "store/connection.h"

#include <QString>

#include <set>
#include <vector>

struct PictureOwner {
    qint64 rowId = 0;
    QString table;      ///< lower case
    qint64 from = -1;   ///< lFromId; -1 while not yet attached
    qint64 from1 = -1;  ///< lFromId1
};

/// All owners: read on demand, kept by the writers below, read again after a rollback and after another
/// program's change.
const std::vector<PictureOwner>& PictureOwners(cConnection& book);
/// To be called after every write to tPic that is not made here.
void ForgetPictureOwners();

/// Pictures of a row, or of the second row of its entry.
int CountPictures(cConnection& book, const QString& table, qint64 row, qint64 second);
/// " where rowid in (…)" of the pictures of a row: by its first owner id alone, or by either; empty when
/// there is none.
QString WherePicturesOf(cConnection& book, const QString& table, qint64 row, bool firstAlone);
/// A row that was just added to tPic.
void AddPictureOwner(cConnection& book, const PictureOwner& owner);
/// Drops the pictures whose first owner is the row.
void DeletePicturesOfFirst(cConnection& book, const QString& table, qint64 row);
/// Gives the pictures that were kept for a new entry to its rows.
void ClaimPictures(cConnection& book, qint64 main, qint64 second);
/// Drops the pictures of a table that belong to no row.
void DeleteUnclaimed(cConnection& book, const QString& table);
/// Gives the pictures that were kept for a new note to its row.
void ClaimNotePictures(cConnection& book, qint64 note);
/// Drops every picture that waits for its owner's first save.
void DropPendingPictures(cConnection& book);
/// Drops the pictures of these rows by their first owner alone.
void DeletePicturesOf(cConnection& book, const QString& table, const std::set<qint64>& rows);
/// Drops the pictures of a row, by either owner.
void DeletePictures(cConnection& book, const QString& table, qint64 row);
