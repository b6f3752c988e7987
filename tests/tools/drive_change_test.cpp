// The driver: charts, account records, checked deletions, templates.

#include "tests/support/drive_fixture.h"
#include "tests/support/fault_vfs.h"

using namespace Qt::StringLiterals;

namespace {

QJsonObject Chart(const QString& table, const QString& action, const QString& code,
                  const QJsonObject& fields = {}) {
    QJsonObject request = fields;
    request[u"cmd"] = u"chart"_s;
    request[u"table"] = table;
    request[u"action"] = action;
    if (!code.isEmpty()) request[u"code"] = code;
    return request;
}

QString Cells(const QJsonObject& answer, const QString& key) {
    for (const auto& line : answer[u"lines"].toArray())
        if (line[u"key"].toString() == key) return line[u"cells"].toVariant().toStringList().join(u'|');
    return {};
}

}  // namespace

TEST_F(DriveTest, AChartIsKeptThroughItsRequests) {
    const auto run = Drive(
        {Chart(u"tKind"_s, u"new"_s, {},
               {{u"text"_s, u"0304 押\n金"_s}, {u"money"_s, u"￥1,234.5"_s}, {u"hide"_s, true}}),
         Chart(u"tKind"_s, u"new"_s, {}, {{u"text"_s, u"0304 押金"_s}, {u"money"_s, u"1234.5"_s}}),
         Chart(u"tKind"_s, u"list"_s, {}),
         Chart(u"tKind"_s, u"edit"_s, u"0304"_s, {{u"note"_s, u"房东"_s}, {u"hide"_s, true}}),
         Chart(u"tKind"_s, u"edit"_s, u"0304"_s, {{u"money"_s, QJsonValue::Null}, {u"text"_s, u"0304 押"_s}}),
         Chart(u"tKind"_s, u"list"_s, {}), Chart(u"tKind"_s, u"delete"_s, u"0304"_s),
         Chart(u"tKind"_s, u"edit"_s, u"0304"_s, {{u"money"_s, u""_s}}),
         Chart(u"tKind"_s, u"delete"_s, u"0304"_s),
         Chart(u"tKind"_s, u"edit"_s, u"00"_s, {{u"hide"_s, true}}),
         Chart(u"tSubAcc"_s, u"edit"_s, u"0301"_s, {{u"text"_s, u"0309 软件开发"_s}})});
    EXPECT_EQ(run.answers[0][u"message"].toString(), u"格式错误!"_s);
    EXPECT_EQ(run.answers[1][u"id"], 17);
    EXPECT_EQ(Cells(run.answers[2], u"0304"_s), u"14|      0304押金||1234.5|1234.50|0|1234.50|"_s);
    EXPECT_EQ(Cells(run.answers[5], u"0304"_s), u"14|      0304押|隐藏|1234.5|1234.50|0|1234.50|房东"_s);
    EXPECT_EQ(run.answers[6][u"message"].toString(), u"该分类已在记账中被【引用（使用）过】! 因此不能删除"_s);
    EXPECT_EQ(run.answers[8][u"ok"], true);
    EXPECT_EQ(run.answers[9][u"ok"], true);
    EXPECT_TRUE(run.answers[10][u"error"].toString().contains(u"SubAccKey"_s));
    EXPECT_EQ(Stored(u"select count(*),max(nHide) from tKind"_s), QStringList{u"15|0"_s});
    EXPECT_EQ(Stored(u"select count(*) from tAccount"_s), QStringList{u"5"_s});
}

TEST_F(DriveTest, AFieldOfAnotherTypeErasesNothing) {
    Drive({Chart(u"tKind"_s, u"edit"_s, u"0301"_s, {{u"money"_s, u"100"_s}, {u"note"_s, u"零钱"_s}})});
    const auto before = DumpBook(path_);
    const QJsonObject fields[] = {
        {{u"money"_s, 100}},      {{u"note"_s, 5}},     {{u"hide"_s, 1}},
        {{u"hide"_s, u"yes"_s}},  {{u"text"_s, true}},  {{u"money"_s, u"abc"_s}},
        {{u"money"_s, u"12x"_s}}, {{u"code"_s, 301.0}}, {{u"money"_s, u"21474836.48"_s}},
    };
    std::vector<QJsonObject> requests;
    for (const auto& field : fields) {
        QJsonObject request = Chart(u"tKind"_s, u"edit"_s, u"0301"_s);
        request.insert(field.begin().key(), field.begin().value());
        requests.push_back(request);
    }
    requests.push_back({{u"cmd"_s, u"edit"_s},
                        {u"id"_s, 5},
                        {u"title"_s, u"x"_s},
                        {u"money"_s, u"1"_s},
                        {u"kind"_s, u"0102"_s},
                        {u"toAccount"_s, 1}});
    for (const auto& answer : Drive(requests).answers)
        EXPECT_EQ(answer[u"ok"], false);
    EXPECT_EQ(DumpBook(path_), before);
}

