#pragma once
// The order of start and stop.

#include "app/channel.h"

#include <QString>

/// What the process is to do after the first steps.
enum class StartResult {
    login,       ///< this is the only copy and everything is loaded
    handedOver,  ///< another copy runs; it has been given the book, or raised when there was none
    failed       ///< a box has been shown
};

/// Everything before the login window: single copy, folders, files, settings, books. commandLine is the book
/// path given, absolute, or empty.
StartResult StartUp(const QString& commandLine);

/// The channel of this copy. It listens from the moment the lock is held.
ChannelServer& MainChannel();

/// Runs the agent beside the program once the window is at rest, and greets it when it listens; onUp then
/// tells it what to show. A failure is not reported.
void StartAgentAtRest(const std::function<void()>& onUp);
/// Sends a code to the agent. False when it is not there.
bool TellAgent(int code, int extra = 0);

/// Drops windows, connections, dialog records and books.
void CloseAll();
