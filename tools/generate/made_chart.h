#pragma once
// A chart of a few hundred rows on several levels, with the totals that entries post to it.

#include <QString>

#include <random>
#include <vector>

/// Whole numbers below a bound, the same on every platform.
class Dice {
 public:
    explicit Dice(unsigned seed) : engine_(seed) {}
    int Below(int bound) { return static_cast<int>(engine_() % static_cast<unsigned>(bound)); }
    bool Percent(int share) { return Below(100) < share; }
    template <class List>
    const auto& Of(const List& list) {
        return list[static_cast<size_t>(Below(static_cast<int>(std::size(list))))];
    }

 private:
    std::mt19937 engine_;
};

struct MadeRow {
    QString code;
    QString name;
    bool leaf = true;
    qint64 added = 0;    ///< hundredths
    qint64 reduced = 0;  ///< hundredths

    void Post(qint64 hundredths, int sign) { (sign == 1 ? added : reduced) += hundredths; }
};

/// Rows in order of their codes.
std::vector<MadeRow> MakeKinds();
std::vector<MadeRow> MakeAccounts();
/// Indexes of the rows of the last level.
std::vector<size_t> LeavesOf(const std::vector<MadeRow>& chart);
