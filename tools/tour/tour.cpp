#include "tools/tour/tour.h"

#include "store/state.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputMethodEvent>
#include <QPixmap>
#include <QTest>
#include <QWidget>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {
constexpr int kTickMs = 40;
constexpr int kPatienceMs = 15000;
}  // namespace

void Tour::Add(const QString& name, Ready ready, Act act) {
    steps_.push_back({name, std::move(ready), std::move(act)});
}

void Tour::Start() {
    timer_.callOnTimeout([this] { Tick(); });
    timer_.start(kTickMs);
    waiting_.start();
}

void Tour::Tick() {
    if (acting_ || failed_) return;
    if (steps_.empty()) {
        timer_.stop();
        QApplication::exit(0);
        return;
    }
    // What is clicked while a job yields is dropped, unless a window asks in front of it.
    const bool deaf = State().gBusy && !QApplication::activeModalWidget();
    QWidget* window = deaf ? nullptr : steps_.front().ready();
    if (!window) {
        if (waiting_.elapsed() > kPatienceMs) Fail(u"step never became ready: "_s + steps_.front().name);
        return;
    }
    const Step step = steps_.front();
    steps_.pop_front();
    waiting_.restart();
    acting_ = true;
    // Behind the timer, so that a modal loop which the step opens lets the next steps run.
    QTimer::singleShot(0, window, [step, window] { step.act(window); });
    QTimer::singleShot(kTickMs, qApp, [this] { acting_ = false; });
}

void Tour::Picture(QWidget* window, const QString& name) {
    const QString file = folder_ + u'/' + name + u".png"_s;
    QCoreApplication::sendPostedEvents();  // what has changed is laid out first
    if (!window->grab().save(file)) return Fail(u"cannot write "_s + file);
    std::printf("%s\n", qUtf8Printable(file));
}

void Tour::Fail(const QString& why) {
    failed_ = true;
    for (auto* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            window->grab().save(folder_ + u"/failed-"_s + QString::number(++shots_) + u".png"_s);
    std::fprintf(stderr, "tour: %s\n", qUtf8Printable(why));
    std::fflush(nullptr);
    std::_Exit(1);
}

QWidget* WindowWith(const char* control) {
    const QString name = QString::fromLatin1(control);
    if (auto* modal = QApplication::activeModalWidget())
        return modal->findChild<QWidget*>(name) ? modal : nullptr;
    for (auto* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->findChild<QWidget*>(name)) return window;
    return nullptr;
}

QWidget* Control(QWidget* window, const char* name) {
    if (auto* control = window->findChild<QWidget*>(QString::fromLatin1(name))) return control;
    std::fprintf(stderr, "tour: no control %s\n", name);
    std::_Exit(1);
}

QWidget* Tab(QWidget* window, const QString& caption) {
    for (auto* button : window->findChildren<QAbstractButton*>())
        if (button->text() == caption) return button;
    return nullptr;
}

QWidget* MessageWith(const QString& button) {
    auto* window = WindowWith("btnEnter");
    if (!window || window->findChild<QWidget*>(u"txtThing"_s)) return nullptr;
    auto* enter = dynamic_cast<QAbstractButton*>(Control(window, "btnEnter"));
    return enter && enter->text() == button ? window : nullptr;
}

void Click(QWidget* control) {
    ClickAt(control, control->rect().center());
}

void ClickAt(QWidget* control, QPoint at) {
    QTest::mouseClick(control, Qt::LeftButton, Qt::NoModifier, at);
}

void Key(QWidget* control, int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(control, static_cast<Qt::Key>(key), modifiers);
}

void TypeText(QWidget* control, const QString& text) {
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
