#include "web/upload_form.h"

#include "store/chart.h"
#include "store/state.h"
#include "web/web_lines.h"

using namespace Qt::StringLiterals;

namespace {

QString UploadText(Chart chart) {
    QStringList lines;
    for (auto rows = State().gDB.OpenRecordset(u"select * from "_s + TableOf(chart).table); !rows.Eof();
         rows.MoveNext())
        lines << rows.Text(u"id1") + kFieldEnd + rows.Text(u"Sort1") + kFieldEnd + rows.Text(u"Name1");
    return lines.join(u"\r\n"_s);
}

// The value that belongs into an element; nullopt for any other element.
std::optional<QString> ValueFor(const PageElement& element) {
    const auto& settings = State().settings;
    if (element.tag == u"INPUT" && element.type == u"text") {
        if (element.name == u"txtUser") return settings.sWebName;
        if (element.name == u"txtBookName") return CurrentBook().Name;
    }
    if (element.tag == u"INPUT" && element.type == u"password" && element.name == u"txtPass")
        return settings.sWebPass;
    if (element.tag == u"TEXTAREA" && element.name == u"txtKind") return UploadText(Chart::kinds);
    if (element.tag == u"TEXTAREA" && element.name == u"txtAcc") return UploadText(Chart::accounts);
    return {};
}

bool IsSubmit(const PageElement& element) {
    return element.tag == u"INPUT" && element.type == u"submit" && element.value == u"提交";
}

// Buttons send their value only when they are pressed; files are not sent at all.
bool Sends(const PageElement& element) {
    static const QStringList buttons{u"submit"_s, u"image"_s, u"reset"_s, u"button"_s, u"file"_s};
    return element.sends && !element.name.isEmpty() && !buttons.contains(element.type);
}

QByteArray Encode(const WebPage& page, const PageElement& pressed, const QString& charset) {
    QByteArray body;
    for (const auto& element : page.elements) {
        const bool isPressed = &element == &pressed && !element.name.isEmpty() && element.sends;
        if (element.form != pressed.form || !(Sends(element) || isPressed)) continue;
        if (!body.isEmpty()) body += '&';
        const QString value =
            element.type == u"hidden" && element.name == u"_charset_" ? charset : element.value;
        body += FormEncoded(element.name, charset) + '=' + FormEncoded(value, charset);
    }
    return body;
}

std::optional<WebRequest> Press(const WebPage& page, const PageElement& button, const QUrl& from) {
    if (button.form < 0) return {};
    const auto& form = page.forms[static_cast<size_t>(button.form)];
    const QUrl base = page.base.isEmpty() ? from : from.resolved(QUrl(page.base));
    QUrl target = form.action.isEmpty() ? from : base.resolved(QUrl(form.action));
    target.setFragment({});
    if (!IsSpoken(target) || !IsSameOrigin(target, from)) return {};
    const QByteArray sent = Encode(page, button, form.charset);
    const QString name = target.fileName();
    if (form.method == u"post") return WebRequest{name, target, true, sent};
    QByteArray address = target.adjusted(QUrl::RemoveQuery).toEncoded();
    return WebRequest{name, QUrl::fromEncoded(address + '?' + sent, QUrl::StrictMode)};
}

}  // namespace

std::optional<WebRequest> FillUploadForm(WebPage form, const QUrl& page) {
    for (auto& element : form.elements) {
        if (IsSubmit(element)) return Press(form, element, page);
        if (const auto value = ValueFor(element)) element.value = *value;
    }
    return {};
}
