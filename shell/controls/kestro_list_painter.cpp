#include "shell/controls/kestro_list_painter.h"

#include "shell/controls/check_mark.h"
#include "store/money.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBarStart = 84, kBarMost = 236, kBarHeight = 7;
constexpr int kIconPlace = 18, kIconSize = 14;

Tok GroundOf(const ListRow& row, bool stripe, const RowState& state) {
    if (state.current) return state.focused ? Tok::sel : Tok::hover;
    if (state.hover) return Tok::hover;
    if (row.look.style == RowStyle::grey1) return Tok::grey1;
    return stripe ? Tok::zebra : Tok::surface;
}

/// Greys have no contrast on the two strong grounds.
Tok OnGround(Tok color, Tok ground) {
    const bool grey = color == Tok::text2 || color == Tok::text3;
    if (ground == Tok::sel) {
        if (grey || color == Tok::text) return Tok::selText;
        return color == Tok::danger ? Tok::add : color;
    }
    return ground == Tok::grey1 && color == Tok::text3 ? Tok::text2 : color;
}

Tok MoneyColor(ListColor color, const QString& cell) {
    const double value = Val(cell);
    if (value == 0) return Tok::text3;
    if (color == ListColor::add) return Tok::add;
    if (color == ListColor::reduce) return Tok::reduce;
    if (color == ListColor::signedMoney) return value < 0 ? Tok::reduce : Tok::add;
    return Tok::text;
}

}  // namespace

KestroListPainter::KestroListPainter(const KestroListModel& model) : model_(model) {
    for (size_t i = 0; i < model.columns.size(); ++i) {
        const ListColumnState& column = model.columns[i];
        if (!column.IsText()) continue;
        if (textColumn_ < 0 || column.what.flexible) textColumn_ = static_cast<int>(i);
        if (column.what.flexible) break;
    }
}

void KestroListPainter::PaintRow(QPainter& p, const QRect& rect, int row, const RowState& state) const {
    const bool stripe = !model_.hasGrey && row % 2 == 1;
    p.fillRect(rect, Skin::Color(GroundOf(model_.Row(row), stripe, state)));
    Skin::HLine(p, rect.left(), rect.right(), rect.bottom(), Skin::Color(Tok::line));
}

void KestroListPainter::PaintBar(QPainter& p, const QRect& rect, const RowState& state) const {
    if (!state.current) return;
    const Tok color = state.focused ? Tok::selBar : Tok::line2;
    p.fillRect(QRect(rect.left(), rect.top(), 3, rect.height()), Skin::Color(color));
}

QFont KestroListPainter::FontOf(int row, int column) const {
    return Skin::Font(TypeOf(model_.Column(column), model_.Row(row).look));
}

Tok KestroListPainter::ColorOf(int row, int column, const RowState& state) const {
    const ListColumnState& what = model_.Column(column);
    const RowLook& look = model_.Row(row).look;
    Tok color = Tok::text;
    if (what.IsMoney()) {
        color = MoneyColor(what.what.color, model_.Cell(row, column));
    } else if (what.IsDate()) {
        color = look.danger ? Tok::danger : Tok::text2;
    } else if (what.IsNumber() && column == 0) {
        color = Tok::text3;
    } else if (look.warn && column == textColumn_) {
        color = Tok::danger;
    } else if (what.what.color == ListColor::dim) {
        color = Tok::text2;
    } else if (what.what.color == ListColor::add) {
        color = Tok::add;
    } else if (what.what.color == ListColor::reduce) {
        color = Tok::reduce;
    }
    return OnGround(color, GroundOf(model_.Row(row), false, state));
}

int KestroListPainter::IndentOf(int row, int column) const {
    return column == textColumn_ ? model_.Row(row).look.indent : 0;
}

void KestroListPainter::PaintCell(QPainter& p, const QRect& rect, int row, int column,
                                  const RowState& state) const {
    if (column < 0) {
        const QRect box(rect.center().x() - 7, rect.center().y() - 7, 16, 16);
        PaintCheckMark(p, box, {.on = model_.Row(row).checked});
        return;
    }
    if (column == model_.barColumn) PaintBars(p, rect, row);
    const QString cell = model_.Cell(row, column);
    if (cell.isEmpty()) return;
    const ListColumnState& what = model_.Column(column);
    if (what.IsIcons()) return PaintIcons(p, rect, cell);
    p.setPen(Skin::Color(ColorOf(row, column, state)));
    p.setFont(FontOf(row, column));
    if (what.IsMoney()) return PaintMoney(p, rect, row, column);
    PaintText(p, rect, row, column);
}