TEST_F(DriveTest, ALoadedEntryCanBeSentBackAsItCame) {
    auto edit = Drive({{{u"cmd"_s, u"load"_s}, {u"id"_s, 7}}}).answers[0];
    edit[u"cmd"] = u"edit"_s;
    const QString rows =
        u"select Title1,Type1,Value1,coalesce(Note1,''),Date1,Time1,nSign,IIID,sPic from tAccount union all"
        u" select SubAccKey,Value1,nSign,AccId,1,1,1,1,1 from tSubAccItem union all"
        u" select nAdd,nReduce,Money,1,1,1,1,1,1 from tKind"_s;
    const auto before = Stored(rows);
    edit.remove(u"pic"_s);  // the count of the pictures stays
    EXPECT_EQ(Drive({edit}).answers[0][u"id"], 7);
    EXPECT_EQ(Stored(rows), before);
    // Opened through its second row, which first stays and then goes.
    auto two = Drive({{{u"cmd"_s, u"load"_s}, {u"id"_s, 6}}}).answers[0];
    EXPECT_EQ(two[u"id"], 5);
    two[u"cmd"] = u"edit"_s;
    two[u"id"] = 6;
    auto one = two;
    one[u"kind2On"] = false;
    const auto run = Drive({two, one, one});
    EXPECT_EQ(run.answers[0][u"id"], 6);
    EXPECT_EQ(run.answers[1][u"id"], -1);
    EXPECT_EQ(run.answers[2][u"message"].toString(), u"意外错误：未找到记录!"_s);
}

TEST_F(DriveTest, NoDoubtfulRequestDeletes) {
    const auto before = DumpBook(path_);
    const QJsonObject checked{{u"cmd"_s, u"deleteChecked"_s}, {u"ids"_s, QJsonArray{3}}};
    auto misspelt = checked;
    misspelt[u"list"] = u"record"_s;
    for (const auto& answer :
         Drive({checked, misspelt, {{u"cmd"_s, u"delete"_s}, {u"id"_s, 5}, {u"answer"_s, u"取 消"_s}}})
             .answers)
        EXPECT_EQ(answer[u"ok"], false);
    cConnection other;
    other.Open(path_);
    other.Begin();
    auto right = checked;
    right[u"list"] = u"entries"_s;
    const auto locked = Drive({right}).answers[0];
    other.Rollback();
    other.Close();
    EXPECT_EQ(locked[u"ok"], false);
    EXPECT_EQ(locked[u"count"], 0);
    EXPECT_FALSE(locked[u"error"].toString().isEmpty());
    EXPECT_EQ(DumpBook(path_), before);
}

TEST_F(DriveTest, RecordsAreListedAndDeletedWithTheirEntries) {
    // Record 3 belongs to entry 5, and entry 3 to no record.
    const auto run =
        Drive({{{u"cmd"_s, u"records"_s}, {u"kind"_s, u"02"_s}},
               {{u"cmd"_s, u"records"_s}, {u"page"_s, -1}},
               {{u"cmd"_s, u"deleteChecked"_s}, {u"list"_s, u"records"_s}, {u"ids"_s, QJsonArray{3, 99}}},
               {{u"cmd"_s, u"records"_s}}});
    const auto& account = run.answers[0];
    EXPECT_EQ(account[u"heading"].toString(), u"累计余额"_s);
    EXPECT_EQ(account[u"count"].toString() + account[u"value"].toString(), u"笔数:1差额:8,500"_s);
    EXPECT_EQ(account[u"lines"][0][u"sub"].toString(), u"7"_s);
    EXPECT_EQ(Cells(account, u"4"_s), u"1|2016-09-01 14:13|02大宇公司|8500||8500|赊销选果机控制系统"_s);
    EXPECT_EQ(run.answers[1][u"lines"].toArray().size(), 2);
    EXPECT_EQ(run.answers[2][u"count"], 2);  // both kind rows of the one entry
    EXPECT_EQ(run.answers[3][u"lines"].toArray().size(), 1);
    EXPECT_EQ(Stored(u"select Id1 from tAccount"_s), (QStringList{u"3"_s, u"4"_s, u"7"_s}));
}

TEST_F(DriveTest, TemplatesAreKeptThroughTheirRequests) {
    const auto template5 = QJsonObject{{u"cmd"_s, u"templateAdd"_s}, {u"id"_s, 5}};
    const auto run = Drive({template5,
                            template5,
                            {{u"cmd"_s, u"templateAdd"_s}, {u"id"_s, 99}},
                            {{u"cmd"_s, u"templates"_s}},
                            {{u"cmd"_s, u"templateDelete"_s}, {u"ids"_s, QJsonArray{2}}},
                            {{u"cmd"_s, u"templates"_s}}});
    EXPECT_EQ(run.answers[0][u"boxes"][0][u"text"].toString(), u"增加标题成功!"_s);
    EXPECT_EQ(run.answers[1][u"message"].toString(), u"已经有相同的事情标题!"_s);
    EXPECT_EQ(run.answers[2][u"message"].toString(), u"意外错误!"_s);
    EXPECT_EQ(Cells(run.answers[3], u"2"_s), u"1|软件定制收入"_s);
    EXPECT_EQ(run.answers[5][u"lines"].toArray().size(), 0);
}
