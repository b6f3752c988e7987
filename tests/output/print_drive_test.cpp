// Printing through the driver: where everything stands, and a PDF of it.

#include "tests/support/drive_fixture.h"

using namespace Qt::StringLiterals;

namespace {

QJsonObject Print(QJsonObject request) {
    request[u"cmd"] = u"print"_s;
    request[u"now"] = u"2016-09-03 14:16:20"_s;
    request[u"group"] = 3;
    return request;
}

QStringList ListTexts(const QJsonObject& answer) {
    QStringList texts;
    for (const auto& item : answer[u"items"].toArray())
        if (item[u"font"].toString() == u"ListFont") texts << item[u"text"].toString();
    return texts;
}

}  // namespace

TEST_F(DriveTest, PrintTellsEveryItemAndTheProgress) {
    const QString pdf = Path(u"out.pdf"_s);
    const auto run = Drive(
        {Print({{u"info"_s, u"tTjDate/1/标题/ and Id1=2"_s}, {u"pdf"_s, pdf}}), Print({{u"info"_s, u""_s}})});
    const auto& answer = run.answers[0];
    EXPECT_EQ(answer[u"ok"], true);
    EXPECT_EQ(answer[u"pages"], 1);
    EXPECT_EQ(answer[u"info"].toString(), u"tTjDate/1/标题/ and Id1=2"_s);
    EXPECT_EQ(answer[u"progress"].toArray(),
              (QJsonArray{QJsonArray{1, 1, 0}, QJsonArray{1, 1, 2}, QJsonArray{1, 1, 3}}));
    const auto items = answer[u"items"].toArray();
    EXPECT_EQ(items[0].toObject(), (QJsonObject{{u"page"_s, 1},
                                                {u"kind"_s, u"text"_s},
                                                {u"x"_s, 20},
                                                {u"y"_s, 25},
                                                {u"w"_s, 0},
                                                {u"align"_s, 0},
                                                {u"font"_s, u"TitleFont"_s},
                                                {u"text"_s, u"标题"_s}}));
    EXPECT_EQ(items[1].toObject(), (QJsonObject{{u"page"_s, 1},
                                                {u"kind"_s, u"line"_s},
                                                {u"x"_s, 20},
                                                {u"y"_s, 35},
                                                {u"x2"_s, 188},
                                                {u"y2"_s, 35},
                                                {u"pen"_s, u"BlackPen_00"_s}}));
    EXPECT_EQ(items[9].toObject(), (QJsonObject{{u"page"_s, 1},
                                                {u"kind"_s, u"text"_s},
                                                {u"x"_s, 28.5},
                                                {u"y"_s, 41},
                                                {u"w"_s, 39},
                                                {u"align"_s, 2},
                                                {u"font"_s, u"ListFont"_s},
                                                {u"text"_s, u"2016-09"_s}}));
    EXPECT_TRUE(BytesOf(pdf).startsWith("%PDF-"));
    EXPECT_EQ(run.answers[1][u"pages"], 1);
    EXPECT_EQ(run.answers[1][u"items"].toArray().size(), 4);  // header and footer alone
}

TEST_F(DriveTest, PrintTakesTheListsWithTheirFilters) {
    const auto run =
        Drive({Print({{u"list"_s, u"entries"_s}, {u"kind"_s, u"0302"_s}, {u"date1"_s, u"2016/9/1"_s}}),
               Print({{u"list"_s, u"entries"_s}, {u"text"_s, u"没有"_s}}),
               Print({{u"list"_s, u"records"_s}, {u"checked"_s, QJsonArray{3}}}),
               Print({{u"list"_s, u"records"_s}, {u"kind"_s, u"02"_s}, {u"checked"_s, QJsonArray{}}}),
               Print({{u"list"_s, u"entries"_s}, {u"stopAfter"_s, 2}}),
               Print({{u"list"_s, u"entries"_s}, {u"checked"_s, QJsonArray{u"x"_s}}}),
               Print({{u"list"_s, u"kinds"_s}}),
               Print({}),
               Print({{u"info"_s, u"tAccount/1/x/"_s}, {u"pdf"_s, Path(u"none/out.pdf"_s)}}),
               {{u"cmd"_s, u"texts"_s},
                {u"fn"_s, u"ReplaceValue"_s},
                {u"args"_s, QJsonArray{u"-1"_s, u"-1/1,－/"_s}}}});
    const auto& answers = run.answers;
    EXPECT_EQ(
        answers[0][u"info"].toString(),
        u"tAccount/1/【0302银行存款】账务列表/ and Type1>='0302' and Type1<'0303' and Date1>='2016-09-01'/1"_s);
    EXPECT_EQ(ListTexts(answers[0]).mid(10).join(u'|'),
              u"1|软件定制收入|030201|农行|5,000|2016-09-03|14:10|合同号：98"_s);
    EXPECT_EQ(ListTexts(answers[1]).size(), 10);
    EXPECT_EQ(answers[2][u"info"].toString(), u"tSubAccItem/1/【全部】账户记录列表/ and id1 in(3)/1"_s);
    EXPECT_EQ(ListTexts(answers[2]).mid(8).join(u'|'),
              u"1|2016-09-03|14:10|5,000|软件定制收入|01|东华公司"_s);
    EXPECT_EQ(
        answers[3][u"info"].toString(),
        u"tSubAccItem/1/【02大宇公司】账户记录列表/ and SubAccKey>='02' and SubAccKey<'03' and id1=-1/1"_s);
    EXPECT_EQ(ListTexts(answers[4]).filter(u"2016-"_s).size(), 2);
    for (const size_t i : {5, 6, 7, 8})
        EXPECT_FALSE(answers[i][u"error"].toString().isEmpty()) << i;
    EXPECT_EQ(answers[9][u"value"].toString(), u"－"_s);
}
