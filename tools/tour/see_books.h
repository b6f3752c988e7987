#pragma once
// The part of the tour that looks after the books: the settings, a new book from this one, its first list, a
// backup.

class Tour;

/// Begins anywhere in the main window; ends there, in the new book.
void SeeBooks(Tour& tour);
