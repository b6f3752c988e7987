#pragma once
// Who does what the table of actions names: the frame itself, or a page that it asks.

struct Action;
class frmMain;

/// Builds all menus from the table, with items that stand disabled while they cannot be done, and sends their
/// choices on.
void BuildMenus(frmMain& frame);
/// Listens for the keys of the table.
void BindShortcuts(frmMain& frame);

bool CanDo(const frmMain& frame, const Action& action);
void DoAction(frmMain& frame, const Action& action);
