#include "web/upload_form.h"

#include "store/chart.h"
#include "store/state.h"
#include "web/form_body.h"
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

std::optional<WebRequest> Press(const WebPage& page, const PageElement& button, const QUrl& from) {
    const auto& form = page.forms[static_cast<size_t>(button.form)];
    const QString action = button.action.value_or(form.action), method = button.method.value_or(form.method);
    if (method == u"dialog") return {};
    const QUrl base = page.base.isEmpty() ? from : from.resolved(QUrl(page.base));
    QUrl target = action.isEmpty() ? from : base.resolved(QUrl(action));
    target.setFragment({});
    if (!IsSpoken(target) || !IsSameOrigin(target, from)) return {};
    const bool post = method == u"post";
    const auto encoding = post ? button.encoding.value_or(form.encoding) : FormEncoding::address;
    const auto body = EncodeForm(FieldsOfForm(page, button), encoding, form.charset);
    const QString name = target.fileName();
    if (post) return WebRequest{name, target, true, body.bytes, body.contentType};
    QByteArray address = target.adjusted(QUrl::RemoveQuery).toEncoded();
    return WebRequest{name, QUrl::fromEncoded(address + '?' + body.bytes, QUrl::StrictMode)};
}

}  // namespace

std::optional<WebRequest> FillUploadForm(WebPage form, const QUrl& page) {
    for (auto& element : form.elements) {
        // A button that is disabled or stands in no form does nothing.
        if (IsSubmit(element) && element.sends && element.form >= 0) return Press(form, element, page);
        if (const auto value = ValueFor(element)) element.value = *value;
    }
    return {};
}
