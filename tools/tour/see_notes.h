#pragma once
// The part of the tour that keeps a note and a picture: a reminder that is due, its window, its pictures.

class Tour;

/// Begins anywhere in the main window.
void SeeNotes(Tour& tour);
