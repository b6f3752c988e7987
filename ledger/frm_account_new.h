#pragma once
// frmAccountNew: the window in which an entry is typed. It gathers and shows; checks and writing are in
// entry_check and entry_save.

#include "ledger/entry_edit.h"
#include "shell/controls/kestro_dialog.h"
#include "shell/controls/kestro_text.h"
#include "store/dialogs.h"

#include <QPoint>

#include <array>

class KestroButton;
class KestroCalculator;
class KestroCalendar;
class KestroCheck;
class KestroCombox;
class KestroEditBox;
class KestroOptionPair;
class PngButton;
class QGridLayout;
class QLayout;

/// Reads record 2 and leaves the done flag and the ids there.
class frmAccountNew : public KestroDialog {
 public:
    explicit frmAccountNew(QWidget* parent = nullptr);
    ~frmAccountNew() override;

    /// False when the entry to change has gone; that has been told.
    bool IsReady() const { return ready_; }

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

 private:
    QWidget* BuildEntry();
    QWidget* BuildForm();
    QLayout* BuildMoment();
    QWidget* BuildSecondKind();
    QWidget* BuildAccounts();
    QWidget* BuildAccount(size_t i);
    void BuildFooter();
    void LayOut(QWidget* entry);
    KestroCombox* MakeCombox(size_t slot);
    KestroText* MakeText(TextMode mode, const QString& name);
    void ConnectEntry();
    void ConnectAccounts();
    void Arrange();
    void FillLists();
    void SetDefaults();
    void SetTabOrder();
    void NameControls();  ///< object names, under which tests and assistive tools find them

    void ShowEntry(const EntryValues& entry);
    void ShowPictures(const QString& count);
    void OpenPictures();
    void ChooseTemplate();
    EntryValues Gather() const;
    bool SaveNew(EntryValues& entry, EntryField& focus);
    bool SaveChange(EntryValues& entry, EntryField& focus);
    void SetFocusTo(EntryField field);
    void EnterClicked();
    void CancelClicked();
    void MoveDay(int days);
    void OpenCalendar();
    void OpenCalculator(int forBox, KestroText* box, bool ownKeys);
    void TakeCalculated(const QString& value);
    void Chosen(size_t slot, const QString& key);
    void OpenTree(size_t slot);
    QString CodeTip(size_t slot) const;
    void ToggleAccounts();

    EntryDialog record_;
    PopupScope popup_;
    bool bNew = true;
    bool ready_ = true;
    qint64 lEntryId = -1;                     ///< the entry's main row
    qint64 lOpenedId = -1;                    ///< the row the caller named
    QString pictures_ = QStringLiteral("0");  ///< Tag of btnCamera
    bool bToAccount = false;
    int nCalcFor = 0;  ///< 0: the calculator fills txtMoney, 1: txtAccValue
    std::array<QString, 4> sKey, sName;
    EntryValues loaded_;  ///< the entry as it was before the change; empty for a new one

    QGridLayout* sides_ = nullptr;
    QWidget* kind2_ = nullptr;        ///< group of the second kind
    QWidget* accounts_ = nullptr;     ///< the account area
    QWidget* account2_ = nullptr;     ///< its second account
    QWidget* accountFoot_ = nullptr;  ///< the area goes on in the footer
    KestroText* txtThing;
    KestroText* txtMoney;
    KestroText* txtDate;
    KestroText* txtHour;
    KestroText* txtMinute;
    PngButton* pngPlus;
    PngButton* PngReduce;
    std::array<KestroCombox*, 4> combos_{};       ///< comKind, comKind1, comAccName, comAccName1
    std::array<KestroOptionPair*, 4> options_{};  ///< optAdd(i) and optReduce(i)
    std::array<KestroText*, 2> accValues_{};      ///< txtAccValue, txtAccValue1
    std::array<PngButton*, 2> clones_{};
    KestroCheck* chkOther;
    KestroCheck* chkOther1;
    KestroEditBox* editNote;
    KestroCheck* chkMark;
    KestroButton* btnCamera;
    KestroButton* btnEnter;
    KestroButton* btnCancel;
    PngButton* pngArrow;
    KestroCalculator* KestroCalculator1;
    KestroCalendar* KestroCalendar1;
};

/// For RegisterDialog(kDlgEntry, …).
void OpenEntryDialog(QPoint at);
