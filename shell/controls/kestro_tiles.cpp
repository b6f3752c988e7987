#include "shell/controls/kestro_tiles.h"

#include "shell/controls/control_support.h"
#include "shell/controls/corners.h"
#include "shell/controls/kestro_scrollbar.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTileWidth = 96, kTileHeight = 84, kGap = 4, kHeading = 30, kTop = 6, kNameTop = 42, kSide = 4;
constexpr int kKeyRole = Qt::UserRole;

// A name in at most two lines, the second one elided.
QStringList TwoLines(const QString& name, const QFont& font, int width) {
    QTextLayout layout(name, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine first = layout.createLine();
    if (first.isValid()) first.setLineWidth(width);
    layout.endLayout();
    const qsizetype length = first.isValid() ? first.textLength() : 0;
    QStringList lines{name.left(length)};
    if (length < name.size())
        lines << QFontMetrics(font).elidedText(name.mid(length).trimmed(), Qt::ElideRight, width);
    return lines;
}

class TilePainter : public QStyledItemDelegate {
 public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {kTileWidth, Skin::Px(kTileHeight)};
    }

    void paint(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QRect tile = option.rect.adjusted(0, 0, -1, -1);
        const bool chosen = option.state.testFlag(QStyle::State_Selected);
        const bool hover = option.state.testFlag(QStyle::State_MouseOver);
        if (chosen)
            Skin::Box(*p, tile, 4, Skin::Color(Tok::soft), Skin::Color(Tok::accent));
        else if (hover)
            Skin::Box(*p, tile, 4, Skin::Color(Tok::hover), Skin::Color(Tok::hover));
        const bool focused = option.state.testFlag(QStyle::State_HasFocus);
        if (focused && !chosen) Skin::FocusRing(*p, tile, 4, true, Skin::Color(Tok::accent));
        PaintPicture(*p, tile, index);
        p->setFont(option.font);
        p->setPen(Skin::Color(Tok::text));
        const int line = p->fontMetrics().height();
        int y = tile.top() + kNameTop;
        for (const auto& text : TwoLines(index.data().toString(), option.font, tile.width() - 2 * kSide)) {
            p->drawText(QRect(tile.left() + kSide, y, tile.width() - 2 * kSide, line), Qt::AlignCenter, text);
            y += line;
        }
    }

 private:
    static void PaintPicture(QPainter& p, const QRect& tile, const QModelIndex& index) {
        const auto picture = index.data(Qt::DecorationRole).value<QPixmap>();
        const int side = KestroListView::kPicture;
        const QRect room(tile.center().x() - side / 2, tile.top() + kTop, side, side);
        if (picture.isNull()) {
            p.drawPixmap(room.topLeft(), Skin::Icon(u"picture"_s, side, p.device()->devicePixelRatioF()));
            return;
        }
        const QSizeF size = picture.deviceIndependentSize();
        p.drawPixmap(QPointF(room.center().x() - size.width() / 2, room.center().y() - size.height() / 2),
                     picture);
    }
};

}  // namespace

KestroListView::KestroListView(const QString& heading, QWidget* parent)
    : QListWidget(parent), heading_(heading) {
    setAccessibleName(heading);
    setViewMode(QListView::IconMode);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setFrameShape(QFrame::Box);
    setLineWidth(1);
    setSpacing(kGap / 2);
    setFont(Skin::Font(Type::body));
    setItemDelegate(new TilePainter(this));
    viewport()->setMouseTracking(true);
    setViewportMargins(0, HeadHeight(), 0, 0);
    UseKestroScrollbars(this);
    auto* besideHeading = new QWidget;  // the scroll bar begins below the heading
    besideHeading->setFixedHeight(Skin::Px(kHeading));
    addScrollBarWidget(besideHeading, Qt::AlignTop);
    connect(this, &QListWidget::currentRowChanged, this, [this](int index) {
        RunEvent([&] {
            if (!quiet_ && index >= 0 && onCurrent) onCurrent(index);
        });
    });
    connect(this, &QListWidget::itemClicked, this, [this](const QListWidgetItem* item) {
        RunEvent([&] {
            if (onClick) onClick(row(item));
        });
    });
    connect(this, &QListWidget::itemDoubleClicked, this, [this](const QListWidgetItem* item) {
        RunEvent([&] {
            if (onDoubleClick) onDoubleClick(row(item));
        });
    });
    connect(this, &QListWidget::itemSelectionChanged, this, [this] { RunEvent(onSelection); });
}

