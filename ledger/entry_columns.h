#pragma once
// The words and columns of the entry page.

#include "ledger/list_page.h"

ListPageWords EntryPageWords();

/// Column indices of the entry list.
enum EntryColumn { kColNo, kColDate, kColKind, kColAdd, kColReduce, kColRmb, kColThing, kColMark };
