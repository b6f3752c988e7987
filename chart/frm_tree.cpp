#include "chart/frm_tree.h"

#include "chart/codes.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_tree.h"
#include "shell/skin.h"
#include "store/messages.h"

#include <QApplication>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

frmTree::frmTree(QWidget* parent)
    : KestroDialog(DialogKind::common, {}, parent), chart_(ChartOf(record_.key).value_or(Chart::kinds)) {
    SetCaption(chart_ == Chart::kinds ? u"多级分类树"_s : u"多级账户树"_s);
    record_.done = 0;
    KestroTree1_ = new KestroTree(Body());
    KestroTree1_->setAccessibleName(windowTitle());
    auto* room = new QVBoxLayout(Body());
    room->setContentsMargins(Skin::Space::kPage, 4, Skin::Space::kPage, Skin::Space::kPage);
    room->addWidget(KestroTree1_);

    btnExpand_ = new KestroButton(ButtonLook::plain, u"展开"_s, u"tree"_s, Footer());
    btnCancel_ = new KestroButton(ButtonLook::plain, u"取消"_s, {}, Footer());
    btnEnter_ = new KestroButton(ButtonLook::primary, u"确定"_s, {}, Footer());
    auto* row = new QHBoxLayout(Footer());
    row->setContentsMargins(Skin::Space::kPage, 0, Skin::Space::kPage, 0);
    row->setSpacing(Skin::Space::kPartner);
    row->addWidget(btnExpand_);
    row->addStretch();
    row->addWidget(btnCancel_);
    row->addWidget(btnEnter_);

    KestroTree1_->setObjectName(u"KestroTree1"_s);
    btnEnter_->setObjectName(u"btnEnter"_s);
    btnCancel_->setObjectName(u"btnCancel"_s);
    btnExpand_->setObjectName(u"btnExpand"_s);
    btnEnter_->onClick = [this] { EnterClicked(); };
    btnCancel_->onClick = [this] { reject(); };
    btnExpand_->onClick = [this] { ExpandClicked(); };
    KestroTree1_->onDoubleClick = [this](int node) { NodeDoubleClicked(node); };
    KestroTree1_->onEnter = [this](int) { EnterClicked(); };

    LoadNode({}, u"开始"_s, KestroTree::kRoot);
    KestroTree1_->CollapseToLevel(1);
    KestroTree1_->SetCurrentNode(0);
    SetResizable(true);
    SetSmallest({280, 260});
    SetNamedSize({300, 420});
    KestroTree1_->setFocus();
}

void frmTree::LoadNode(const QString& key, const QString& name, int parentIndex) {
    const int node = KestroTree1_->AddNode(parentIndex, key + name, key);
    for (const auto& child : ChildCodes(State().gDB, chart_, key))
        LoadNode(child.code, child.name, node);
}

void frmTree::Take(int node) {
    record_.key = KestroTree1_->Key(node);
    record_.name = KestroTree1_->Text(node);
    record_.done = 1;
    accept();
}

void frmTree::EnterClicked() {
    const int node = KestroTree1_->CurrentNode();
    if (node < 0) return;
    if (KestroTree1_->Key(node).isEmpty()) {
        ShowMsg(u"选择无效!"_s);
        return;
    }
    Take(node);
}

void frmTree::ExpandClicked() {
    btnExpand_->setText(bExpanded_ ? u"展开"_s : u"合闭"_s);
    if (bExpanded_)
        KestroTree1_->CollapseToLevel(1);
    else
        KestroTree1_->ExpandAll();
    bExpanded_ = !bExpanded_;
}

void frmTree::NodeDoubleClicked(int node) {
    if (KestroTree1_->ChildCount(node) == 0) Take(node);
}

void OpenTreeDialog(QPoint at) {
    frmTree tree(QApplication::activeWindow());
    const auto* screen = QGuiApplication::screenAt(at);
    const QRect room = (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    at.setX(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - tree.width())));
    at.setY(std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() - tree.height())));
    tree.move(at);
    tree.exec();
}
