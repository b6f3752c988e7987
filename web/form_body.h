#pragma once
// What a form sends, written in one of the three ways of browsers.

#include "web/page_reader.h"

struct FormField {
    QString name, value;
    bool isFile = false;  ///< a file that was not chosen
};

/// The fields that a form sends when this button of it is pressed, in the order of the page.
std::vector<FormField> FieldsOfForm(const WebPage& page, const PageElement& pressed);

struct FormBody {
    QByteArray bytes, contentType;
};

FormBody EncodeForm(const std::vector<FormField>& fields, FormEncoding encoding, const QString& charset);
