#pragma once
// Finishing and deleting notes as a user does: asked and told. What changes the book tells it.

#include "notes/note_list.h"

#include <optional>
#include <vector>

/// The chosen line is done. False when nothing was done, after its message.
bool FinishNote(cConnection& book, const std::optional<NoteKey>& chosen);
/// The ticked reminders are done.
bool FinishTicked(cConnection& book, const std::vector<NoteKey>& ticked);

/// The chosen line goes with its pictures.
bool DeleteNoteAsked(cConnection& book, NoteList list, const std::optional<NoteKey>& chosen);
/// The ticked lines go; lines: how many the list has at all.
bool DeleteTickedAsked(cConnection& book, NoteList list, int lines, const std::vector<NoteKey>& ticked);
