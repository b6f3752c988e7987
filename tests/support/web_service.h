#pragma once
// A web ledger's service on a free port of this machine, with users, books and waiting entries. It answers in
// the event loop of whoever made it, and misbehaves where it is told to.

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTcpServer>

#include <vector>

class QTcpSocket;

enum class Mood {
    good,
    reset,        ///< closes without an answer
    half,         ///< closes in the middle of an answer
    trickle,      ///< sends a byte now and then
    late,         ///< answers after a while
    never,        ///< does not answer
    endless,      ///< does not end
    endlessHead,  ///< does not come to the page
    notFound,     ///< 404
    broken,       ///< 500
    leadsAway,    ///< redirects to another host
    leadsOn,      ///< redirects to the same answer at another address
    leadsRound,   ///< redirects to itself
    cut,          ///< a whole answer that ends within a text of its page
    refuses,      ///< the user is not valid
    silent        ///< a page without a field
};

class WebService {
 public:
    explicit WebService(quint16 port = 0);

    QString Base() const;

    QMap<QString, QString> users{
        {QStringLiteral("lin"), QStringLiteral("geheim")}};  ///< with their passwords
    QString book = QStringLiteral("book");
    QStringList entries;  ///< lines of 18 fields that wait
    bool forgets = true;  ///< entries that were taken; otherwise they are delivered again
    QByteArray charset = "utf-8";
    bool crlf = true;
    QByteArray method = "post";  ///< of the upload form
    QByteArray enctype = "application/x-www-form-urlencoded";
    QString sid = QStringLiteral("青 1");  ///< value of its hidden field
    QString action = QStringLiteral("saveKindAcc.asp");
    QString uploadResult = QStringLiteral("2");
    QString count;              ///< told instead of the number of entries, when not empty
    QMap<QString, Mood> moods;  ///< by the name of a script
    int leads = 302;            ///< the status of a redirect

    QStringList seen;             ///< what was asked, in order: "GET getListData.asp"
    QMap<QString, QString> last;  ///< fields of the last request
    std::vector<QMap<QString, QString>> uploads;
    QByteArray cookies;   ///< that came with the last request; each page sets one named after its script
    int open = 0;         ///< connections
    QByteArray boundary;  ///< between the parts of the last upload

 private:
    struct Asked {
        QByteArray method, path, query;
        QString script;
        QMap<QString, QString> fields;
    };
    void Take(QTcpSocket* socket);
    void Answer(QTcpSocket* socket, const Asked& asked);
    QString PageFor(const Asked& asked);
    QString UploadForm() const;
    QByteArray Encoded(const QString& page) const;
    QMap<QString, QString> FieldsOf(const QByteArray& encoded, bool inCharset) const;
    QMap<QString, QString> PartsOf(const QByteArray& body) const;
    QMap<QString, QString> FormFields(const QByteArray& type, const QByteArray& body);
    static void Trickle(QTcpSocket* socket, const QByteArray& bytes, int everyMs, bool again);

    QTcpServer server_;
};
