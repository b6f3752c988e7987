// Whole conversations against a service on this machine: what it sees, what the user is told, what is kept.

#include "store/notices.h"
#include "tests/support/web_fixture.h"
#include "tests/support/web_service.h"
#include "web/network.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString kDrives = u"GET getListData.asp"_s, kDeletes = u"GET getListDel.asp"_s;

class ConversationTest : public WebFixture {
 protected:
    ConversationTest() {
        qputenv("JOT_WEB_BASE", service_.Base().toLatin1());
        Web().send = NetworkSend();
        Web().limitMs = 30000;
        busy_ = Notices().webBusy.Subscribe([this](bool on) { bar_ << (on ? u"on"_s : u"off"_s); });
        tips_ = Notices().webTip.Subscribe([this](int kind, const QString& text) { told_[kind] = text; });
    }
    ~ConversationTest() override {
        Web().Drop();
        Web().send = {};
        Web().isInFront = {};
        qunsetenv("JOT_WEB_BASE");
    }
    void OpenSettingsFile() {
        const QString path = Path(u"Set.ini"_s);
        ASSERT_TRUE(QFile::copy(QString::fromUtf8(KESTRO_SET_INI), path));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        State().gSetDB.Open(path);
    }
    static void WaitFor(const std::function<bool()>& done) {
        QElapsedTimer clock;
        for (clock.start(); !done() && clock.elapsed() < 10000;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    }
    static void Finish() {
        WaitFor([] { return !Web().IsRunning(); });
        ASSERT_FALSE(Web().IsRunning());
    }
    void Talk(WebTalk talk, const QStringList& told, const QString& user = {}, const QString& pass = {}) {
        for (const auto& box : told)
            boxes.Expect(box);
        service_.seen.clear();
        bar_.clear();
        Web().Begin(talk, user, pass);
        Finish();
        if (!bar_.isEmpty()) EXPECT_EQ(bar_.last(), u"off"_s);
    }

    WebService service_;
    QStringList bar_;
    QMap<int, QString> told_;
    NoticeToken busy_, tips_;
};

}  // namespace

TEST_F(ConversationTest, EntriesAreFetchedAndTheSiteForgetsThem) {
    OpenSettingsFile();
    State().settings.bWebOk = 0;
    for (const auto& [charset, crlf] : {std::pair{"utf-8", true}, {"gb18030", false}}) {
        service_.charset = charset;
        service_.crlf = crlf;
        service_.entries = {SiteLine(u"青禾 & <b>"_s + QString::fromLatin1(charset), FullFields()),
                            SiteLine(u"zwei"_s + QString::fromLatin1(charset))};
        Talk(WebTalk::fetch, {u"收到【2】条新的记账!"_s});
        EXPECT_EQ(service_.seen, (QStringList{kDrives, kDeletes}));
        EXPECT_EQ(service_.entries, QStringList());
    }
    EXPECT_EQ(bar_, (QStringList{u"on"_s, u"off"_s, u"on"_s, u"off"_s}));
    EXPECT_EQ(Dump(u"select Title1,Note1 from tAccountWeb where ID1=3"_s),
              QStringList{u"青禾 & <b>gb18030|一\r\n二"_s});
    EXPECT_EQ(told_, (QMap<int, QString>{{0, u"正常"_s}, {1, u"0"_s}, {2, u"lin"_s}}));
    EXPECT_EQ(Rows(State().gSetDB, u"select sWebName,sWebPass,bWebOk from tSetting"_s),
              QStringList{u"lin|geheim|1"_s});
    // Nothing came, so the site has nothing to forget.
    Talk(WebTalk::fetch, {u"收到【0】条新的记账!"_s});
    EXPECT_EQ(service_.seen, QStringList{kDrives});
}

