// Deliveries of the site: what is stored, asked, counted and kept.

#include "store/errors.h"
#include "store/notices.h"
#include "tests/support/web_fixture.h"
#include "web/conversation.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

class WaitingTest : public WebFixture {
 protected:
    // Stores a delivery; the boxes it shows must be these.
    bool Store(const QStringList& lines, const QStringList& told, int answer = 1) {
        for (const auto& box : told)
            boxes.Expect(box, box.startsWith(u"有【"_s) ? answer : 1);
        const auto stored = StoreWebLines(Book(), lines.join(u"\r\n"_s));
        ShowMsg(stored.told);
        return stored.any;
    }
    QString Received(int n) { return u"收到【%1】条新的记账!"_s.arg(n); }
};

}  // namespace

TEST_F(WaitingTest, ALineBecomesARowWithItsBreaks) {
    ASSERT_TRUE(
        Store({SiteLine(u"O'Neil <b>"_s, FullFields()), SiteLine(u"午餐"_s, {{4, u"-1"_s}, {5, u"abc"_s}})},
              {Received(2)}));
    EXPECT_EQ(
        Waiting(),
        (QStringList{
            u"1|O'Neil <b>|3|项目收入|12.5|2016-09-03|08:15|1|8|现金|1|一\r\n二|0|4|东华公司|7|-1|备\r\n注"_s,
            u"2|午餐|3|项目收入|abc|2016-09-03|08:15|-1|0||1||0|0|||1|"_s}));
    QStringList shown;
    Job job;
    ReadWebRows(Book(), WebList::waiting, job, [&](WebRow&& row) { shown << row.cells.All().join(u'|'); });
    EXPECT_EQ(shown, (QStringList{u"1|O'Neil <b>|2016-09-03 08:15|项目收入|12.50|现金|12.50|东华公司|-7"_s,
                                  u"2|午餐|2016-09-03 08:15|项目收入|abc||||"_s}));
}

TEST_F(WaitingTest, EveryTextIsKeptAsItCame) {
    const QStringList amounts{
        u""_s, u"abc"_s, u"1e999"_s, u"-5"_s, u"１２"_s, u"1234567890123"_s, u"1.23456789012345678"_s};
    QStringList lines;
    for (const auto& amount : amounts)
        lines << SiteLine(u"x"_s, {{5, amount}});
    lines << SiteLine(QString(5000, u'长') + QChar(0) + u"'\"<⊙"_s);
    ASSERT_TRUE(Store(lines, {Received(8)}));
    auto rows = Book().OpenRecordset(u"select * from tAccountWeb"_s);
    for (const auto& amount : amounts) {
        EXPECT_EQ(rows.Text(u"Value1"), amount);
        rows.MoveNext();
    }
    EXPECT_EQ(rows.Text(u"Title1"), QString(5000, u'长') + QChar(0) + u"'\"<⊙"_s);
    // The same lines again are repeats, whatever is in them; nothing is stored without consent.
    EXPECT_TRUE(Store(lines, {u"有【8】条"_s, Received(0)}, 0));
    EXPECT_EQ(Waiting().size(), 8);
}

TEST_F(WaitingTest, RepeatsAreCountedAgainstWaitingAndHistory) {
    const QString a = SiteLine(u"a"_s), b = SiteLine(u"b"_s), c = SiteLine(u"c"_s, FullFields());
    Store({a, b, c}, {Received(3)});
    boxes.Expect(u"您确定要【删除】"_s);
    boxes.Expect(u"删除成功!"_s);
    EXPECT_TRUE(DeleteWebRowsAsked(Book(), WebList::waiting, {2, 3}));
    // Of two equal lines one is a repeat; the amount written otherwise is the same amount.
    const QString sameA = SiteLine(u"a"_s, {{5, u"12.5"_s}, {2, u"03"_s}});
    Store({sameA, a, b, c, SiteLine(u"d"_s)}, {u"有【3】条"_s, Received(2)}, 0);
    EXPECT_EQ(Dump(u"select Title1 from tAccountWeb order by ID1"_s), (QStringList{u"a"_s, u"a"_s, u"d"_s}));
    Store({a, a, c}, {u"有【3】条"_s, Received(3)}, 1);
    EXPECT_EQ(Waiting().size(), 6);
}

TEST_F(WaitingTest, AnAmountAmongBlanksIsThatAmountAndComesOnce) {
    const QStringList lines{SiteLine(u"a"_s, {{5, u"　5"_s}}), SiteLine(u"b"_s, {{5, u"5\u00a0"_s}}),
                            SiteLine(u"c"_s, {{5, u" 5.50 "_s}}), SiteLine(u"d"_s, {{2, u"1e999"_s}})};
    Store(lines, {Received(4)});
    EXPECT_EQ(Dump(u"select Value1 from tAccountWeb order by ID1 limit 3"_s),
              (QStringList{u"5"_s, u"5"_s, u"5.5"_s}));
    Store(lines, {u"有【4】条"_s, Received(0)}, 0);
    EXPECT_EQ(Waiting().size(), 4);
}

