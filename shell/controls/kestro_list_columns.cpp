#include "shell/controls/kestro_list_columns.h"

#include "store/money.h"

#include <algorithm>
#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace {

int Scaled(int pixels) {
    return static_cast<int>(std::lround(pixels * Skin::Scale()));
}

int CaptionWidth(const ListColumnState& column) {
    return QFontMetrics(Skin::Font(Type::smallBold)).horizontalAdvance(column.what.caption) + 18;
}

/// What a column may be pressed to; a running number is never cut.
int LeastWidth(const ListColumnState& column) {
    const int told = Scaled(column.what.smallest);
    if (!column.IsNumber()) return told;
    const CellPadding padding = PaddingOf(column);
    return std::max(told, column.wholeWidth + padding.left + padding.right);
}

int StartWidth(const ListColumnState& column) {
    if (column.hidden) return 0;
    if (column.userWidth >= 0) return column.userWidth;
    const int told = std::max(Scaled(column.what.width), LeastWidth(column));
    if (!column.IsMoney() && !column.IsDate()) return told;
    const CellPadding padding = PaddingOf(column);
    const int text = column.wholeWidth + column.partWidth + padding.left + padding.right;
    return std::max({told, text, CaptionWidth(column)});
}

bool MayGive(const ListColumnState& column, int stage) {
    if (column.hidden || column.userWidth >= 0) return false;
    if (stage == 0) return column.what.flexible;
    return stage == 1 ? column.IsText() && !column.what.flexible : column.IsNumber();
}

/// Takes excess from the columns of one stage in equal shares and returns what is left of it.
int Press(std::span<const ListColumnState> columns, std::vector<int>& widths, int stage, int excess) {
    while (excess > 0) {
        std::vector<size_t> givers;
        for (size_t i = 0; i < columns.size(); ++i) {
            const bool above = widths[i] > LeastWidth(columns[i]);
            if (above && MayGive(columns[i], stage)) givers.push_back(i);
        }
        if (givers.empty()) break;
        const int share = std::max(1, excess / static_cast<int>(givers.size()));
        for (const size_t i : givers) {
            const int given = std::min({share, excess, widths[i] - LeastWidth(columns[i])});
            widths[i] -= given;
            excess -= given;
        }
    }
    return excess;
}

}  // namespace

FigureMeter::FigureMeter(const QFont& font) {
    const QFontMetricsF metrics(font);
    for (size_t i = 32; i < narrow_.size(); ++i)
        narrow_[i] = metrics.horizontalAdvance(QChar(static_cast<char16_t>(i)));
    narrow_[u'\n'] = narrow_[u'\r'] = narrow_[u' '];  // as they are painted
    wide_ = metrics.horizontalAdvance(u"国"_s);
}

const FigureMeter& FigureMeter::Of(Type type) {
    static std::map<Type, FigureMeter> meters;
    const auto known = meters.find(type);
    return known != meters.end() ? known->second : meters.emplace(type, Skin::Font(type)).first->second;
}

int FigureMeter::Width(QByteArrayView text, qsizetype separators) const {
    double sum = static_cast<double>(separators) * narrow_[u','];
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < narrow_.size()) sum += narrow_[byte];
        if (byte >= 0xC0) sum += wide_;  // the first byte of a character; 0x80 to 0xBF go on with one
    }
    return static_cast<int>(std::ceil(sum));
}

Type TypeOf(const ListColumnState& column, const RowLook& look) {
    if (column.IsDate()) return look.danger ? Type::smallBold : Type::small;
    return look.bold ? Type::bodyBold : Type::body;
}

CellPadding PaddingOf(const ListColumnState& column) {
    if (column.IsMoney()) return {6, 6};
    if (column.IsDate()) return {6, 4};
    return {8, 8};
}

namespace {

bool LooksLikeNumber(QByteArrayView text) {
    if (text.startsWith('-')) text = text.sliced(1);
    return !text.isEmpty() && text.front() >= '0' && text.front() <= '9';
}

qsizetype PointIn(QByteArrayView amount) {
    const qsizetype point = amount.indexOf('.');
    return point < 0 ? amount.size() : point;
}

// An amount is at most as wide as its own text with all its separators, so nearly every one is known to fit
// without being grouped first.
bool Fits(const ListColumnState& column, QByteArrayView amount, const FigureMeter& meter) {
    if (!LooksLikeNumber(amount)) return false;
    const qsizetype point = PointIn(amount);
    const qsizetype separators = column.nGroup > 0 ? std::max<qsizetype>(0, point - 1) / column.nGroup : 0;
    return meter.Width(amount.first(point), separators) <= column.wholeWidth &&
           meter.Width(amount.sliced(point)) <= column.partWidth;
}

}  // namespace

QString PaintedText(const ListColumnState& column, QByteArrayView cell) {
    QString text = QString::fromUtf8(cell);
    if (column.IsMoney() && LooksLikeNumber(cell)) return GroupText(text, column.nGroup, u","_s, u"0"_s);
    if (!text.contains(u'\n') && !text.contains(u'\r')) return text;
    return text.replace(u"\r\n"_s, u" "_s).replace(u'\n', u' ').replace(u'\r', u' ');
}

qsizetype PointOf(QStringView painted) {
    const qsizetype point = painted.indexOf(u'.');
    return point < 0 ? painted.size() : point;
}

void GrowBy(ListColumnState& column, QByteArrayView cell, const FigureMeter& meter) {
    if (cell.isEmpty()) return;
    if (!column.IsMoney()) {
        column.wholeWidth = std::max(column.wholeWidth, meter.Width(cell));
        return;
    }
    if (Fits(column, cell, meter)) return;
    const QByteArray text = PaintedText(column, cell).toUtf8();
    const qsizetype point = PointIn(text);
    column.wholeWidth = std::max(column.wholeWidth, meter.Width(QByteArrayView(text).first(point)));
    column.partWidth = std::max(column.partWidth, meter.Width(QByteArrayView(text).sliced(point)));
}

std::vector<int> FitWidths(std::span<const ListColumnState> columns, int room) {
    std::vector<int> widths;
    int sum = 0;
    for (const ListColumnState& column : columns) {
        widths.push_back(StartWidth(column));
        sum += widths.back();
    }
    int excess = sum - room;
    for (int stage = 0; stage < 3 && excess > 0; ++stage)
        excess = Press(columns, widths, stage, excess);
    if (excess >= 0) return widths;
    for (size_t i = 0; i < columns.size(); ++i) {
        if (!columns[i].what.flexible || columns[i].hidden) continue;
        widths[i] -= excess;
        break;
    }
    return widths;
}
