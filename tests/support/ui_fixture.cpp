#include "tests/support/ui_fixture.h"

#include "app/windows.h"
#include "shell/commands.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_text.h"
#include "shell/file_dialog.h"
#include "shell/input_dialog.h"
#include "shell/menus.h"
#include "shell/page.h"
#include "store/dialogs.h"
#include "store/outside.h"
#include "store/settings_file.h"

#include <QElapsedTimer>
#include <QFile>
#include <QInputMethodEvent>

using namespace Qt::StringLiterals;

UiFixture::UiFixture() {
    FileDialogSlot() = [](const FileRequest&) {
        ADD_FAILURE() << "the file dialog was asked for";
        return QString();
    };
}

UiFixture::~UiFixture() {
    DropWindows();
    for (auto* window : QApplication::topLevelWidgets())
        window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Menus::Reset();
    ClearPageFactories();
    Host() = {};
    Commands() = {};
}

void UiFixture::OpenSettingsStore() {
    const QString path = Path(u"Set.ini"_s);
    EXPECT_TRUE(QFile::copy(QCoreApplication::applicationDirPath() + u"/../data/Set.ini"_s, path));
    OpenSettings(path);
    State().settings.sDBPath = Path({});
}

void UiFixture::RegisterAll() {
    const auto world = Outside();
    const auto script = MessageSlot();
    RegisterWindows();
    MessageSlot() = script;
    const auto yield = Outside().yield;
    Outside() = world;
    Outside().yield = yield;
    Commands().tellAgent = [](int) {};
}

void UiFixture::OnInputBox(const InputTyped& typed) {
    RegisterDialog(kDlgInput, [this, typed](QPoint) {
        frmInput box(State().gDlg[kDlgInput]);
        auto* text = Find<KestroText>(&box, "txtNote");
        auto* money = Find<KestroText>(&box, "txtMoney");
        auto* memo = Find<KestroEditBox>(&box, "editNote");
        auto* hide = Find<KestroCheck>(&box, "chkOther");
        inputShown_ = {box.windowTitle(), text->text(),      money->text(),
                       memo->Text(),      hide->IsChecked(), hide->isEnabled()};
        const auto type = [](KestroText* into, const std::optional<QString>& what) {
            if (!what) return;
            into->selectAll();
            QTest::keyClick(into, Qt::Key_Delete);
            TypeInto(into, *what);
        };
        type(text, typed.text);
        type(money, typed.money);
        if (typed.memo) memo->SetText(*typed.memo);
        if (typed.hide) hide->SetChecked(*typed.hide);
        QTest::mouseClick(Find<QWidget>(&box, "btnEnter"), Qt::LeftButton);
    });
}

bool UiFixture::Wait(const std::function<bool()>& done) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > 2000) return false;
        QTest::qWait(5);
    }
    return true;
}

QStringList Column(const KestroList* list, int column) {
    QStringList cells;
    for (int row = 0; row < list->RowCount(); ++row)
        cells << list->Cell(row, column);
    return cells;
}

void Press(QWidget* window, const char* name, QPoint at) {
    QTest::mouseClick(Find<QWidget>(window, name), Qt::LeftButton, {}, at);
}

void Present(QWidget* window) {
    window->show();
    QApplication::setActiveWindow(window);
}

void OnNextModal(std::function<void(QWidget*)> body) {
    QTimer::singleShot(0, [body = std::move(body)] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        QApplication::setActiveWindow(window);
        body(window);
        if (window->isVisible() && window == QApplication::activeModalWidget()) window->close();
    });
}

void TypeInto(QWidget* control, const QString& text) {
    for (const QChar c : text) {
        if (c.unicode() < 128) {
            QTest::keyClick(control, c.toLatin1());
            continue;
        }
        QInputMethodEvent commit;
        commit.setCommitString(c);
        QApplication::sendEvent(control, &commit);
    }
}
