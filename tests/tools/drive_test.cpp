// The driver: saving and listing entries, bad requests, helpers, books that cannot be opened.

#include "tests/support/drive_fixture.h"
#include "tests/support/fault_vfs.h"

using namespace Qt::StringLiterals;

namespace {

QJsonObject Save(const QString& title, const QString& money) {
    return {{u"cmd"_s, u"save"_s}, {u"title"_s, title}, {u"money"_s, money}, {u"kind"_s, u"0102"_s}};
}

QJsonObject Texts(const QString& fn, const QJsonArray& args) {
    return {{u"cmd"_s, u"texts"_s}, {u"fn"_s, fn}, {u"args"_s, args}};
}

}  // namespace

TEST_F(DriveTest, SavesAndListsAnEntryOfEverySwitch) {
    QJsonObject full = Save(u"订货"_s, u"1,234.5"_s);
    full[u"now"] = u"2016-10-01 07:08:09"_s;
    full[u"kind2"] = u"030202"_s;
    full[u"kind2Add"] = false;
    full[u"account"] = u"0301"_s;
    full[u"accountValue"] = u".5"_s;
    full[u"account2"] = u"02"_s;
    full[u"account2Value"] = u"3"_s;
    full[u"note"] = u"第一行\n第二行"_s;
    full[u"mark"] = true;
    const auto run = Drive({full, {{u"cmd"_s, u"list"_s}, {u"kind"_s, u"01"_s}, {u"group"_s, 4}}});
    EXPECT_EQ(run.answers[0][u"ok"], true);
    EXPECT_EQ(run.answers[0][u"main"], 8);
    EXPECT_EQ(run.answers[0][u"second"], 9);
    const QString confirm =
        u"【事情】：订货\n【日期】：2016-10-01  07:08\n【金额】：1234.50 元\n\n"
        u"【分类１】：▲ 0102项目收入\n【分类２】：▼ 030202工行\n\n"
        u"【账户１】：▲ 0301软件开发\n【金额１】：0.5  元 \n"
        u"【账户２】：▲ 02大宇公司\n【金额２】：3  元 "_s;
    EXPECT_EQ(run.answers[0][u"confirm"].toString(), confirm);
    const auto box = run.answers[0][u"boxes"][0].toObject();
    EXPECT_EQ(box[u"text"].toString(), confirm);
    EXPECT_EQ(box[u"title"].toString(), u"记账信息是否正确？"_s);
    EXPECT_EQ(box[u"buttons"].toString(), u"不正确,正确"_s);

    const auto& list = run.answers[1];
    EXPECT_EQ(list[u"heading"].toString(), u"累计余额"_s);
    EXPECT_EQ(list[u"count"].toString(), u"笔数:2"_s);
    EXPECT_EQ(list[u"summoney"].toString(), u"差额 6234.50"_s);
    const auto line = list[u"lines"][1].toObject();
    EXPECT_EQ(line[u"key"].toString(), u"8"_s);
    const QJsonArray cells{u"2"_s,    u"2016-10-01  07:08"_s, u"0102项目收入"_s, u"1234.50"_s,
                           QString(), u"6234.50"_s,           u"订货"_s,         u"101"_s};
    EXPECT_EQ(line[u"cells"].toArray(), cells);
    EXPECT_EQ(Stored(u"select Note1,IIID,IIID1 from tAccount where Id1=8"_s),
              QStringList{u"第一行\n第二行|5|6"_s});
}

