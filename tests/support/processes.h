#pragma once
// Real processes of the program and its siblings, in a copied program folder, a home and a bus of their own.

#include "app/channel.h"
#include "tests/support/ui_fixture.h"

#include <QProcess>

class Processes : public UiFixture {
 protected:
    Processes();
    ~Processes() override;

    QProcess* Start(const QString& program, const QStringList& arguments = {});
    QString Program(const QString& name) const;
    /// The test process as the first copy, with its main channel.
    void BecomeFirstCopy();
    static bool AgentAnswers();
    static bool WaitLong(const std::function<bool()>& done, int ms) { return QTest::qWaitFor(done, ms); }

    QList<int> received_;
    QList<qint32> handles_;
    QStringList tokens_;

 private:
    std::vector<std::pair<const char*, QString>> World() const;
    std::vector<QProcess*> started_;
};