void KestroListPainter::PaintMoney(QPainter& p, const QRect& rect, int row, int column) const {
    const ListColumnState& what = model_.Column(column);
    const QString text = PaintedText(what, model_.Bytes(row, column));
    const qsizetype point = PointOf(text);
    const int x = rect.right() + 1 - PaddingOf(what).right - what.partWidth;
    const QRect whole(rect.left(), rect.top(), x - rect.left(), rect.height() - 1);
    p.drawText(whole, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, text.left(point));
    if (point == text.size()) return;
    const QRect part(x, rect.top(), rect.right() + 1 - x, rect.height() - 1);
    p.drawText(part, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text.mid(point));
}

void KestroListPainter::PaintText(QPainter& p, const QRect& rect, int row, int column) const {
    const ListColumnState& what = model_.Column(column);
    const CellPadding padding = PaddingOf(what);
    QRect room = rect.adjusted(padding.left + IndentOf(row, column), 0, -padding.right, -1);
    if (model_.Row(row).look.warn && column == textColumn_) {
        const QPoint at(room.right() - kIconSize, rect.center().y() - kIconSize / 2);
        p.drawPixmap(at, Skin::Icon(u"warn"_s, kIconSize, p.device()->devicePixelRatioF()));
        room.setRight(at.x() - kIconPlace + kIconSize);
    }
    const auto icon = what.what.icons.find(model_.Cell(row, column));
    if (icon != what.what.icons.end()) {
        const QPoint at(room.left(), room.center().y() - kIconSize / 2);
        p.drawPixmap(at, Skin::Icon(icon->second, kIconSize, p.device()->devicePixelRatioF()));
        room.setLeft(room.left() + kIconPlace + 2);
    }
    QString text = PaintedText(what, model_.Bytes(row, column));
    const QFontMetrics metrics = p.fontMetrics();
    if (!what.IsDate() && metrics.horizontalAdvance(text) > room.width())
        text = metrics.elidedText(text, Qt::ElideRight, room.width());
    const Qt::Alignment side = what.IsNumber() ? Qt::AlignRight : Qt::AlignLeft;
    p.drawText(room, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine, text);
}

void KestroListPainter::PaintIcons(QPainter& p, const QRect& rect, const QString& digits) const {
    static const std::array<QString, 3> icons = {u"flag"_s, u"image"_s, u"book"_s};
    const double ratio = p.device()->devicePixelRatioF();
    const int places = std::min(3, static_cast<int>(digits.size()));
    const int start = rect.left() + std::max(0, (rect.width() - places * kIconPlace) / 2);
    const int gap = (kIconPlace - kIconSize) / 2;
    for (int i = 0; i < 3 && i < digits.size(); ++i) {
        if (digits[i] != u'1') continue;
        const QPoint at(start + i * kIconPlace + gap, rect.center().y() - kIconSize / 2);
        p.drawPixmap(at, Skin::Icon(icons[static_cast<size_t>(i)], kIconSize, ratio));
    }
}

void KestroListPainter::PaintBars(QPainter& p, const QRect& rect, int row) const {
    const int room = std::min(kBarMost, rect.width() - kBarStart - 8);
    if (model_.barMost <= 0 || room <= 0) return;
    int y = rect.center().y() - kBarHeight;
    for (const auto& [column, token] :
         {std::pair(model_.addColumn, Tok::add), std::pair(model_.reduceColumn, Tok::reduce)}) {
        const double share = std::max(0.0, Val(model_.Cell(row, column))) / model_.barMost;
        QColor color = Skin::Color(token);
        color.setAlphaF(0.8F);
        p.fillRect(rect.left() + kBarStart, y, static_cast<int>(std::lround(share * room)), kBarHeight,
                   color);
        y += kBarHeight + 1;
    }
}

int KestroListPainter::NeededWidth(int row, int column) const {
    const ListColumnState& what = model_.Column(column);
    const CellPadding padding = PaddingOf(what);
    const QString text = PaintedText(what, model_.Bytes(row, column));
    return QFontMetrics(FontOf(row, column)).horizontalAdvance(text) + padding.left + padding.right +
           IndentOf(row, column);
}
