#pragma once
// frmImport: the pictures of one owner row. They are added from folders or by dropping, looked at, described
// and removed; the book changes with the save alone.

#include "pictures/picture_store.h"
#include "shell/controls/kestro_dialog.h"
#include "shell/tracker.h"
#include "store/dialogs.h"
#include "store/outside.h"

#include <QPoint>
#include <QTimer>

#include <array>
#include <vector>

class KestroButton;
class KestroCombox;
class KestroLabel;
class KestroList;
class KestroListView;
class PictureBox;
class PngButton;

/// Takes the owner from record 6 and leaves the done flag and the count there.
class frmImport : public KestroDialog {
 public:
    explicit frmImport(QWidget* parent = nullptr);
    ~frmImport() override;

    /// Fills the list with the picture files of a folder.
    void LoadFileList(const QString& folder);
    /// Files dropped on the picture or on the file list, one path a line.
    void MyTrak_DragDropFiles(const QString& names);

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    /// The list that the picture on show came from.
    enum class Side { none, file, added };

    void Build();
    void BuildLists();
    void BuildButtons();
    void Connect();
    void LayOut();
    QWidget* MakeLeft();
    QWidget* MakeMiddle();
    QWidget* MakeRight();
    void FillPlaces();
    void FillPictures();
    void AddFileRow(const PictureFile& file);
    void Browse();
    void ShowFileRow(int row);
    void ShowAdded(int index);
    void ShowPath(Side side, const QString& path);
    void OpenShown();
    void ShowNothing();
    void AddShown(int row);
    void Describe(int index);
    void RemoveSelected();
    void Step(int direction);
    void ViewClicked(size_t button);
    void SetBig(bool big);
    void PlaceBig();
    void NextThumbnail();
    void Save();

    PictureDialog record_;
    PopupScope popup_;
    OwnerRow owner_;
    std::vector<OwnerPicture> pictures_;  ///< the items of KestroListView1, in its order
    std::vector<BrowsePlace> places_;     ///< the items of comPath
    Side side_ = Side::none;
    QString shown_;  ///< path of the picture on show
    bool bBig = false;
    clsTrackInfo MyTrak;
    clsTrackInfo listDrops_;  ///< of KestroList1
    QTimer thumbnails_;

    QWidget* content_;
    QWidget* middle_;
    KestroCombox* comPath;
    PngButton* btnFresh;
    KestroList* KestroList1;
    KestroListView* KestroListView1;
    PictureBox* Picture1;
    KestroLabel* lblArrow;
    KestroLabel* lblName;
    KestroLabel* lblZoom;
    KestroLabel* lblBookName;
    KestroLabel* Label1;
    std::array<KestroButton*, 5> btnView{};
    KestroButton* btnDel;
    KestroButton* btnSave;
    KestroButton* btnCancel;
};

/// For RegisterDialog(kDlgPictures, …).
void OpenPictureDialog(QPoint at);
