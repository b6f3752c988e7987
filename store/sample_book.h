#pragma once
// The sample book in the default book box.

#include "store/connection.h"

/// Writes the sample unless a file is there; a failure is told. For a box that was just made.
void PutSampleBook();

/// Keeps in the settings what the sample looked like when it was written. On the first run of a version an
/// old sample goes to the trash and the new one is written; one that the user has changed stays.
void RenewSampleBook(cConnection& settings, bool firstRun);