TEST_F(ConversationTest, AnOldSettingsFileKeepsTheFlagInMemory) {
    OpenSettingsFile();
    State().gSetDB.Execute(u"alter table tSetting drop column bWebOk"_s);
    State().settings.bWebOk = 0;
    Talk(WebTalk::state, {});
    EXPECT_EQ(State().settings.bWebOk, 1);
    EXPECT_EQ(Rows(State().gSetDB, u"select sWebName,sWebBook from tSetting"_s), QStringList{u"lin|Book"_s});
}

TEST_F(ConversationTest, ADeliveryAgainIsAskedAboutAndTheSiteIsTold) {
    service_.forgets = false;
    service_.entries = {SiteLine(u"a"_s)};
    Talk(WebTalk::fetch, {u"收到【1】"_s});
    service_.entries << SiteLine(u"b"_s);
    boxes.Expect(u"有【1】条记账"_s, 0);
    Talk(WebTalk::fetch, {u"收到【1】"_s});
    EXPECT_EQ(service_.seen, (QStringList{kDrives, kDrives, kDeletes}));
    EXPECT_EQ(Dump(u"select Title1 from tAccountWeb"_s), (QStringList{u"a"_s, u"b"_s}));
    // What comes to the site while the question stands is not forgotten with the rest.
    service_.forgets = true;
    auto typed = Notices().webRowsChanged.Subscribe([&] { service_.entries << SiteLine(u"c"_s); });
    boxes.Expect(u"有【2】条记账"_s, 0);
    Talk(WebTalk::fetch, {u"收到【0】"_s, u"网站上又有了新的记账，请再次检查!"_s});
    EXPECT_EQ(service_.seen, (QStringList{kDrives, kDrives}));
    EXPECT_EQ(service_.entries.size(), 3);
    typed.reset();
    boxes.Expect(u"有【2】条记账"_s, 0);
    Talk(WebTalk::fetch, {u"收到【1】"_s});
    EXPECT_EQ(service_.entries, QStringList());
    EXPECT_EQ(Waiting().size(), 3);
}

TEST_F(ConversationTest, NoBoxStandsBetweenStoringAndTellingTheSite) {
    service_.entries = {SiteLine(u"a"_s)};
    service_.moods = {{u"getListDel.asp"_s, Mood::late}};
    Web().Begin(WebTalk::fetch);
    WaitFor([&] { return !Waiting().isEmpty() && service_.seen.size() == 2; });
    EXPECT_EQ(service_.seen, (QStringList{kDrives, kDeletes}));
    EXPECT_EQ(boxes.Seen(), QStringList());
    boxes.Expect(u"收到【1】"_s);
    Finish();
    // A site that does not take the word keeps its entries, and the user knows.
    service_.entries = {SiteLine(u"b"_s)};
    service_.moods = {{u"getListDel.asp"_s, Mood::refuses}};
    Talk(WebTalk::fetch, {u"收到【1】"_s, u"记账已收到，但未能通知网站：无效用户!"_s});
}

TEST_F(ConversationTest, ARedirectThatKeepsTheMethodIsFollowed) {
    for (const int status : {302, 307, 308}) {
        service_.leads = status;
        service_.entries = {SiteLine(QString::number(status))};
        service_.moods = {{u"getListData.asp"_s, Mood::leadsOn}};
        Talk(WebTalk::fetch, {u"收到【1】"_s});
        if (status == 302) continue;
        service_.moods = {{u"saveKindAcc.asp"_s, Mood::leadsOn}};
        Talk(WebTalk::upload, {u"已成功【上传】"_s});
        EXPECT_EQ(service_.seen.mid(1), QStringList(2, u"POST saveKindAcc.asp"_s));
    }
    ASSERT_EQ(service_.uploads.size(), 2U);
    EXPECT_EQ(service_.uploads[0][u"txtUser"_s], u"lin"_s);
}

