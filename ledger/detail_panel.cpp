#include "ledger/detail_panel.h"

#include "shell/skin.h"
#include "store/text.h"

#include <QPainter>

using namespace Qt::StringLiterals;

ListPage::DetailPanel::DetailPanel(QWidget* parent) : QWidget(parent), list_(new KestroList(this)) {
    list_->SetCompact(true);
    list_->SetSortable(false);
    list_->SetEmptyText({});
    list_->DefineColumn({u"item"_s, u"项目"_s, 76, 60, u"string"_s, ListColor::dim, false, {}});
    list_->DefineColumn({u"name"_s, u"编号名称"_s, 200, 40, u"string"_s, ListColor::none, true, {}});
    list_->DefineColumn({u"money"_s, u"金额(元)"_s, 84, 70, u"money"_s, ListColor::signedMoney, false, {}});
}

void ListPage::DetailPanel::Fill(const QString& heading, const QString& title,
                                 const std::vector<QStringList>& rows) {
    heading_ = heading;
    title_ = OneLine(title);
    list_->BeginFill();
    list_->Clear();
    for (const auto& row : rows)
        list_->AddRow(row);
    list_->EndFill();
    update();
}

void ListPage::DetailPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    list_->setGeometry(0, kTitle, width(), height() - kTitle);
}

void ListPage::DetailPanel::paintEvent(QPaintEvent*) {
    QPainter p(this);
    Skin::Box(p, rect(), 4, Skin::Color(Tok::surface), Skin::Color(Tok::line2));
    p.setFont(Skin::Font(Type::body));
    p.setPen(Skin::Color(Tok::text2));
    const QRect line = rect().adjusted(8, 0, -8, 0);
    const QRect head(line.x(), 0, line.width(), kTitle);
    p.drawText(head, Qt::AlignVCenter | Qt::AlignLeft, heading_);
    const int used = p.fontMetrics().horizontalAdvance(heading_);
    p.setFont(Skin::Font(Type::bodyBold));
    p.setPen(Skin::Color(Tok::text));
    const QRect rest = head.adjusted(used + 8, 0, 0, 0);
    p.drawText(rest, Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(title_, Qt::ElideRight, rest.width()));
}
