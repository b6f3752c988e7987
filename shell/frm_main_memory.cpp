// What the frame remembers from run to run: its size and place, the display mode, the widths of the pages'
// columns. All of it stands beside the entries, so a failure is passed in silence.

#include "shell/controls/kestro_list.h"
#include "shell/frm_main.h"
#include "store/errors.h"
#include "store/settings.h"
#include "store/state.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kFirstSize(1100, 700);
constexpr QSize kSmallest(10000 / 15, 8000 / 15);
constexpr int kModes = 3;
const QString kWindow = u"Window"_s;

QString ColumnsKey(int tab) {
    return u"Columns."_s + QString::number(CodeOfTab(tab));
}

QString Joined(const std::vector<int>& numbers) {
    QStringList texts;
    for (const int number : numbers)
        texts << QString::number(number);
    return texts.join(u',');
}

/// Nothing when one of the texts is no number.
std::vector<int> Numbers(const QString& text) {
    std::vector<int> numbers;
    for (const auto& piece : text.split(u',')) {
        bool good = false;
        numbers.push_back(piece.toInt(&good));
        if (!good) return {};
    }
    return numbers;
}

// The screen on which most of a window would stand.
QRect WorkAreaFor(const QRect& place) {
    const auto* screen = QGuiApplication::screenAt(place.center());
    return (screen ? screen : QGuiApplication::primaryScreen())->availableGeometry();
}

}  // namespace

void frmMain::TakeUpPlace() {
    QRect place;
    std::vector<int> kept;
    Succeeds([&] { kept = Numbers(SettingKey(State().gSetDB, kWindow).value_or(QString())); });
    if (kept.size() == 6) place = {kept[0], kept[1], kept[2], kept[3]};
    const QRect area = WorkAreaFor(place);
    SetSmallest(kSmallest.boundedTo(area.size()));
    if (!place.isValid() || !area.contains(place.center())) {
        SetNamedSize(kFirstSize.boundedTo(area.size()));
        return;
    }
    SetNamedSize(place.size().boundedTo(area.size()).expandedTo(kSmallest.boundedTo(area.size())));
    SetPlace(place.topLeft());
    if (kept[4] != 0) setWindowState(Qt::WindowMaximized);
    if (kept[5] >= 0 && kept[5] < kModes) SetDisplayMode(kept[5]);
}

void frmMain::KeepPlace() {
    const QRect place(isMaximized() ? normalGeometry() : QRect(pos(), NamedSize()));
    Succeeds([&] {
        SetSettingKey(State().gSetDB, kWindow,
                      Joined({place.x(), place.y(), place.width(), place.height(), isMaximized() ? 1 : 0,
                              DisplayMode()}));
    });
}

void frmMain::TakeUpColumns(int tab) {
    QStringList kept;
    Succeeds([&] { kept = SettingKey(State().gSetDB, ColumnsKey(tab)).value_or(QString()).split(u';'); });
    const auto lists = GetWinhWnd(tab)->Lists();
    for (size_t i = 0; i < lists.size() && static_cast<qsizetype>(i) < kept.size(); ++i)
        lists[i]->SetUserWidths(Numbers(kept[static_cast<qsizetype>(i)]));
}

void frmMain::KeepColumns(int tab) {
    QStringList widths;
    for (const auto* list : GetWinhWnd(tab)->Lists())
        widths << Joined(list->UserWidths());
    if (!widths.isEmpty())
        Succeeds([&] { SetSettingKey(State().gSetDB, ColumnsKey(tab), widths.join(u';')); });
}
