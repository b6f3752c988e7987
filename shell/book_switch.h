#pragma once
// Changing the open book, and the page operations that a menu sets off on whatever page is in front.

#include <QString>

/// Opens a book by path, after the file dialog when path is empty. Each refusal has its own box and leaves
/// the open book alone.
void OpenDBFile(QString path);

/// Checks version and password of a known book and makes it the open one. index as text, as menu keys are.
void SwitchBook(const QString& indexText);

enum PassAnswer { kPassCancelled = 0, kPassRight = 1, kPassWrong = 2, kPassFailed = 3, kPassSameBook = 4 };
/// Asks for the password of a book. force: also for the open book.
int AskBookPass(const QString& indexText, bool force);

/// After gCurBook has changed: opens the book and builds the pages anew. False, with the error box and the
/// old book still open, when it cannot be opened.
bool ReloadPages(int newBook);

/// Sets the dates of a page from a quick period's key; search: the page then shows what they ask for, if it
/// does so.
void QuickPeriod(int pageCode, const QString& key, bool search);

/// Deletes the checked rows of the page with this code.
void DeleteChecked(int pageCode);
