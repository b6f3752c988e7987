#include "web/network.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QMetaObject>

using namespace Qt::StringLiterals;

namespace {

WebSend Load() {
    WebSend send;
    QLibrary library(QCoreApplication::applicationDirPath() + u"/plugins/libjotnetwork.so"_s);
    if (const auto entry = library.resolve("JotNetworkSend"))
        reinterpret_cast<void (*)(WebSend*)>(entry)(&send);
    return send;
}

}  // namespace

WebSend NetworkSend() {
    return [send = WebSend()](const WebRequest& request,
                              std::function<void(WebReply)> done) mutable -> std::function<void()> {
        if (!send) send = Load();
        if (send) return send(request, std::move(done));
        QMetaObject::invokeMethod(
            qApp, [done = std::move(done)] { done({.failure = kCannotReach}); }, Qt::QueuedConnection);
        return {};
    };
}
