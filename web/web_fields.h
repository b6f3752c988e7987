#pragma once
// The fields of an answer of the web ledger's service, and what each of them brings about.

#include "web/page_reader.h"

#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

/// The elements that are messages, by name and value, in the order of the page.
std::vector<std::pair<QString, QString>> MessagesOf(const WebPage& page);

class WebFields {
 public:
    /// user and pass: the ones that were typed for a login check; empty for the stored ones.
    WebFields(QString user, QString pass) : user_(std::move(user)), pass_(std::move(pass)) {}

    /// HandleField.
    void Handle(const QString& name, const QString& value);

    // What the fields have said so far.
    bool refused = false;      ///< the user is not valid
    bool hasInfo = false;      ///< the user's information came, and the user has been taken over
    bool dataRefused = false;  ///< entries came that were not stored
    bool delivered = false;    ///< entries were stored, the site may be told
    bool asked = false;        ///< a box stood before they were stored
    bool formMet = false;      ///< the upload form
    bool answered = false;     ///< a box tells the user what became of the request
    QStringList data;          ///< the deliveries that were stored
    QStringList received;      ///< what the user is to be told of them, once the site knows

 private:
    void HandleRet(const QString& value);
    void HandleInfo(const QString& value);
    void HandleData(const QString& value);
    void HandleCount(const QString& value);
    void HandleUpload(const QString& value);
    void Tell(const QString& text, int icon);

    /// Others than the stored ones: what the service says of them is no word about the stored user.
    bool IsOther() const;

    QString user_, pass_;
    bool accepted_ = false;  ///< the typed user is valid
};
