#pragma once
// What the frame sets off without knowing who does it. app/windows.cpp fills the slots; the button or menu
// item of an empty slot stands disabled.

#include "store/job.h"

#include <QString>

#include <functional>

struct FrameCommands {
    std::function<void(int code)> tellAgent;
    std::function<void()> closeAll;
    std::function<void()> closeProgram;  ///< as the menu's 退出 does
    std::function<void()> resetHeadIco;
    std::function<void()> about;
    std::function<void(const QString& text, const JobBar& bar)> search;  ///< over entries and notes
    std::function<void()> webCheck;                                      ///< of the main window's timer
    std::function<void()> webStop;                                       ///< ends what the user waits for
    std::function<void()> webHome;  ///< the page where the user keeps the web ledger
    std::function<void(const QString& user, const QString& pass)> webValidate;  ///< as typed in the settings
    std::function<void(const QString& key)> openSettings;  ///< a sub-page of the settings
    std::function<void()> openReminders;
    std::function<void()> closeReminders;
    std::function<void()> newBook;                            ///< to where a new book is made
    std::function<void(const QString& percent)> zoomPreview;  ///< of the print preview, while it stands
};

FrameCommands& Commands();
