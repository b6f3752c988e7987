#pragma once
// The yield of a long job inside the event loop.

#include <QWidget>

/// Fills Outside().yield: painting and timers get through, and of the user's input only what reaches a
/// progress bar by mouse, or Escape; both ask the job to stop.
void InstallJobYield();

/// A widget whose click may reach it while a job runs.
void AllowDuringJob(QWidget* bar);
