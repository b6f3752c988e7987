#pragma once
// The part of the tour that looks after the web ledger, against a service on this machine.

class Tour;

/// Begins anywhere in the main window; ends on the entry page.
void SeeWeb(Tour& tour);