int KestroListView::HeadHeight() const {
    return heading_.isEmpty() ? 0 : Skin::Px(kHeading);
}

void KestroListView::Clear() {
    const QScopedValueRollback quiet(quiet_, true);
    clear();
}

void KestroListView::AddItem(const QString& text, const QString& key) {
    auto* item = new QListWidgetItem;
    item->setData(kKeyRole, key);
    const QScopedValueRollback quiet(quiet_, true);
    addItem(item);
    SetText(Count() - 1, text);
}

QString KestroListView::Text(int index) const {
    const auto* at = item(index);
    return at ? at->text() : QString();
}

QString KestroListView::Key(int index) const {
    const auto* at = item(index);
    return at ? at->data(kKeyRole).toString() : QString();
}

void KestroListView::SetText(int index, const QString& text) {
    auto* at = item(index);
    if (!at) return;
    at->setText(text);
    at->setToolTip(text);
}

bool KestroListView::HasPicture(int index) const {
    const auto* at = item(index);
    return at && at->data(Qt::DecorationRole).isValid();
}

void KestroListView::SetPicture(int index, const QPixmap& picture) {
    if (auto* at = item(index)) at->setData(Qt::DecorationRole, picture);
}

std::vector<int> KestroListView::Selected() const {
    std::vector<int> indexes;
    for (int index = 0; index < Count(); ++index)
        if (item(index)->isSelected()) indexes.push_back(index);
    return indexes;
}

void KestroListView::SetCurrent(int index) {
    const QScopedValueRollback quiet(quiet_, true);
    setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
    if (auto* at = item(index)) scrollToItem(at);
}

void KestroListView::RemoveItems(const std::vector<int>& indexes) {
    const QScopedValueRollback quiet(quiet_, true);
    for (auto index = indexes.rbegin(); index != indexes.rend(); ++index)
        delete takeItem(*index);
}

// Heading and frame are the control's own, the rest is the viewport's.
bool KestroListView::event(QEvent* event) {
    const bool done = QListWidget::event(event);
    if (event->type() == QEvent::Paint) {
        QPainter p(this);
        const int head = HeadHeight();
        PaintFrame(p, rect(), hasFocus() && Count() == 0, head);
        if (head == 0) return done;
        p.setFont(Skin::Font(Type::smallBold));
        p.setPen(Skin::Color(Tok::text2));
        p.drawText(QRect(8, 0, width() - 16, head), Qt::AlignLeft | Qt::AlignVCenter,
                   p.fontMetrics().elidedText(heading_, Qt::ElideRight, width() - 16));
        Skin::HLine(p, 1, width() - 2, head - 1, Skin::Color(Tok::line2));
    }
    return done;
}

void KestroListView::paintEvent(QPaintEvent* event) {
    {
        QPainter p(viewport());
        p.fillRect(event->rect(), Skin::Color(Tok::surface));
    }
    QListWidget::paintEvent(event);
    QPainter p(viewport());
    PaintCorners(p, rect().translated(-viewport()->pos()), this, hasFocus() && Count() == 0);
}

void KestroListView::keyPressEvent(QKeyEvent* event) {
    const bool opens = Controls::IsEnter(*event) && Current() >= 0;
    const bool deletes = event->key() == Qt::Key_Delete;
    if (!opens && !deletes) return QListWidget::keyPressEvent(event);
    RunEvent([&] {
        if (opens && onDoubleClick) onDoubleClick(Current());
        if (deletes && onDelete) onDelete();
    });
}
