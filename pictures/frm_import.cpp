#include "pictures/frm_import.h"

#include "pictures/gdi_image.h"
#include "pictures/picture_box.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_tiles.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/controls/png_button.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/outside.h"

#include <QApplication>
#include <QFileInfo>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString kCaption = u"图片管理"_s;
const QString kFromFile = u"=>"_s, kFromAdded = u"<="_s;
const QString kHelp =
    u"1.双击图片框全屏放大或恢复大小；\n"
    "2.在图片框上按下空格键 会大图片模式，再次按次恢复；\n"
    "3.在图片框上滑动鼠标滚轮会查看上一张、下一张；\n"
    "4.在图片框上按下回车键会用Windows默认的看图软件打开图片；\n"
    "5.图片框选中时会有粉色边框，若没选中以上操作无效！\n"
    "6.图片框支持拖放增加多张外部图片到左侧列表！"_s;

}  // namespace

frmImport::frmImport(QWidget* parent) : KestroDialog(DialogKind::common, kCaption, parent) {
    record_.done = 0;
    record_.count.clear();
    owner_ = {record_.table, record_.id, record_.single != 0};
    SetTitleLine(true);
    Build();
    LayOut();
    Connect();
    FillPlaces();
    FillPictures();
}

frmImport::~frmImport() {
    TrackRemove(MyTrak);
    TrackRemove(listDrops_);
}

void frmImport::Connect() {
    comPath->onChoose = [this](const QString&, const QString&) { Browse(); };
    btnFresh->onClick = [this] { Browse(); };
    KestroList1->onCurrent = [this](int row) { ShowFileRow(row); };
    KestroList1->onClick = [this](int row, int) {
        if (side_ != Side::file || shown_ != KestroList1->RowKey(row)) ShowFileRow(row);
    };
    KestroList1->onDoubleClick = [this](int row, int) { AddShown(row); };
    KestroListView1->onCurrent = [this](int index) { ShowAdded(index); };
    KestroListView1->onClick = [this](int index) {
        if (side_ != Side::added || shown_ != KestroListView1->Key(index)) ShowAdded(index);
    };
    KestroListView1->onDoubleClick = [this](int index) { Describe(index); };
    KestroListView1->onDelete = [this] { RemoveSelected(); };
    KestroListView1->onSelection = [this] { btnDel->setEnabled(!KestroListView1->Selected().empty()); };
    for (size_t i = 0; i < btnView.size(); ++i)
        btnView[i]->onClick = [this, i] { ViewClicked(i); };
    btnDel->onClick = [this] { RemoveSelected(); };
    btnSave->onClick = [this] { Save(); };
    btnCancel->onClick = [this] { reject(); };
    Picture1->onStep = [this](int direction) { Step(direction); };
    Picture1->onBig = [this] { SetBig(!bBig); };
    Picture1->onOpen = [this] { OpenShown(); };
    Picture1->onChange = [this] {
        const bool any = Picture1->HasPicture();
        lblZoom->SetText(any ? QString::number(std::lround(Picture1->Zoom() * 100)) + u'%' : QString());
        for (auto* button : btnView)
            button->setEnabled(any);
    };
    onEscape = [this] { bBig ? SetBig(false) : reject(); };
    MyTrak.hwnd = Picture1;
    MyTrak.DragDropFiles = [this](const QString& names, int) { MyTrak_DragDropFiles(names); };
    MyTrak.MouseWheel = [this](int direction) {
        if (Picture1->hasFocus()) Step(direction);
    };
    MyTrak.MouseHover = [this] { KestroToolTip::Show(u"Picture1"_s, kHelp, QCursor::pos(), Picture1); };
    TrackAdd(MyTrak);
    listDrops_.hwnd = KestroList1->viewport();
    listDrops_.DragDropFiles = MyTrak.DragDropFiles;
    TrackAdd(listDrops_);
    thumbnails_.setSingleShot(true);
    thumbnails_.callOnTimeout([this] { RunEvent([this] { NextThumbnail(); }); });
    Picture1->Empty();
}

void frmImport::FillPlaces() {
    places_ = Outside().places();
    for (const auto& place : places_)
        comPath->AddItem(place.text, place.key, place.icon);
    comPath->SetCurrent(0);
    Browse();
}

void frmImport::Browse() {
    const int place = comPath->Current();
    if (place >= 0) LoadFileList(places_[static_cast<size_t>(place)].path);
}

void frmImport::LoadFileList(const QString& folder) {
    const ListFill fill(*KestroList1);
    KestroList1->Clear();
    const bool readable = QFileInfo(folder).isReadable();
    KestroList1->SetEmptyText(readable ? u"没有 jpg 图片"_s : u"无法读取该目录"_s);
    for (const auto& file : PictureFilesIn(folder))
        AddFileRow(file);
}

void frmImport::AddFileRow(const PictureFile& file) {
    RowLook look;
    look.warn = file.over;
    const int number = KestroList1->RowCount() + 1;
    KestroList1->AddRow(QStringList{QString::number(number), file.name, file.size}, file.path, {}, look);
}

void frmImport::MyTrak_DragDropFiles(const QString& names) {
    const int before = KestroList1->RowCount();
    {
        const ListFill fill(*KestroList1);
        for (const auto& name : names.split(u'\n'))
            if (const auto file = PictureFileAt(name.trimmed())) AddFileRow(*file);
    }
    if (KestroList1->RowCount() > before) KestroList1->ScrollToRow(before);
}