// What one part of an answer brings is not forgotten by the site when another part was refused.
TEST_F(WaitingTest, ADeliveryThatIsRefusedInPartIsNotForgotten) {
    WebConversation talk(WebTalk::fetch);
    const QString book = CurrentBook().Name;
    boxes.Expect(u"网账需要的账本是：other"_s);
    boxes.Expect(Received(1));
    EXPECT_FALSE(talk.TakeFields({{u"txtRet"_s, u"2"_s},
                                  {u"txtDataRet"_s, book},
                                  {u"txtData"_s, SiteLine(u"a"_s)},
                                  {u"txtDataRet"_s, u"other"_s},
                                  {u"txtData"_s, SiteLine(u"b"_s)}}));
    EXPECT_EQ(Waiting().size(), 1);
}

TEST_F(WaitingTest, SkippedLinesAreCountedAndTheDeliveryIsKept) {
    const QString bad = SiteLine(u"siebzehn"_s).section(u'∴', 0, 16),
                  more = SiteLine(u"neunzehn"_s) + u"∴x"_s;
    const QStringList lines{bad,  SiteLine(u"gut"_s),           QString(),
                            more, SiteLine(u"ein ∴ zu viel"_s), QString()};
    EXPECT_TRUE(Store(lines, {u"收到【4】条新的记账!\n其中【3】行"_s}));
    EXPECT_EQ(Dump(u"select Title1 from tAccountWeb"_s), QStringList{u"gut"_s});
    const QString path = Path(u"data/web-20160903-141620.txt"_s);
    EXPECT_TRUE(boxes.Last().text.contains(path));
    QFile kept(path);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), "\xEF\xBB\xBF" + lines.join(u"\r\n"_s).toUtf8());
    EXPECT_EQ(kept.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    EXPECT_TRUE(Store({bad}, {u"收到【1】条"_s}));
    EXPECT_TRUE(QFileInfo::exists(Path(u"data/web-20160903-141620-2.txt"_s)));

    // Where it cannot be kept nothing is stored, and so the site is not told.
    State().gDataDir = Path(u"book.jotdb/no folder"_s);
    EXPECT_FALSE(Succeeds([&] { StoreWebLines(Book(), lines.join(u"\r\n"_s)); }));
    EXPECT_EQ(Waiting().size(), 1);
    EXPECT_FALSE(Store({QString()}, {Received(0)}));
}

TEST_F(WaitingTest, FieldsChangeSettingsAndAskForTheNextStep) {
    using Fields = std::vector<std::pair<QString, QString>>;
    int told = 0;
    const auto token = Notices().webTip.Subscribe([&](int, const QString&) { ++told; });
    const auto feed = [&](const Fields& fields) {
        WebConversation talk(WebTalk::fetch);
        const auto next = talk.TakeFields(fields);
        return next ? next->name : QString();
    };
    auto& settings = State().settings;
    struct Case {
        QString ret;
        int before, after;
    };
    for (const Case& c : {Case{u"2"_s, 0, 1},
                          {u"1"_s, 1, 1},
                          {u"1"_s, 0, 0},
                          {u"0"_s, 1, 0},
                          {u"-1"_s, 1, 0},
                          {u"3"_s, 1, 1}}) {
        settings.bWebOk = c.before;
        EXPECT_EQ(feed({{u"txtRet"_s, c.ret}}), QString());
        EXPECT_EQ(settings.bWebOk, c.after) << qPrintable(c.ret);
    }
    EXPECT_EQ(
        feed({{u"txtCount"_s, u"7"_s}, {u"txtCount"_s, u"abc"_s}, {u"other"_s, u"1"_s}, {QString(), u"2"_s}}),
        QString());
    EXPECT_EQ(State().web.count, u"7"_s);
    EXPECT_GT(told, 0);

    boxes.Expect(u"用户名或密码错 或 无效获取验证信息!"_s);
    feed({{u"txtInfo"_s, u"only one line"_s}});
    EXPECT_EQ(feed({{u"txtInfo"_s, u"别的\r\nx"_s}}), QString());
    EXPECT_EQ(settings.sWebBook, u"别的"_s);
    boxes.Expect(u"网账需要的账本是：别的，而您当前的账本是：book"_s);
    EXPECT_EQ(feed({{u"txtData"_s, SiteLine(u"a"_s)}}), QString());
    settings.bWebOk = 0;
    boxes.Expect(u"无效用户!"_s);
    EXPECT_EQ(feed({{u"txtData"_s, SiteLine(u"a"_s)}, {u"txtRet"_s, u"2"_s}}), QString());
    EXPECT_EQ(Waiting(), QStringList());
    // In this order the user and the book are known when the entries come, in any letter case.
    boxes.Expect(u"收到【1】条新的记账!"_s);
    EXPECT_EQ(feed({{u"txtRet"_s, u"2"_s}, {u"txtDataRet"_s, u"BOOK"_s}, {u"txtData"_s, SiteLine(u"a"_s)}}),
              u"getListDel.asp"_s);
    EXPECT_EQ(State().web.count, u"0"_s);
    for (const auto& [value, text] : {std::pair{u"0"_s, u"用户验证失败!"_s},
                                      {u"1"_s, u"还有记录不能上传 或 账本名为空!"_s},
                                      {u"2"_s, u"已成功【上传】事情分类到网站上您的账户【lin】!"_s}}) {
        boxes.Expect(text);
        feed({{u"txtUpload"_s, value}});
    }
    feed({{u"txtUpload"_s, u"9"_s}});
}
