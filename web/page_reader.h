#pragma once
// A web page as a row of form elements, in the order of the document and with tag, type, name and value as a
// browser gives them.

#include "web/code_page.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// How a form's fields are written; an address always takes the first way.
enum class FormEncoding { address, parts, plain };

struct PageElement {
    QString tag;   ///< INPUT, TEXTAREA, SELECT or BUTTON
    QString type;  ///< in lower case; "text" where the page names none
    QString name;
    QString value;             ///< line breaks are CR LF
    QStringList choices = {};  ///< of a SELECT: all that are chosen; value is the first
    int form = -1;             ///< index of the form it belongs to, -1 for none
    bool sends = true;         ///< belongs to what its form sends: not disabled, and ticked where it can be
    // Of a button, where it names them: they stand over those of its form.
    std::optional<QString> action = {}, method = {};
    std::optional<FormEncoding> encoding = {};
};

struct PageForm {
    QString action;   ///< as it stands, relative to the page
    QString method;   ///< "get", "post", or "dialog", which sends nothing
    QString charset;  ///< code page of what is sent
    FormEncoding encoding = FormEncoding::address;
};

struct WebPage {
    QString fault;     ///< why the page is not read at all; empty when it is
    bool cut = false;  ///< it ends in the middle
    QString base;      ///< the address that the page names for relative ones; often empty
    std::vector<PageElement> elements;
    std::vector<PageForm> forms;
};

constexpr qsizetype kLargestPage = qsizetype{16} << 20;  ///< bytes

/// Reads bytes as they came; charset is the code page that the header told, or empty.
WebPage ReadPage(const QByteArray& bytes, const QString& charset);
/// Reads a page whose characters are known.
WebPage ReadPageText(const DecodedPage& page);
