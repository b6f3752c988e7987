#include "stats/report_mode.h"

#include "store/dates.h"

#include <algorithm>

using namespace Qt::StringLiterals;

const std::vector<ReportModeRow>& ReportModes() {
    using enum ReportMode;
    static const std::vector<ReportModeRow> modes{
        {date, u"date"_s, u"某分类各期间统计"_s, Chart::kinds, true, u"tTjDate"_s},
        {kind, u"kind"_s, u"各分类某期间统计"_s, Chart::kinds, false, u"tTjKind"_s},
        {accdate, u"accdate"_s, u"某账户各期间统计"_s, Chart::accounts, true, u"tTjDate"_s},
        {acckind, u"acckind"_s, u"各账户某期间统计"_s, Chart::accounts, false, u"tTjKind"_s},
    };
    return modes;
}

const ReportModeRow& ModeRow(ReportMode mode) {
    return ReportModes()[static_cast<size_t>(mode)];
}

std::optional<ReportMode> ModeOfKey(const QString& key) {
    const auto& modes = ReportModes();
    const auto found = std::ranges::find(modes, key, &ReportModeRow::key);
    return found == modes.end() ? std::nullopt : std::optional(found->mode);
}

QString PeriodText(const Period& period) {
    const auto& [first, second] = period;
    if (!first && !second) return u"所有日期"_s;
    return (first ? DateText(*first) : u"？"_s) + u" 到 "_s + (second ? DateText(*second) : u"？"_s);
}
