#include "ledger/detail_panel.h"

#include "shell/controls/kestro_list.h"
#include "shell/skin.h"
#include "store/text.h"

#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kTitle = 30;
constexpr int kHeading = 24;
constexpr int kRow = 24;
constexpr int kRows = 6;
constexpr int kFrame = 4;
}  // namespace

DetailPanel::DetailPanel(QWidget* parent) : QWidget(parent), list_(new KestroList(this)) {
    list_->setAccessibleName(u"当前记录的分类和账户"_s);
    list_->SetCompact(true);
    list_->SetSortable(false);
    list_->SetEmptyText({});
    list_->DefineColumn({u"item"_s, u"项目"_s, 76, 60, u"string"_s, ListColor::dim, false, {}});
    list_->DefineColumn({u"name"_s, u"编号名称"_s, 200, 40, u"string"_s, ListColor::none, true, {}});
    list_->DefineColumn({u"money"_s, u"金额(元)"_s, 84, 70, u"money"_s, ListColor::signedMoney, false, {}});
    auto* room = new QVBoxLayout(this);
    room->setContentsMargins(0, TitleHeight(), 0, 0);
    room->addWidget(list_);
}

void DetailPanel::Fill(const QString& heading, const QString& title, const std::vector<QStringList>& rows) {
    heading_ = heading;
    title_ = OneLine(title);
    {
        const ListFill fill(*list_);
        list_->Clear();
        for (const auto& row : rows)
            list_->AddRow(row);
    }
    update();
}

int DetailPanel::TitleHeight() const {
    return Skin::Px(kTitle);
}

int DetailPanel::HeightBelow() const {
    return TitleHeight() + Skin::Px(kHeading + kRows * kRow) + kFrame;
}

void DetailPanel::Place(bool aside) {
    placed_ = true;
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    if (aside)
        setFixedWidth(kWidth);
    else
        setFixedHeight(HeightBelow());
}

void DetailPanel::paintEvent(QPaintEvent*) {
    QPainter p(this);
    Skin::Box(p, rect(), 4, Skin::Color(Tok::surface), Skin::Color(Tok::line2));
    p.setFont(Skin::Font(Type::body));
    p.setPen(Skin::Color(Tok::text2));
    const QRect line = rect().adjusted(8, 0, -8, 0);
    const QRect head(line.x(), 0, line.width(), TitleHeight());
    p.drawText(head, Qt::AlignVCenter | Qt::AlignLeft, heading_);
    const int used = p.fontMetrics().horizontalAdvance(heading_);
    p.setFont(Skin::Font(Type::bodyBold));
    p.setPen(Skin::Color(Tok::text));
    const QRect rest = head.adjusted(used + 8, 0, 0, 0);
    p.drawText(rest, Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(title_, Qt::ElideRight, rest.width()));
}
