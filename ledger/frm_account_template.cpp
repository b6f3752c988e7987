#include "ledger/frm_account_template.h"

#include "ledger/templates.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/png_button.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kChooseDelayMs = 100;
constexpr QSize kSize{420, 440};
constexpr QSize kLowerRow{0, 44};
constexpr int kButtonWidth = 80;
}  // namespace

frmAccountTemplate::frmAccountTemplate(QWidget* parent)
    : KestroDialog(DialogKind::common, u"记账模板"_s, parent) {
    record_.done = 0;
    Build();
    LayOut();
    LoadTemplates();
    Arrange();
    Timer1.setSingleShot(true);
    Timer1.setInterval(kChooseDelayMs);
    Timer1.callOnTimeout([this] { RunEvent([this] { Take(); }); });
}

void frmAccountTemplate::Build() {
    KestroList1 = new KestroList(Body());
    KestroList1->setObjectName(u"KestroList1"_s);
    KestroList1->setAccessibleName(u"记账模板"_s);
    KestroList1->SetCheckColumn(true);
    KestroList1->DefineColumn({u"no"_s, u"NO"_s, 46, 30, u"number"_s, ListColor::dim, false, {}});
    KestroList1->DefineColumn({u"thing"_s, u"事情"_s, 200, 100, u"string"_s, ListColor::none, true, {}});
    KestroList1->SetEmptyText(u"没有模板，在记账列表中可将事情【加入模板】"_s);
    KestroList1->onDoubleClick = [this](int, int) { Timer1.start(); };
    btnDel = new KestroButton(ButtonLook::danger, u"删除勾选的模板"_s, u"del"_s, Body());
    btnDel->onClick = [this] { DeleteChecked(); };
    pngArrow = new PngButton(u"arrowDown"_s, u"更多操作"_s, Footer());
    pngArrow->onClick = [this] {
        rowOpen_ = !rowOpen_;
        Arrange();
    };
    btnCancel = new KestroButton(ButtonLook::plain, u"取消"_s, {}, Footer());
    btnEnter = new KestroButton(ButtonLook::primary, u"确定"_s, {}, Footer());
    btnCancel->onClick = [this] { reject(); };
    btnEnter->onClick = [this] { Take(); };
    btnEnter->setObjectName(u"btnEnter"_s);
    btnCancel->setObjectName(u"btnCancel"_s);
    btnDel->setObjectName(u"btnDel"_s);
    pngArrow->setObjectName(u"pngArrow"_s);
}

void frmAccountTemplate::LayOut() {
    const int margin = Skin::Space::kPage;
    auto* column = new QVBoxLayout(Body());
    column->setContentsMargins(margin, 0, margin, margin);
    column->setSpacing(margin);
    column->addWidget(KestroList1, 1);
    column->addWidget(btnDel, 0, Qt::AlignLeft);
    auto* foot = new QHBoxLayout(Footer());
    foot->setContentsMargins(margin, 0, margin, 0);
    foot->setSpacing(Skin::Space::kPartner);
    foot->addWidget(pngArrow);
    foot->addStretch();
    for (auto* button : {btnCancel, btnEnter}) {
        button->SetLeastWidth(kButtonWidth);
        foot->addWidget(button);
    }
}

void frmAccountTemplate::Arrange() {
    btnDel->setVisible(rowOpen_);
    pngArrow->SetIcon(rowOpen_ ? u"arrowUp"_s : u"arrowDown"_s);
    SetNamedSize(rowOpen_ ? kSize + kLowerRow : kSize);
}

void frmAccountTemplate::LoadTemplates() {
    const ListFill fill(*KestroList1);
    int number = 0;
    for (const auto& item : ReadTemplates(State().gDB))
        KestroList1->AddRow(QStringList{QString::number(++number), item.title}, QString::number(item.id));
    KestroList1->setFocus();
}

void frmAccountTemplate::Take() {
    const int row = KestroList1->CurrentRow();
    record_.row = row;
    record_.title = row < 0 ? QString() : KestroList1->Cell(row, 1);
    record_.done = 1;
    accept();
}

void frmAccountTemplate::DeleteChecked() {
    const auto rows = KestroList1->CheckedRows();
    std::vector<qint64> ids;
    for (const int row : rows)
        ids.push_back(KestroList1->RowKey(row).toLongLong());
    if (!DeleteTemplatesAsked(State().gDB, ids)) return;
    KestroList1->RemoveRows(rows);
    Renumber();
}

void frmAccountTemplate::Renumber() {
    for (int row = 0; row < KestroList1->RowCount(); ++row)
        KestroList1->SetCell(row, 0, QString::number(row + 1));
}

void OpenTemplateDialog(QPoint) {
    frmAccountTemplate window(QApplication::activeWindow());
    window.exec();
}
