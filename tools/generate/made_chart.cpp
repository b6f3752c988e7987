#include "tools/generate/made_chart.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString Level(int number) {
    return QString::number(number).rightJustified(2, u'0');
}

// Width children a level; below the third level only the last row has children of its own.
void Grow(std::vector<MadeRow>& chart, const QString& code, const QString& name, int depth, int width) {
    const size_t at = chart.size();
    chart.push_back({code, name, depth == 0});
    if (depth == 0) return;
    const bool last = depth == 1;
    for (int i = 1; i <= width; ++i)
        Grow(chart, code + Level(i), name + QString::number(i), last || i != width ? 0 : depth - 1, width);
    chart[at].leaf = false;
}

std::vector<MadeRow> MakeChart(const QStringList& heads, int depth, int width) {
    std::vector<MadeRow> chart;
    for (int i = 0; i < heads.size(); ++i) {
        const QString code = Level(i + 1);
        chart.push_back({code, heads[i], false});
        for (int child = 1; child <= width; ++child)
            Grow(chart, code + Level(child), heads[i] + Level(child), depth, width);
    }
    return chart;
}

}  // namespace

std::vector<MadeRow> MakeKinds() {
    return MakeChart(
        {u"收入"_s, u"办公费用"_s, u"生产成本"_s, u"银行存款"_s, u"应收款"_s, u"负债"_s, u"家庭生活"_s}, 2,
        6);
}

std::vector<MadeRow> MakeAccounts() {
    return MakeChart({u"东华公司"_s, u"大宇公司"_s, u"开发项目"_s, u"O'Neil 商行"_s, u"个人往来"_s}, 2, 6);
}

std::vector<size_t> LeavesOf(const std::vector<MadeRow>& chart) {
    std::vector<size_t> leaves;
    for (size_t i = 0; i < chart.size(); ++i)
        if (chart[i].leaf) leaves.push_back(i);
    return leaves;
}
