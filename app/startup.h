#pragma once
// The order of start and stop.

#include <QString>

/// What the process is to do after the first steps.
enum class StartResult {
    login,       ///< this is the only copy and everything is loaded
    handedOver,  ///< another copy runs; its book has been handed over, or there was none
    failed       ///< a box has been shown
};

/// Everything before the login window: single copy, folders, files, settings, books, agent. commandLine is
/// the book path given, absolute, or empty.
StartResult StartUp(const QString& commandLine);

/// Runs the agent beside the program. A failure is not reported.
void StartAgent();
/// Sends a code to the agent, if it is there.
void TellAgent(int code, int extra = 0);

/// Drops windows, connections, dialog records and books.
void CloseAll();