TEST_F(DriveTest, BadRequestsAnswerAnErrorAndChangeNothing) {
    const auto before = DumpBook(path_);
    const QByteArray lines[] = {
        "{",
        "[]",
        "nonsense",
        "{\"cmd\":\"save\",\"title\":\"\xff\xfe\",\"money\":\"1\",\"kind\":\"0102\"}",
        "{\"cmd\":\"texts\",\"fn\":\"NowText\",\"args\":[]}\xe4\xb8",
        "{\"cmd\":\"fly\"}",
        "{}",
        "{\"cmd\":\"texts\"}",
        "{\"cmd\":\"texts\",\"fn\":\"Unheard\",\"args\":[]}",
        "{\"cmd\":\"save\",\"money\":\"1\",\"kind\":\"0102\"}",
        "{\"cmd\":\"save\",\"title\":\"x\",\"kind\":\"0102\"}",
        "{\"cmd\":\"save\",\"title\":\"x\",\"money\":\"1\"}",
        "{\"cmd\":\"texts\",\"fn\":\"NameByCode\",\"args\":[\"10.0\",\"tSet\"]}",
        "{\"cmd\":\"texts\",\"fn\":\"IsLeafCode\",\"args\":[\"01\",\"tKind where 0 or\"]}",
        "{\"cmd\":\"texts\",\"fn\":\"CodePathText\",\"args\":[\"tSet\",\"01\",false]}",
        "{\"cmd\":\"texts\",\"fn\":\"BranchSums\",\"args\":[\"tAccount\",\"01\"]}",
        "{\"cmd\":\"save\",\"title\":\"x\",\"money\":\"1\",\"kind\":\"0102\",\"kind2On\":1}",
        "{\"cmd\":\"save\",\"title\":7,\"money\":\"1\",\"kind\":\"0102\"}",
    };
    QByteArray input;
    for (const auto& line : lines)
        input += line + '\n';
    const auto run = Drive(input + "{\"cmd\":\"texts\",\"fn\":\"ParentPath\",\"args\":[\"a/b\"]}");
    ASSERT_EQ(run.answers.size(), std::size(lines) + 1);
    for (size_t i = 0; i < std::size(lines); ++i) {
        EXPECT_EQ(run.answers[i][u"ok"], false) << lines[i].constData();
        EXPECT_FALSE(run.answers[i][u"error"].toString().isEmpty()) << lines[i].constData();
        EXPECT_TRUE(run.answers[i].contains(u"boxes"_s)) << lines[i].constData();
    }
    EXPECT_EQ(run.answers.back()[u"value"].toString(), u"a"_s);
    EXPECT_EQ(run.code, 0);
    EXPECT_EQ(DumpBook(path_), before);
}

TEST_F(DriveTest, RefusalsTellTheMessageAndTheFocusAndChangeNothing) {
    struct Case {
        const char16_t *key, *value, *message, *focus;
    };
    const Case cases[] = {
        {u"title", u" \n ", u"事情不能为空!", u"txtThing"},
        {u"money", u"12x", u"金额不正确!", u"txtMoney"},
        {u"money", u"1234567890123456", u"金额不正确!", u"txtMoney"},
        {u"money", u"1.2.3", u"金额不正确!", u"txtMoney"},
        {u"date", u"2016-02-30", u"入账日期不正确!", u"txtDate"},
        {u"date", u"", u"入账日期不正确!", u"txtDate"},
        {u"hour", u"24", u"小时不正确!", u"txtHour"},
        {u"minute", u"60", u"分钟不正确!", u"txtMinute"},
        {u"kind", u"", u"分类一不能为空!", u"comKind"},
        {u"kind", u"77", u"分类一不能为空!", u"comKind"},
        {u"kind", u"01", u"错误：该分类不是最后一级，请重新选择!", u""},
        {u"kind2", u"0102", u"【分类一】与【分类二】不能相同!", u""},
        {u"account", u"03", u"错误：该账户不是最后一级，请重新选择!", u""},
        {u"account", u"01", u"【账户一金额】不能为空!", u"txtAccValue"},
        {u"answer", u"不正确", u"【事情】：x", u""},
        // A code that the lists do not offer, with its switch off.
        {u"kind2", u"77", u"【分类二】不能为空!", u"comKind1"},
        {u"kind2", u"0303", u"【分类二】不能为空!", u"comKind1"},
        {u"account", u"77", u"【账户一名称】不能为空!", u"comAccName"},
        {u"account2", u"77", u"【账户一名称】不能为空!", u"comAccName"},
    };
    {
        cConnection book;
        book.Open(path_);
        book.Execute(u"update tKind set nHide=1 where Sort1='0303'"_s);
    }
    const auto before = DumpBook(path_);
    std::vector<QJsonObject> requests;
    for (const auto& c : cases) {
        auto request = Save(u"x"_s, u"1"_s);
        if (requests.size() + 4 >= std::size(cases))
            for (const auto& off : {u"kind2On"_s, u"toAccount"_s, u"account2On"_s})
                request[off] = false;
        request[QString::fromUtf16(c.key)] = QString::fromUtf16(c.value);
        requests.push_back(request);
    }
    const auto run = Drive(requests);
    for (size_t i = 0; i < std::size(cases); ++i) {
        const auto& answer = run.answers[i];
        SCOPED_TRACE(qPrintable(QString::fromUtf16(cases[i].value)));
        EXPECT_EQ(answer[u"ok"], false);
        EXPECT_TRUE(answer[u"message"].toString().startsWith(QString::fromUtf16(cases[i].message)))
            << qPrintable(answer[u"message"].toString());
        EXPECT_EQ(answer[u"focus"].toString(), QString::fromUtf16(cases[i].focus));
    }
    EXPECT_EQ(DumpBook(path_), before);
}

