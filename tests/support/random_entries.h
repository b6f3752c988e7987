#pragma once
// Entries as chance makes them, the same ones for the same seed.

#include "ledger/entry.h"
#include "tests/support/fixture.h"

#include <random>
#include <vector>

struct CodeAndName {
    QString code, name;
};

class RandomEntries : public Fixture {
 protected:
    void Seed(unsigned seed) { dice_.seed(seed); }
    size_t Roll(size_t sides) { return std::uniform_int_distribution<size_t>(0, sides - 1)(dice_); }
    bool Toss() { return Roll(2) == 1; }
    const CodeAndName& Pick(const std::vector<CodeAndName>& from) { return from[Roll(from.size())]; }

    /// The codes that are drawn, all of them leaves of the sample book.
    static const std::vector<CodeAndName>& Kinds();
    static const std::vector<CodeAndName>& Accounts();
    QString Amount();
    /// Of any shape, with any signs.
    EntryValues RandomEntry();
    /// Any row of any entry.
    qint64 AnyRow();

 private:
    std::mt19937 dice_;
};
