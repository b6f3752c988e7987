#include "shell/controls/kestro_tree.h"

#include "shell/controls/corners.h"
#include "shell/controls/kestro_scrollbar.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr int kRow = 26, kIndent = 20, kIcon = 16, kChevronAt = 12, kIconAt = 24, kTextAt = 46;
constexpr int kKeyRole = Qt::UserRole, kIdRole = Qt::UserRole + 1;
}  // namespace

KestroTree::KestroTree(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setAccessibleName(u"目录树"_s);
    setColumnCount(1);
    setIndentation(kIndent);
    setUniformRowHeights(true);
    viewport()->setMouseTracking(true);
    setExpandsOnDoubleClick(true);
    setFrameShape(QFrame::Box);
    setLineWidth(1);
    setFont(Skin::Font(Type::body));
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    UseKestroScrollbars(this);
    connect(this, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        RunEvent([this, node = NodeOf(item)] {
            if (onCurrent && node >= 0) onCurrent(node);
        });
    });
}

int KestroTree::NodeOf(const QTreeWidgetItem* item) const {
    return item ? item->data(0, kIdRole).toInt() : -1;
}

int KestroTree::AddNode(int parent, const QString& text, const QString& key) {
    const int id = NodeCount();
    auto* item = new QTreeWidgetItem(QStringList(text));
    item->setData(0, kKeyRole, key);
    item->setData(0, kIdRole, id);
    item->setSizeHint(0, {0, static_cast<int>(std::lround(kRow * Skin::Scale()))});
    nodes_.push_back(item);
    if (parent >= 0 && parent < id) {
        nodes_[static_cast<size_t>(parent)]->addChild(item);
    } else {
        addTopLevelItem(item);
    }
    return id;
}

void KestroTree::Clear() {
    nodes_.clear();
    clear();
}

int KestroTree::NodeCount() const {
    return static_cast<int>(nodes_.size());
}
int KestroTree::CurrentNode() const {
    return NodeOf(currentItem());
}

void KestroTree::SetCurrentNode(int node) {
    const QSignalBlocker quiet(this);
    setCurrentItem(node >= 0 && node < NodeCount() ? nodes_[static_cast<size_t>(node)] : nullptr);
    viewport()->update();
}

int KestroTree::FindKey(const QString& key) const {
    for (int node = 0; node < NodeCount(); ++node)
        if (Key(node) == key) return node;
    return -1;
}

int KestroTree::Parent(int node) const {
    return NodeOf(nodes_.at(static_cast<size_t>(node))->parent());
}
int KestroTree::ChildCount(int node) const {
    return nodes_.at(static_cast<size_t>(node))->childCount();
}
QString KestroTree::Text(int node) const {
    return nodes_.at(static_cast<size_t>(node))->text(0);
}
QString KestroTree::Key(int node) const {
    return nodes_.at(static_cast<size_t>(node))->data(0, kKeyRole).toString();
}
void KestroTree::SetText(int node, const QString& text) {
    nodes_.at(static_cast<size_t>(node))->setText(0, text);
}

void KestroTree::ExpandAll() {
    expandAll();
}

void KestroTree::CollapseToLevel(int n) {
    collapseAll();
    if (n > 0) expandToDepth(n - 1);
}

void KestroTree::drawRow(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QRect row(0, option.rect.top(), viewport()->width(), option.rect.height());
    const bool current = index == currentIndex();
    const bool hover = row.contains(viewport()->mapFromGlobal(QCursor::pos())) && viewport()->underMouse();
    const Tok ground = current ? (hasFocus() ? Tok::sel : Tok::hover) : hover ? Tok::hover : Tok::surface;
    p->fillRect(row, Skin::Color(ground));
    if (current)
        p->fillRect(row.left(), row.top(), 3, row.height(),
                    Skin::Color(hasFocus() ? Tok::selBar : Tok::line2));
    const int left = visualRect(index).left() - kIndent;
    int guide = left + kChevronAt;
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        guide -= kIndent;
        Skin::VLine(*p, guide, row.top(), row.bottom(), Skin::Color(Tok::line));
    }
    const Tok ink = ground == Tok::sel ? Tok::selText : Tok::text;
    const bool open = isExpanded(index), branch = model()->hasChildren(index);
    const QRectF chevron(left + kChevronAt - 5, row.top(), 10, row.height());
    if (branch) Skin::Chevron(*p, chevron, open ? 0 : 3, Skin::Color(ink == Tok::selText ? ink : Tok::text2));
    const QString icon = branch && open ? u"tree/open"_s : u"tree/close"_s;
    p->drawPixmap(left + kIconAt, row.center().y() - kIcon / 2 + 1,
                  Skin::Icon(icon, kIcon, devicePixelRatioF()));
    const QRect room = row.adjusted(left + kTextAt, 0, -8, 0);
    p->setFont(font());
    p->setPen(Skin::Color(ink));
    const QString text = p->fontMetrics().elidedText(index.data().toString(), Qt::ElideRight, room.width());
    p->drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

bool KestroTree::event(QEvent* event) {
    if (event->type() != QEvent::Paint || frameShape() == QFrame::NoFrame) return QTreeWidget::event(event);
    QPainter p(this);
    PaintFrame(p, rect(), hasFocus() && CurrentNode() < 0);
    return true;
}

void KestroTree::paintEvent(QPaintEvent* event) {
    QPainter(viewport()).fillRect(event->rect(), Skin::Color(Tok::surface));
    QTreeWidget::paintEvent(event);
    QPainter p(viewport());
    if (frameShape() != QFrame::NoFrame)
        PaintCorners(p, rect().translated(-viewport()->pos()), this, hasFocus() && CurrentNode() < 0);
}

// A name too long for its row shows whole.
bool KestroTree::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::MouseMove || event->type() == QEvent::HoverMove) {
        const auto* pointer = static_cast<QSinglePointEvent*>(event);
        if (itemAt(pointer->position().toPoint()) != tipItem_) KestroToolTip::Hide(u"node"_s);
    }
    if (event->type() != QEvent::ToolTip) return QTreeWidget::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    tipItem_ = itemAt(help->pos());
    if (!tipItem_) return true;
    const int room = viewport()->width() - (visualItemRect(tipItem_).left() - kIndent + kTextAt) - 8;
    if (fontMetrics().horizontalAdvance(tipItem_->text(0)) > room)
        KestroToolTip::Show(u"node"_s, tipItem_->text(0), help->globalPos(), viewport());
    return true;
}

void KestroTree::scrollContentsBy(int dx, int dy) {
    QTreeWidget::scrollContentsBy(dx, dy);
    viewport()->update();  // the corners stay where they are
}

void KestroTree::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || CurrentNode() < 0 || !onEnter) return QTreeWidget::keyPressEvent(event);
    RunEvent([this] { onEnter(CurrentNode()); });
}

void KestroTree::mouseDoubleClickEvent(QMouseEvent* event) {
    QTreeWidget::mouseDoubleClickEvent(event);
    const int node = NodeOf(itemAt(event->position().toPoint()));
    if (node < 0 || event->button() != Qt::LeftButton) return;
    RunEvent([this, node] {
        if (onDoubleClick) onDoubleClick(node);
    });
}
