#pragma once
// The part of the tour that asks the book: statistics, an export, the search.

class Tour;

/// Begins on the page of statistics.
void SeeAnswers(Tour& tour);