void frmImport::FillPictures() {
    pictures_ = LoadOwnerPictures(State().gDB, owner_);
    for (const auto& picture : pictures_)
        KestroListView1->AddItem(picture.note, picture.path);
    KestroListView1->SetCurrent(pictures_.empty() ? -1 : 0);
    if (!pictures_.empty() && QFileInfo::exists(pictures_[0].path)) ShowAdded(0);
    thumbnails_.start(0);
}

// One picture a turn of the event loop, so that the window is there at once.
void frmImport::NextThumbnail() {
    for (int index = 0; index < KestroListView1->Count(); ++index) {
        if (KestroListView1->HasPicture(index)) continue;
        RefreshTempFile(pictures_[static_cast<size_t>(index)]);
        const double ratio = devicePixelRatioF();
        const int side = static_cast<int>(std::lround(KestroListView::kPicture * ratio));
        auto picture = QPixmap::fromImage(LoadSmall(KestroListView1->Key(index), side));
        picture.setDevicePixelRatio(ratio);
        KestroListView1->SetPicture(index, picture);
        thumbnails_.start(0);
        return;
    }
}

void frmImport::ShowFileRow(int row) {
    if (row >= 0) ShowPath(Side::file, KestroList1->RowKey(row));
}

void frmImport::ShowAdded(int index) {
    if (index < 0 || index >= static_cast<int>(pictures_.size())) return;
    RefreshTempFile(pictures_[static_cast<size_t>(index)]);
    ShowPath(Side::added, KestroListView1->Key(index));
}

void frmImport::ShowPath(Side side, const QString& path) {
    side_ = side;
    shown_ = path;
    lblArrow->SetText(side == Side::file ? kFromFile : kFromAdded);
    lblName->SetText(side == Side::file ? QFileInfo(path).fileName()
                                        : KestroListView1->Text(KestroListView1->Current()));
    SetCaption(kCaption + u'：' + path);
    Picture1->ShowFile(path);
    if (!QFileInfo::exists(path)) ShowMsg(u"图片文件不存在!"_s);
}

void frmImport::OpenShown() {
    if (side_ == Side::none) return;
    const auto at = static_cast<size_t>(KestroListView1->Current());
    if (side_ == Side::added && at < pictures_.size()) RefreshTempFile(pictures_[at]);
    Outside().open(shown_);
}

void frmImport::ShowNothing() {
    side_ = Side::none;
    shown_.clear();
    lblArrow->SetText({});
    lblName->SetText({});
    SetCaption(kCaption);
    Picture1->Empty();
}

void frmImport::AddShown(int row) {
    if (side_ != Side::file || shown_ != KestroList1->RowKey(row)) ShowFileRow(row);
    if (!QFileInfo(shown_).isFile()) return;  // that has been told
    std::vector<QString> paths;
    for (const auto& picture : pictures_)
        paths.push_back(picture.path);
    const QString complaint = ComplaintOfAdding(paths, shown_);
    if (!complaint.isEmpty()) {
        ShowMsg(complaint);
        return;
    }
    pictures_.push_back(NewPicture(shown_));
    KestroListView1->AddItem(pictures_.back().note, shown_);
    KestroListView1->SetCurrent(KestroListView1->Count() - 1);
    thumbnails_.start(0);
}

void frmImport::Describe(int index) {
    ResetDlg(kDlgInput);
    InputDialog input;
    input.text = u"图片说明"_s;
    input.prompt = u"请输入图片说明"_s;
    input.startText = KestroListView1->Text(index);
    input.mode = -1;
    OpenModal(kDlgInput);
    const QString note = input.text.trimmed();
    if (!input.done || note.isEmpty()) return;
    pictures_[static_cast<size_t>(index)].note = note;
    KestroListView1->SetText(index, note);
    if (side_ == Side::added) lblName->SetText(note);
}

void frmImport::RemoveSelected() {
    const auto indexes = KestroListView1->Selected();
    if (indexes.empty()) return;
    KestroListView1->RemoveItems(indexes);
    for (auto index = indexes.rbegin(); index != indexes.rend(); ++index)
        pictures_.erase(pictures_.begin() + *index);
    if (side_ == Side::added) ShowNothing();
}

void frmImport::Step(int direction) {
    if (side_ == Side::file) {
        const int row = KestroList1->CurrentRow() + direction;
        if (row < 0 || row >= KestroList1->RowCount()) return;
        KestroList1->SetCurrentRow(row);
        ShowFileRow(row);
    } else if (side_ == Side::added) {
        const int index = KestroListView1->Current() + direction;
        if (index < 0 || index >= KestroListView1->Count()) return;
        KestroListView1->SetCurrent(index);
        ShowAdded(index);
    }
}

void frmImport::ViewClicked(size_t button) {
    enum { zoomIn, zoomOut, whole, fitted, turned };
    if (!Picture1->HasPicture()) return;
    if (button == fitted) return Picture1->ShowFit();
    if (button == turned) return Picture1->Turn();
    if (button == whole) return Picture1->ShowZoomed(1);
    const auto step = button == zoomIn ? ZoomIn(Picture1->Zoom()) : ZoomOut(Picture1->Zoom());
    Picture1->ShowZoomed(step.zoom);
    if (!step.message.isEmpty()) ShowMsg(step.message);
}

void frmImport::Save() {
    const int count = SaveOwnerPictures(State().gDB, owner_, pictures_);
    record_.done = 1;
    record_.count = QString::number(count);
    accept();
}

void OpenPictureDialog(QPoint) {
    frmImport window(QApplication::activeWindow());
    window.exec();
}
