// What a browser sends of a form when its button is pressed.

#include "tests/support/fixture.h"
#include "web/upload_form.h"

using namespace Qt::StringLiterals;

namespace {

const QString kGo = u"<input type=submit value=提交>"_s;

// "POST go (type) body" of a page at /x/up.asp; the boundary of parts is B.
QByteArray Sent(const QString& html, const QString& charset = u"utf-8"_s) {
    const auto request =
        FillUploadForm(ReadPageText({html, charset}), QUrl(u"http://127.0.0.1:8/x/up.asp?q=1"_s));
    if (!request) return {};
    const QByteArray url = request->url.toEncoded().replace("http://127.0.0.1:8/x/", "");
    if (!request->post) return "GET " + url + request->contentType + request->body;
    QByteArray type = request->contentType, body = request->body;
    const QByteArray mark = "boundary=";
    if (const auto at = type.indexOf(mark); at >= 0) {
        const QByteArray boundary = type.mid(at + mark.size());
        EXPECT_GE(boundary.size(), 20);
        body.replace(boundary, "B");
        type.replace(boundary, "B");
    }
    return "POST " + url + " (" + type + ") " + body;
}

class FormTest : public Fixture {};

}  // namespace

TEST_F(FormTest, FieldsGoInTheWayOfTheFormInTheOrderOfThePage) {
    const QString fields =
        u"<input name=b value='1&amp;青'><textarea name='a\"\n'>x=y\nz</textarea><input type=file name=f>"
        u"<input name=b value=3>"_s;
    EXPECT_EQ(Sent(u"<form action='go?z=1#part'>"_s + fields + kGo),
              "GET go?b=1%26%E9%9D%92&a%22%0D%0A=x%3Dy%0D%0Az&f=&b=3");
    EXPECT_EQ(Sent(u"<form method=post enctype=unheard>"_s + fields + kGo, u"gbk"_s),
              "POST up.asp?q=1 (application/x-www-form-urlencoded) "
              "b=1%26%C7%E0&a%22%0D%0A=x%3Dy%0D%0Az&f=&b=3");
    EXPECT_EQ(Sent(u"<form method=post enctype='Multipart/Form-Data' action=go>"_s + fields + kGo, u"gbk"_s),
              "POST go (multipart/form-data; boundary=B) "
              "--B\r\nContent-Disposition: form-data; name=\"b\"\r\n\r\n1&\xC7\xE0\r\n"
              "--B\r\nContent-Disposition: form-data; name=\"a%22%0D%0A\"\r\n\r\nx=y\r\nz\r\n"
              "--B\r\nContent-Disposition: form-data; name=\"f\"; filename=\"\"\r\n"
              "Content-Type: application/octet-stream\r\n\r\n\r\n"
              "--B\r\nContent-Disposition: form-data; name=\"b\"\r\n\r\n3\r\n--B--\r\n");
    EXPECT_EQ(Sent(u"<form method=post enctype=text/plain action=go>"_s + fields + kGo),
              "POST go (text/plain) b=1&青\r\na\"\r\n=x=y\r\nz\r\nf=\r\nb=3\r\n");
}

TEST_F(FormTest, ThePressedButtonStandsOverItsForm) {
    const QString form = u"<form action=go method=post enctype=text/plain><input name=a value=1>"_s;
    const std::pair<QString, QByteArray> cases[] = {
        {u"formaction=other"_s, "POST other (text/plain) a=1\r\n"},
        {u"formaction=''"_s, "POST up.asp?q=1 (text/plain) a=1\r\n"},
        {u"formmethod=get name=n"_s, "GET go?a=1&n=%E6%8F%90%E4%BA%A4"},
        {u"formmethod=unheard"_s, "GET go?a=1"},
        {u"formenctype=unheard"_s, "POST go (application/x-www-form-urlencoded) a=1"},
        {u"formenctype=multipart/form-data formaction=/r/s"_s,
         "POST http://127.0.0.1:8/r/s (multipart/form-data; boundary=B) "
         "--B\r\nContent-Disposition: form-data; name=\"a\"\r\n\r\n1\r\n--B--\r\n"},
        // Nothing is sent.
        {u"formmethod=dialog"_s, {}},
        {u"disabled"_s, {}},
        {u"form=nobody"_s, {}},
        {u"formaction=http://127.0.0.1:9/x/go"_s, {}},
        {u"formaction=https://127.0.0.1:8/x/go"_s, {}},
        {u"formaction=//127.0.0.2:8/x/go"_s, {}},
        {u"formaction=javascript:1"_s, {}},
    };
    for (const auto& [attributes, expected] : cases)
        EXPECT_EQ(Sent(form + u"<input type=submit value=提交 "_s + attributes + u'>'), expected)
            << qPrintable(attributes);
}

TEST_F(FormTest, WhatBelongsToTheFormIsSent) {
    const std::pair<QString, QByteArray> cases[] = {
        // Named from outside; given away from inside; an id that another element has first.
        {u"<input name=o form=f value=1><form id=f action=go><input name=i value=2><input name=g form=h>"
         u"<input name=n form=''>"_s +
             kGo + u"</form><form id=h></form><textarea name=t form=f>3</textarea>"_s,
         "GET go?o=1&i=2&t=3"},
        {u"<p id=f><form id=f action=go><input name=a>"_s + kGo + u"</form><input name=b form=f>"_s,
         "GET go?a="},
        {u"<form id=f action=go><input name=a value=1></form><form action=no><input name=b>"
         u"<input type=submit value=提交 form=f></form>"_s,
         "GET go?a=1"},
        // Buttons that were not pressed, ticks, and what is disabled.
        {u"<form action=go><input type=image name=i><input type=reset name=r value=1><button "
         u"name=b>x</button>"
         u"<input type=submit name=s value=other><input type=checkbox name=c><input type=checkbox name=d "
         u"checked>"
         u"<input name=e disabled value=1><input value=nameless><input name=f readonly value=2>"_s +
             kGo,
         "GET go?d=on&f=2"},
        {u"<form action=go><fieldset disabled><p><legend><input name=no></legend></p>"
         u"<legend><input name=a></legend><legend><input name=no></legend><div><select name=no>"
         u"<option>1</select></div></fieldset><datalist><input name=no></datalist>"
         u"<template><input name=no></template>"_s +
             kGo,
         "GET go?a="},
        {u"<form action=go><input type=radio name=r value=1 checked><input type=radio name=r value=2 checked>"
         u"<input type=radio name=q value=3 checked><input type=hidden name=_charset_ value=x>"_s +
             kGo,
         "GET go?r=2&q=3&_charset_=utf-8"},
        {u"<form action=go><select multiple name=m><option selected>1<option>2<option selected value=z>3"
         u"<optgroup disabled><option selected>4</optgroup></select><select multiple "
         u"name=n><option>1</select>"
         u"<select name=o><option disabled>1<option>2</select><select name=p size=3><option>1</select>"
         u"<select name=q><option selected>1<option selected disabled>2</select>"_s +
             kGo,
         "GET go?m=1&m=z&o=2"}};
    for (const auto& [html, expected] : cases)
        EXPECT_EQ(Sent(html), expected) << qPrintable(html);
}
