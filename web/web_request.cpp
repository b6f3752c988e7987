#include "web/web_request.h"

#include "store/dates.h"
#include "web/code_page.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// Of the deployment; the build sets it.
const QString kBase = QString::fromUtf16(KESTRO_WEB_BASE);
constexpr int kHttpPort = 80, kHttpsPort = 443;

QString FileOf(WebScript script) {
    switch (script) {
        case WebScript::regState:
            return u"getRegState.asp"_s;
        case WebScript::userInfo:
            return u"getRegInfo.asp"_s;
        case WebScript::listCount:
            return u"getListCount.asp"_s;
        case WebScript::listData:
            return u"getListData.asp"_s;
        case WebScript::listDel:
            return u"getListDel.asp"_s;
        case WebScript::upKindAcc:
            return u"upKindAcc.asp"_s;
    }
    return {};
}

bool IsThisMachine(const QString& host) {
    static const QRegularExpression loopback(uR"(\A127(\.[0-9]{1,3}){3}\z)"_s);
    return host == u"localhost" || host == u"::1" || loopback.match(host).hasMatch();
}

int PortOf(const QUrl& url) {
    return url.port(url.scheme() == u"https" ? kHttpsPort : kHttpPort);
}

}  // namespace

QString WebBase() {
    QString base = qEnvironmentVariable("JOT_WEB_BASE", kBase).trimmed();
    while (base.endsWith(u'/'))
        base.chop(1);
    const QUrl url(base, QUrl::StrictMode);
    return IsSpoken(url) && !url.hasQuery() && !url.hasFragment() ? base : QString();
}

QString WebHomePage() {
    const QString base = WebBase();
    return base.isEmpty() ? base : base + u"/jotAcc/index.asp"_s;
}

bool IsSpoken(const QUrl& url) {
    if (!url.isValid() || url.host().isEmpty() || !url.userInfo().isEmpty()) return false;
    return url.scheme() == u"https" || (url.scheme() == u"http" && IsThisMachine(url.host()));
}

bool IsSameOrigin(const QUrl& a, const QUrl& b) {
    return a.scheme() == b.scheme() && a.host() == b.host() && PortOf(a) == PortOf(b);
}

WebRequest RequestFor(WebScript script, const QString& user, const QString& pass) {
    const QString file = FileOf(script);
    const QByteArray address = QUrl(WebBase()).toEncoded() + "/jotAcc/interface/" + file.toLatin1() +
                               "?user=" + AddressEncoded(user) + "&pass=" + AddressEncoded(pass) +
                               "&cache=" + AddressEncoded(NowText());
    return {file, QUrl::fromEncoded(address, QUrl::StrictMode)};
}