TEST_F(DriveTest, AnyTextIsStoredAndFoundAsItIs) {
    const QStringList titles{u"O'Neil''s \"店\""_s,
                             u"100%_x"_s,
                             u"';drop table tAccount;--"_s,
                             u"emoji 😀👨‍👩‍👧"_s,
                             u"a\tb\\c"_s,
                             QString(5000, u'长')};
    std::vector<QJsonObject> requests;
    for (const auto& title : titles) {
        requests.push_back(Save(title, u"1"_s));
        requests.push_back({{u"cmd"_s, u"list"_s}, {u"text"_s, title}});
    }
    requests.push_back(Save(u" 两\r\n行 "_s, u"1"_s));
    requests.push_back({{u"cmd"_s, u"list"_s}, {u"text"_s, u"a\u0000b"_s}});
    const auto run = Drive(requests);
    for (qsizetype i = 0; i < titles.size(); ++i) {
        const auto at = static_cast<size_t>(i) * 2;
        EXPECT_EQ(run.answers[at][u"ok"], true) << qPrintable(titles[i]);
        const auto lines = run.answers[at + 1][u"lines"].toArray();
        ASSERT_EQ(lines.size(), 1) << qPrintable(titles[i]);
        EXPECT_EQ(lines[0][u"cells"][6].toString(), titles[i]);
    }
    EXPECT_EQ(run.answers.back()[u"ok"], true);
    EXPECT_EQ(Stored(u"select Title1 from tAccount order by Id1 desc limit 1"_s), QStringList{u"两 行"_s});
    EXPECT_EQ(Stored(u"select count(*) from tAccount"_s),
              QStringList{QString::number(5 + titles.size() + 1)});
}

TEST_F(DriveTest, AmountsAreTakenAsAnAmountBoxTakesThem) {
    struct Case {
        const char16_t *typed, *stored;
    };
    const Case cases[] = {{u"1e3", u"1000"},   {u"-5", u"-5"},
                          {u".5", u"0.5"},     {u"１２", u"12"},
                          {u"￥ 7", u"7"},     {u"1，234", u"1234"},
                          {u"0.125", u"0.13"}, {u"-0", u"0"},
                          {u"+3.10", u"3.1"},  {u"999999999999", u"999999999999"}};
    std::vector<QJsonObject> requests;
    QStringList stored;
    for (const auto& c : cases) {
        requests.push_back(Save(u"x"_s, QString::fromUtf16(c.typed)));
        stored << QString::fromUtf16(c.stored);
    }
    Drive(requests);
    EXPECT_EQ(Stored(u"select Value1 from tAccount where Id1>7 order by Id1"_s), stored);
}

