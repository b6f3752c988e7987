#pragma once
// The checks of the entry window in their binding order, and the confirmation text.

#include "ledger/entry.h"

struct EntryComplaint {
    QString message;  ///< empty: the entry may be saved
    EntryField focus = EntryField::none;
    bool Good() const { return message.isEmpty(); }
};

/// Runs the checks. May rewrite the amounts: ".5" becomes "0.50", "12" becomes "12.00".
EntryComplaint CheckEntry(EntryValues& entry);

/// The text of the question "记账信息是否正确？".
QString BuildConfirmText(const EntryValues& entry);
/// Height of that box in pixels.
int ConfirmHeight(const EntryValues& entry);

/// Shows the question with its buttons; true for 正确.
bool ConfirmEntry(const EntryValues& entry);
