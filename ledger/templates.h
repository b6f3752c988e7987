#pragma once
// Entry templates: remembered matter texts of a book.

#include <QString>

#include <vector>

#include "store/connection.h"

struct EntryTemplate {
    qint64 id = 0;
    QString title;
};

/// In the database's order.
std::vector<EntryTemplate> ReadTemplates(cConnection& book);

/// Remembers the title of an entry's row and says so, or says why not.
bool AddTemplate(cConnection& book, qint64 entryRow);

/// Asks, then forgets the templates of these ids; false when nothing was done.
bool DeleteTemplatesAsked(cConnection& book, const std::vector<qint64>& ids);
void DeleteTemplates(cConnection& book, const std::vector<qint64>& ids);