TEST_F(DriveTest, HelpersAnswerTheirTexts) {
    auto windows = Texts(u"MakeFolders"_s, {u"C:\\a\\\\b"_s});
    windows[u"style"] = u"windows"_s;
    auto grouped = Texts(u"GroupNumber"_s, {1234567, u","_s, QString()});
    grouped[u"group"] = 4;
    auto period = Texts(u"QuickPeriod"_s, {u"premonth"_s});
    period[u"now"] = u"2016-01-15 00:00:00"_s;
    const auto run =
        Drive({Texts(u"MoneyText"_s, {12.5}), grouped, Texts(u"GroupNumber"_s, {1234567, u","_s, QString()}),
               period, windows, Texts(u"ParseCodeName"_s, {u"010 x"_s}),
               Texts(u"BranchSums"_s, {u"tKind"_s, u"03"_s})});
    const QJsonValue values[] = {u"12.50"_s,
                                 u"123,4567"_s,
                                 u"1,234,567"_s,
                                 QJsonArray{u"2015\n12-01"_s, u"2015\n12-31"_s},
                                 u"路径中包含空字符串"_s,
                                 QJsonArray{QString(), QString()},
                                 QJsonArray{u"13500"_s, u"2100"_s, u"11400"_s}};
    for (size_t i = 0; i < std::size(values); ++i)
        EXPECT_EQ(run.answers[i][u"value"], values[i]) << i;
    EXPECT_EQ(run.answers[5][u"boxes"][0][u"text"].toString(), u"格式错误! 编号长度只能是2的倍数!"_s);
}

TEST_F(DriveTest, AListStopsWhereItIsTold) {
    const auto run = Drive({{{u"cmd"_s, u"list"_s}, {u"stopAfter"_s, 2}},
                            {{u"cmd"_s, u"list"_s}},
                            {{u"cmd"_s, u"list"_s}, {u"page"_s, 2000000}},
                            {{u"cmd"_s, u"list"_s}, {u"mark"_s, true}}});
    EXPECT_EQ(run.answers[0][u"lines"].toArray().size(), 2);
    EXPECT_EQ(run.answers[0][u"boxes"][0][u"text"].toString(), u"已停止剩余部分导出!"_s);
    EXPECT_EQ(run.answers[1][u"lines"].toArray().size(), 3);
    EXPECT_EQ(run.answers[1][u"tag"].toString(), u"笔数：3 笔"_s);
    EXPECT_EQ(run.answers[2][u"lines"].toArray().size(), 0);
    EXPECT_EQ(run.answers[2][u"ok"], true);
    EXPECT_EQ(run.answers[3][u"lines"].toArray().size(), 0);
}

TEST_F(DriveTest, ABookThatCannotBeOpenedEndsWithOneAnswer) {
    {
        cConnection book;
        book.Open(path_);
        book.Execute(u"update tSet set Note1='it''s' where Key1='pass'"_s);
    }
    const auto wrong = Drive("{\"cmd\":\"list\"}\n"_ba, {u"--pass"_s, u"its"_s});
    EXPECT_EQ(wrong.code, 1);
    ASSERT_EQ(wrong.answers.size(), 1U);
    EXPECT_EQ(wrong.answers[0][u"message"].toString(), u"口令不正确!"_s);
    EXPECT_EQ(Drive("{\"cmd\":\"list\"}\n"_ba, {u"--pass"_s, u"it's"_s}).answers[0][u"ok"], true);
    PutFile(u"drive.jotdb"_s, "no book at all");
    const auto foreign = Drive("{\"cmd\":\"list\"}\n"_ba);
    EXPECT_EQ(foreign.code, 1);
    ASSERT_EQ(foreign.answers.size(), 1U);
    EXPECT_TRUE(foreign.answers[0][u"message"].toString().startsWith(
        u"程序要求账本版本是：【10.0】\n当前账本版本是：【】"_s));
    QFile::remove(path_);
    const auto missing = Drive("{\"cmd\":\"list\"}\n"_ba);
    EXPECT_EQ(missing.code, 1);
    EXPECT_EQ(missing.answers.at(0)[u"message"].toString(), u"文件【"_s + path_ + u"】不存在！"_s);
    EXPECT_FALSE(QFile::exists(path_));
}
