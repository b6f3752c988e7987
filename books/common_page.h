#pragma once
// The general settings of the program, a sub-page of the settings.

#include "shell/page.h"

#include <array>

class KestroButton;
class KestroCheck;
class KestroCombox;
class KestroEditBox;
class KestroLabel;
class KestroOption;
class KestroText;
class QGridLayout;
class QVBoxLayout;

class CommonPage : public Page {
 public:
    explicit CommonPage(QWidget* parent);

    /// What belongs to the open book is read.
    void Shown() override;
    void TakeFocus() override;

 private:
    void Build();
    void BuildShown(QGridLayout* rows);
    void BuildWeb(QGridLayout* rows);
    void BuildBook(QGridLayout* rows);
    void Connect();
    void ShowSettings();
    void ChoosePath();
    void OpenPath();
    void Save();

    KestroButton* btnSave;
    std::array<KestroOption*, 3> optSplit{};
    KestroCombox* comHtmItems;
    KestroCombox* comLoad;
    KestroCheck* chkAgent;
    KestroButton* btnRestHeadIco;
    KestroText* txtWebUserName;
    KestroText* txtWebPass;
    KestroButton* btnValidate;
    KestroButton* btnAccount;
    KestroLabel* lblDBVer;
    KestroLabel* lblLogin_;
    KestroEditBox* editNote;
    KestroButton* btnPath;
    KestroButton* btnOpenPath;
};
