#pragma once
// frmLogin: the first window. It opens a book when the password is right.

#include "shell/controls/kestro_dialog.h"
#include "shell/menus.h"
#include "store/state.h"

#include <QTimer>

#include <functional>
#include <optional>

class KestroButton;
class KestroCombox;
class KestroEditBox;
class KestroLabel;
class KestroText;
class LoginHero;
class PngButton;
class QGridLayout;

class frmLogin : public KestroDialog {
 public:
    frmLogin();
    ~frmLogin() override;

    std::function<void()> onEntered;  ///< gDB is open on gCurBook; the window is on its way out
    std::function<void()> onLeft;     ///< the program ends

    // Public for the tour and for tests: what the buttons do.
    void BtnEnterClicked();
    void BtnCancelClicked();
    /// Opens a book file as chosen in the file dialog (empty) or by path.
    void OpenBookFile(QString path);
    void BtnNewClicked();
    void BtnPathClicked();
    void ToggleStrip();

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    void Build();
    void BuildStrip();
    void LayOut();
    void Arrange();
    void PlaceHero();
    void LoadBooks();
    void FillBooks();
    void ShowBook(int index);
    void ChooseBookItem(const QString& key);
    void OpenChosen();
    bool CheckPassword();
    void MoveBookBox(const QString& folder);
    void Leave(bool tellAgent);

    std::optional<PopupScope> popup_{std::in_place};
    bool welcomed_ = false;
    bool stripShown_ = false;
    QTimer Timer1;
    LoginHero* hero_;
    QWidget* strip_ = nullptr;   ///< the lower strip
    QWidget* upper_ = nullptr;   ///< what stands above it
    QWidget* corner_ = nullptr;  ///< holds the arrow
    QGridLayout* rows_ = nullptr;
    KestroLabel* title_;
    KestroCombox* comBook;
    KestroText* txtPass;
    KestroButton* btnEnter;
    KestroButton* btnCancel;
    KestroButton* btnNew;
    KestroButton* btnPath;
    KestroEditBox* editNote;
    PngButton* pngArrow;
    KestroLabel* lblBookName;
    KestroLabel* lblPass;
    KestroLabel* lblAuto;
    KestroLabel* lblLogDate;
    KestroLabel* lblPath;
};
