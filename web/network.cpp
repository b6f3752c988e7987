#include "web/network.h"

#include "store/places.h"
#include "web/network_wire.h"

#include <QCoreApplication>
#include <QPointer>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

WebReply ReplyFrom(QProcess& process) {
    if (process.error() == QProcess::FailedToStart) return {.failure = u"程序不完整，缺少【jotnetwork】"_s};
    WebReply reply;
    QDataStream answer(process.readAllStandardOutput());
    answer >> reply;
    return answer.status() == QDataStream::Ok ? reply : WebReply{.failure = u"网络程序意外结束"_s};
}

}  // namespace

WebSend NetworkSend() {
    return [](const WebRequest& request, std::function<void(WebReply)> done) -> std::function<void()> {
        auto* const process = new QProcess;
        const auto end = [process, done = std::move(done)] {
            process->disconnect();
            process->deleteLater();
            done(ReplyFrom(*process));
        };
        QObject::connect(process, &QProcess::finished, process, end);
        const auto failed = [end](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) end();
        };
        QObject::connect(process, &QProcess::errorOccurred, process, failed, Qt::QueuedConnection);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(BesideProgram(u"jotnetwork"_s), {QString::number(QCoreApplication::applicationPid())});
        QDataStream asked(process);
        asked << request;
        process->closeWriteChannel();
        return [running = QPointer<QProcess>(process)] {
            if (!running) return;
            running->disconnect();
            QObject::connect(running, &QProcess::finished, running, &QObject::deleteLater);
            running->kill();
        };
    };
}
