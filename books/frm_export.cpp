#include "books/frm_export.h"

#include "books/backup.h"
#include "output/export_files.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_tiles.h"
#include "shell/controls/png_button.h"
#include "shell/parts/job_bar.h"
#include "shell/skin.h"
#include "store/messages.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kLeast(440, 328);
enum Step { kPlace, kCopies, kDone };

QString TitleOf(int step) {
    static const std::array titles{u"请选择备份路径"_s, u"备份数据文件"_s, u"数据文件成功备份"_s};
    return titles.at(static_cast<size_t>(step));
}

}  // namespace

frmExport::frmExport(QWidget* parent)
    : KestroDialog(DialogKind::common, u"备份数据"_s, parent), path_(BackupDialog().path) {
    setObjectName(u"frmExport"_s);
    Build();
    LayOut();
    LoadPlaces();
    ShowStep(kPlace);
}

frmExport::~frmExport() = default;

void frmExport::Build() {
    lblTitle = new KestroLabel({}, LabelKind::plain);
    lblTitle->setFont(Skin::Font(Type::bodyBold));
    lblTitle->setObjectName(u"lblTitle"_s);
    KestroListView1 = new KestroListView({}, this);
    KestroListView1->setObjectName(u"KestroListView1"_s);
    KestroListView1->setAccessibleName(u"备份到"_s);
    KestroListView1->setSelectionMode(QAbstractItemView::SingleSelection);
    KestroListView1->onDoubleClick = [this](int) { Next(); };
    KestroPGress1 = new PageJobBar(this);
    KestroPGress1->SetUnit(kBackupSteps);
    lblFolder_ = new KestroLabel({}, LabelKind::plain);
    lblFolder_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    lblFolder_->setWordWrap(true);
    pngbtnPath = new PngButton(u"ExportOpenPath"_s, u"打开备份目录"_s);
    pngbtnPath->setObjectName(u"pngbtnPath"_s);
    pngbtnPath->onClick = [this] { OpenOutside(folder_); };
    editNote = new KestroEditBox;
    editNote->setObjectName(u"editNote"_s);
    editNote->setAccessibleName(u"要备份的文件"_s);
    editNote->setReadOnly(true);
    btnFresh = new KestroButton(ButtonLook::toolbar, u"刷新"_s, u"reload"_s);
    btnFresh->setObjectName(u"btnFresh"_s);
    btnFresh->onClick = [this] { LoadPlaces(); };
    btnBack = new KestroButton(ButtonLook::plain, u"上一步"_s);
    btnBack->setObjectName(u"btnBack"_s);
    btnBack->onClick = [this] { Back(); };
    btnNext = new KestroButton(ButtonLook::primary, u"下一步"_s);
    btnNext->setObjectName(u"btnNext"_s);
    btnNext->onClick = [this] { Next(); };
}

void frmExport::LayOut() {
    auto* column = new QVBoxLayout(Body());
    column->setContentsMargins(Skin::Space::kDialog, Skin::Space::kPartner, Skin::Space::kDialog,
                               Skin::Space::kField);
    column->setSpacing(Skin::Space::kPartner);
    auto* where = new QHBoxLayout;
    where->addWidget(lblFolder_, 1);
    where->addWidget(pngbtnPath);
    column->addWidget(lblTitle);
    column->addWidget(KestroListView1, 1);
    column->addWidget(KestroPGress1);
    column->addLayout(where);
    column->addWidget(editNote, 1);
    for (QWidget* part : {static_cast<QWidget*>(KestroListView1), static_cast<QWidget*>(editNote)})
        part->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    auto gone = KestroPGress1->sizePolicy();
    gone.setRetainSizeWhenHidden(false);
    KestroPGress1->setSizePolicy(gone);
    auto* foot = new QHBoxLayout(Footer());
    foot->setContentsMargins(Skin::Space::kDialog - Skin::Space::kPartner, 0, Skin::Space::kDialog, 0);
    foot->setSpacing(Skin::Space::kPartner);
    foot->addWidget(btnFresh);
    foot->addStretch();
    for (auto* button : {btnBack, btnNext}) {
        button->SetLeastWidth(80);
        foot->addWidget(button);
    }
    SetDefaultButton(btnNext);
    SetTitleLine(false);
    SetNamedSize(kLeast);
}

void frmExport::LoadPlaces() {
    places_ = BackupPlaces();
    KestroListView1->Clear();
    for (const auto& place : places_) {
        KestroListView1->AddItem(place.text, place.key);
        KestroListView1->SetPicture(KestroListView1->Count() - 1,
                                    Skin::Icon(place.icon, KestroListView::kPicture, devicePixelRatioF()));
    }
    KestroListView1->setFocus();
}

void frmExport::ShowStep(int step) {
    step_ = step;
    lblTitle->SetText(TitleOf(step));
    KestroListView1->setVisible(step == kPlace);
    btnFresh->setVisible(step == kPlace);
    KestroPGress1->setVisible(step == kCopies);
    for (QWidget* part : {static_cast<QWidget*>(lblFolder_), static_cast<QWidget*>(pngbtnPath)})
        part->setVisible(step == kDone);
    editNote->setVisible(step != kPlace);
}

void frmExport::Next() {
    if (step_ == kDone) {
        ShowMsg(u"这是最后一步了!"_s);
        return;
    }
    if (step_ == kCopies) return BackUp();
    if (KestroListView1->Selected().empty()) {
        ShowMsg(u"请选择备份到【哪里】?"_s);
        return;
    }
    const auto names = BackupNames(path_);
    editNote->SetText(names.join(u'\n'));
    KestroPGress1->SetMaximum(static_cast<int>(names.size()) * kBackupSteps);
    KestroPGress1->SetValue(0);
    ShowStep(kCopies);
}

void frmExport::Back() {
    if (step_ == kPlace) {
        ShowMsg(u"这已经是第一步了!"_s);
        return;
    }
    btnNext->setEnabled(true);
    ShowStep(step_ - 1);
}

void frmExport::BackUp() {
    const auto chosen = KestroListView1->Selected();
    if (chosen.empty()) return;
    folder_ = BackupFolder(places_.at(static_cast<size_t>(chosen.front())).path);
    BackupResult result;
    {
        Job job(KestroPGress1->Slots());
        if (job.Refused()) return;
        for (auto* button : {btnNext, btnBack})
            button->setEnabled(false);
        const auto back = qScopeGuard([this] { btnBack->setEnabled(true); });
        result = RunBackup(folder_, path_, job);
    }
    btnNext->setEnabled(true);
    if (!result.refused.isEmpty()) {
        ShowMsg(result.refused);
        return ShowStep(kPlace);
    }
    lblFolder_->SetText(folder_);
    ShowStep(kDone);
    const auto lines = static_cast<int>(result.failed.size());
    const int icon = lines > 0 ? kMsgWarn : kMsgDone;
    ShowMsg(BackupText(result), u"确定"_s, icon, u"提示"_s, 392, 160 + 20 * std::min(lines, 12));
    accept();
}

void OpenBackupDialog(QPoint) {
    frmExport window(QApplication::activeWindow());
    window.exec();
}