TEST_F(ConversationTest, AUserWhoIsRefusedChangesNothingOfTheStoredOne) {
    State().settings.bWebOk = 1;
    Talk(WebTalk::validate, {u"用户名或密码错 或 无效获取验证信息!"_s}, u"x"_s, u"y"_s);
    EXPECT_EQ(State().settings.bWebOk, 1);
    WebConversation talk(WebTalk::validate, u"x"_s, u"y"_s);
    talk.TakeFields({{u"txtRet"_s, u"-1"_s}, {u"txtInfo"_s, u"book\r\nx"_s}});
    EXPECT_EQ(State().settings.sWebName, u"lin"_s);
    State().settings.bWebOk = 0;
    service_.users.insert(u"x"_s, u"y"_s);
    Talk(WebTalk::validate, {u"验证成功!"_s}, u"x"_s, u"y"_s);
    EXPECT_EQ(State().settings.sWebName, u"x"_s);
    EXPECT_EQ(State().settings.bWebOk, 1);
}

TEST_F(ConversationTest, AnUploadKeepsToTheBookItWasBegunWith) {
    service_.moods = {{u"upKindAcc.asp"_s, Mood::late}};
    ASSERT_TRUE(QFile::copy(Book().Path(), Path(u"other.jotdb"_s)));
    Web().Begin(WebTalk::upload);
    Book().Open(Path(u"other.jotdb"_s));
    boxes.Expect(u"账本已更换，没有上传!"_s);
    Finish();
    EXPECT_EQ(service_.uploads.size(), 0U);
}

TEST_F(ConversationTest, TheServiceReadsWhatTheUserTyped) {
    const QString odd = u" a&b#c+d%41'\"青禾=?/"_s;
    service_.users = {{odd, odd + u' '}};
    Talk(WebTalk::validate, {u"验证成功!"_s}, odd, odd + u' ');
    EXPECT_EQ(service_.seen, QStringList{u"GET getRegInfo.asp"_s});
    EXPECT_EQ(service_.last.keys(), (QStringList{u"cache"_s, u"pass"_s, u"user"_s}));
    EXPECT_EQ(State().settings.sWebName, odd);
    EXPECT_EQ(State().settings.sWebPass, odd + u' ');
    EXPECT_EQ(State().settings.sWebBook, u"book"_s);
    // Without a typed user it is the stored one.
    Talk(WebTalk::validate, {u"验证成功!"_s});
    EXPECT_EQ(service_.last.value(u"user"_s), odd);
    Talk(WebTalk::validate, {u"用户名或密码错 或 无效获取验证信息!"_s}, u"x"_s, u"y"_s);
    EXPECT_EQ(State().settings.sWebName, odd);
    EXPECT_EQ(told_[0], u"用户无效"_s);
    Talk(WebTalk::state, {});
    EXPECT_EQ(told_[0], u"正常"_s);
    EXPECT_EQ(State().settings.bWebOk, 1);
}

