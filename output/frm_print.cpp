#include "output/frm_print.h"

#include "output/print_canvas.h"
#include "output/print_target.h"
#include "shell/actions.h"
#include "shell/commands.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_indicator.h"
#include "shell/controls/kestro_label.h"
#include "shell/menus.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopeGuard>

#include <algorithm>
#include <functional>
#include <map>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstPercent = 70;
constexpr int kScrollStep = 40;
const QString kZoomMenu = u"percent"_s;

QString KeyOf(int percent) {
    return QString::number(percent) + u'%';
}

int PercentOf(const QString& key) {
    return key.left(key.indexOf(u'%')).trimmed().toInt();
}

std::vector<int> ZoomSteps() {
    std::vector<int> steps;
    for (const auto& action : Actions())
        if (action.act == Act::zoom) steps.push_back(PercentOf(action.key));
    return steps;
}

}  // namespace

frmPrint::frmPrint(const PrintDocument& document, Job& job, QWidget* parent)
    : KestroDialog(DialogKind::common, u"打印预览"_s, parent), document_(document), job_(job) {
    Build();
    LayOut();
    FillPages();
    SetZoom(kFirstPercent);
    onEscape = onClose = [this] { TryLeave(); };
    Commands().zoomPreview = [this](const QString& percent) { DoMenu(kZoomMenu, percent); };
    canvas_->setFocus();
}

frmPrint::~frmPrint() {
    Commands().zoomPreview = {};
    Menus::SetItemChecked(kZoomMenu, KeyOf(percent_), false);
}

void frmPrint::FillPages() {
    for (size_t page = 1; page <= document_.pages.size(); ++page)
        comPage->AddItem(u"第 %1 页"_s.arg(page), QString::number(page - 1), u"Pages"_s);
    ShowPage(0);
}

void frmPrint::ShowPage(int page) {
    const int shown = std::clamp(page, 0, comPage->Count() - 1);
    comPage->SetCurrent(shown);
    canvas_->ShowPage(static_cast<size_t>(shown));
}

void frmPrint::DoMenu(const QString& menu, const QString& item) {
    const int percent = PercentOf(item);
    if (menu.compare(kZoomMenu, Qt::CaseInsensitive) == 0 && percent > 0) SetZoom(percent);
}

void frmPrint::SetZoom(int percent) {
    Menus::SetItemChecked(kZoomMenu, KeyOf(percent_), false);
    Menus::SetItemChecked(kZoomMenu, KeyOf(percent), true);
    percent_ = percent;
    lblPercent->SetText(u"预览比例："_s + QString::number(percent) + u" %"_s);
    canvas_->SetZoom(percent / 100.0);
}

void frmPrint::StepZoom(int step) {
    const auto steps = ZoomSteps();
    const auto larger = std::upper_bound(steps.begin(), steps.end(), percent_);
    const auto same = std::lower_bound(steps.begin(), steps.end(), percent_);
    if (step > 0 && larger != steps.end()) SetZoom(*larger);
    if (step < 0 && same != steps.begin()) SetZoom(*(same - 1));
}

void frmPrint::Print(std::optional<size_t> page) {
    printing_ = true;
    State().gStop = false;
    Indicator1->Run(true);
    const auto done = qScopeGuard([this] {
        printing_ = false;
        Indicator1->Run(false);
    });
    DocPrint(document_, job_, page);
}

// While pages go out the window is needed: leaving stops that first.
void frmPrint::TryLeave() {
    if (printing_)
        Job::Stop();
    else
        reject();
}

// Before the dialog scrolls its own body by them.
bool frmPrint::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && TakeKey(*static_cast<QKeyEvent*>(event))) return true;
    return KestroDialog::eventFilter(watched, event);
}

bool frmPrint::TakeKey(const QKeyEvent& event) {
    const std::map<int, std::function<void()>> keys{
        {Qt::Key_PageUp, [this] { ShowPage(comPage->Current() - 1); }},
        {Qt::Key_PageDown, [this] { ShowPage(comPage->Current() + 1); }},
        {Qt::Key_Home, [this] { ShowPage(0); }},
        {Qt::Key_End, [this] { ShowPage(comPage->Count() - 1); }},
        {Qt::Key_Up, [this] { canvas_->ScrollBy(0, -kScrollStep); }},
        {Qt::Key_Down, [this] { canvas_->ScrollBy(0, kScrollStep); }},
        {Qt::Key_Left, [this] { canvas_->ScrollBy(-kScrollStep, 0); }},
        {Qt::Key_Right, [this] { canvas_->ScrollBy(kScrollStep, 0); }},
        {Qt::Key_Plus, [this] { StepZoom(1); }},
        {Qt::Key_Equal, [this] { StepZoom(1); }},
        {Qt::Key_Minus, [this] { StepZoom(-1); }},
    };
    const auto found = keys.find(event.key());
    if (found == keys.end() || event.modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return false;
    found->second();
    return true;
}

PreviewRequest& NextPreview() {
    static PreviewRequest request;
    return request;
}

void OpenPrintPreview(QPoint) {
    const auto [document, job] = NextPreview();
    if (!document || !job) return;
    frmPrint window(*document, *job, QApplication::activeWindow());
    window.exec();
}
