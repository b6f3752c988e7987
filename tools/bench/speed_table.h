#pragma once
// The table that the bench writes: what was measured, beside its bound.

#include <QString>

#include <optional>
#include <vector>

struct SpeedRow {
    QString action;
    int entries = 0;
    double ours = 0;
    double raw = 0;  ///< 0: nothing to compare with, the bound is on ours itself
    QString unit = QStringLiteral("ms");
    std::optional<double> bound;  ///< on the ratio
    double Ratio() const { return raw > 0 ? ours / raw : ours; }
    bool Missed() const { return bound && Ratio() > *bound; }
};

/// How our own times grow from ten to a hundred thousand entries.
struct GrowthRow {
    QString action;
    double factor = 0;
    double bound = 0;
    bool Missed() const { return factor > bound; }
};

class SpeedTable {
 public:
    void Add(const SpeedRow& row) { rows_.push_back(row); }
    /// The growth of an action between two sizes, if both were measured.
    void AddGrowth(const QString& action, double bound);
    void Print() const;
    /// False when the file cannot be written.
    bool WriteJson(const QString& path) const;

 private:
    void PrintGrowth() const;
    void PrintMissed() const;
    const SpeedRow* Find(const QString& action, int entries) const;
    std::vector<SpeedRow> rows_;
    std::vector<GrowthRow> growth_;
};
