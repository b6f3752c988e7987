#include "tools/bench/speed_table.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFrom = 10000, kTo = 100000;

const char* Verdict(bool missed) {
    return missed ? "MISSED" : "ok";
}

}  // namespace

const SpeedRow* SpeedTable::Find(const QString& action, int entries) const {
    const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const SpeedRow& row) {
        return row.action == action && row.entries == entries;
    });
    return found == rows_.end() ? nullptr : &*found;
}

void SpeedTable::AddGrowth(const QString& action, double bound) {
    const auto* from = Find(action, kFrom);
    const auto* to = Find(action, kTo);
    if (from && to) growth_.push_back({action, to->ours / from->ours, bound});
}

void SpeedTable::Print() const {
    std::printf("%-54s %8s %9s %9s %-5s %7s %7s\n", "action", "entries", "ours", "raw", "", "ratio", "bound");
    for (const auto& row : rows_) {
        std::printf("%-54s %8d %9.2f ", qUtf8Printable(row.action), row.entries, row.ours);
        row.raw > 0 ? std::printf("%9.2f ", row.raw) : std::printf("%9s ", "");
        std::printf("%-5s ", qUtf8Printable(row.unit));
        row.raw > 0 ? std::printf("%7.2f ", row.Ratio()) : std::printf("%7s ", "");
        row.bound ? std::printf("%7.2f  %s\n", *row.bound, Verdict(row.Missed())) : std::printf("\n");
    }
    PrintGrowth();
    PrintMissed();
}

void SpeedTable::PrintGrowth() const {
    if (growth_.empty()) return;
    std::printf("\n%-54s %35s %7s\n", "growth from 10,000 to 100,000 entries", "factor", "bound");
    for (const auto& row : growth_)
        std::printf("%-54s %35.2f %7.2f  %s\n", qUtf8Printable(row.action), row.factor, row.bound,
                    Verdict(row.Missed()));
}

void SpeedTable::PrintMissed() const {
    std::printf("\nMissed bounds:\n");
    for (const auto& row : rows_)
        if (row.Missed())
            std::printf("  %s, %d entries: %.2f instead of %.2f%s%s\n", qUtf8Printable(row.action.trimmed()),
                        row.entries, row.Ratio(), *row.bound, row.raw > 0 ? " x raw" : " ",
                        row.raw > 0 ? "" : qUtf8Printable(row.unit));
    for (const auto& row : growth_)
        if (row.Missed())
            std::printf("  growth of %s: %.2f instead of %.2f\n", qUtf8Printable(row.action), row.factor,
                        row.bound);
}

bool SpeedTable::WriteJson(const QString& path) const {
    QJsonArray rows;
    for (const auto& row : rows_) {
        QJsonObject object{{u"action"_s, row.action},
                           {u"entries"_s, row.entries},
                           {u"ours"_s, row.ours},
                           {u"unit"_s, row.unit}};
        if (row.raw > 0) object.insert(u"raw"_s, row.raw);
        if (row.raw > 0) object.insert(u"ratio"_s, row.Ratio());
        if (row.bound) object.insert(u"bound"_s, *row.bound);
        if (row.bound) object.insert(u"missed"_s, row.Missed());
        rows.append(object);
    }
    QJsonArray growth;
    for (const auto& row : growth_)
        growth.append(QJsonObject{{u"action"_s, row.action},
                                  {u"factor"_s, row.factor},
                                  {u"bound"_s, row.bound},
                                  {u"missed"_s, row.Missed()}});
    QFile file(path);
    const QByteArray text = QJsonDocument(QJsonObject{{u"rows"_s, rows}, {u"growth"_s, growth}}).toJson();
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
}
