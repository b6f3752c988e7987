#pragma once
// Long work: refuses when another job runs, reports its progress, yields by time, can be stopped.

#include <QElapsedTimer>

#include <functional>

/// True after the box "有进程在运行，请等待结束后再试..." when a job is running.
bool IsBusy();

/// The box after a job that the user has stopped: "已停止剩余部分导出!".
void TellStopped();

/// Where a job shows how far it is. Slots may be empty.
struct JobBar {
    std::function<void(int maximum)> start;
    std::function<void(int value)> value;
    std::function<void()> end;
};

class Job {
 public:
    /// Tests IsBusy; when the job may run, marks the program busy until the object goes.
    explicit Job(JobBar bar = {});
    ~Job();
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    bool Refused() const { return refused_; }
    void Start(int maximum);
    /// Reports the value and yields to the event loop when 20 ms have gone by since the last yield.
    void Step(int value) { Step(value, value); }
    /// The same where the bar counts otherwise than the work: done steps, and what the bar shows.
    void Step(int done, int value);
    /// Reports the value, leaves the yield to the caller's next Step.
    void Show(int value) const;
    bool Stopped() const;
    /// For work without steps, a long statement for one: yields by time. False when it shall end.
    bool GoOn();

    /// Asks the running job to stop; nothing happens when none runs.
    static void Stop();
    /// The stop comes by itself after this many steps of the next jobs; -1 never.
    static void StopAfter(int steps);

 private:
    JobBar bar_;
    bool refused_ = false;
    QElapsedTimer sinceYield_;
};
