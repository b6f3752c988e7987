#pragma once
// Whether a book may be opened: one check for the login, for switching and for whatever else opens a book.
// Each refusal shows its box.

#include "store/book_box.h"

#include <QString>

/// What becomes of a file that was chosen, dropped or handed over.
enum class BookDoor {
    refused,  ///< after a box: not there, no book by its name, to be mistaken for another, does not open
    isOpen,   ///< it is the open book; the caller tells
    known,
    added  ///< known from now on
};
struct TakenBook {
    BookDoor door = BookDoor::refused;
    int index = -1;  ///< of its record, unless refused
};
TakenBook TakeBookFile(const QString& path);

/// A known book before its password is asked for: its file can be read, and has the version that the program
/// reads. -1: the current book.
bool CheckBook(int index);

/// True when the version of the record is the one the program reads. -1: the current book.
bool CheckBookVersion(int index);
