#pragma once
// The fixture of window tests: windows closed, menus and registries emptied, modal windows driven from
// inside.

#include "tests/support/fixture.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class KestroList;

/// The form of a kind or an account as it opened.
struct InputSeen {
    QString title, start, money, memo;
    bool hide = false;
    bool mayHide = true;
};
/// What is typed into it; what is absent is left as it stands.
struct InputTyped {
    std::optional<QString> text, money, memo;
    std::optional<bool> hide;
};

class UiFixture : public Fixture {
 protected:
    UiFixture();
    ~UiFixture() override;

    /// Set.ini, made fresh in the temporary folder and open as gSetDB.
    void OpenSettingsStore();
    /// Everything registered as the program does, with the script of boxes in place of the message window.
    void RegisterAll();
    /// Fills the next input boxes in by keys and presses 确定. What they showed is in InputShown.
    void OnInputBox(const InputTyped& typed);
    const InputSeen& InputShown() const { return inputShown_; }
    /// Waits for paint, timers and posted events until done answers true; false after two seconds.
    static bool Wait(const std::function<bool()>& done);

 private:
    InputSeen inputShown_;
};

/// Settings, the sample book and everything registered, where most windows open.
class SampleStage : public UiFixture {
 protected:
    SampleStage() {
        OpenSettingsStore();
        OpenSample();
        RegisterAll();
    }
};

/// The control of this name and type below a window.
template <typename T>
T* Find(QWidget* window, const char* name) {
    auto* found = window ? window->findChild<QWidget*>(QString::fromLatin1(name)) : nullptr;
    EXPECT_NE(found, nullptr) << name;
    return dynamic_cast<T*>(found);
}

/// A list page of the ledger, as large as the frame of its start shows it.
template <typename P>
std::unique_ptr<P> NewPage() {
    auto page = std::make_unique<P>(nullptr);
    page->resize(1096, 618);
    page->show();
    return page;
}
/// The cells of a column from above.
QStringList Column(const KestroList* list, int column);

/// Clicks the control of this name; in its middle when no place is given.
void Press(QWidget* window, const char* name, QPoint at = {});
/// Shows a window as the one that has the keyboard.
void Present(QWidget* window);

/// Runs body on the modal window that opens next; closes it if body leaves it open.
void OnNextModal(std::function<void(QWidget*)> body);

/// Text as a user types it: ASCII by keys, the rest as an input method commits it.
void TypeInto(QWidget* control, const QString& text);
