#pragma once
// How the columns of a list share its width, and what a cell's text looks like when painted.

#include "shell/controls/kestro_list.h"
#include "shell/skin.h"

#include <QByteArrayView>
#include <QFontMetrics>
#include <QString>
#include <QStringView>

#include <array>
#include <span>
#include <vector>

/// A column as it was defined, and what became of it.
struct ListColumnState {
    ListColumn what;
    int nGroup = 3;
    int userWidth = -1;  ///< dragged by the user, -1 not
    int wholeWidth = 0;  ///< widest text, for money its part before the point
    int partWidth = 0;   ///< widest part from the point on
    bool hidden = false;

    bool IsMoney() const { return what.type == QStringView(u"money"); }
    bool IsDate() const { return what.type == QStringView(u"date"); }
    bool IsIcons() const { return what.type == QStringView(u"icons"); }
    bool IsNumber() const { return what.type == QStringView(u"number"); }
    bool IsText() const { return !IsMoney() && !IsDate() && !IsIcons() && !IsNumber(); }
};

/// Widths of texts made of figures and CJK characters, by sums over a table: ten times faster than shaping.
class FigureMeter {
 public:
    explicit FigureMeter(const QFont& font);
    /// The meter of a kind of text, made once: asking a font for a hundred widths costs a millisecond.
    static const FigureMeter& Of(Type type);
    /// Width of a text in UTF-8, with so many separators of groups still to come into it.
    int Width(QByteArrayView text, qsizetype separators = 0) const;

 private:
    std::array<double, 128> narrow_{};
    double wide_;
};

/// The type in which a cell is painted; dates are smaller, a day gone by stands out.
Type TypeOf(const ListColumnState& column, const RowLook& look);

/// Left and right room round a cell's text.
struct CellPadding {
    int left;
    int right;
};
CellPadding PaddingOf(const ListColumnState& column);

/// The text as painted: grouped for money, line breaks as blanks.
QString PaintedText(const ListColumnState& column, QByteArrayView cell);
/// Where the point of a painted amount stands; the length when there is none.
qsizetype PointOf(QStringView painted);

/// Takes a cell's text into account for the width of its column.
void GrowBy(ListColumnState& column, QByteArrayView cell, const FigureMeter& meter);

/// Width of each column in room pixels; hidden ones get 0. Money and date columns are as wide as their widest
/// text; the flexible column takes the rest and gives first, then the other texts give down to their smallest
/// widths, then the running number. What does not fit even so makes the sum larger than room.
std::vector<int> FitWidths(std::span<const ListColumnState> columns, int room);
