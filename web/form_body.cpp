#include "web/form_body.h"

#include <QRandomGenerator>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

bool IsButton(const PageElement& element) {
    static const QStringList types{u"submit"_s, u"image"_s, u"reset"_s, u"button"_s};
    return types.contains(element.type);
}

FormBody InAddress(const std::vector<FormField>& fields, const QString& charset) {
    FormBody body{{}, "application/x-www-form-urlencoded"};
    for (const auto& field : fields) {
        if (!body.bytes.isEmpty()) body.bytes += '&';
        body.bytes += FormEncoded(field.name, charset) + '=' + FormEncoded(field.value, charset);
    }
    return body;
}

FormBody InLines(const std::vector<FormField>& fields, const QString& charset) {
    FormBody body{{}, "text/plain"};
    for (const auto& field : fields)
        body.bytes += FormBytes(field.name, charset) + '=' + FormBytes(field.value, charset) + "\r\n";
    return body;
}

QByteArray Part(const FormField& field, const QString& charset) {
    QByteArray name = FormBytes(field.name, charset);
    name.replace('"', "%22").replace('\r', "%0D").replace('\n', "%0A");
    const QByteArray file = "; filename=\"\"\r\nContent-Type: application/octet-stream";
    return "Content-Disposition: form-data; name=\"" + name + '"' + (field.isFile ? file : QByteArray()) +
           "\r\n\r\n" + FormBytes(field.value, charset) + "\r\n";
}

// Drawn anew, so that no page can name fields to meet it.
QByteArray Boundary() {
    std::array<quint32, 4> drawn{};
    QRandomGenerator::system()->fillRange(drawn.data(), drawn.size());
    QByteArray boundary = "----JotForm";
    for (const quint32 number : drawn)
        boundary += QByteArray::number(number, 16);
    return boundary;
}

FormBody InParts(const std::vector<FormField>& fields, const QString& charset) {
    std::vector<QByteArray> parts;
    for (const auto& field : fields)
        parts.push_back(Part(field, charset));
    QByteArray boundary = Boundary();
    while (std::any_of(parts.begin(), parts.end(), [&](const auto& p) { return p.contains(boundary); }))
        boundary = Boundary();
    FormBody body{{}, "multipart/form-data; boundary=" + boundary};
    for (const auto& part : parts)
        body.bytes += "--" + boundary + "\r\n" + part;
    body.bytes += "--" + boundary + "--\r\n";
    return body;
}

}  // namespace

std::vector<FormField> FieldsOfForm(const WebPage& page, const PageElement& pressed) {
    const QString& charset = page.forms[static_cast<size_t>(pressed.form)].charset;
    std::vector<FormField> fields;
    for (const auto& element : page.elements) {
        if (element.form != pressed.form || !element.sends || element.name.isEmpty()) continue;
        if (IsButton(element) && &element != &pressed) continue;
        if (element.tag == u"SELECT")
            for (const auto& choice : element.choices)
                fields.push_back({element.name, choice});
        else if (element.type == u"file")
            fields.push_back({element.name, {}, true});
        else if (element.type == u"hidden" && element.name == u"_charset_")
            fields.push_back({element.name, charset});
        else
            fields.push_back({element.name, element.value});
    }
    return fields;
}

FormBody EncodeForm(const std::vector<FormField>& fields, FormEncoding encoding, const QString& charset) {
    switch (encoding) {
        case FormEncoding::address:
            return InAddress(fields, charset);
        case FormEncoding::parts:
            return InParts(fields, charset);
        case FormEncoding::plain:
            return InLines(fields, charset);
    }
    return {};
}
