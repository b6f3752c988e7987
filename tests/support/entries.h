#pragma once
// Entries as a user of the sample book would type them.

#include "ledger/entry.h"

constexpr int kShapes = 6;

/// An increase of kind 0102 on a day of 2016, one kind and no account.
EntryValues SampleEntry(const QString& title, const QString& money);
/// Chooses a code with its name for a slot.
void Choose(EntryValues& entry, size_t slot, const QString& code, const QString& name, bool add);
/// The six shapes of an entry from 0 on, in the order none, second kind; account, both; two accounts, all.
void SetShape(EntryValues& entry, int shape);
/// Two kinds and two accounts, with everything in them different from a new entry's start.
EntryValues RichEntry();
