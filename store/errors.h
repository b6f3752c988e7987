#pragma once
// The one error road. Every callback from a control, timer, socket or reply runs through RunEvent; what
// flies by becomes the box "意外错误" and the program carries on.

#include <QString>

#include <functional>

/// The last unexpected failure, kept until it has been shown. number 0: none is pending.
struct PendingError {
    int number = 0;
    QString source;
    QString description;
    QString statement;  ///< the failing SQL text, empty when there is none
    QString hint;       ///< what the failing place knows of the reason, empty when nothing
};

PendingError& LastError();

/// Runs body; a failure is kept in LastError and shown by ReportError(hint). Never throws.
/// Returns false when body failed. A null body does nothing and counts as success.
bool RunEvent(const std::function<void()>& body, const QString& hint = {});

/// Runs body under error catching: false when it failed, without a box. The failure is in failed if given.
bool Succeeds(const std::function<void()>& body, PendingError* failed = nullptr);

/// Shows a failure that was kept by Succeeds. Never throws.
void TellFailure(const PendingError& failed, const QString& hint = {});

/// Shows the pending error (nothing when its number is 0) and clears it. hint, or what the kind of
/// failure suggests, is told as the likely reason. Never throws.
void ReportError(const QString& hint);

/// What the kind of failure suggests as its reason, by the name of the file it speaks of; often empty.
QString LikelyReason(const PendingError& error);
/// The text of the box for error; hint may be empty.
QString ErrorText(const PendingError& error, const QString& hint);
