#pragma once
// The lines of the two lists: notes of the book, and behind them the messages of the service.

#include "output/print_info.h"
#include "store/connection.h"
#include "store/job.h"
#include "store/period.h"
#include "store/row_texts.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

/// wake: the open reminders and unread messages; note: all notes, reminders and messages.
enum class NoteList { wake, note };

inline const QString kTagWake = QStringLiteral("wake");
inline const QString kTagNote = QStringLiteral("note");
inline const QString kTagWeb = QStringLiteral("web");

/// A line by its tag and id: book and settings both count from 1.
struct NoteKey {
    qint64 id = -1;
    QString tag;

    bool IsWeb() const { return tag == kTagWeb; }
    bool operator==(const NoteKey&) const = default;
};

enum NoteColumn { kNoteNumber, kNoteAdded, kNoteDeadline, kNoteTitle, kNoteFlag };
constexpr int kNoteType = kNoteDeadline;  ///< of the list note

struct NoteLine {
    NoteKey key;
    RowTexts cells;  ///< by NoteColumn; kNoteFlag is "flag" or empty
};

struct NoteFilter {
    QString text;
    bool flag = false;
    bool wake = false;
    Period period = {};
};

/// What follows " where 1 "; empty when nothing is asked for.
QString NoteCondition(const NoteFilter& filter);

using TakeNote = std::function<void(NoteLine&&)>;
/// Hands the lines to take, in order. A condition keeps the messages out; the list wake takes none. Ends
/// early when the job was stopped.
void ReadNotes(cConnection& book, NoteList list, const QString& condition, Job& job, const TakeNote& take);
/// One line as it stands now; nullopt when it does not belong to the list any more.
std::optional<NoteLine> ReadNote(cConnection& book, NoteList list, qint64 id, int number);

/// A note or message in full, for a tip: title, moment and text; empty when it is gone.
QString NoteTipText(cConnection& book, const NoteKey& key);

/// ticked: the keys of the ticked lines, when these are asked for; otherwise all that the list shows of the
/// book.
PrintInfo NotePrintInfo(NoteList list, const QString& condition,
                        const std::optional<std::vector<NoteKey>>& ticked);
/// One note as a record.
PrintInfo NoteRecordInfo(qint64 id);
