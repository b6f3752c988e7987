#include "store/chart.h"

using namespace Qt::StringLiterals;

const ChartTable& TableOf(Chart chart) {
    static const ChartTable kinds{u"tKind"_s,     u"tkind"_s, u"tAccount"_s, u"Type1"_s,
                                  u"TypeName1"_s, u"Note2"_s, u"Note1"_s,    u"分类"_s};
    static const ChartTable accounts{u"tSubAcc"_s,     u"tsubacc"_s, u"tSubAccItem"_s, u"SubAccKey"_s,
                                     u"SubAccName1"_s, u"Note1"_s,   u"Date1"_s,       u"账户"_s};
    return chart == Chart::kinds ? kinds : accounts;
}

std::optional<Chart> ChartOf(QStringView table) {
    for (const Chart chart : {Chart::kinds, Chart::accounts})
        if (table.compare(TableOf(chart).table, Qt::CaseInsensitive) == 0) return chart;
    return {};
}