TEST_F(ConversationTest, TheUploadIsSentAsABrowserSendsIt) {
    struct Form {
        const char *charset, *method, *enctype;
    };
    for (const auto& [charset, method, enctype] :
         {Form{"gb2312", "POST", "application/x-www-form-urlencoded"},
          {"utf-8", "get", "multipart/form-data"},
          {"gb2312", "post", "multipart/form-data"}}) {
        service_.charset = charset;
        service_.method = method;
        service_.enctype = enctype;
        Talk(WebTalk::upload, {u"已成功【上传】事情分类到网站上您的账户【lin】!"_s});
        EXPECT_EQ(service_.seen.last(), QString::fromLatin1(method).toUpper() + u" saveKindAcc.asp"_s);
        EXPECT_EQ(service_.seen.size(), 2);
        EXPECT_EQ(service_.cookies, "upKindAcc.asp=1");  // of this conversation alone
    }
    ASSERT_EQ(service_.uploads.size(), 3U);
    EXPECT_EQ(service_.uploads[0], service_.uploads[1]);
    EXPECT_EQ(service_.uploads[0], service_.uploads[2]);
    const auto& sent = service_.uploads[0];
    EXPECT_EQ(sent.keys(), (QStringList{u"go"_s, u"sid"_s, u"txtAcc"_s, u"txtBookName"_s, u"txtKind"_s,
                                        u"txtPass"_s, u"txtUser"_s}));
    EXPECT_EQ(sent[u"txtAcc"_s], u"4∴01∴东华公司\r\n5∴02∴大宇公司\r\n6∴03∴开发项目\r\n7∴0301∴软件开发"_s);
    EXPECT_TRUE(sent[u"txtKind"_s].startsWith(u"9999∴00∴↑↓余额调整\r\n1∴01∴收入\r\n"_s));
    EXPECT_EQ((QStringList{sent[u"sid"_s], sent[u"txtBookName"_s], sent[u"txtPass"_s], sent[u"go"_s]}),
              (QStringList{u"青 1"_s, u"book"_s, u"geheim"_s, u"提交"_s}));
    // A field that holds what parted the fields before.
    service_.sid = u"x\n--"_s + QString::fromLatin1(service_.boundary) + u"--\n"_s;
    Talk(WebTalk::upload, {u"已成功【上传】"_s});
    EXPECT_EQ(service_.uploads.back()[u"sid"_s], QString(service_.sid).replace(u'\n', u"\r\n"_s));
    service_.uploadResult = u"1"_s;
    Talk(WebTalk::upload, {u"还有记录不能上传 或 账本名为空!"_s});
    service_.action = u"http://127.0.0.2/saveKindAcc.asp"_s;
    Talk(WebTalk::upload, {u"上传失败："_s});
    EXPECT_EQ(service_.seen.size(), 1);
}

TEST_F(ConversationTest, WithoutAnAddressOrAUserNothingIsAsked) {
    for (const char* base :
         {"", "http://example.com", "ftp://127.0.0.1", "https://u:p@example.com", "https://example.com/?a"}) {
        qputenv("JOT_WEB_BASE", base);
        Talk(WebTalk::fetch, {u"未设置网账服务的地址!"_s});
        Web().Check();
        EXPECT_FALSE(Web().IsRunning());
    }
    qputenv("JOT_WEB_BASE", "https://moque.example/a/");
    EXPECT_EQ(WebHomePage(), u"https://moque.example/a/jotAcc/index.asp"_s);
    EXPECT_EQ(RequestFor(WebScript::listCount, u"a b"_s, u"1"_s).url.toEncoded(),
              "https://moque.example/a/jotAcc/interface/getListCount.asp?user=a%20b&pass=1&cache="
              "2016-09-03%2014%3A16%3A20");
    State().settings.sWebName.clear();
    for (const auto talk : {WebTalk::fetch, WebTalk::upload, WebTalk::validate})
        Talk(talk, {u"无效用户!"_s});
    boxes.Expect(u"无效用户!"_s);
    UploadAsked();
    Web().Check();
    EXPECT_FALSE(Web().IsRunning());
}

