#pragma once
// What the main window tells of the web ledger.

#include <QString>

/// Kinds of SetWebTip, and with them its panels.
enum WebTipKind { kTipState = 0, kTipCount = 1, kTipUser = 2 };

/// Keeps and tells a text: the state of the service (empty: 正常), how many entries wait there, the user.
void SetWebTip(int kind, const QString& text);
