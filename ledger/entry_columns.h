#pragma once
// The words and columns of the entry page.

#include "ledger/list_page.h"

ListPageWords EntryPageWords();
/// The same for the page of account records; its columns stand at the same indices, without the icons.
ListPageWords RecordPageWords();

/// Column indices of the entry list.
enum EntryColumn { kColNo, kColDate, kColKind, kColAdd, kColReduce, kColRmb, kColThing, kColMark };