TEST_F(ConversationTest, EveryMisbehaviourEndsWithAWordAndNothingStored) {
    service_.entries = {SiteLine(u"a"_s)};
    const std::pair<WebTalk, QString> talks[] = {
        {WebTalk::state, u"getRegState.asp"_s},  {WebTalk::validate, u"getRegInfo.asp"_s},
        {WebTalk::count, u"getListCount.asp"_s}, {WebTalk::fetch, u"getListData.asp"_s},
        {WebTalk::upload, u"upKindAcc.asp"_s},   {WebTalk::upload, u"saveKindAcc.asp"_s}};
    const QString words[] = {QString(),       u"验证失败："_s, QString(),
                             u"收取失败："_s, u"上传失败："_s, u"上传失败："_s};
    for (size_t i = 0; i < std::size(talks); ++i)
        for (const Mood mood :
             {Mood::reset, Mood::half, Mood::trickle, Mood::never, Mood::endless, Mood::endlessHead,
              Mood::notFound, Mood::broken, Mood::leadsAway, Mood::leadsRound, Mood::cut}) {
            SCOPED_TRACE(qPrintable(talks[i].second) + std::to_string(static_cast<int>(mood)));
            const auto& [talk, script] = talks[i];
            service_.moods = {{script, mood}};
            if (mood == Mood::cut && (i == 0 || i == 2 || i == 5)) continue;  // no text to cut
            const bool needsLimit = mood == Mood::trickle || mood == Mood::never || mood == Mood::endlessHead;
            Web().limitMs = needsLimit ? 300 : 10000;
            QStringList told;
            if (!words[i].isEmpty()) told << words[i] + (mood == Mood::endless ? u"网页太大"_s : QString());
            if (talk == WebTalk::count && mood == Mood::reset) told << kCannotReach;
            Talk(talk, told);
            EXPECT_EQ(told_[0], u"无法访问"_s);
            EXPECT_EQ(service_.seen.size(), mood == Mood::leadsRound ? 11 + (i == 5) : 1 + (i == 5));
            EXPECT_FALSE(boxes.Last().text.contains(u"geheim"_s));
        }
    EXPECT_EQ(Waiting(), QStringList());
    // What was given up is gone, and the network with it.
    WaitFor([&] { return service_.open == 0; });
    EXPECT_EQ(service_.open, 0);
    State().gProgramFolder = Path(u"nowhere"_s);
    Talk(WebTalk::fetch, {u"收取失败：程序不完整，缺少【jotnetwork】"_s});
    State().gProgramFolder.clear();
    service_.moods = {{u"getListData.asp"_s, Mood::silent}};
    Talk(WebTalk::fetch, {u"收取失败：网站没有正常回答"_s});
    service_.moods = {{u"getListData.asp"_s, Mood::leadsOn}};
    Web().limitMs = 30000;
    Talk(WebTalk::fetch, {u"收到【1】"_s});
    // What was stored stays, and the user knows that it may come again.
    service_.entries = {SiteLine(u"b"_s)};
    service_.moods = {{u"getListDel.asp"_s, Mood::broken}};
    Talk(WebTalk::fetch, {u"收到【1】"_s, u"记账已收到，但未能通知网站：网站回答了错误【500】"_s});
    EXPECT_EQ(Waiting().size(), 2);
}

TEST_F(ConversationTest, ACheckCountsRemindsAndTellsAnOutageOnce) {
    OpenSettingsFile();
    service_.entries = {SiteLine(u"a"_s), SiteLine(u"b"_s)};
    const auto check = [&] {
        Web().Check();
        Finish();
    };
    const auto reminders = [] {
        return Rows(State().gSetDB, u"select Title1,Date1,Time1,bWakeOk,iid from tAd"_s);
    };
    check();
    check();
    EXPECT_EQ(service_.seen, (QStringList{u"GET getListCount.asp"_s, u"GET getListCount.asp"_s}));
    EXPECT_EQ(told_[1], u"2"_s);
    EXPECT_EQ(reminders(), QStringList{u"您有 2 笔网账未入账!|2016-09-03|14:16:20|0|0"_s});
    for (const auto& count : {u"5"_s, u"0"_s, u"abc"_s}) {
        service_.count = count;
        check();
        EXPECT_EQ(told_[1], count == u"abc" ? u"0"_s : count);
    }
    EXPECT_EQ(reminders().size(), 1);
    Talk(WebTalk::fetch, {u"收到【2】"_s});
    EXPECT_EQ(reminders(), QStringList{u"您有 2 笔网账未入账!|2016-09-03|14:16:20|1|0"_s});
    service_.count = u"3"_s;
    SetClock(u"2016-09-04 09:00:00"_s);
    check();
    EXPECT_EQ(reminders(), QStringList{u"您有 3 笔网账未入账!|2016-09-04|09:00:00|0|0"_s});

    bool inFront = true;
    Web().isInFront = [&] { return inFront; };
    service_.moods = {{u"getListCount.asp"_s, Mood::reset}};
    check();
    EXPECT_EQ(told_[0], u"无法访问"_s);
    check();
    inFront = false;
    boxes.Expect(kCannotReach);
    WaitFor([&] { return boxes.Seen().last() == kCannotReach; });
    check();
    service_.moods.clear();
    check();
    EXPECT_EQ(told_[0], u"正常"_s);
    service_.moods = {{u"getListCount.asp"_s, Mood::reset}};
    boxes.Expect(kCannotReach);
    check();
}

