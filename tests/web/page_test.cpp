// What a browser would make of a page of the site.

#include "tests/support/fixture.h"
#include "web/page_reader.h"
#include "web/web_fields.h"

#include <QStringEncoder>

#include <random>

using namespace Qt::StringLiterals;

namespace {

// One line for each element: "INPUT text name=value (form)".
QString Shown(const WebPage& page) {
    QStringList lines;
    for (const auto& e : page.elements) {
        QString line =
            e.tag + u' ' + e.type + u' ' + e.name + u'=' + QString(e.value).replace(u"\r\n"_s, u"/"_s);
        if (e.form >= 0) line += u" ("_s + QString::number(e.form) + u')';
        lines << line + (e.sends ? u""_s : u" off"_s);
    }
    return lines.join(u'\n');
}

WebPage Read(const QString& html) {
    return ReadPageText({html, u"utf-8"_s});
}

QByteArray Gb(const QString& text) {
    QStringEncoder encoder("GB18030");
    return encoder.encode(text);
}

QString Repeated(const QString& text, int times) {
    return text.repeated(times);
}

class PageTest : public Fixture {};

}  // namespace

TEST_F(PageTest, ElementsComeAsABrowserGivesThem) {
    const std::pair<QString, QString> cases[] = {
        {u"<INPUT NAME=a VALUE='1'><input type=TEXT name=b value=\"&#8756;&lt;&amp;\"><Input type=unheard name=c>"_s,
         u"INPUT text a=1\nINPUT text b=∴<&\nINPUT text c="_s},
        {u"<textarea name=t>\neins\nzwei\r\ndrei\rvier&#13;&#10;fünf</textarea>"_s,
         u"TEXTAREA textarea t=eins/zwei/drei/vier/fünf"_s},
        {u"<input name=a value='x\ny\r\nz'>"_s, u"INPUT text a=x/y/z"_s},
        {u"<table><tr><td><input name=a><tr><td><textarea name=b>1</textarea></table><input name=c>"_s,
         u"INPUT text a=\nTEXTAREA textarea b=1\nINPUT text c="_s},
        {u"<!-- <input name=x> --><script>'<input name=y>'</script><title><input name=z></title><p><b>"
         u"<input name=a value=a>b<div><input name=b>"_s,
         u"INPUT text a=a\nINPUT text b="_s},
        {u"<table><form action=go method=post><tr><td><input type=hidden name=h value=1><input name=a></form>"
         u"<tr><td><input name=o></table><form><input name=q></form>"_s,
         u"INPUT hidden h=1 (0)\nINPUT text a= (0)\nINPUT text o=\nINPUT text q= (1)"_s},
        {u"<form><select name=s><option value=1>a<option selected>b  b</select><select "
         u"name=n></select><input type=checkbox"
         u" name=k checked><input type=radio name=r value=2><button name=u value=v>w</button><input disabled"
         u" name=d><input type=submit value=提交></form>"_s,
         u"SELECT select-one s=b b (0)\nSELECT select-one n= (0) off\nINPUT checkbox k=on (0)\n"
         u"INPUT radio r=2 (0) off\nBUTTON submit u=v (0)\nINPUT text d= (0) off\nINPUT submit =提交 (0)"_s},
        {u"nothing at all"_s, QString()},
    };
    for (const auto& [html, expected] : cases)
        EXPECT_EQ(Shown(Read(html)), expected) << qPrintable(html);
}

TEST_F(PageTest, MessagesAreTextsAloneWithoutTheirOuterBlanks) {
    const auto page = Read(
        u"<input name=a value='  1 '><input type=hidden name=h value=2><input type=password name=p>"
        u"<textarea name=t> \tx\n</textarea>"_s);
    const std::vector<std::pair<QString, QString>> expected{{u"a"_s, u"1"_s}, {u"t"_s, u"\tx\r\n"_s}};
    EXPECT_EQ(MessagesOf(page), expected);
}

TEST_F(PageTest, TheCodePageComesFromMarkHeaderOrPage) {
    const QString body = u"<input name=a value='青禾∴⊙€'>"_s;
    const QString says = u"<meta http-equiv=Content-Type content='text/html; charset=%1'>"_s;
    const QString old = u"<input name=a value='青禾∴⊙'>"_s;
    struct Case {
        QByteArray bytes;
        QString header;
        QString value;
    };
    const QString all = u"青禾∴⊙€"_s, some = u"青禾∴⊙"_s;
    const Case cases[] = {
        {body.toUtf8(), {}, all},
        {Gb(says.arg(u"gb2312"_s) + body), {}, all},
        {Gb(old), u"text/html; charset=GBK"_s, some},
        {"\xEF\xBB\xBF" + (says.arg(u"gb2312"_s) + body).toUtf8(), u"text/html;charset=gb2312"_s, all},
        {(says.arg(u"gb2312"_s) + body).toUtf8(), u"text/html; charset=\"utf-8\""_s, all},
        {Gb(body), u"text/html; charset=utf-8"_s, all},      // not what it says
        {(says.arg(u"gb2312"_s) + body).toUtf8(), {}, all},  // not what it says
        {body.toUtf8(), u"text/html; charset=never-heard-of"_s, all},
    };
    for (const auto& c : cases) {
        const auto page = ReadPage(c.bytes, CharsetOfHeader(c.header));
        ASSERT_EQ(page.elements.size(), 1U) << qPrintable(c.header);
        EXPECT_EQ(page.elements[0].value, c.value) << qPrintable(c.header);
    }
}

