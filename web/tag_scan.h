#pragma once
// A page's tags, looked through before a parser takes it: how deep they stand, where forms begin and end, and
// whether the page stops in the middle.

#include <QByteArrayView>

#include <vector>

/// Where a form begins (its tag's offset) or the one that stands open ends.
struct FormMark {
    qsizetype offset = 0;
    bool begins = false;
};

struct TagScan {
    int deepest = 0;       ///< levels of tags, never fewer than a parser makes of them
    bool tooDeep = false;  ///< the scan has given up: parsing would take too long
    bool cut = false;      ///< the page ends within a tag, a comment or a text box
    std::vector<FormMark> forms;
};

constexpr int kDeepestTags = 1000;

/// Looks a page through, in UTF-8.
TagScan ScanTags(QByteArrayView html);
