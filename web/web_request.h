#pragma once
// Requests to the web ledger's service: where it is, what is asked, and where an answer may lead.

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QUrl>

enum class WebScript { regState, userInfo, listCount, listData, listDel, upKindAcc };

/// What the service has asked to be told again in the same conversation, by name.
using Cookies = QMap<QByteArray, QByteArray>;

struct WebRequest {
    QString name;  ///< file name of what is asked, without values
    QUrl url;
    bool post = false;
    QByteArray body = {};         ///< of a form, encoded
    QByteArray contentType = {};  ///< how it is encoded
    Cookies cookies = {};
};

/// The service's address without a path of ours: JOT_WEB_BASE of the environment, otherwise the one of the
/// build. Empty when there is none, or one that is not spoken.
QString WebBase();
/// The page where a user keeps the web ledger; empty without an address.
QString WebHomePage();

/// https, or http with this machine itself; without a name or a password in it.
bool IsSpoken(const QUrl& url);
/// Scheme, host and port are the same.
bool IsSameOrigin(const QUrl& a, const QUrl& b);

WebRequest RequestFor(WebScript script, const QString& user, const QString& pass);
