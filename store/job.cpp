#include "store/job.h"

#include "store/messages.h"
#include "store/outside.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 kYieldMs = 20;
}

bool IsBusy() {
    if (!State().gBusy) return false;
    ShowMsg(u"有进程在运行，请等待结束后再试..."_s);
    return true;
}

void TellStopped() {
    ShowMsg(u"已停止剩余部分导出!"_s);
}

Job::Job(JobBar bar) : bar_(std::move(bar)), refused_(IsBusy()) {
    if (refused_) return;
    State().gBusy = true;
    State().gStop = false;
    sinceYield_.start();
}

Job::~Job() {
    if (refused_) return;
    State().gBusy = false;
    State().gStop = false;
    if (bar_.end) bar_.end();
}

void Job::Start(int maximum) {
    if (bar_.start) bar_.start(maximum);
}

void Job::Step(int done, int value) {
    if (State().gStopAfter >= 0 && done >= State().gStopAfter) State().gStop = true;
    if (sinceYield_.elapsed() < kYieldMs) return;
    Show(value);
    if (Outside().yield) Outside().yield();
    sinceYield_.restart();
}

bool Job::GoOn() {
    if (sinceYield_.elapsed() >= kYieldMs) {
        if (Outside().yield) Outside().yield();
        sinceYield_.restart();
    }
    return !Stopped();
}

void Job::Show(int value) const {
    if (bar_.value) bar_.value(value);
}

bool Job::Stopped() const {
    return State().gStop;
}

void Job::Stop() {
    if (State().gBusy) State().gStop = true;
}

void Job::StopAfter(int steps) {
    State().gStopAfter = steps;
}
