#pragma once
// The sample book with its charts, changed as a user changes them.

#include "chart/maintenance.h"
#include "tests/support/fixture.h"

constexpr Chart kKinds = Chart::kinds;
constexpr Chart kAccounts = Chart::accounts;

class MaintenanceTest : public Fixture {
 protected:
    MaintenanceTest() { OpenSample(); }

    QStringList Dump(const QString& sql) { return Rows(Book(), sql); }
    /// The chart row: code, name, increase, decrease, balance, whether an opening row is linked.
    QString Row(Chart chart, const QString& code) {
        using namespace Qt::StringLiterals;
        return Dump(u"select Sort1,Name1,nAdd,nReduce,Money,IID>0 from "_s + TableOf(chart).table +
                    u" where Sort1='"_s + code + u'\'')
            .join(u';');
    }
    /// Changes the row of a code to what is typed.
    bool Change(Chart chart, const QString& code, const TypedRow& typed) {
        using namespace Qt::StringLiterals;
        const qint64 id =
            Dump(u"select Id1 from "_s + TableOf(chart).table + u" where Sort1='"_s + code + u'\'')
                .value(0)
                .toLongLong();
        const auto stored = ReadChartRecord(Book(), id, chart);
        return stored && ChangeRow(Book(), chart, *stored, typed);
    }
    /// Runs check, which has to show the message (none: empty) and nothing else.
    template <class Check>
    void Tells(const QString& message, const QString& what, Check check) {
        if (!message.isEmpty()) boxes.Expect(message);
        const auto seen = boxes.Seen().size();
        check();
        ASSERT_EQ(boxes.Seen().size() - seen, message.isEmpty() ? 0 : 1) << qPrintable(what);
        if (!message.isEmpty()) EXPECT_EQ(boxes.Last().text, message) << qPrintable(what);
    }
};
