#pragma once
// The sample book tied to a web ledger, and entries as its site delivers them.

#include "tests/support/fixture.h"
#include "web/waiting_rows.h"
#include "web/web_posting.h"

#include <QMap>

class WebFixture : public Fixture {
 protected:
    WebFixture() {
        OpenSample();
        State().settings.sWebName = QStringLiteral("lin");
        State().settings.sWebPass = QStringLiteral("geheim");
        State().settings.sWebBook = QStringLiteral("Book");
        State().settings.bWebOk = 1;
    }
    static cConnection& Book() { return State().gDB; }
    static QStringList Dump(const QString& sql) { return Rows(Book(), sql); }
    QStringList Waiting() { return Dump(QStringLiteral("select * from tAccountWeb")); }
    QStringList History() { return Dump(QStringLiteral("select * from tAccountWebDel")); }
};

/// A line of the site: an income of 12.50 in cash, but for the fields given by their places.
inline QString SiteLine(const QString& title, const QMap<int, QString>& other = {}) {
    using namespace Qt::StringLiterals;
    QStringList fields{u"77"_s, title,           u"3"_s,     u"项目收入"_s, u"1"_s, u"12.50"_s,
                       u""_s,   u"2016-09-03"_s, u"08:15"_s, u""_s,         u"1"_s, u"0"_s,
                       u""_s,   u"0"_s,          u""_s,      u""_s,         u"1"_s, u""_s};
    for (auto field = other.begin(); field != other.end(); ++field)
        fields[field.key()] = field.value();
    return fields.join(u'∴');
}

/// The fields of a related kind (8, cash) and of an account (4) with its own amount.
inline QMap<int, QString> FullFields() {
    using namespace Qt::StringLiterals;
    return {{9, u"一⊙二"_s},     {10, u"1"_s}, {11, u"8"_s},  {12, u"现金"_s}, {13, u"4"_s},
            {14, u"东华公司"_s}, {15, u"7"_s}, {16, u"-1"_s}, {17, u"备⊙注"_s}};
}
