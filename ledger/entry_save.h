#pragma once
// Saving an entry as one action: check, confirm, write. The entry window and the driver share it.

#include "ledger/entry.h"
#include "ledger/posting.h"

struct SaveOutcome {
    bool done = false;
    EntryField focus = EntryField::none;  ///< where a failed check wants the focus
    PostedIds ids;
};

/// A new entry. Shows what the checks complain of and the question; the amounts of entry may be rewritten.
/// Throws DbError when the writing fails; nothing of it stays.
SaveOutcome SaveNewEntry(cConnection& book, EntryValues& entry);

/// Drops the pictures that were kept for a new entry that is not saved.
void DropUnclaimedPictures(cConnection& book);

/// Picks the code for a slot as from the drop list: true when it is a leaf, and code and name are taken.
/// Otherwise the message about the last level has been shown.
bool PickCode(cConnection& book, EntryValues& entry, size_t slot, const QString& code);
/// True when the code is a leaf, otherwise after the message for the slot's chart.
bool CheckLeaf(cConnection& book, size_t slot, const QString& code);