TEST_F(PageTest, LargeAndDeepPagesAreReadUpToALimit) {
    const auto deep = [](int levels) { return Read(Repeated(u"<div>"_s, levels) + u"<input name=a>"_s); };
    EXPECT_EQ(deep(1000).elements.size(), 1U);
    EXPECT_FALSE(deep(1001).fault.isEmpty());
    EXPECT_FALSE(Read(Repeated(u"<table><tr><td>"_s, 334)).fault.isEmpty());
    EXPECT_FALSE(Read(Repeated(u"<font size=1><p>"_s, 1100)).fault.isEmpty());
    // Tags that end by themselves are no levels.
    const auto rows =
        Read(u"<table>"_s + Repeated(u"<tr><td><p>x<input name=a><ul><li>1<li>2</ul>"_s, 10000));
    EXPECT_EQ(rows.elements.size(), 10000U);
    EXPECT_EQ(Read(Repeated(u"<p><b>x</p><div><span></div>"_s, 5000)).fault, QString());

    const QByteArray head = "<input name=a value=1><textarea name=t>", foot = "</textarea>";
    const auto filled = kLargestPage - head.size() - foot.size();
    EXPECT_EQ(ReadPage(head + QByteArray(filled, 'x') + foot, {}).elements.size(), 2U);
    EXPECT_FALSE(ReadPage(head + QByteArray(filled + 1, 'x') + foot, {}).fault.isEmpty());
}

// Texts that a parser takes for tags where a glance at the page does not.
TEST_F(PageTest, PagesMadeToStandInTheWayAreRefusedAtOnce) {
    const QString many = Repeated(u"<g>"_s, 6000), attributes = u"<input name=a "_s;
    for (const QString& page :
         {u"<svg><title>"_s + many + u"</title></svg>"_s, u"<math><style>"_s + many + u"</style>"_s,
          u"<!-- --!>"_s + many + u"-->"_s, u"<a =\">"_s + many + u"\">"_s, u"<a b==\">"_s + many + u"\">"_s,
          u"<table><tr><td><select><xmp><td>"_s + many + u"</xmp>"_s,
          u"<script><!--<script></script><style></script>"_s + many + u"</style>"_s})
        EXPECT_FALSE(Read(page).fault.isEmpty()) << qPrintable(page.left(30));
    QString row = attributes;
    for (int i = 0; i < 600; ++i)
        row += u"a%1=\"x > y\" "_s.arg(i);
    EXPECT_FALSE(Read(row + u'>').fault.isEmpty());
    EXPECT_EQ(
        Read(u"<svg></svg><select name=s><option>1</select>"_s + Repeated(u"<input name=a>"_s, 300)).fault,
        QString());
}

TEST_F(PageTest, APageThatStopsInTheMiddleIsKnown) {
    const QString whole = u"<form><!-- c --><input name=a value='<x>'><textarea name=t>1</textarea></form>"_s;
    EXPECT_FALSE(Read(whole).cut);
    EXPECT_FALSE(Read(whole + u" 1 < 2"_s).cut);
    for (qsizetype end = 1; end < whole.size(); ++end) {
        const QString part = whole.left(end);
        const bool between = part.endsWith(u'>') && !part.endsWith(u"<x>"_s) && !part.endsWith(u"name=t>"_s);
        EXPECT_EQ(Read(part).cut, !between) << qPrintable(part);
    }
}

TEST_F(PageTest, RandomBytesAreReadWithoutHarm) {
    std::mt19937 dice(16);
    const auto parts =
        QByteArray(
            "<input name=a>|<textarea>|</textarea>|<table>|<form>|</form>|<b>|<p>|</p>|<select>|<option>|"
            "\xE2\x88\xB4|<!--|-->|<svg>|</table>|<template>|<td>|&#0;|<a href='|<fieldset disabled>|"
            "<legend>|<form id=f>|<input type=radio checked form=f name=r>|<option selected>|"
            "<select multiple>|<datalist>")
            .split('|');
    const int wanted = qEnvironmentVariableIntValue("KESTRO_RANDOM_PAGES");
    for (int page = 0; page < std::max(wanted, 400); ++page) {
        QByteArray bytes;
        for (int i = 0; i < 250; ++i) {
            if (dice() % 4 == 0)
                bytes += parts[static_cast<qsizetype>(dice() % static_cast<size_t>(parts.size()))];
            else
                bytes += static_cast<char>(dice());
        }
        for (const auto& element : ReadPage(bytes, page % 2 ? u"gb2312"_s : QString()).elements)
            EXPECT_LE(element.value.size(), 2 * bytes.size());
    }
}

TEST_F(PageTest, FormValuesGoBackInTheCodePageOfTheForm) {
    EXPECT_EQ(FormEncoded(u"a b+&=青\n*-._~"_s, u"utf-8"_s), "a+b%2B%26%3D%E9%9D%92%0D%0A*-._%7E");
    EXPECT_EQ(FormEncoded(u"青∴"_s, u"gb2312"_s), "%C7%E0%A1%E0");
    EXPECT_EQ(FormEncoded(u"\U0001F600"_s, u"gbk"_s), "%26%23128512%3B");
    EXPECT_EQ(FormEncoded(u"\U0001F600"_s, u"gb18030"_s), "%949%FC6");
    EXPECT_EQ(AddressEncoded(u"aZ09 &#+%41'\"青"_s), "aZ09%20%26%23%2B%2541%27%22%E9%9D%92");
}