TEST_F(ConversationTest, WhatTheUserStopsEndsWithoutAFailure) {
    struct Case {
        WebTalk talk;
        QString script, told;
    };
    const QString mayComeAgain = u"下次收取时，可能会再次收到这些记账。"_s;
    for (const auto& [talk, script, told] :
         {Case{WebTalk::fetch, u"getListData.asp"_s, u"收取已停止!"_s},
          {WebTalk::fetch, u"getListDel.asp"_s,
           u"收取已停止!\n记账已收到，但网站可能没有得到通知。"_s + mayComeAgain},
          {WebTalk::upload, u"upKindAcc.asp"_s, u"上传已停止!"_s},
          {WebTalk::upload, u"saveKindAcc.asp"_s, u"上传已停止!\n网站可能已收到这次上传。"_s},
          {WebTalk::validate, u"getRegInfo.asp"_s, u"验证已停止!"_s}}) {
        SCOPED_TRACE(qPrintable(script));
        told_.clear();
        service_.entries = {SiteLine(script)};
        service_.moods = {{script, Mood::late}};
        if (script == u"getListDel.asp") boxes.Expect(u"收到【1】"_s);
        boxes.Expect(told);
        Web().Begin(talk);
        WaitFor([&] { return !service_.seen.isEmpty() && service_.seen.last().endsWith(script); });
        Web().Stop();
        EXPECT_EQ(boxes.Last().text, told);
        EXPECT_FALSE(Web().IsRunning());
        EXPECT_EQ(bar_.last(), u"off"_s);
        EXPECT_NE(told_[0], u"无法访问"_s);
    }
    const auto stored = Waiting();
    EXPECT_EQ(stored.size(), 1);
    // The check goes on, and what waited behind it does not come.
    service_.seen.clear();
    service_.moods = {{u"getListCount.asp"_s, Mood::late}};
    Web().Check();
    Web().Begin(WebTalk::fetch);
    boxes.Expect(u"收取已停止!"_s);
    Web().Stop();
    Web().Stop();
    EXPECT_TRUE(Web().IsRunning());
    Finish();
    EXPECT_EQ(service_.seen, QStringList{u"GET getListCount.asp"_s});
    EXPECT_EQ(told_[1], u"1"_s);
    EXPECT_EQ(Waiting(), stored);
}

TEST_F(ConversationTest, OneRequestRunsAtATimeAndAnAnswerIsJudgedByTheOpenBook) {
    service_.entries = {SiteLine(u"a"_s)};
    Web().Check();
    Web().Check();
    boxes.Expect(u"网账需要的账本是：book，而您当前的账本是：other"_s);
    Web().Begin(WebTalk::fetch);
    EXPECT_EQ(bar_, QStringList{u"on"_s});  // though the check still runs
    boxes.Expect(u"验证成功!"_s);
    Web().Begin(WebTalk::validate);
    OpenEmpty(u"other.jotdb"_s);
    Finish();
    EXPECT_EQ(service_.seen, (QStringList{u"GET getListCount.asp"_s, kDrives, u"GET getRegInfo.asp"_s}));
    EXPECT_EQ(Waiting(), QStringList());
    // Given up in the middle, nothing of it comes later.
    Web().Begin(WebTalk::fetch);
    Web().Drop();
    for (int turn = 0; turn < 20; ++turn)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_EQ(service_.entries.size(), 1);
}
