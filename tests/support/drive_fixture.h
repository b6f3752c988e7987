#pragma once
// The driver as a process on a copied sample book: JSON lines in, JSON lines out.

#include "store/book_images.h"
#include "tests/support/fixture.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

struct Played {
    int code = -1;
    std::vector<QJsonObject> answers;
};

class DriveTest : public Fixture {
 protected:
    Played Drive(const QByteArray& input, const QStringList& options = {}) {
        QProcess process;
        process.start(QString::fromUtf8(KESTRO_DRIVE), options + QStringList{path_});
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(20000));
        Played run;
        run.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        for (const auto& line : process.readAllStandardOutput().split('\n'))
            if (!line.isEmpty()) run.answers.push_back(QJsonDocument::fromJson(line).object());
        return run;
    }

    Played Drive(const std::vector<QJsonObject>& requests) {
        QByteArray input;
        for (const auto& request : requests)
            input += QJsonDocument(request).toJson(QJsonDocument::Compact) + '\n';
        auto run = Drive(input);
        EXPECT_EQ(run.code, 0);
        EXPECT_EQ(run.answers.size(), requests.size());
        run.answers.resize(requests.size());
        return run;
    }

    QStringList Stored(const QString& sql) {
        cConnection book;
        book.Open(path_);
        return Rows(book, sql);
    }

    const QString path_ = PutFile(QStringLiteral("drive.jotdb"), SampleBookImage());
};
