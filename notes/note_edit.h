#pragma once
// What the editor of a note opens and saves.

#include "store/connection.h"

#include <QString>

#include <optional>

/// Which row the editor is opened on.
struct NoteJob {
    qint64 id = -1;        ///< -1: a new one
    bool wakeMode = true;  ///< a new one begins as a reminder
    bool message = false;  ///< a message of the service, to be read
};

/// What the controls hold.
struct NoteValues {
    QString title = {}, note = {}, wakeDate = {};
    bool wake = false;
    bool done = false;
    bool flag = false;
    QString pictures = QStringLiteral("0");  ///< count as text
};

struct OpenedNote {
    QString caption;
    QString moment;  ///< when it was added, "YYYY-MM-DD hh:mm:ss"
    NoteValues values = {};
    bool canSave = true;
};

/// Does what opening the editor does: drops pictures that a cancelled new note left, or marks a message read.
/// nullopt, after its message, when the row is gone.
std::optional<OpenedNote> OpenNote(cConnection& book, const NoteJob& job);

/// A date in another form as YYYY-MM-DD; what is no date stays as typed.
QString WakeDateText(const QString& typed);

struct NoteOutcome {
    bool saved = false;
    bool titleMissing = false;  ///< the focus goes to the title
    qint64 id = -1;
};
/// Saves a new note (id -1) or a changed one, after its check, in one transaction; tells what came of it.
NoteOutcome SaveNote(cConnection& book, qint64 id, const NoteValues& values);
